#pragma once
// The one loader of an image file for every view: the picture and its size at 100 %
// in twips, which every zoom computation starts from.

#include "base/Twips.h"
#include "imaging/Image.h"

#include <QSize>
#include <QString>

#include <functional>

#include <optional>

namespace files {

struct LoadedImage {
  imaging::Image Picture;
  base::NaturalSize Natural;
  int PaletteBits = 0;  // the file's palette depth, kept when the image is saved
  int Pages = 1;        // the pages a user can turn (a TIFF's, a DCX's, an icon's images)
  bool Animated = false;  // an animation: the picture is its first frame
  bool Preview = false;   // a camera RAW's embedded preview: DevelopRawFile gives the whole image
};

// Page `page` of the file (0 the first; an icon's images count largest first). A camera
// RAW opens on the preview it holds when that fills at least half the screen or half the
// developed image; otherwise it is developed at once.
std::optional<LoadedImage> LoadImageFile(const QString& path, const base::ScreenMetrics& metrics, int page = 0);

// The whole developed image of a camera RAW file.
std::optional<LoadedImage> DevelopRawFile(const QString& path, const base::ScreenMetrics& metrics);

// Quick pictures of a large image to show while the whole one is read, each handed to
// `deliver` as soon as it is made: a camera's EXIF thumbnail first, or else a JPEG decoded
// at 1/8 scale or a HEIF file's thumbnail; then the image decoded straight at a fraction of
// its size (imaging::LoadFitting) to fit `box`, the frame a fitted view shows in full
// quality. Each has the natural size of the whole image.
// Nothing for an image not much larger than the screen, which is read in a moment anyway.
using QuickPictureSink = std::function<bool(LoadedImage)>;  // false: no more are wanted
void LoadQuickPictures(const QString& path, QSize box, const base::ScreenMetrics& metrics, const QuickPictureSink& deliver);

}  // namespace files
