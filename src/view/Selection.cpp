#include "view/Selection.h"

#include "base/NumberRules.h"

#include <algorithm>
#include <cmath>

namespace view {

namespace {

// Left and extent along one axis: both the anchor's and the pointer's pixel included.
std::pair<float, float> Span(float anchor, float pointer, float limit, float twipsPerPixel) {
  pointer = std::clamp(pointer, 0.0f, std::max(0.0f, limit - twipsPerPixel));
  if (pointer >= anchor) return {anchor, pointer - anchor + twipsPerPixel};
  return {pointer, anchor - pointer + twipsPerPixel};
}

// The whole image pixels in a twips value: the legacy rounded division where an image
// pixel is a whole number of twips (15 on a screen at 100 %), exact division where it is
// not (7.5 at 200 % desktop scaling, where an image pixel is a device pixel).
int Pixel(double twips, float twipsPerPixel) {
  if (twipsPerPixel == std::floor(twipsPerPixel)) return numbers::RoundedDiv(twips, twipsPerPixel).value_or(0);
  return int(numbers::RoundToInt32(twips).value_or(0) / double(twipsPerPixel));
}

// Steps 1 to 3 of the conversion: to 100 %, to whole image pixels, back to twips.
float ToImageTwips(float dragValue, int percentage, float twipsPerPixel) {
  const double atFull = double(dragValue) * (100.0 / percentage);
  return twipsPerPixel * float(Pixel(numbers::Floor(atFull), twipsPerPixel));
}

}  // namespace

QRect SelectionRecord::Pixels(float twipsPerPixelX, float twipsPerPixelY) const {
  return QRect(Pixel(Left, twipsPerPixelX), Pixel(Top, twipsPerPixelY), Pixel(Width, twipsPerPixelX),
               Pixel(Height, twipsPerPixelY));
}

DragRectangle SpanDrag(QPointF anchor, QPointF pointer, QSizeF control, float tx, float ty) {
  const auto [left, width] = Span(float(anchor.x()), float(pointer.x()), float(control.width()), tx);
  const auto [top, height] = Span(float(anchor.y()), float(pointer.y()), float(control.height()), ty);
  return {left, top, width, height};
}

SelectionRecord ToSelectionRecord(const DragRectangle& drag, int percentage, float tx, float ty, QSizeF natural) {
  SelectionRecord s;
  s.Left = ToImageTwips(drag.Left, percentage, tx);
  s.Top = ToImageTwips(drag.Top, percentage, ty);
  s.Width = ToImageTwips(drag.Width, percentage, tx);
  s.Height = ToImageTwips(drag.Height, percentage, ty);
  const auto nw = float(natural.width());
  const auto nh = float(natural.height());
  s.Left = std::clamp(s.Left, 0.0f, std::max(0.0f, nw - tx));
  s.Top = std::clamp(s.Top, 0.0f, std::max(0.0f, nh - ty));
  if (s.Left + s.Width > nw) s.Width = nw - s.Left;
  if (s.Top + s.Height > nh) s.Height = nh - s.Top;
  s.Shown = true;
  return s;
}

std::optional<int> AutoScrollValue(const AutoScrollAxis& a) {
  std::optional<int> value;
  if (a.Pointer > a.Panel) {
    const float right = a.DragStart + a.DragExtent - a.TwipsPerPixel;
    value = numbers::RoundedDiv(right - (a.Panel - a.TwipsPerPixel), a.TwipsPerPixel);
  } else if (a.Pointer < 0) {
    value = numbers::RoundedDiv(a.DragStart, a.TwipsPerPixel);
  }
  if (!value) return std::nullopt;
  return std::clamp(*value, a.Minimum, a.Maximum);
}

}  // namespace view
