#pragma once
// OpenCV's filters on libvips' pixels: the picture, made contiguous in memory, is lent to
// OpenCV as a cv::Mat, and the result OpenCV writes becomes a libvips image without a copy.
// A failure of either library, or memory that cannot be had, throws OperationFailed.

#include "imaging/ImageInternal.h"

#include <opencv2/core.hpp>

#include <functional>

namespace imaging::ops::detail {

// `work(from, to)` fills `to`, of the same size and type as `from`.
vips::VImage ThroughOpenCv(const vips::VImage& picture, const std::function<void(const cv::Mat& from, cv::Mat& to)>& work);

}  // namespace imaging::ops::detail
