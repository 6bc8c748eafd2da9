// What the operation files share: running a libvips pipeline safely and the form of
// its result.
#pragma once

#include "imaging/ImageInternal.h"
#include "imaging/Operations.h"

#include <algorithm>
#include <functional>

namespace imaging::ops::detail {

// The pipeline's result as an Image in memory: 8-bit when the pipeline made 8-bit
// samples, else in the sample format of its input.
Image Finish(const vips::VImage& result, VipsBandFormat inputFormat);

// Runs `pipeline` on the whole image; a libvips error or a failed allocation throws
// OperationFailed with the reason.
Image OnWholeImage(const Image& image, const std::function<vips::VImage(const vips::VImage&)>& pipeline);

// The same on the colour bands only; alpha is carried over untouched.
Image OnColourBands(const Image& image, const std::function<vips::VImage(const vips::VImage&)>& pipeline);

// A tone curve per colour band on the 0 .. 255 scale: curve(band, value), rounded and
// clamped. A deep image goes through it at 16 bits (value in steps of 1/257).
using ToneCurve = std::function<double(int band, double value)>;
Image ThroughCurve(const Image& image, const ToneCurve& curve);
vips::VImage CurveLut(const ToneCurve& curve, VipsBandFormat format = VIPS_FORMAT_UCHAR);  // three bands, or one when they agree

inline int Clamp(int value, int low, int high) { return std::clamp(value, low, high); }
inline double Clamp(double value, double low, double high) { return std::clamp(value, low, high); }

}  // namespace imaging::ops::detail
