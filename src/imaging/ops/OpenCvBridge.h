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
#include <type_traits>

namespace imaging::ops::detail {

// `work(from, to)` fills `to`, of the type of `from` and of `size` (when given) or its size.
vips::VImage ThroughOpenCv(const vips::VImage& picture, const std::function<void(const cv::Mat& from, cv::Mat& to)>& work,
                           std::optional<cv::Size> size = std::nullopt);

// The same for work on each pixel alone, run on bands of rows on every core: a chain of
// passes goes over a band while it is in the cache rather than over the whole picture.
vips::VImage ThroughOpenCvInBands(const vips::VImage& picture, const std::function<void(const cv::Mat& from, cv::Mat& to)>& work);

struct MapPoint {
  float X, Y;
};

// The columns [First, Last) of a row where the map may move pixels; elsewhere it is the
// identity, whose result is the source pixel itself.
struct ColumnSpan {
  int First, Last;
};

// The columns of rows [top, bottom) that `span(y)` names for any of them, within [0, width);
// First >= Last when it names none.
template <typename RowSpan>
ColumnSpan BandSpan(int top, int bottom, int width, const RowSpan& span) {
  ColumnSpan band{width, 0};
  for (int y = top; y < bottom; ++y) {
    const ColumnSpan row = span(y);
    if (row.First < row.Last) band = {std::min(band.First, std::max(0, row.First)), std::max(band.Last, std::min(width, row.Last))};
  }
  return band;
}

// The picture resampled where `source(x, y)` says each result pixel comes from. The map is
// worked out a band of rows at a time on every core and handed to cv::remap: no map of the
// whole picture is ever held. `changed(y)`, when given, bounds the columns the map moves in
// row y; the rest of a band is copied.
template <typename Source, typename Changed = std::nullptr_t>
vips::VImage Remapped(const vips::VImage& picture, const Source& source, int interpolation, int border,
                      const cv::Scalar& beyond = {}, const Changed& changed = nullptr) {
  constexpr int kBandRows = 64;
  return ThroughOpenCv(picture, [&](const cv::Mat& from, cv::Mat& to) {
    const int width = from.cols, height = from.rows;
    cv::parallel_for_(cv::Range(0, (height + kBandRows - 1) / kBandRows), [&](const cv::Range& bands) {
      cv::Mat mapX(kBandRows, width, CV_32F), mapY(kBandRows, width, CV_32F);
      for (int band = bands.start; band < bands.end; ++band) {
        const int top = band * kBandRows, rows = std::min(kBandRows, height - top);
        ColumnSpan span{0, width};
        if constexpr (!std::is_same_v<Changed, std::nullptr_t>) {
          span = BandSpan(top, top + rows, width, changed);
          if (span.First > 0 || span.Last < width) from.rowRange(top, top + rows).copyTo(to.rowRange(top, top + rows));
          if (span.First >= span.Last) continue;
        }
        const int columns = span.Last - span.First;
        for (int row = 0; row < rows; ++row) {
          float* xs = mapX.ptr<float>(row);
          float* ys = mapY.ptr<float>(row);
          for (int x = 0; x < columns; ++x) {
            const MapPoint p = source(span.First + x, top + row);
            xs[x] = p.X;
            ys[x] = p.Y;
          }
        }
        cv::Mat target = to(cv::Range(top, top + rows), cv::Range(span.First, span.Last));
        cv::remap(from, target, mapX(cv::Range(0, rows), cv::Range(0, columns)), mapY(cv::Range(0, rows), cv::Range(0, columns)),
                  interpolation, border, beyond);
      }
    });
  });
}

}  // namespace imaging::ops::detail
