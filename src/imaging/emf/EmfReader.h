#pragma once
// Bounds-checked reading of an Enhanced Metafile: the header and the records, each a
// type, a size and a body. Nothing outside the file is ever read.

#include <QByteArray>
#include <QPointF>
#include <QRect>

#include <cstdint>
#include <optional>
#include <vector>

namespace imaging::emf {

// A rectangle as the file stores it; extents in 64 bits, since any 32-bit values may come.
struct Box {
  std::int32_t Left = 0, Top = 0, Right = 0, Bottom = 0;
  std::int64_t Width() const { return std::int64_t(Right) - Left; }
  std::int64_t Height() const { return std::int64_t(Bottom) - Top; }
  bool operator==(const Box&) const = default;
};

struct Header {
  Box Bounds;             // device units, inclusive
  Box FrameHundredthsMm;  // 0.01 mm, inclusive
  QSize DevicePixels;       // the reference device, in pixels
  QSize DeviceMillimetres;  // and in millimetres
  int Handles = 0;
};

// A view of one record's body with little-endian readers that return 0 past its end.
class Record {
 public:
  Record(int type, const char* data, qsizetype size) : type_(type), data_(data), size_(size) {}
  int Type() const { return type_; }
  qsizetype Size() const { return size_; }
  bool Has(qsizetype offset, qsizetype bytes) const { return offset >= 0 && bytes >= 0 && offset + bytes <= size_; }
  std::int32_t Int(qsizetype offset) const;
  std::uint32_t UInt(qsizetype offset) const { return static_cast<std::uint32_t>(Int(offset)); }
  std::int16_t Short(qsizetype offset) const;
  float Float(qsizetype offset) const;
  QPointF Point(qsizetype offset, bool sixteenBit) const;
  QRectF Rect(qsizetype offset) const;  // four Ints: left, top, right, bottom
  QString Utf16(qsizetype offset, qsizetype characters) const;
  QByteArray Bytes(qsizetype offset, qsizetype length) const;  // empty unless all there

 private:
  int type_;
  const char* data_;  // the body, after type and size
  qsizetype size_;
};

std::optional<Header> ReadHeader(const QByteArray& file);

// The records after the header, in order; stops at EOF, at the first malformed record,
// or after `maxRecords`.
std::vector<Record> ReadRecords(const QByteArray& file, std::size_t maxRecords);

// True when the bytes start like an EMF header (" EMF" signature).
bool LooksLikeEmf(const QByteArray& head);

}  // namespace imaging::emf
