// The display's levels: level k is the image on white reduced by 2^k, each made from the
// one above it ahead of time (WarmDisplayLevels, on the prefetch worker). A reduction for
// display starts from the smallest level that already exists and is still as large, so a
// zoom step or the first paint of a prefetched image costs a small reduction; a reduction
// smaller than every level is kept as the last one. libvips'
// `reduce` (its kernels widen with the factor, so nothing aliases) is used throughout: on
// this libvips it is several times faster than `shrink` for in-memory images.
#include "imaging/ImageInternal.h"

#include <algorithm>
#include <mutex>
#include <vector>

namespace imaging {

struct DisplayLevelCache {
  std::mutex mutex;
  std::vector<vips::VImage> levels;  // levels[0] is the image on white
};

std::shared_ptr<DisplayLevelCache> Image::Pixels::MakeDisplayLevelCache() { return std::make_shared<DisplayLevelCache>(); }

vips::VImage ReduceTo(const vips::VImage& image, int width, int height) {
  if (image.width() == width && image.height() == height) return image;
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

vips::VImage& BaseLevel(const Image& image, DisplayLevelCache& cache) {
  // A deep image's levels are 8-bit from the start: the screen shows no more.
  if (cache.levels.empty()) cache.levels.push_back(image.OnWhite().EightBit().Internal().image);
  return cache.levels.front();
}

}  // namespace

std::optional<vips::VImage> SmallestDisplayLevel(const Image& image) {
  DisplayLevelCache& cache = *image.Internal().levels;
  std::lock_guard lock(cache.mutex);
  if (cache.levels.size() < 2) return std::nullopt;
  // Kept beside a packed state only while it costs little next to the whole image.
  const vips::VImage& smallest = cache.levels.back();
  if (4.0 * smallest.width() * smallest.height() > double(image.Width()) * image.Height()) return std::nullopt;
  return smallest;
}

void AdoptDisplayLevel(const Image& image, const vips::VImage& level) {
  DisplayLevelCache& cache = *image.Internal().levels;
  std::lock_guard lock(cache.mutex);
  BaseLevel(image, cache);
  if (level.width() < cache.levels.back().width()) cache.levels.push_back(level);
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
    const vips::VImage reduced = ReduceTo(level, width, height);
    {
      // Kept as the smallest level: the same view shown again (after an undo, say) is ready.
      DisplayLevelCache& cache = *pixels_->levels;
      std::lock_guard lock(cache.mutex);
      if (reduced.width() < cache.levels.back().width()) cache.levels.push_back(reduced);
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
    // Each level is made without the lock, so a paint never waits for the warming.
    while (std::max(last.width(), last.height()) / 2 >= smallestSide && std::min(last.width(), last.height()) >= 2) {
      last = ReduceTo(last, last.width() / 2, last.height() / 2);
      std::lock_guard lock(cache.mutex);
      if (cache.levels.back().width() > last.width()) cache.levels.push_back(last);
    }
  } catch (const vips::VError&) {
    vips_error_clear();
  }
}

}  // namespace imaging
