#include "imaging/ops/OpenCvBridge.h"

#include "imaging/Operations.h"

#include <memory>
#include <new>

namespace imaging::ops::detail {

vips::VImage ThroughOpenCv(const vips::VImage& picture, const std::function<void(const cv::Mat& from, cv::Mat& to)>& work,
                           std::optional<cv::Size> size) {
  const vips::VImage in = InMemory(picture);
  const int type = CV_MAKETYPE(IsDeep(in) ? CV_16U : CV_8U, in.bands());
  const cv::Size shape = size.value_or(cv::Size(in.width(), in.height()));
  const size_t bytes = size_t(shape.width) * size_t(shape.height) * VIPS_IMAGE_SIZEOF_PEL(in.get_image());
  std::unique_ptr<void, decltype(&g_free)> result(AllocatePixels(bytes), &g_free);
  if (!result) throw std::bad_alloc();
  try {
    const cv::Mat from(in.height(), in.width(), type, const_cast<void*>(in.data()));
    cv::Mat to(shape, type, result.get());
    work(from, to);
  } catch (const cv::Exception& error) {
    throw OperationFailed(error.err.empty() ? std::string("OpenCV failed") : error.err);
  }
  vips::VImage out = vips::VImage::new_from_memory_steal(result.release(), bytes, shape.width, shape.height, in.bands(), in.format());
  out.get_image()->Type = in.interpretation();  // set on the fresh image itself: a copy() would cost a pass over it
  return out;
}

vips::VImage ThroughOpenCvInBands(const vips::VImage& picture, const std::function<void(const cv::Mat& from, cv::Mat& to)>& work) {
  constexpr int kBandRows = 32;
  return ThroughOpenCv(picture, [&work](const cv::Mat& from, cv::Mat& to) {
    cv::parallel_for_(cv::Range(0, (from.rows + kBandRows - 1) / kBandRows), [&](const cv::Range& bands) {
      for (int band = bands.start; band < bands.end; ++band) {
        const cv::Range rows(band * kBandRows, std::min(from.rows, (band + 1) * kBandRows));
        cv::Mat target = to.rowRange(rows);
        work(from.rowRange(rows), target);
      }
    });
  });
}

}  // namespace imaging::ops::detail
