#include "imaging/emf/EmfPlayer.h"

#include <QImage>

#include <cmath>
#include <cstdlib>

namespace imaging::emf {

namespace {

// Record types of [MS-EMF] 2.1.1 that the player understands.
enum : int {
  kPolyBezier = 2, kPolygon = 3, kPolyline = 4, kPolyBezierTo = 5, kPolylineTo = 6, kPolyPolyline = 7,
  kPolyPolygon = 8, kSetWindowExt = 9, kSetWindowOrg = 10, kSetViewportExt = 11, kSetViewportOrg = 12,
  kSetMapMode = 17, kSetPolyFillMode = 19, kSetTextAlign = 22, kSetTextColor = 24, kMoveTo = 27, kSaveDc = 33,
  kRestoreDc = 34, kSetWorldTransform = 35, kModifyWorldTransform = 36, kSelectObject = 37, kCreatePen = 38,
  kCreateBrush = 39, kDeleteObject = 40, kEllipse = 42, kRectangle = 43, kLineTo = 54, kBeginPath = 59,
  kEndPath = 60, kCloseFigure = 61, kFillPath = 62, kStrokeAndFillPath = 63, kStrokePath = 64, kStretchDiBits = 81,
  kCreateFont = 82, kExtTextOutW = 84, kPolyBezier16 = 85, kPolygon16 = 86, kPolyline16 = 87, kPolyBezierTo16 = 88,
  kPolylineTo16 = 89, kPolyPolyline16 = 90, kPolyPolygon16 = 91, kExtCreatePen = 95,
};

constexpr std::uint32_t kStockFlag = 0x80000000u;
constexpr int kMostSavedStates = 1024;

QColor ColourRef(std::uint32_t value) { return QColor(value & 0xFF, (value >> 8) & 0xFF, (value >> 16) & 0xFF); }

QPen MakePen(std::uint32_t style, double width, std::uint32_t colour) {
  if ((style & 0xF) == 5) return QPen(Qt::NoPen);  // PS_NULL
  static const Qt::PenStyle kStyles[] = {Qt::SolidLine, Qt::DashLine, Qt::DotLine, Qt::DashDotLine, Qt::DashDotDotLine};
  QPen pen(ColourRef(colour));
  pen.setStyle((style & 0xF) < 5 ? kStyles[style & 0xF] : Qt::SolidLine);
  pen.setWidthF(width);
  pen.setCosmetic(width <= 0);
  return pen;
}

QBrush MakeBrush(std::uint32_t style, std::uint32_t colour) {
  if (style == 1) return QBrush(Qt::NoBrush);  // BS_NULL
  return QBrush(ColourRef(colour), style == 2 ? Qt::DiagCrossPattern : Qt::SolidPattern);
}

// A transform that neither collapses nor blows shapes up beyond any sensible picture.
bool Reasonable(const QTransform& t) {
  const double scale = std::sqrt(std::fabs(t.determinant()));
  return std::isfinite(scale) && scale > 1e-6 && scale < 1e4;
}

QTransform XForm(const Record& r, qsizetype o) {
  return QTransform(r.Float(o), r.Float(o + 4), r.Float(o + 8), r.Float(o + 12), r.Float(o + 16), r.Float(o + 20));
}

}  // namespace

namespace {
constexpr std::int64_t kCanvasesOfWork = 64;
constexpr std::int64_t kWorkPerPathElement = 16;
constexpr qsizetype kElementsPerGlyph = 64;  // what shaping one glyph's outline costs
constexpr std::int64_t kBaseWork = 64'000'000;  // what even a small picture may cost
}  // namespace

// What a shape costs: the part of the picture it covers, and its path's points.
void Player::Spend(const QRectF& bounds, qsizetype elements) {
  const QRectF covered = painter_.transform().mapRect(bounds).intersected(canvas_);
  work_ += std::int64_t(covered.width() * covered.height()) + std::int64_t(elements) * kWorkPerPathElement;
  elements_ += elements;
}

Player::Player(const Header& header, QImage& target) : header_(header), painter_(&target) {
  canvas_ = QRectF(QPointF(0, 0), QSizeF(target.size()));
  budget_ = kBaseWork + kCanvasesOfWork * std::int64_t(target.width()) * target.height();
  painter_.setRenderHint(QPainter::Antialiasing);
  const Box& frame = header.FrameHundredthsMm;
  const double pxPerMmX = double(header.DevicePixels.width()) / header.DeviceMillimetres.width();
  const double pxPerMmY = double(header.DevicePixels.height()) / header.DeviceMillimetres.height();
  QRectF device(frame.Left / 100.0 * pxPerMmX, frame.Top / 100.0 * pxPerMmY, double(frame.Width()) / 100 * pxPerMmX,
                double(frame.Height()) / 100 * pxPerMmY);
  if (device.width() <= 0 || device.height() <= 0) {
    device = QRectF(header.Bounds.Left, header.Bounds.Top, double(header.Bounds.Width()) + 1,
                    double(header.Bounds.Height()) + 1);
  }
  if (device.width() <= 0 || device.height() <= 0) device = QRectF(0, 0, 1, 1);
  deviceToOutput_ = QTransform::fromTranslate(-device.left(), -device.top()) *
                    QTransform::fromScale(target.width() / device.width(), target.height() / device.height());
  ApplyTransform();
}

QTransform Player::PageToDevice() const {
  QTransform page = QTransform::fromTranslate(-dc_.WindowOrigin.x(), -dc_.WindowOrigin.y());
  double sx = 1, sy = 1;
  if (dc_.MapMode == 7 || dc_.MapMode == 8) {  // MM_ISOTROPIC, MM_ANISOTROPIC
    sx = dc_.WindowExtent.width() != 0 ? dc_.ViewportExtent.width() / dc_.WindowExtent.width() : 1;
    sy = dc_.WindowExtent.height() != 0 ? dc_.ViewportExtent.height() / dc_.WindowExtent.height() : 1;
  } else if (dc_.MapMode >= 2 && dc_.MapMode <= 6) {  // metric and English units, y upward
    static const double kUnitMm[] = {0.1, 0.01, 0.254, 0.0254, 25.4 / 1440};
    const double mm = kUnitMm[dc_.MapMode - 2];
    sx = mm * header_.DevicePixels.width() / header_.DeviceMillimetres.width();
    sy = -mm * header_.DevicePixels.height() / header_.DeviceMillimetres.height();
  }
  return page * QTransform::fromScale(sx, sy) * QTransform::fromTranslate(dc_.ViewportOrigin.x(), dc_.ViewportOrigin.y());
}

void Player::ApplyTransform() { painter_.setTransform(dc_.World * PageToDevice() * deviceToOutput_); }

void Player::Shape(const QPainterPath& shape, bool fill, bool stroke) {
  if (inPath_) {
    path_.addPath(shape);
    return;
  }
  Spend(shape.controlPointRect(), shape.elementCount());
  if (Exhausted()) return;
  QPainterPath filled = shape;
  filled.setFillRule(dc_.FillRule);
  if (fill) painter_.fillPath(filled, dc_.Brush);
  if (stroke) painter_.strokePath(shape, dc_.Pen);
}

void Player::Points(const Record& r, bool sixteenBit, bool closed, bool bezier, bool fromCurrent) {
  const qint64 count = r.UInt(16);
  const int step = sixteenBit ? 4 : 8;
  if (count <= 0 || !r.Has(20, count * step)) return;
  const auto point = [&](qint64 i) { return r.Point(20 + i * step, sixteenBit); };
  QPainterPath shape;
  // The "To" records go on from the current position, inside the path being built if any.
  QPainterPath& out = (inPath_ && fromCurrent) ? path_ : shape;
  qint64 i = 0;
  if (!fromCurrent) {
    out.moveTo(point(i++));
  } else if (&out == &shape || out.elementCount() == 0) {
    out.moveTo(current_);
  }
  while (i < count) {
    if (bezier && count - i >= 3) {
      out.cubicTo(point(i), point(i + 1), point(i + 2));
      i += 3;
    } else {
      out.lineTo(point(i++));
    }
  }
  current_ = out.currentPosition();
  if (closed) out.closeSubpath();
  if (&out == &shape) Shape(shape, closed, true);
}

void Player::PolyPoly(const Record& r, bool sixteenBit, bool closed) {
  const qint64 polygons = r.UInt(16);
  const qint64 points = r.UInt(20);
  const int step = sixteenBit ? 4 : 8;
  if (polygons <= 0 || points <= 0 || !r.Has(24, polygons * 4) || !r.Has(24 + polygons * 4, points * step)) return;
  QPainterPath shape;
  qsizetype at = 24 + polygons * 4;
  qint64 used = 0;
  for (qint64 p = 0; p < polygons; ++p) {
    const qint64 count = r.UInt(24 + p * 4);
    if (count <= 0 || used + count > points) break;
    shape.moveTo(r.Point(at, sixteenBit));
    for (qint64 i = 1; i < count; ++i) shape.lineTo(r.Point(at + i * step, sixteenBit));
    if (closed) shape.closeSubpath();
    at += count * step;
    used += count;
  }
  Shape(shape, closed, true);
}

void Player::PlayGeometry(const Record& r) {
  switch (r.Type()) {
    case kPolygon: case kPolygon16: Points(r, r.Type() == kPolygon16, true, false, false); break;
    case kPolyline: case kPolyline16: Points(r, r.Type() == kPolyline16, false, false, false); break;
    case kPolyBezier: case kPolyBezier16: Points(r, r.Type() == kPolyBezier16, false, true, false); break;
    case kPolylineTo: case kPolylineTo16: Points(r, r.Type() == kPolylineTo16, false, false, true); break;
    case kPolyBezierTo: case kPolyBezierTo16: Points(r, r.Type() == kPolyBezierTo16, false, true, true); break;
    case kPolyPolygon: case kPolyPolygon16: PolyPoly(r, r.Type() == kPolyPolygon16, true); break;
    case kPolyPolyline: case kPolyPolyline16: PolyPoly(r, r.Type() == kPolyPolyline16, false); break;
    case kMoveTo:
      current_ = r.Point(0, false);
      if (inPath_) path_.moveTo(current_);
      break;
    case kLineTo: {
      QPainterPath line(current_);
      line.lineTo(r.Point(0, false));
      current_ = r.Point(0, false);
      if (inPath_) {
        path_.lineTo(current_);
      } else {
        Shape(line, false, true);
      }
      break;
    }
    case kRectangle: case kEllipse: {
      QPainterPath shape;
      if (r.Type() == kRectangle) shape.addRect(r.Rect(0).normalized());
      if (r.Type() == kEllipse) shape.addEllipse(r.Rect(0).normalized());
      Shape(shape, true, true);
      break;
    }
    case kBeginPath: path_ = QPainterPath(); inPath_ = true; break;
    case kEndPath: inPath_ = false; break;
    case kCloseFigure: path_.closeSubpath(); break;
    case kFillPath: case kStrokeAndFillPath: case kStrokePath: {
      inPath_ = false;
      Shape(path_, r.Type() != kStrokePath, r.Type() != kFillPath);
      path_ = QPainterPath();
      break;
    }
    default: break;
  }
}

void Player::SelectStock(std::uint32_t index) {
  static const int kGreys[] = {255, 192, 128, 64, 0};
  if (index <= 4) dc_.Brush = QBrush(QColor(kGreys[index], kGreys[index], kGreys[index]));
  if (index == 5) dc_.Brush = QBrush(Qt::NoBrush);
  if (index == 6 || index == 7) dc_.Pen = QPen(index == 6 ? Qt::white : Qt::black, 0);
  if (index == 8) dc_.Pen = QPen(Qt::NoPen);
}

void Player::PlayObjects(const Record& r) {
  const std::uint32_t handle = r.UInt(0);
  const bool known = handle > 0 && handle < std::uint32_t(std::max(header_.Handles, 1));
  switch (r.Type()) {
    case kCreatePen:
      if (known) objects_[handle] = MakePen(r.UInt(4), r.Int(8), r.UInt(16));
      break;
    case kExtCreatePen:
      if (known) objects_[handle] = MakePen(r.UInt(20), r.UInt(24), r.UInt(32));
      break;
    case kCreateBrush:
      if (known) objects_[handle] = MakeBrush(r.UInt(4), r.UInt(8));
      break;
    case kCreateFont: {
      if (!known) break;
      QFont font(r.Utf16(32, 32).section(QChar(0), 0, 0));
      font.setPixelSize(static_cast<int>(std::clamp<std::int64_t>(std::llabs(r.Int(4)), 1, 10000)));
      font.setWeight(r.Int(20) >= 600 ? QFont::Bold : QFont::Normal);
      font.setItalic(r.Has(24, 1) && r.Short(24) & 0xFF);
      objects_[handle] = font;
      break;
    }
    case kSelectObject:
      if (handle & kStockFlag) {
        SelectStock(handle & ~kStockFlag);
      } else if (const auto found = objects_.find(handle); found != objects_.end()) {
        if (const auto* pen = std::get_if<QPen>(&found->second)) dc_.Pen = *pen;
        if (const auto* brush = std::get_if<QBrush>(&found->second)) dc_.Brush = *brush;
        if (const auto* font = std::get_if<QFont>(&found->second)) dc_.Font = *font;
      }
      break;
    case kDeleteObject: objects_.erase(handle); break;
    default: break;
  }
}

void Player::PlayState(const Record& r) {
  switch (r.Type()) {
    case kSetMapMode: dc_.MapMode = r.Int(0); break;
    case kSetWindowExt: dc_.WindowExtent = QSizeF(r.Int(0), r.Int(4)); break;
    case kSetWindowOrg: dc_.WindowOrigin = r.Point(0, false); break;
    case kSetViewportExt: dc_.ViewportExtent = QSizeF(r.Int(0), r.Int(4)); break;
    case kSetViewportOrg: dc_.ViewportOrigin = r.Point(0, false); break;
    case kSetWorldTransform: dc_.World = XForm(r, 0); break;
    case kModifyWorldTransform: {
      const QTransform x = XForm(r, 0);
      const std::uint32_t mode = r.UInt(24);
      if (mode == 1) dc_.World = QTransform();
      if (mode == 2) dc_.World = x * dc_.World;
      if (mode == 3) dc_.World = dc_.World * x;
      if (mode == 4) dc_.World = x;
      break;
    }
    case kSaveDc:
      if (saved_.size() < kMostSavedStates) saved_.push_back(dc_);
      break;
    case kRestoreDc: {
      const std::int64_t back = -std::int64_t(r.Int(0));  // a negative count, relative to now
      if (back > 0 && std::uint64_t(back) <= saved_.size()) {
        dc_ = saved_[saved_.size() - std::size_t(back)];
        saved_.resize(saved_.size() - std::size_t(back));
      }
      break;
    }
    case kSetPolyFillMode: dc_.FillRule = r.UInt(0) == 2 ? Qt::WindingFill : Qt::OddEvenFill; break;
    case kSetTextColor: dc_.TextColour = ColourRef(r.UInt(0)); break;
    case kSetTextAlign: dc_.TextAlign = r.Int(0); break;
    default: return;
  }
  ApplyTransform();
}

void Player::PlayText(const Record& r) {
  // EMREXTTEXTOUTW: bounds, graphics mode, scales, then EMRTEXT at 28 (offsets from the record start).
  const QPointF reference = r.Point(28, false);
  const QString text = r.Utf16(static_cast<qsizetype>(r.UInt(40)) - 8, r.UInt(36));
  if (text.isEmpty() || !Reasonable(painter_.transform())) return;
  Spend(QRectF(), text.size() * kElementsPerGlyph);
  if (Exhausted()) return;
  const QFontMetricsF metrics(dc_.Font);
  QPointF at = reference;
  if ((dc_.TextAlign & 24) == 0) at.ry() += metrics.ascent();        // TA_TOP
  if ((dc_.TextAlign & 24) == 8) at.ry() -= metrics.descent();       // TA_BOTTOM
  if ((dc_.TextAlign & 6) == 6) at.rx() -= metrics.horizontalAdvance(text) / 2;  // TA_CENTER
  else if ((dc_.TextAlign & 6) == 2) at.rx() -= metrics.horizontalAdvance(text);  // TA_RIGHT
  // Glyph outlines filled as a path: Qt's glyph cache misbehaves under extreme transforms.
  QPainterPath outline;
  outline.addText(at, dc_.Font, text);
  Spend(outline.controlPointRect(), outline.elementCount());
  if (!Exhausted()) painter_.fillPath(outline, dc_.TextColour);
}

void Player::PlayBitmap(const Record& r) {
  // EMRSTRETCHDIBITS: destination, source, then the BITMAPINFO and the bits, at offsets
  // counted from the record's start (8 bytes before its body).
  const QByteArray info = r.Bytes(static_cast<qsizetype>(r.UInt(40)) - 8, r.UInt(44));
  const QByteArray bits = r.Bytes(static_cast<qsizetype>(r.UInt(48)) - 8, r.UInt(52));
  if (info.size() < 40 || bits.isEmpty()) return;
  QByteArray bmp("BM");
  const auto put32 = [&bmp](qsizetype v) {
    for (int i = 0; i < 4; ++i) bmp.append(char((quint32(v) >> (8 * i)) & 0xFF));
  };
  put32(14 + info.size() + bits.size());
  put32(0);
  put32(14 + info.size());
  const QImage picture = QImage::fromData(bmp + info + bits, "BMP");
  if (picture.isNull()) return;
  const QRectF target(r.Point(16, false), QSizeF(r.Int(64), r.Int(68)));
  const QRectF source(r.Point(24, false), QSizeF(r.Int(32), r.Int(36)));
  Spend(target, 0);
  if (!Exhausted()) painter_.drawImage(target, picture, source);
}

void Player::Play(const Record& r) {
  const int t = r.Type();
  if (t == kCreatePen || t == kExtCreatePen || t == kCreateBrush || t == kCreateFont || t == kSelectObject ||
      t == kDeleteObject) {
    PlayObjects(r);
  } else if (t == kExtTextOutW) {
    PlayText(r);
  } else if (t == kStretchDiBits) {
    PlayBitmap(r);
  } else {
    PlayState(r);
    PlayGeometry(r);
  }
}

}  // namespace imaging::emf
