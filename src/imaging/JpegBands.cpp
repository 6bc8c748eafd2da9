#include "imaging/JpegBands.h"

#include <algorithm>

namespace imaging {

namespace {

[[noreturn]] void JumpOut(j_common_ptr info) { std::longjmp(reinterpret_cast<JpegErrorTrap*>(info->err)->Jump, 1); }

void JumpOutOnWarning(j_common_ptr info, int level) {
  if (level < 0) JumpOut(info);
}

void Quiet(j_common_ptr) {}

void SetTrap(jpeg_decompress_struct& info, JpegErrorTrap& trap) {
  info.err = jpeg_std_error(&trap.Manager);
  trap.Manager.error_exit = JumpOut;
  trap.Manager.emit_message = JumpOutOnWarning;
  trap.Manager.output_message = Quiet;
}

// Reads the header and sets the output to RGB or grey, scaled by 1/shrink; false for CMYK
// and YCCK. Call with the trap set and `info` created.
bool ReadHeader(jpeg_decompress_struct& info, const QByteArray& jpeg, int shrink) {
  jpeg_mem_src(&info, reinterpret_cast<const unsigned char*>(jpeg.constData()), static_cast<unsigned long>(jpeg.size()));
  jpeg_read_header(&info, TRUE);
  info.scale_num = 1;
  info.scale_denom = static_cast<unsigned>(shrink);
  if (info.jpeg_color_space == JCS_GRAYSCALE) {
    info.out_color_space = JCS_GRAYSCALE;
  } else if (info.jpeg_color_space == JCS_YCbCr || info.jpeg_color_space == JCS_RGB) {
    info.out_color_space = JCS_RGB;
  } else {
    return false;
  }
  return true;
}

}  // namespace

std::optional<JpegShape> ReadJpegShape(const QByteArray& jpeg, int shrink) {
  jpeg_decompress_struct info{};
  JpegErrorTrap trap{};
  SetTrap(info, trap);
  JpegShape shape;
  if (setjmp(trap.Jump) != 0) {
    jpeg_destroy_decompress(&info);
    return std::nullopt;
  }
  jpeg_create_decompress(&info);
  const bool supported = ReadHeader(info, jpeg, shrink);
  if (supported) {
    jpeg_calc_output_dimensions(&info);
    shape.StoredWidth = int(info.image_width);
    shape.StoredHeight = int(info.image_height);
    shape.Width = int(info.output_width);
    shape.Height = int(info.output_height);
    shape.Bands = info.output_components;
    shape.RowsPerStep = info.max_v_samp_factor * info.min_DCT_scaled_size;
    shape.Progressive = jpeg_has_multiple_scans(&info);
  }
  jpeg_destroy_decompress(&info);
  if (!supported) return std::nullopt;
  return shape;
}

int LowerBandStart(const JpegShape& shape) {
  constexpr double kUpperShare = 0.62;  // on 24 MP photos, anything from 0.5 to 0.75 did as well
  const int steps = (shape.Height + shape.RowsPerStep - 1) / shape.RowsPerStep;
  if (shape.Progressive || steps < 2) return 0;
  return std::clamp(int(steps * kUpperShare + 0.5), 1, steps - 1) * shape.RowsPerStep;
}

JpegBandReader::JpegBandReader(const QByteArray& jpeg, int shrink, const JpegShape& shape, int first)
    : jpeg_(jpeg), shrink_(shrink), shape_(shape), next_(first) {
  SetTrap(info_, trap_);
}

// Safe before the decompressor is created too: libjpeg then has nothing to free.
JpegBandReader::~JpegBandReader() { jpeg_destroy_decompress(&info_); }

bool JpegBandReader::Start() {
  jpeg_create_decompress(&info_);
  if (!ReadHeader(info_, jpeg_, shrink_)) return false;
  jpeg_start_decompress(&info_);
  if (int(info_.output_width) != shape_.Width || int(info_.output_height) != shape_.Height) return false;
  return next_ == 0 || jpeg_skip_scanlines(&info_, JDIMENSION(next_)) == JDIMENSION(next_);
}

bool JpegBandReader::Read(int end, unsigned char* into, std::size_t stride) {
  if (failed_) return false;
  if (setjmp(trap_.Jump) != 0) {
    failed_ = true;
    return false;
  }
  if (!started_) {
    started_ = true;
    if (!Start()) {
      failed_ = true;
      return false;
    }
  }
  failed_ = !ReadRows(std::min(end, shape_.Height), into, stride);
  return !failed_;
}

bool JpegBandReader::ReadRows(int end, unsigned char* into, std::size_t stride) {
  constexpr int kRowsAtOnce = 16;
  JSAMPROW rows[kRowsAtOnce];
  while (next_ < end) {
    const int count = std::min(kRowsAtOnce, end - next_);
    for (int i = 0; i < count; ++i) rows[i] = into + std::size_t(i) * stride;
    const int read = int(jpeg_read_scanlines(&info_, rows, JDIMENSION(count)));
    if (read == 0) return false;
    next_ += read;
    into += std::size_t(read) * stride;
  }
  return true;
}

}  // namespace imaging
