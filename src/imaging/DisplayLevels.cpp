// The display's levels: level k is the image on white reduced by 2^k, each made from the
// one above it ahead of time (WarmDisplayLevels, on the prefetch worker). A reduction for
// display starts from the smallest level that already exists and is still as large, so a
// zoom step or the first paint of a prefetched image costs a small reduction; a reduction
// smaller than every level is kept as the last one. libvips'
// `reduce` (its kernels widen with the factor, so nothing aliases) does the reductions by
// more than a fifth: on this libvips it is several times faster than `shrink` for in-memory
// images.
#include "imaging/ImageInternal.h"
#include "imaging/ops/OpenCvBridge.h"

#include <algorithm>
#include <mutex>
#include <vector>

namespace imaging {

struct DisplayLevelCache {
  std::mutex mutex;
  std::vector<vips::VImage> levels;  // levels[0] is the image on white
};

std::shared_ptr<DisplayLevelCache> Image::Pixels::MakeDisplayLevelCache() { return std::make_shared<DisplayLevelCache>(); }

namespace {

// A reduction by a fifth at most, OpenCV's bicubic: a third of the time libvips' Lanczos-3
// takes, within half a level of it on a photo and a level and a half on fine detail (the
// bicubic does not widen with the factor, which so small a reduction does not need).
// Nothing when OpenCV cannot do it.
std::optional<vips::VImage> SlightlyReduced(const vips::VImage& image, int width, int height) {
  const bool plain = (image.bands() == 1 || image.bands() == 3) &&
                     (image.format() == VIPS_FORMAT_UCHAR || image.format() == VIPS_FORMAT_USHORT);
  if (!plain || width > image.width() || height > image.height()) return std::nullopt;
  if (width * 5 < image.width() * 4 || height * 5 < image.height() * 4) return std::nullopt;
  try {
    return ops::detail::ThroughOpenCv(image, [](const cv::Mat& from, cv::Mat& to) {
      cv::resize(from, to, to.size(), 0, 0, cv::INTER_CUBIC);
    }, cv::Size(width, height));
  } catch (const std::exception&) {
    return std::nullopt;
  }
}

}  // namespace

vips::VImage ReduceTo(const vips::VImage& image, int width, int height) {
  if (image.width() == width && image.height() == height) return image;
  if (auto slight = SlightlyReduced(image, width, height)) return *slight;
  const double h = double(image.width()) / width, v = double(image.height()) / height;
  const auto kernel = [](VipsKernel k) { return vips::VImage::option()->set("kernel", k); };
  if (std::max(h, v) <= 2.0) return image.reduce(h, v, kernel(VIPS_KERNEL_LANCZOS3)).copy_memory();
  // Large factors: a triangle filter as wide as the factor down to twice the target, then
  // Lanczos-3 for the last halving; as sharp as Lanczos all the way, and ten times faster.
  const double firstH = std::max(1.0, h / 2), firstV = std::max(1.0, v / 2);
  return image.reduce(firstH, firstV, kernel(VIPS_KERNEL_LINEAR))
      .reduce(h / firstH, v / firstV, kernel(VIPS_KERNEL_LANCZOS3))
      .copy_memory();
}

namespace {

// An 8-bit image without alpha is its own base level, taken without waiting for its rows;
// whoever reduces from the base waits for them (WaitForRows).
vips::VImage& BaseLevel(const Image& image, DisplayLevelCache& cache) {
  const bool own = !image.HasAlpha() && image.BitsPerSample() == 8;
  // A deep image's levels are 8-bit from the start: the screen shows no more.
  if (cache.levels.empty()) cache.levels.push_back(own ? image.Header().image : image.OnWhite().EightBit().Internal().image);
  return cache.levels.front();
}

// Levels stay in order of size, largest first, so a reduction starts from the smallest one
// still as large. Each is at most a quarter of the image and all of them together half of
// it (the half-size chain takes a third): the large reductions of a zoom are made again.
void Keep(DisplayLevelCache& cache, const vips::VImage& level) {
  const auto area = [](const vips::VImage& image) { return double(image.width()) * image.height(); };
  const double whole = area(cache.levels.front());
  double held = area(level);
  for (size_t i = 1; i < cache.levels.size(); ++i) held += area(cache.levels[i]);
  if (4 * area(level) > whole || 2 * held > whole) return;
  auto place = cache.levels.begin() + 1;
  while (place != cache.levels.end() && place->width() > level.width()) ++place;
  if (place != cache.levels.end() && place->width() == level.width() && place->height() == level.height()) return;
  cache.levels.insert(place, level);
}

}  // namespace

std::vector<vips::VImage> SmallDisplayLevels(const Image& image) {
  DisplayLevelCache& cache = *image.Header().levels;
  std::lock_guard lock(cache.mutex);
  std::vector<vips::VImage> small;
  double area = 0;
  for (size_t i = cache.levels.size(); i-- > 1;) {
    area += double(cache.levels[i].width()) * cache.levels[i].height();
    if (8.0 * area > double(image.Width()) * image.Height()) break;
    small.push_back(cache.levels[i]);
  }
  return small;
}

void AdoptDisplayLevels(const Image& image, const std::vector<vips::VImage>& levels) {
  DisplayLevelCache& cache = *image.Header().levels;
  std::lock_guard lock(cache.mutex);
  BaseLevel(image, cache);
  for (const vips::VImage& level : levels) Keep(cache, level);
}

Image Image::ReducedQuickly(int width, int height) const {
  width = std::clamp(width, 1, Width());
  height = std::clamp(height, 1, Height());
  try {
    const vips::VImage& pixels = Internal().image;
    vips::VImage image = HasAlpha() ? pixels.premultiply() : pixels;
    image = image.reduce(double(Width()) / width, double(Height()) / height, vips::VImage::option()->set("kernel", VIPS_KERNEL_LINEAR));
    if (HasAlpha()) image = image.unpremultiply();
    return FromInternal(Pixels{AsSamples(image, pixels.format()).copy_memory()});
  } catch (const vips::VError&) {
    vips_error_clear();
    return *this;  // the canvas reduces it when it paints
  }
}

Image Image::ReducedForDisplay(int width, int height) const {
  width = std::clamp(width, 1, Width());
  height = std::clamp(height, 1, Height());
  try {
    vips::VImage level;
    {
      DisplayLevelCache& cache = *pixels_->levels;
      std::lock_guard lock(cache.mutex);
      level = BaseLevel(*this, cache);
      for (const vips::VImage& smaller : cache.levels) {
        if (smaller.width() >= width && smaller.height() >= height) level = smaller;
      }
    }
    if (level.get_image() == pixels_->image.get_image()) WaitForRows(*pixels_);
    const vips::VImage reduced = ReduceTo(level, width, height);
    {
      // Kept: the same view shown again (after an undo, say) is ready.
      DisplayLevelCache& cache = *pixels_->levels;
      std::lock_guard lock(cache.mutex);
      Keep(cache, reduced);
    }
    return FromInternal(Pixels{reduced});
  } catch (const vips::VError&) {
    vips_error_clear();
    return OnWhite();
  }
}

void Image::WarmDisplayLevels(int smallestSide) const {
  DisplayLevelCache& cache = *pixels_->levels;
  try {
    vips::VImage last;
    {
      std::lock_guard lock(cache.mutex);
      BaseLevel(*this, cache);
      last = cache.levels.back();
    }
    if (last.get_image() == pixels_->image.get_image()) WaitForRows(*pixels_);
    // Each level is made without the lock, so a paint never waits for the warming.
    while (std::max(last.width(), last.height()) / 2 >= smallestSide && std::min(last.width(), last.height()) >= 2) {
      last = ReduceTo(last, last.width() / 2, last.height() / 2);
      std::lock_guard lock(cache.mutex);
      Keep(cache, last);
    }
  } catch (const vips::VError&) {
    vips_error_clear();
  }
}

}  // namespace imaging
