#pragma once
// What a photo says about itself, read from its header by libvips: camera, lens, exposure,
// aperture, ISO, focal length, date taken, orientation, colour profile and GPS position,
// each only when the file records it.

#include <QDateTime>
#include <QString>

#include <optional>
#include <utility>
#include <vector>

namespace imaging {

// (name, value) rows in that order; empty for a file without such metadata.
std::vector<std::pair<QString, QString>> ReadPhotoMetadata(const QString& path);

// When the photo was taken, as its EXIF records it (read by exiv2 from the header alone);
// nullopt when the file says nothing of it.
std::optional<QDateTime> ReadDateTaken(const QString& path);

}  // namespace imaging
