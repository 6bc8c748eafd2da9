#include "view/Placing.h"

#include "base/NumberRules.h"
#include "view/Zoom.h"

#include <algorithm>

namespace view {

namespace {

// One axis of the placing step.
struct Axis {
  float TwipsPerPixel;
  float Control;
  float Usable;
  bool Needed;
  ScrollBarState Previous;
  float SelectionStart, SelectionExtent;
};

int ValueFor(const Axis& axis, int maximum, const PlacingInput& in) {
  switch (in.PendingFlag) {
    case Pending::ZoomToSelection: {
      // The target is in twips of the 100 % image and the selection's
      // centre must land in the middle of the panel; a bar value is a screen pixel of the
      // zoomed image, so the target is scaled by the zoom before the division.
      const double target = axis.SelectionStart + axis.SelectionExtent / 2 - (axis.Usable / 2) / (in.Percentage / 100.0);
      return std::clamp(numbers::RoundedDiv(target * in.Percentage / 100.0, axis.TwipsPerPixel).value_or(0), 0, maximum);
    }
    case Pending::ZoomStep: {
      const bool known = axis.Previous.Visible && axis.Previous.Maximum > 0;
      const double ratio = known ? double(axis.Previous.Value) / axis.Previous.Maximum : 0.5;
      return std::clamp(numbers::RoundToInt32(maximum * ratio).value_or(0), 0, maximum);
    }
    case Pending::None:
      break;
  }
  return 0;
}

// The bar of an axis, and the control's offset along it.
ScrollBarState Arrange(const Axis& axis, const PlacingInput& in, float& offset) {
  ScrollBarState bar;
  if (!axis.Needed) {
    offset = (axis.Usable - axis.Control) / 2;
    return bar;
  }
  bar.Visible = true;
  bar.Maximum = std::max(0, numbers::RoundedDiv(axis.Control - axis.Usable, axis.TwipsPerPixel).value_or(0));
  bar.SmallChange = SmallChange(in.Percentage);
  bar.LargeChange = LargeChange(in.Percentage);
  bar.Value = ValueFor(axis, bar.Maximum, in);
  offset = -float(bar.Value) * axis.TwipsPerPixel;  // the bar's Change handler
  return bar;
}

}  // namespace

Placement PlaceImage(const PlacingInput& in) {
  const bool needH = in.ImageLoaded && in.ControlWidth > in.PanelWidth;
  const bool needV = in.ImageLoaded && in.ControlHeight > in.PanelHeight;
  Placement out;
  const Axis horizontal{in.TwipsPerPixelX, in.ControlWidth, in.PanelWidth - (needV ? in.VerticalBarWidth : 0),
                        needH, in.PreviousHorizontal, in.Selection.Left, in.Selection.Width};
  const Axis vertical{in.TwipsPerPixelY, in.ControlHeight, in.PanelHeight - (needH ? in.HorizontalBarHeight : 0),
                      needV, in.PreviousVertical, in.Selection.Top, in.Selection.Height};
  out.Horizontal = Arrange(horizontal, in, out.ControlLeft);
  out.Vertical = Arrange(vertical, in, out.ControlTop);
  out.CornerVisible = needH && needV;
  return out;
}

}  // namespace view
