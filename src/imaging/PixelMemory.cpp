// A 24-megapixel picture is 72 MB: filled page by 4 KB page, the kernel's faults cost about
// 30 ms of each decode and each operation. Large pictures are given memory the kernel may
// back with 2 MB pages instead (it does so for memory advised so, where huge pages are on).
#include "imaging/ImageInternal.h"

#include <sys/mman.h>

#include <cstdlib>
#include <new>

namespace imaging {

namespace {

constexpr size_t kHugePage = size_t(2) << 20;
constexpr size_t kLargePicture = size_t(16) << 20;

bool InMemoryAlready(const vips::VImage& image) {
  const VipsImageType type = image.get_image()->dtype;
  return type == VIPS_IMAGE_SETBUF || type == VIPS_IMAGE_SETBUF_FOREIGN;
}

}  // namespace

void* AllocatePixels(size_t bytes) {
  if (bytes < kLargePicture) return g_try_malloc(bytes);
  // Freed with g_free, which is free(): glib allocates with the C library.
  void* pixels = std::aligned_alloc(kHugePage, (bytes + kHugePage - 1) / kHugePage * kHugePage);
  if (pixels) (void)::madvise(pixels, bytes, MADV_HUGEPAGE);
  return pixels;
}

vips::VImage InMemory(const vips::VImage& image) {
  const size_t bytes = VIPS_IMAGE_SIZEOF_IMAGE(image.get_image());
  if (bytes < kLargePicture || InMemoryAlready(image)) return image.copy_memory();
  void* pixels = AllocatePixels(bytes);
  if (!pixels) throw std::bad_alloc();
  vips::VImage memory =
      vips::VImage::new_from_memory_steal(pixels, bytes, image.width(), image.height(), image.bands(), image.format());
  image.write(memory);  // the header and metadata come along, as with copy_memory
  return memory;
}

}  // namespace imaging
