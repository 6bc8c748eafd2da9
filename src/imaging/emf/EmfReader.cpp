#include "imaging/emf/EmfReader.h"

#include <QString>
#include <QtEndian>

#include <cmath>

#include <cstring>

namespace imaging::emf {

namespace {

constexpr int kHeaderType = 1;
constexpr int kEofType = 14;

std::int32_t IntAt(const char* data, qsizetype size, qsizetype offset) {
  if (offset < 0 || offset + 4 > size) return 0;
  return qFromLittleEndian<std::int32_t>(data + offset);
}

}  // namespace

std::int32_t Record::Int(qsizetype offset) const { return IntAt(data_, size_, offset); }

std::int16_t Record::Short(qsizetype offset) const {
  if (!Has(offset, 2)) return 0;
  return qFromLittleEndian<std::int16_t>(data_ + offset);
}

float Record::Float(qsizetype offset) const {
  const std::uint32_t bits = UInt(offset);
  float value = 0;
  std::memcpy(&value, &bits, sizeof value);
  return std::isfinite(value) ? value : 0.0f;
}

QPointF Record::Point(qsizetype offset, bool sixteenBit) const {
  if (sixteenBit) return QPointF(Short(offset), Short(offset + 2));
  return QPointF(Int(offset), Int(offset + 4));
}

QRectF Record::Rect(qsizetype offset) const {
  return QRectF(QPointF(Int(offset), Int(offset + 4)), QPointF(Int(offset + 8), Int(offset + 12)));
}

QString Record::Utf16(qsizetype offset, qsizetype characters) const {
  if (characters <= 0 || !Has(offset, characters * 2)) return {};
  QString text(characters, Qt::Uninitialized);
  for (qsizetype i = 0; i < characters; ++i) text[i] = QChar(qFromLittleEndian<std::uint16_t>(data_ + offset + 2 * i));
  return text;
}

QByteArray Record::Bytes(qsizetype offset, qsizetype length) const {
  if (length <= 0 || !Has(offset, length)) return {};
  return QByteArray(data_ + offset, length);
}

bool LooksLikeEmf(const QByteArray& head) {
  return head.size() >= 44 && IntAt(head.constData(), head.size(), 0) == kHeaderType && head.mid(40, 4) == " EMF";
}

std::optional<Header> ReadHeader(const QByteArray& file) {
  if (!LooksLikeEmf(file)) return std::nullopt;
  const char* d = file.constData();
  const qsizetype n = file.size();
  const auto rect = [&](qsizetype o) { return Box{IntAt(d, n, o), IntAt(d, n, o + 4), IntAt(d, n, o + 8), IntAt(d, n, o + 12)}; };
  Header header;
  header.Bounds = rect(8);
  header.FrameHundredthsMm = rect(24);
  header.Handles = static_cast<int>(IntAt(d, n, 56) & 0xFFFF);
  header.DevicePixels = QSize(IntAt(d, n, 72), IntAt(d, n, 76));
  header.DeviceMillimetres = QSize(IntAt(d, n, 80), IntAt(d, n, 84));
  if (header.DevicePixels.width() <= 0 || header.DevicePixels.height() <= 0 || header.DeviceMillimetres.width() <= 0 ||
      header.DeviceMillimetres.height() <= 0) {
    return std::nullopt;
  }
  return header;
}

std::vector<Record> ReadRecords(const QByteArray& file, std::size_t maxRecords) {
  std::vector<Record> records;
  const char* d = file.constData();
  const qsizetype n = file.size();
  qsizetype offset = IntAt(d, n, 4);  // the header's own size
  while (offset >= 8 && offset + 8 <= n && records.size() < maxRecords) {
    const int type = IntAt(d, n, offset);
    const qint64 size = static_cast<std::uint32_t>(IntAt(d, n, offset + 4));
    if (size < 8 || size % 4 != 0 || offset + size > n) break;
    records.emplace_back(type, d + offset + 8, static_cast<qsizetype>(size - 8));
    if (type == kEofType) break;
    offset += size;
  }
  return records;
}

}  // namespace imaging::emf
