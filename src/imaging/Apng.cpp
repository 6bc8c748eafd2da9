#include "imaging/Apng.h"

#include "imaging/GifScan.h"

#include <QPainter>
#include <QtEndian>

#include <zlib.h>

namespace imaging {

namespace {

const QByteArrayView kSignature("\x89PNG\r\n\x1a\n", 8);

// The largest canvas played: it is held with the frame shown and the area a frame gives
// back, so a tiny file that claims a huge canvas would cost a gigabyte a copy. A larger
// APNG shows as its still picture.
constexpr quint64 kLargestCanvas = quint64(8192) * 8192;

quint32 Word(QByteArrayView bytes, qsizetype at) { return qFromBigEndian<quint32>(bytes.data() + at); }

// Calls `take(type, body)` for each whole chunk in turn until it returns false or the bytes end.
template <typename Take>
void EachChunk(QByteArrayView bytes, Take take) {
  if (!bytes.startsWith(kSignature)) return;
  for (qsizetype at = 8; bytes.size() - at >= 12;) {
    const quint32 length = Word(bytes, at);
    if (length > quint32(bytes.size() - at - 12)) return;
    if (!take(bytes.sliced(at + 4, 4), bytes.sliced(at + 8, qsizetype(length)))) return;
    at += 12 + qsizetype(length);
  }
}

void AppendChunk(QByteArray& png, QByteArrayView type, QByteArrayView body) {
  QByteArray chunk(4, '\0');
  qToBigEndian<quint32>(quint32(body.size()), chunk.data());
  chunk.append(type.data(), type.size());
  chunk.append(body.data(), body.size());
  QByteArray crc(4, '\0');
  qToBigEndian<quint32>(quint32(crc32(0, reinterpret_cast<const Bytef*>(chunk.constData() + 4), uInt(chunk.size() - 4))), crc.data());
  png += chunk + crc;
}

}  // namespace

bool LooksLikeApng(QByteArrayView head) {
  bool animated = false;
  EachChunk(head, [&animated](QByteArrayView type, QByteArrayView body) {
    if (type == "acTL" && body.size() == 8) animated = Word(body, 0) >= 2;
    return type != "IDAT" && type != "acTL";
  });
  return animated;
}

ApngFrames::ApngFrames(QByteArray file) : file_(std::move(file)) { failed_ = !Parse(); }

// Sorts the chunks: the header, what every frame needs, and each frame's control and data.
bool ApngFrames::Parse() {
  bool pixelsBegan = false, good = true;
  EachChunk(file_, [&](QByteArrayView type, QByteArrayView body) {
    if (type == "IHDR") header_ = body.toByteArray();
    if (type == "fcTL") {
      if (body.size() != 26 || frames_.size() > size_t(kMaxGifFrames)) return good = false;
      frames_.push_back({Word(body, 4), Word(body, 8), Word(body, 12), Word(body, 16), qFromBigEndian<quint16>(body.data() + 20),
                         qFromBigEndian<quint16>(body.data() + 22), quint8(body[24]), quint8(body[25]), {}});
    }
    const bool idat = type == "IDAT";
    if ((idat || type == "fdAT") && !frames_.empty() && (idat || body.size() > 4)) {
      frames_.back().Data.push_back(idat ? body : body.sliced(4));
    }
    pixelsBegan = pixelsBegan || idat;
    if (!pixelsBegan && type != "IHDR" && type != "acTL" && type != "fcTL") AppendChunk(shared_, type, body);
    return type != "IEND";
  });
  if (!good || header_.size() != 13) return false;
  const quint32 width = Word(header_, 0), height = Word(header_, 4);
  if (width == 0 || height == 0 || quint64(width) * height > kLargestCanvas) return false;
  for (const Frame& frame : frames_) {
    if (frame.Width == 0 || frame.Height == 0 || quint64(frame.X) + frame.Width > width || quint64(frame.Y) + frame.Height > height) {
      return false;
    }
  }
  return !frames_.empty();
}

// The frame's data as a PNG of its own: the file's header with the frame's size.
std::optional<QImage> ApngFrames::Decode(const Frame& frame) const {
  if (frame.Data.empty()) return std::nullopt;
  QByteArray header = header_;
  qToBigEndian<quint32>(frame.Width, header.data());
  qToBigEndian<quint32>(frame.Height, header.data() + 4);
  QByteArray png = kSignature.toByteArray();
  AppendChunk(png, "IHDR", header);
  png += shared_;
  for (const QByteArrayView data : frame.Data) AppendChunk(png, "IDAT", data);
  AppendChunk(png, "IEND", {});
  QImage picture;
  if (!picture.loadFromData(png, "PNG") || picture.size() != QSize(int(frame.Width), int(frame.Height))) return std::nullopt;
  return picture.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

std::optional<QImage> ApngFrames::Next() {
  if (failed_ || next_ >= frames_.size()) return std::nullopt;
  if (canvas_.isNull()) {
    canvas_ = QImage(int(Word(header_, 0)), int(Word(header_, 4)), QImage::Format_ARGB32_Premultiplied);
    canvas_.fill(Qt::transparent);
  }
  const Frame& frame = frames_[next_];
  const QRect area(int(frame.X), int(frame.Y), int(frame.Width), int(frame.Height));
  const auto picture = Decode(frame);
  if (!picture) {
    failed_ = true;
    return std::nullopt;
  }
  // What the frame's disposal will ask for once it has been shown: the canvas under it.
  const quint8 dispose = next_ == 0 && frame.Dispose == 2 ? 1 : frame.Dispose;
  if (dispose == 2) saved_ = canvas_.copy(area);
  QPainter painter(&canvas_);
  painter.setCompositionMode(frame.Blend == 1 ? QPainter::CompositionMode_SourceOver : QPainter::CompositionMode_Source);
  painter.drawImage(area.topLeft(), *picture);
  const QImage shown = canvas_.copy();
  painter.setCompositionMode(QPainter::CompositionMode_Source);
  if (dispose == 1) painter.fillRect(area, Qt::transparent);
  if (dispose == 2) painter.drawImage(area.topLeft(), saved_);
  ++next_;
  return shown;
}

std::optional<ApngTiming> ReadApngTiming(const QByteArray& file) {
  ApngFrames frames(file);
  if (frames.frames_.size() < 2) return std::nullopt;
  ApngTiming timing;
  EachChunk(file, [&timing](QByteArrayView type, QByteArrayView body) {
    if (type == "acTL" && body.size() == 8) timing.Plays = int(std::min<quint32>(Word(body, 4), 1u << 30));
    return type != "IDAT";
  });
  for (const ApngFrames::Frame& frame : frames.frames_) {
    const int denominator = frame.DelayDenominator == 0 ? 100 : frame.DelayDenominator;
    timing.DelaysMs.push_back(int(qint64(frame.DelayNumerator) * 1000 / denominator));
  }
  return timing;
}

}  // namespace imaging
