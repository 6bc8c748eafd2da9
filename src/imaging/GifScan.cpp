#include "imaging/GifScan.h"

#include <QByteArray>

#include <algorithm>

namespace imaging {

namespace {

constexpr qint64 kChunk = 64 * 1024;
constexpr quint8 kExtension = 0x21, kImage = 0x2C, kTrailer = 0x3B, kGraphicControl = 0xF9, kApplication = 0xFF;

// The device's bytes in order, read a chunk at a time.
class Bytes {
 public:
  explicit Bytes(QIODevice& device) : device_(device) {}

  bool Read(quint8* out, qint64 count) {
    for (qint64 i = 0; i < count; ++i) {
      if (at_ == chunk_.size() && !Fill()) return false;
      out[i] = quint8(chunk_[at_++]);
    }
    return true;
  }
  bool Skip(qint64 count) {
    while (count > 0) {
      if (at_ == chunk_.size() && !Fill()) return false;
      const qint64 step = std::min(count, chunk_.size() - at_);
      at_ += step;
      count -= step;
    }
    return true;
  }

 private:
  bool Fill() {
    chunk_ = device_.read(kChunk);
    at_ = 0;
    return !chunk_.isEmpty();
  }

  QIODevice& device_;
  QByteArray chunk_;
  qint64 at_ = 0;
};

// Data sub-blocks: a length byte and that many bytes, up to a zero length.
bool SkipSubBlocks(Bytes& bytes) {
  for (quint8 length = 0;;) {
    if (!bytes.Read(&length, 1)) return false;
    if (length == 0) return true;
    if (!bytes.Skip(length)) return false;
  }
}

// A colour table of 2^(n+1) entries follows when the flag's top bit is set.
bool SkipColourTable(Bytes& bytes, quint8 flags) { return !(flags & 0x80) || bytes.Skip(3 << ((flags & 7) + 1)); }

// The block after an extension's label; the delay and the loop count when it holds them.
bool ReadExtension(Bytes& bytes, quint8 label, int& delay, GifScan& scan) {
  quint8 size = 0;
  if (label != kGraphicControl && label != kApplication) return SkipSubBlocks(bytes);
  if (!bytes.Read(&size, 1)) return false;
  quint8 body[255] = {};
  if (!bytes.Read(body, size)) return false;
  if (label == kGraphicControl && size >= 4) delay = body[1] | body[2] << 8;
  const QByteArray application(reinterpret_cast<const char*>(body), size);
  if (label == kApplication && (application == "NETSCAPE2.0" || application == "ANIMEXTS1.0")) {
    quint8 loop[4] = {};
    if (!bytes.Read(loop, 1)) return false;
    if (loop[0] == 0) return true;
    if (loop[0] < 3 || !bytes.Read(loop + 1, 3) || !bytes.Skip(loop[0] - 3)) return false;
    if (loop[1] == 1) scan.LoopCount = loop[2] | loop[3] << 8;
  }
  return SkipSubBlocks(bytes);
}

// An image descriptor, its colour table and its compressed data.
bool SkipImage(Bytes& bytes) {
  quint8 descriptor[9] = {}, codeSize = 0;
  return bytes.Read(descriptor, 9) && SkipColourTable(bytes, descriptor[8]) && bytes.Read(&codeSize, 1) && SkipSubBlocks(bytes);
}

}  // namespace

std::optional<GifScan> ScanGif(QIODevice& device, int enoughFrames) {
  Bytes bytes(device);
  quint8 header[13] = {};
  if (!bytes.Read(header, 13)) return std::nullopt;
  const QByteArray signature(reinterpret_cast<const char*>(header), 6);
  if ((signature != "GIF87a" && signature != "GIF89a") || !SkipColourTable(bytes, header[10])) return std::nullopt;
  GifScan scan;
  int delay = 0;
  while (scan.Frames() < enoughFrames) {
    quint8 block = 0, label = 0;
    if (!bytes.Read(&block, 1)) break;
    if (block == kTrailer) return scan;
    bool whole = false;
    if (block == kExtension) {
      whole = bytes.Read(&label, 1) && ReadExtension(bytes, label, delay, scan);
    } else if (block == kImage) {
      whole = SkipImage(bytes);
      scan.DelaysCentiseconds.push_back(delay);  // a frame cut short still shows what it holds
      if (scan.Frames() > kMaxGifFrames) return std::nullopt;
      delay = 0;
    }
    if (!whole) break;
  }
  return scan;
}

}  // namespace imaging
