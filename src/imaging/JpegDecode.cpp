#include "imaging/JpegDecode.h"
#include "base/FileNames.h"

#include "imaging/ImageInternal.h"

#include <QFile>

#include <algorithm>
#include <csetjmp>
#include <cstddef>
#include <cstdio>
#include <thread>

#include <jpeglib.h>

namespace imaging {

namespace {

// A JPEG larger than this is left to libvips, which reads it a piece at a time.
constexpr qint64 kLargestFileInMemory = qint64(256) << 20;

// libjpeg's errors, and its warnings of damage it reads past, jump back out of the decode.
struct ErrorTrap {
  jpeg_error_mgr Manager;
  std::jmp_buf Jump;
};

[[noreturn]] void JumpOut(j_common_ptr info) { std::longjmp(reinterpret_cast<ErrorTrap*>(info->err)->Jump, 1); }

void JumpOutOnWarning(j_common_ptr info, int level) {
  if (level < 0) JumpOut(info);
}

void Quiet(j_common_ptr) {}

// Runs `work` on a decompressor that has read the header and is set to scale by 1/shrink;
// false when libjpeg met an error or a warning, or `work` gave up. `work` must own nothing
// that needs destroying: an error jumps out of it.
template <typename Work>
bool WithDecompressor(const QByteArray& jpeg, int shrink, Work work) {
  jpeg_decompress_struct info{};
  ErrorTrap trap{};
  info.err = jpeg_std_error(&trap.Manager);
  trap.Manager.error_exit = JumpOut;
  trap.Manager.emit_message = JumpOutOnWarning;
  trap.Manager.output_message = Quiet;
  if (setjmp(trap.Jump) != 0) {
    jpeg_destroy_decompress(&info);
    return false;
  }
  jpeg_create_decompress(&info);
  jpeg_mem_src(&info, reinterpret_cast<const unsigned char*>(jpeg.constData()), static_cast<unsigned long>(jpeg.size()));
  jpeg_read_header(&info, TRUE);
  info.scale_num = 1;
  info.scale_denom = static_cast<unsigned>(shrink);
  const bool done = work(info);
  jpeg_destroy_decompress(&info);
  return done;
}

// The decoded picture's layout, as libjpeg sizes it (scaled sides rounded up).
struct Shape {
  int StoredWidth = 0, StoredHeight = 0;  // before scaling
  int Width = 0, Height = 0, Bands = 0;
  int RowsPerStep = 1;  // the rows one row of MCUs gives
  bool Progressive = false;
  std::size_t Stride() const { return std::size_t(Width) * std::size_t(Bands); }
};

bool SetOutputColours(jpeg_decompress_struct& info) {
  if (info.jpeg_color_space == JCS_GRAYSCALE) {
    info.out_color_space = JCS_GRAYSCALE;
  } else if (info.jpeg_color_space == JCS_YCbCr || info.jpeg_color_space == JCS_RGB) {
    info.out_color_space = JCS_RGB;
  } else {
    return false;  // CMYK and YCCK take libvips' transform
  }
  return true;
}

std::optional<Shape> ReadShape(const QByteArray& jpeg, int shrink) {
  Shape shape;
  const bool read = WithDecompressor(jpeg, shrink, [&shape](jpeg_decompress_struct& info) {
    if (!SetOutputColours(info)) return false;
    jpeg_calc_output_dimensions(&info);
    shape.StoredWidth = int(info.image_width);
    shape.StoredHeight = int(info.image_height);
    shape.Width = int(info.output_width);
    shape.Height = int(info.output_height);
    shape.Bands = info.output_components;
    shape.RowsPerStep = info.max_v_samp_factor * info.min_DCT_scaled_size;
    shape.Progressive = jpeg_has_multiple_scans(&info);
    return true;
  });
  if (!read) return std::nullopt;
  return shape;
}

// Rows [first, last) of the scaled picture into their place in `pixels`. A band that starts
// lower reads the rows above it without transforming them.
bool DecodeBand(const QByteArray& jpeg, int shrink, const Shape& shape, int first, int last, unsigned char* pixels) {
  return WithDecompressor(jpeg, shrink, [&](jpeg_decompress_struct& info) {
    SetOutputColours(info);
    jpeg_start_decompress(&info);
    if (first > 0 && jpeg_skip_scanlines(&info, JDIMENSION(first)) != JDIMENSION(first)) return false;
    constexpr int kRowsAtOnce = 16;
    JSAMPROW rows[kRowsAtOnce];
    while (int(info.output_scanline) < last) {
      const int at = int(info.output_scanline), count = std::min(kRowsAtOnce, last - at);
      for (int i = 0; i < count; ++i) rows[i] = pixels + std::size_t(at + i) * shape.Stride();
      if (jpeg_read_scanlines(&info, rows, JDIMENSION(count)) == 0) return false;
    }
    jpeg_abort_decompress(&info);
    return true;
  });
}

// Where the lower band starts: the upper one transforms its rows while the lower one first
// reads them without transforming (about half the work), so the upper band is the larger.
int SplitRow(const Shape& shape) {
  constexpr double kUpperShare = 0.62;
  const int steps = (shape.Height + shape.RowsPerStep - 1) / shape.RowsPerStep;
  return std::clamp(int(steps * kUpperShare + 0.5), 1, std::max(1, steps - 1)) * shape.RowsPerStep;
}

bool DecodeInto(const QByteArray& jpeg, int shrink, const Shape& shape, int threads, unsigned char* pixels) {
  // A progressive file is read whole before its first row comes out: a second band would
  // only read it again.
  const bool twoBands = threads > 1 && !shape.Progressive && shape.Height >= 2 * shape.RowsPerStep;
  if (!twoBands) return DecodeBand(jpeg, shrink, shape, 0, shape.Height, pixels);
  const int split = SplitRow(shape);
  bool lowerDone = false;
  std::thread lower([&] { lowerDone = DecodeBand(jpeg, shrink, shape, split, shape.Height, pixels); });
  const bool upperDone = DecodeBand(jpeg, shrink, shape, 0, split, pixels);
  lower.join();
  return upperDone && lowerDone;
}

}  // namespace

std::optional<vips::VImage> DecodeJpeg(const QString& path, const vips::VImage& header, int shrink, int threads) {
  QFile file;
  if (!base::OpenForReading(file, path) || file.size() > kLargestFileInMemory) return std::nullopt;
  const QByteArray jpeg = base::ReadWhole(file, kLargestFileInMemory);
  const auto shape = ReadShape(jpeg, shrink);
  if (!shape || shape->StoredWidth != header.width() || shape->StoredHeight != header.height()) return std::nullopt;
  // Memory of our own, which the kernel may back with huge pages, as every large picture's.
  const std::size_t size = shape->Stride() * std::size_t(shape->Height);
  void* pixels = AllocatePixels(size);
  if (!pixels) return std::nullopt;
  vips::VImage decoded =
      vips::VImage::new_from_memory_steal(pixels, size, shape->Width, shape->Height, shape->Bands, VIPS_FORMAT_UCHAR);
  // Any damage, even one libjpeg only warns of, goes the usual way, where it is told as always.
  if (!DecodeInto(jpeg, shrink, *shape, threads, static_cast<unsigned char*>(pixels))) return std::nullopt;
  // libjpeg rounds a scaled side up and libvips down.
  const int keptWidth = std::max(1, shape->StoredWidth / shrink), keptHeight = std::max(1, shape->StoredHeight / shrink);
  if (keptWidth != shape->Width || keptHeight != shape->Height) {
    decoded = InMemory(decoded.extract_area(0, 0, keptWidth, keptHeight));
  }
  CopyMetadata(header, decoded);
  return decoded;
}

}  // namespace imaging
