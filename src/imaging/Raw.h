#pragma once
// Camera RAW files (CR2, CR3, NEF, ARW, DNG, RAF, ORF, RW2, PEF, SRW), read by LibRaw in
// the capped `vistrel-raw` helper process. A RAW opens on the preview the camera embedded
// (quick, full size on most cameras of today) and is developed only when the whole image
// is wanted: camera white balance, sRGB, 8 bits, upright.

#include "imaging/Image.h"

#include <QHash>
#include <QSize>
#include <QString>

#include <optional>

namespace imaging {

// Whether the file's type is a camera RAW (by its extension, as the decoder is chosen).
bool IsCameraRaw(const QString& path);

struct RawPreview {
  Image Picture;   // upright
  QSize Developed;  // the developed image's upright size
};

// The embedded preview, reduced to fit the box when one is given; nullopt when the file
// has none that we can read.
std::optional<RawPreview> ReadRawPreview(const QString& path, int maxWidth = 0, int maxHeight = 0);
// The whole developed image; `half` develops each 2x2 block of the sensor as one pixel,
// several times quicker, for a picture to look at.
std::optional<Image> DevelopRaw(const QString& path, bool half = false);

// What the camera recorded (make, model, lens, exposure, aperture, ISO, focal length, date
// taken, orientation), keyed by the names libvips gives EXIF's fields ("exif-ifd0-Make"),
// and the developed image's upright "width" and "height".
QHash<QString, QString> ReadRawFacts(const QString& path);

}  // namespace imaging
