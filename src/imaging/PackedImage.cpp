#include "imaging/PackedImage.h"

#include "imaging/ImageInternal.h"

#include <QThread>
#include <QtConcurrent/QtConcurrentMap>
#include <QThreadPool>

#include <zstd.h>

#include <condition_variable>
#include <cstring>
#include <mutex>
#include <numeric>
#include <optional>
#include <vector>

namespace imaging {

namespace {

constexpr int kLevel = 1;  // the fastest; higher levels gain under 5 % on photographs

using Byte = unsigned char;

// In place: red and blue become their differences from green, since the bands of a
// photograph move together (a grey image leaves only zeros there); then each row becomes
// its difference from the row above (the first row of a band stays as it is). Unpacking
// then adds whole rows, which the compiler vectorises. A 16-bit image goes through the
// same byte arithmetic with a pixel's bytes as its "bands": less tight, still exact.
void FromGreen(Byte* row, size_t rowBytes, int bands) {
  for (size_t i = 0; i < rowBytes; i += size_t(bands)) {
    row[i] = Byte(row[i] - row[i + 1]);
    row[i + 2] = Byte(row[i + 2] - row[i + 1]);
  }
}

void ToGreen(Byte* row, size_t rowBytes, int bands) {
  for (size_t i = 0; i < rowBytes; i += size_t(bands)) {
    row[i] = Byte(row[i] + row[i + 1]);
    row[i + 2] = Byte(row[i + 2] + row[i + 1]);
  }
}

void DifferenceRows(Byte* pixels, size_t rowBytes, size_t rows, int bands) {
  for (size_t r = 0; r < rows; ++r) FromGreen(pixels + r * rowBytes, rowBytes, bands);
  for (size_t r = rows; r-- > 1;) {
    Byte* row = pixels + r * rowBytes;
    const Byte* above = row - rowBytes;
    for (size_t i = 0; i < rowBytes; ++i) row[i] = Byte(row[i] - above[i]);
  }
}

// The inverse in one pass: each row is added to the one above, which then goes back to its bands.
void AccumulateRows(Byte* pixels, size_t rowBytes, size_t rows, int bands) {
  for (size_t r = 1; r < rows; ++r) {
    Byte* row = pixels + r * rowBytes;
    Byte* above = row - rowBytes;
    for (size_t i = 0; i < rowBytes; ++i) row[i] = Byte(row[i] + above[i]);
    ToGreen(above, rowBytes, bands);
  }
  if (rows > 0) ToGreen(pixels + (rows - 1) * rowBytes, rowBytes, bands);
}

}  // namespace

struct PackedImage::State {
  int Width = 0, Height = 0, Bands = 3;
  VipsBandFormat Format = VIPS_FORMAT_UCHAR;
  int PixelBytes() const { return Bands * int(vips_format_sizeof(Format)); }
  std::mutex Lock;
  std::condition_variable Packed;
  std::optional<Image> Unpacked;  // until the worker is done
  std::weak_ptr<const Image::Pixels> Alive;  // the pixels packed, while someone else keeps them
  // The rows in bands of kBandRows, each compressed on its own so that unpacking runs on
  // every core; a band Zstandard failed on is kept as it is.
  std::vector<QByteArray> PackedBands;
  std::vector<bool> Compressed;
  std::optional<vips::VImage> Frame;  // the smallest reduction it was shown at, kept whole
};

namespace {

constexpr int kBandRows = 256;

struct RowBand {
  size_t Offset, Bytes, Rows;
};

std::vector<RowBand> RowBands(size_t rowBytes, int height) {
  std::vector<RowBand> bands;
  for (int top = 0; top < height; top += kBandRows) {
    const size_t rows = size_t(std::min(kBandRows, height - top));
    bands.push_back({size_t(top) * rowBytes, rows * rowBytes, rows});
  }
  return bands;
}

void PackInto(PackedImage::State& state, const Image& image) {
  const auto* pixels = static_cast<const Byte*>(image.Internal().image.data());
  const size_t rowBytes = size_t(state.Width) * size_t(state.PixelBytes());
  ZSTD_CCtx* context = ZSTD_createCCtx();
  ZSTD_CCtx_setParameter(context, ZSTD_c_compressionLevel, kLevel);
  ZSTD_CCtx_setParameter(context, ZSTD_c_nbWorkers, 0);  // one core: the other paints
  std::vector<QByteArray> packed;
  std::vector<bool> compressed;
  std::vector<Byte> filtered;
  for (const RowBand& band : RowBands(rowBytes, state.Height)) {
    filtered.assign(pixels + band.Offset, pixels + band.Offset + band.Bytes);
    DifferenceRows(filtered.data(), rowBytes, band.Rows, state.PixelBytes());
    QByteArray data(qsizetype(ZSTD_compressBound(band.Bytes)), Qt::Uninitialized);
    const size_t written = ZSTD_compress2(context, data.data(), size_t(data.size()), filtered.data(), band.Bytes);
    compressed.push_back(!ZSTD_isError(written));
    if (compressed.back()) {
      data.resize(qsizetype(written));
      data.squeeze();
    } else {
      data = QByteArray(reinterpret_cast<const char*>(pixels + band.Offset), qsizetype(band.Bytes));
    }
    packed.push_back(std::move(data));
  }
  ZSTD_freeCCtx(context);
  std::optional<vips::VImage> frame = SmallestDisplayLevel(image);
  const std::lock_guard lock(state.Lock);
  state.Frame = std::move(frame);
  state.PackedBands = std::move(packed);
  state.Compressed = std::move(compressed);
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
  packed.state_->Format = image.Internal().image.format();
  packed.state_->Unpacked = image;
  packed.state_->Alive = image.pixels_;
  // The worker keeps the state alive, even when the history lets it go first.
  PackingPool().start([state = packed.state_, image] { PackInto(*state, image); });
  return packed;
}

qint64 PackedImage::Bytes() const {
  std::unique_lock lock(state_->Lock);
  state_->Packed.wait(lock, [this] { return !state_->Unpacked; });
  qint64 bytes = 0;
  for (const QByteArray& band : state_->PackedBands) bytes += band.size();
  return bytes;
}

Image PackedImage::Unpack() const {
  std::vector<QByteArray> packed;
  std::vector<bool> compressed;
  std::optional<vips::VImage> frame;
  {
    const std::lock_guard lock(state_->Lock);
    if (state_->Unpacked) return *state_->Unpacked;
    if (auto alive = state_->Alive.lock()) return Image(std::move(alive));  // with its display levels
    packed = state_->PackedBands;  // shared, not copied
    compressed = state_->Compressed;
    frame = state_->Frame;
  }
  const int pixelBytes = state_->PixelBytes();
  const size_t rowBytes = size_t(width_) * size_t(pixelBytes);
  const size_t size = rowBytes * size_t(height_);
  auto* pixels = static_cast<Byte*>(g_malloc(size));  // handed to libvips, which frees it
  const std::vector<RowBand> rowBands = RowBands(rowBytes, height_);
  std::vector<size_t> order(rowBands.size());
  std::iota(order.begin(), order.end(), size_t{0});
  QtConcurrent::blockingMap(order, [&](size_t i) {
    const RowBand& band = rowBands[i];
    Byte* target = pixels + band.Offset;
    if (!compressed[i]) {
      std::memcpy(target, packed[i].constData(), band.Bytes);
    } else if (ZSTD_isError(ZSTD_decompress(target, band.Bytes, packed[i].constData(), size_t(packed[i].size())))) {
      std::memset(target, 255, band.Bytes);  // unreachable for our own data; never show uninitialised memory
    } else {
      AccumulateRows(target, rowBytes, band.Rows, pixelBytes);
    }
  });
  const vips::VImage rows = vips::VImage::new_from_memory_steal(pixels, size, width_, height_, state_->Bands, state_->Format);
  const Image unpacked = Image::FromInternal(Image::Pixels{AsSamples(rows, state_->Format)});
  if (frame) AdoptDisplayLevel(unpacked, *frame);
  return unpacked;
}

}  // namespace imaging
