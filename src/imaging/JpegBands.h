#pragma once
// libjpeg reading a JPEG held in memory in bands of rows, for the imaging files only. Two
// bands decode at once: the lower one reads the rows above it without transforming them
// (about half the work of a row), so the upper band is the larger.

#include <QByteArray>

#include <csetjmp>
#include <cstddef>
#include <cstdio>
#include <optional>

#include <jpeglib.h>

namespace imaging {

// The decoded picture's layout, as libjpeg sizes it (scaled sides rounded up).
struct JpegShape {
  int StoredWidth = 0, StoredHeight = 0;  // before scaling
  int Width = 0, Height = 0, Bands = 0;
  int RowsPerStep = 1;  // the rows one row of MCUs gives
  bool Progressive = false;  // read whole before its first row comes out
  std::size_t Stride() const { return std::size_t(Width) * std::size_t(Bands); }
};

// The layout of `jpeg` scaled by 1/shrink (1, 2, 4 or 8); nullopt for CMYK and YCCK (left to
// libvips' transform) and for a header libjpeg cannot read.
std::optional<JpegShape> ReadJpegShape(const QByteArray& jpeg, int shrink);

// The first row of the lower band, on a row of MCUs; 0 when the picture is not worth two
// bands (progressive, or under two rows of MCUs).
int LowerBandStart(const JpegShape& shape);

// libjpeg's errors, and its warnings of damage it reads past, jump back to `Jump`.
struct JpegErrorTrap {
  jpeg_error_mgr Manager;
  std::jmp_buf Jump;
};

// One decompressor reading rows from `first` down. `jpeg` must outlive it.
class JpegBandReader {
 public:
  JpegBandReader(const QByteArray& jpeg, int shrink, const JpegShape& shape, int first);
  ~JpegBandReader();
  JpegBandReader(const JpegBandReader&) = delete;
  JpegBandReader& operator=(const JpegBandReader&) = delete;

  // The next row Read gives.
  int NextRow() const { return next_; }

  // Decodes the rows from NextRow() up to `end` (exclusive) into `into`, `stride` bytes apart;
  // false once libjpeg met an error or a warning of damage, which the usual reading then meets.
  bool Read(int end, unsigned char* into, std::size_t stride);

 private:
  bool Start();
  bool ReadRows(int end, unsigned char* into, std::size_t stride);

  const QByteArray& jpeg_;
  const int shrink_;
  const JpegShape shape_;
  int next_;
  jpeg_decompress_struct info_{};
  JpegErrorTrap trap_{};
  bool started_ = false, failed_ = false;
};

}  // namespace imaging
