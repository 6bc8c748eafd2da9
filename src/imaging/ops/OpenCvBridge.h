#pragma once
// OpenCV's filters on libvips' pixels: the picture, made contiguous in memory, is lent to
// OpenCV as a cv::Mat, and the result OpenCV writes becomes a libvips image without a copy.
// A failure of either library, or memory that cannot be had, throws OperationFailed.

#include "imaging/ImageInternal.h"

#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>

#include <algorithm>
#include <functional>
#include <optional>

namespace imaging::ops::detail {

// `work(from, to)` fills `to`, of the type of `from` and of `size` (when given) or its size.
vips::VImage ThroughOpenCv(const vips::VImage& picture, const std::function<void(const cv::Mat& from, cv::Mat& to)>& work,
                           std::optional<cv::Size> size = std::nullopt);

struct MapPoint {
  float X, Y;
};

// The picture resampled where `source(x, y)` says each result pixel comes from. The map is
// worked out a band of rows at a time on every core and handed to cv::remap: no map of the
// whole picture is ever held.
template <typename Source>
vips::VImage Remapped(const vips::VImage& picture, const Source& source, int interpolation, int border, const cv::Scalar& beyond = {}) {
  constexpr int kBandRows = 64;
  return ThroughOpenCv(picture, [&](const cv::Mat& from, cv::Mat& to) {
    const int width = from.cols, height = from.rows;
    cv::parallel_for_(cv::Range(0, (height + kBandRows - 1) / kBandRows), [&](const cv::Range& bands) {
      cv::Mat mapX(kBandRows, width, CV_32F), mapY(kBandRows, width, CV_32F);
      for (int band = bands.start; band < bands.end; ++band) {
        const int top = band * kBandRows, rows = std::min(kBandRows, height - top);
        for (int row = 0; row < rows; ++row) {
          float* xs = mapX.ptr<float>(row);
          float* ys = mapY.ptr<float>(row);
          for (int x = 0; x < width; ++x) {
            const MapPoint p = source(x, top + row);
            xs[x] = p.X;
            ys[x] = p.Y;
          }
        }
        cv::Mat target = to.rowRange(top, top + rows);
        cv::remap(from, target, mapX.rowRange(0, rows), mapY.rowRange(0, rows), interpolation, border, beyond);
      }
    });
  });
}

}  // namespace imaging::ops::detail
