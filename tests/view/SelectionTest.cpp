// The drag rectangle, the selection record and the auto-scroll.
#include "view/Selection.h"

#include <gtest/gtest.h>

namespace {

using namespace view;

constexpr float T = 15;  // twips per pixel
const QSizeF kControl100(100 * T, 80 * T);

SelectionRecord Drag(QPointF fromPx, QPointF toPx, int percentage = 100, QSizeF control = kControl100,
                     QSizeF natural = kControl100) {
  const DragRectangle rect = SpanDrag(fromPx * T, toPx * T, control, T, T);
  return ToSelectionRecord(rect, percentage, T, T, natural);
}

// Backwards or forwards the same rectangle; past the edge it stops at the last column.
TEST(Selection, DraggingEitherWayGivesTheSameRectangleWithinTheImage) {
  EXPECT_EQ(Drag({30, 40}, {10, 20}).Pixels(T, T), Drag({10, 20}, {30, 40}).Pixels(T, T));
  EXPECT_EQ(Drag({10, 20}, {30, 40}).Pixels(T, T), QRect(10, 20, 21, 21));
  EXPECT_EQ(Drag({90, 70}, {500, 300}).Pixels(T, T), QRect(90, 70, 10, 10));
  EXPECT_EQ(Drag({5, 5}, {-50, -50}).Pixels(T, T), QRect(0, 0, 6, 6));
}

TEST(Selection, TenScreenPixelsAtTwoHundredPercentAreFiveImagePixels) {
  const QSizeF control200(200 * T, 160 * T);
  const SelectionRecord s = Drag({20, 20}, {29, 29}, 200, control200);
  EXPECT_EQ(s.Pixels(T, T), QRect(10, 10, 5, 5));
  // The record is in image twips: at 100 % it names the same pixels (what the outline draws).
  EXPECT_EQ(s.Left, 150);
  EXPECT_EQ(s.Width, 75);
}

TEST(Selection, IsClampedToTheImage) {
  // A control larger than the image (a stale size) cannot push the selection outside it.
  const SelectionRecord s = Drag({95, 75}, {120, 100}, 100, QSizeF(200 * T, 200 * T), kControl100);
  EXPECT_EQ(s.Pixels(T, T), QRect(95, 75, 5, 5));
}

TEST(AutoScroll, BringsTheDragEdgeToThePanelEdge) {
  AutoScrollAxis right{650 * T, 600 * T, 100 * T, 800 * T, T, 0, 1000};
  EXPECT_EQ(AutoScrollValue(right), 300);  // (899 - 599) pixels
  AutoScrollAxis left{-5 * T, 600 * T, 250 * T, 100 * T, T, 0, 1000};
  EXPECT_EQ(AutoScrollValue(left), 250);
  AutoScrollAxis inside{300 * T, 600 * T, 250 * T, 100 * T, T, 0, 1000};
  EXPECT_FALSE(AutoScrollValue(inside).has_value());
  right.Maximum = 120;
  EXPECT_EQ(AutoScrollValue(right), 120);
}

}  // namespace
