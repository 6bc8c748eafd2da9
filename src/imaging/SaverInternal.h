#pragma once
// The formats libvips writes, shared by the in-memory saver and the streaming one.

#include "imaging/ImageInternal.h"
#include "imaging/Saver.h"

#include <QString>

#include <functional>
#include <optional>

namespace imaging {

struct VipsSaveSpec {
  QString Suffix;                           // ".jpg", ".png", ".tif", ".ppm": picks libvips' saver
  std::function<vips::VOption*()> Options;  // fresh for each call (libvips consumes them)
  bool OnWhite = false;                     // the format has no alpha
  bool Upright = false;                     // mark the pixels upright (EXIF orientation 1)
  bool HoldsSixteenBits = false;            // a deep image is written at 16 bits per sample
  bool HoldsProfile = false;                // the image's ICC profile is embedded; else sRGB is written
};

// nullopt for a format libvips does not write for us.
std::optional<VipsSaveSpec> VipsSaveSpecFor(const QString& lowerCaseExtension, const SaveOptions& options);

// The image as the saver takes it (alpha onto white, depth, orientation), still unevaluated.
vips::VImage PreparedForVipsSave(const Image& image, const VipsSaveSpec& spec);

}  // namespace imaging
