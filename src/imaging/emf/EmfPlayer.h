#pragma once
// The device context of a metafile being played: its state, its objects, its path.

#include "imaging/emf/EmfReader.h"

#include <QBrush>
#include <QFont>
#include <QPainter>
#include <QPainterPath>
#include <QPen>
#include <QTransform>

#include <map>
#include <variant>
#include <vector>

namespace imaging::emf {

class Player {
 public:
  Player(const Header& header, QImage& target);
  void Play(const Record& record);
  // True once the drawing has cost more than a picture should: the painted area of its
  // shapes beyond 64 times the picture, or more path points and glyphs than any drawing
  // needs, however large its picture. Such a file is refused.
  bool Exhausted() const { return work_ > budget_ || elements_ > kMostElements; }
  static constexpr std::int64_t kMostElements = 16'000'000;

 private:
  struct State {
    QTransform World;
    int MapMode = 1;  // MM_TEXT
    QPointF WindowOrigin, ViewportOrigin;
    QSizeF WindowExtent{1, 1}, ViewportExtent{1, 1};
    QPen Pen{QColor(Qt::black), 0};
    QBrush Brush{Qt::white};
    QFont Font;
    QColor TextColour{Qt::black};
    int TextAlign = 0;
    Qt::FillRule FillRule = Qt::OddEvenFill;
  };
  using Object = std::variant<QPen, QBrush, QFont>;

  void PlayGeometry(const Record& r);
  void PlayObjects(const Record& r);
  void PlayState(const Record& r);
  void PlayText(const Record& r);
  void PlayBitmap(const Record& r);
  void Points(const Record& r, bool sixteenBit, bool closed, bool bezier, bool fromCurrent);
  void PolyPoly(const Record& r, bool sixteenBit, bool closed);
  void Shape(const QPainterPath& shape, bool fill, bool stroke);
  void SelectStock(std::uint32_t index);
  void ApplyTransform();
  QTransform PageToDevice() const;
  void Spend(const QRectF& bounds, qsizetype elements);

  Header header_;
  QPainter painter_;
  QTransform deviceToOutput_;
  State dc_;
  std::vector<State> saved_;
  std::map<std::uint32_t, Object> objects_;
  QPainterPath path_;
  bool inPath_ = false;
  QPointF current_;
  QRectF canvas_;
  std::int64_t work_ = 0;
  std::int64_t budget_ = 0;
  std::int64_t elements_ = 0;
};

}  // namespace imaging::emf
