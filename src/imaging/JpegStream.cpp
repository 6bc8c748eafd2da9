// A JPEG read once from top to bottom (vistrel-cli's streamed commands) is decoded in two
// bands at once: the upper band's rows straight into the pipeline as it asks for them, the
// lower band into memory on a thread of its own from the start, its rows handed on once it
// is complete. Only the lower band is held whole: fresh memory costs the kernel's clearing.
#include "imaging/ImageInternal.h"
#include "imaging/JpegBands.h"
#include "imaging/JpegDecode.h"

#include <atomic>
#include <condition_variable>
#include <cstring>
#include <memory>
#include <mutex>
#include <thread>

namespace imaging {

namespace {

using Pixels = std::unique_ptr<unsigned char, decltype(&g_free)>;

class DecodingPicture {
 public:
  DecodingPicture(QByteArray jpeg, const JpegShape& shape, int lowerStart, Pixels lower)
      : jpeg_(std::move(jpeg)), shape_(shape), lowerStart_(lowerStart), lower_(std::move(lower)), upper_(jpeg_, 1, shape_, 0) {}

  ~DecodingPicture() {
    abandoned_ = true;
    if (lowerReader_.joinable()) lowerReader_.join();
  }

  DecodingPicture(const DecodingPicture&) = delete;
  DecodingPicture& operator=(const DecodingPicture&) = delete;

  void StartLowerBand() {
    if (lowerStart_ < shape_.Height) lowerReader_ = std::thread([this] { DecodeLowerBand(); });
  }

  // Whole rows, asked for in order: the upper band's decoded straight into `into`, the lower
  // band's copied once it is complete. False on damage or on rows asked out of order.
  bool Fill(const VipsRect& rows, unsigned char* into, std::size_t stride) {
    if (rows.left != 0 || rows.width != shape_.Width) return false;
    const int bottom = rows.top + rows.height;
    if (rows.top < lowerStart_) {
      const std::lock_guard<std::mutex> lock(upperLock_);
      const int end = std::min(bottom, lowerStart_);
      if (upper_.NextRow() != rows.top || !upper_.Read(end, into, stride)) return false;
      into += std::size_t(end - rows.top) * stride;
    }
    if (bottom <= lowerStart_) return true;
    if (!LowerBandDecoded()) return false;
    for (int row = std::max(rows.top, lowerStart_); row < bottom; ++row, into += stride) {
      std::memcpy(into, lower_.get() + std::size_t(row - lowerStart_) * shape_.Stride(), shape_.Stride());
    }
    return true;
  }

 private:
  bool LowerBandDecoded() {
    std::unique_lock<std::mutex> lock(lowerLock_);
    lowerChanged_.wait(lock, [this] { return lowerFinished_; });
    return lowerDecoded_;
  }

  void DecodeLowerBand() {
    constexpr int kRowsAtOnce = 64;  // between looks at whether the picture is still wanted
    JpegBandReader reader(jpeg_, 1, shape_, lowerStart_);
    bool decoded = true;
    while (decoded && reader.NextRow() < shape_.Height && !abandoned_) {
      const std::size_t at = std::size_t(reader.NextRow() - lowerStart_) * shape_.Stride();
      decoded = reader.Read(reader.NextRow() + kRowsAtOnce, lower_.get() + at, shape_.Stride());
    }
    {
      const std::lock_guard<std::mutex> lock(lowerLock_);
      lowerFinished_ = true;
      lowerDecoded_ = decoded && !abandoned_;
    }
    lowerChanged_.notify_all();
  }

  const QByteArray jpeg_;
  const JpegShape shape_;
  const int lowerStart_;
  const Pixels lower_;
  std::mutex upperLock_;
  JpegBandReader upper_;
  std::mutex lowerLock_;
  std::condition_variable lowerChanged_;
  bool lowerFinished_ = false, lowerDecoded_ = false;
  std::atomic_bool abandoned_{false};
  std::thread lowerReader_;
};

int Generate(VipsRegion* out, void*, void* picture, void*, gboolean*) {
  const VipsRect& rows = out->valid;
  auto* into = reinterpret_cast<unsigned char*>(VIPS_REGION_ADDR(out, rows.left, rows.top));
  if (!static_cast<DecodingPicture*>(picture)->Fill(rows, into, VIPS_REGION_LSKIP(out))) {
    vips_error("jpegload", "%s", "damaged JPEG");
    return -1;
  }
  return 0;
}

void Forget(VipsImage*, gpointer picture) { delete static_cast<DecodingPicture*>(picture); }

}  // namespace

std::optional<vips::VImage> StreamJpeg(const QString& path, const vips::VImage& header, int threads) {
  auto jpeg = ReadJpegFile(path);
  if (!jpeg) return std::nullopt;
  const auto shape = ReadJpegShape(*jpeg, 1);
  if (!shape || shape->Width != header.width() || shape->Height != header.height()) return std::nullopt;
  const int split = threads > 1 ? LowerBandStart(*shape) : 0;
  const int lowerStart = split > 0 ? split : shape->Height;
  Pixels lower(static_cast<unsigned char*>(AllocatePixels(shape->Stride() * std::size_t(shape->Height - lowerStart))), g_free);
  if (!lower && lowerStart < shape->Height) return std::nullopt;
  auto picture = std::make_unique<DecodingPicture>(std::move(*jpeg), *shape, lowerStart, std::move(lower));
  VipsImage* out = vips_image_new();
  vips::VImage generated(out);  // owns `out` from here on
  vips_image_init_fields(out, shape->Width, shape->Height, shape->Bands, VIPS_FORMAT_UCHAR, VIPS_CODING_NONE,
                         shape->Bands == 1 ? VIPS_INTERPRETATION_B_W : VIPS_INTERPRETATION_sRGB, 1.0, 1.0);
  if (vips_image_pipelinev(out, VIPS_DEMAND_STYLE_THINSTRIP, nullptr) != 0) return std::nullopt;
  CopyMetadata(header, generated);
  DecodingPicture* decoding = picture.release();
  g_signal_connect(out, "close", G_CALLBACK(Forget), decoding);
  if (vips_image_generate(out, nullptr, Generate, nullptr, decoding, nullptr) != 0) return std::nullopt;
  decoding->StartLowerBand();
  // The upper band's rows are made once, in order, as libvips' own loaders make theirs.
  return generated.sequential(vips::VImage::option()->set("tile_height", 16));
}

}  // namespace imaging
