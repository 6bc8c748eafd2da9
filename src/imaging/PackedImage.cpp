#include "imaging/PackedImage.h"

#include "imaging/ImageInternal.h"

#include <QThread>
#include <QThreadPool>

#include <zstd.h>

#include <condition_variable>
#include <cstring>
#include <mutex>
#include <optional>
#include <vector>

namespace imaging {

namespace {

constexpr int kLevel = 1;  // the fastest; higher levels gain under 5 % on photographs

using Byte = unsigned char;

// In place: each sample becomes its difference from the same band one pixel to the left;
// then red and blue become their differences from green, since the bands of a photograph
// move together (a grey image leaves only zeros there).
void DifferenceRows(Byte* pixels, size_t rowBytes, size_t rows, int bands) {
  for (size_t r = 0; r < rows; ++r) {
    Byte* row = pixels + r * rowBytes;
    for (size_t i = rowBytes - 1; i >= static_cast<size_t>(bands); --i) row[i] = Byte(row[i] - row[i - bands]);
    for (size_t i = 0; i < rowBytes; i += size_t(bands)) {
      row[i] = Byte(row[i] - row[i + 1]);
      row[i + 2] = Byte(row[i + 2] - row[i + 1]);
    }
  }
}

// The inverse, in one pass: each pixel's bands are restored, then added to its left neighbour.
void AccumulateRows(Byte* pixels, size_t rowBytes, size_t rows, int bands) {
  const size_t step = size_t(bands);
  for (size_t r = 0; r < rows; ++r) {
    Byte* row = pixels + r * rowBytes;
    for (size_t i = 0; i < rowBytes; i += step) {
      Byte* pixel = row + i;
      pixel[0] = Byte(pixel[0] + pixel[1]);
      pixel[2] = Byte(pixel[2] + pixel[1]);
      if (i == 0) continue;
      for (size_t band = 0; band < step; ++band) pixel[band] = Byte(pixel[band] + (pixel - step)[band]);
    }
  }
}

}  // namespace

struct PackedImage::State {
  int Width = 0, Height = 0, Bands = 3;
  std::mutex Lock;
  std::condition_variable Packed;
  std::optional<Image> Unpacked;  // until the worker is done
  std::weak_ptr<const Image::Pixels> Alive;  // the pixels packed, while someone else keeps them
  QByteArray Data;
  bool Compressed = true;  // false only if Zstandard failed: the pixels are kept as they are
};

namespace {

void PackInto(PackedImage::State& state, const Image& image) {
  const vips::VImage& pixels = image.Internal().image;
  const size_t rowBytes = size_t(state.Width) * size_t(state.Bands);
  const size_t size = rowBytes * size_t(state.Height);
  std::vector<unsigned char> filtered(size);
  std::memcpy(filtered.data(), pixels.data(), size);
  DifferenceRows(filtered.data(), rowBytes, size_t(state.Height), state.Bands);

  ZSTD_CCtx* context = ZSTD_createCCtx();
  ZSTD_CCtx_setParameter(context, ZSTD_c_compressionLevel, kLevel);
  ZSTD_CCtx_setParameter(context, ZSTD_c_nbWorkers, 0);  // one core: the other paints
  QByteArray data(qsizetype(ZSTD_compressBound(size)), Qt::Uninitialized);
  const size_t written = ZSTD_compress2(context, data.data(), size_t(data.size()), filtered.data(), size);
  ZSTD_freeCCtx(context);
  const bool compressed = !ZSTD_isError(written);
  if (compressed) {
    data.resize(qsizetype(written));
    data.squeeze();
  } else {
    data = QByteArray(reinterpret_cast<const char*>(pixels.data()), qsizetype(size));
  }
  const std::lock_guard lock(state.Lock);
  state.Data = std::move(data);
  state.Compressed = compressed;
  state.Unpacked.reset();
  state.Packed.notify_all();
}

// Packing waits for idle cores (SCHED_IDLE on Linux): the edit's own work and its paint
// come first, and a state is held whole a moment longer meanwhile.
QThreadPool& PackingPool() {
  static QThreadPool* pool = [] {
    auto* made = new QThreadPool;
    made->setMaxThreadCount(1);
    made->setThreadPriority(QThread::IdlePriority);
    return made;
  }();
  return *pool;
}

}  // namespace

PackedImage PackedImage::Pack(const Image& image) {
  PackedImage packed;
  packed.width_ = image.Width();
  packed.height_ = image.Height();
  packed.state_ = std::make_shared<State>();
  packed.state_->Width = image.Width();
  packed.state_->Height = image.Height();
  packed.state_->Bands = image.Bands();
  packed.state_->Unpacked = image;
  packed.state_->Alive = image.pixels_;
  // The worker keeps the state alive, even when the history lets it go first.
  PackingPool().start([state = packed.state_, image] { PackInto(*state, image); });
  return packed;
}

qint64 PackedImage::Bytes() const {
  std::unique_lock lock(state_->Lock);
  state_->Packed.wait(lock, [this] { return !state_->Unpacked; });
  return state_->Data.size();
}

Image PackedImage::Unpack() const {
  QByteArray data;
  {
    const std::lock_guard lock(state_->Lock);
    if (state_->Unpacked) return *state_->Unpacked;
    if (auto alive = state_->Alive.lock()) return Image(std::move(alive));  // with its display levels
    data = state_->Data;  // shared, not copied
  }
  const int bands = state_->Bands;
  const size_t rowBytes = size_t(width_) * size_t(bands);
  const size_t size = rowBytes * size_t(height_);
  auto* pixels = static_cast<unsigned char*>(g_malloc(size));  // handed to libvips, which frees it
  if (!state_->Compressed) {
    std::memcpy(pixels, data.constData(), size);
  } else if (ZSTD_isError(ZSTD_decompress(pixels, size, data.constData(), size_t(data.size())))) {
    std::memset(pixels, 255, size);  // unreachable for our own data; never show uninitialised memory
  } else {
    AccumulateRows(pixels, rowBytes, size_t(height_), bands);
  }
  // A 3- or 4-band uchar memory image is sRGB by libvips' default interpretation.
  return Image::FromInternal(
      Image::Pixels{vips::VImage::new_from_memory_steal(pixels, size, width_, height_, bands, VIPS_FORMAT_UCHAR)});
}

}  // namespace imaging
