#pragma once
// The selection maths without widgets: the drag rectangle in control twips, the
// selection record in twips of the image at 100 %, and the auto-scroll of `tmrSel`.

#include <QPointF>
#include <QRect>
#include <QSizeF>

#include <optional>

namespace view {

// In twips of the image control at the current zoom (the mouse events' coordinates).
struct DragRectangle {
  float Left = 0, Top = 0, Width = 0, Height = 0;
};

// In twips of the image at 100 %, each a whole number of image pixels times twips per pixel.
struct SelectionRecord {
  float Left = 0, Top = 0, Width = 0, Height = 0;
  bool Shown = false;

  bool Exists() const { return Shown && Width > 0 && Height > 0; }
  // The record in image pixels: each value rounded, whole-number divided by the
  // rounded twips per pixel (left 150 at 15 twips per pixel is pixel 10).
  QRect Pixels(float twipsPerPixelX, float twipsPerPixelY) const;
};

// The rectangle spanned by the anchor and the pointer, both pixels included; the
// pointer is clamped to the control first.
DragRectangle SpanDrag(QPointF anchor, QPointF pointer, QSizeF control, float twipsPerPixelX, float twipsPerPixelY);

// The drag rectangle as a selection record at a zoom, clamped to the image's natural size.
SelectionRecord ToSelectionRecord(const DragRectangle& drag, int percentage, float twipsPerPixelX,
                                  float twipsPerPixelY, QSizeF naturalTwips);

// One axis of the auto-scroll: the bar's new value when the pointer lies beyond the
// panel on that axis, bringing the drag rectangle's edge to the panel's edge; nullopt
// when the pointer is inside.
struct AutoScrollAxis {
  float Pointer = 0;      // in panel twips
  float Panel = 0;        // the panel's extent
  float DragStart = 0;    // the drag rectangle along the axis
  float DragExtent = 0;
  float TwipsPerPixel = 15;
  int Minimum = 0, Maximum = 0;
};
std::optional<int> AutoScrollValue(const AutoScrollAxis& axis);

}  // namespace view
