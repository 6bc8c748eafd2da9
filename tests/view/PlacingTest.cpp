// The placing step: bars only where needed, centring otherwise, ranges, steps,
// and the view position kept across zoom steps or brought to the selection.
#include "view/Placing.h"

#include <gtest/gtest.h>

namespace {

using view::Pending;
using view::PlaceImage;
using view::PlacingInput;

// A 600 x 400 pixel panel with 17-pixel bars, at 15 twips per pixel.
PlacingInput Panel(float controlWidthPx, float controlHeightPx, int percentage = 100) {
  PlacingInput in;
  in.PanelWidth = 600 * 15;
  in.PanelHeight = 400 * 15;
  in.VerticalBarWidth = 17 * 15;
  in.HorizontalBarHeight = 17 * 15;
  in.ControlWidth = controlWidthPx * 15;
  in.ControlHeight = controlHeightPx * 15;
  in.ImageLoaded = true;
  in.Percentage = percentage;
  return in;
}

TEST(Placing, AWideImageGetsAHorizontalBarOnlyAndStaysCentredVertically) {
  const auto out = PlaceImage(Panel(1000, 300));
  ASSERT_TRUE(out.Horizontal.Visible);
  EXPECT_FALSE(out.Vertical.Visible);
  EXPECT_EQ(out.Horizontal.Maximum, 400);  // 1000 - 600
  EXPECT_EQ(out.Horizontal.Value, 0);
  EXPECT_EQ(out.ControlLeft, 0);
  EXPECT_EQ(out.ControlTop, (383 - 300) * 15 / 2.0f);  // centred in the panel above the bar
}

TEST(Placing, AZoomStepKeepsTheRelativePosition) {
  PlacingInput in = Panel(2000, 300);
  in.PendingFlag = Pending::ZoomStep;
  in.PreviousHorizontal = {true, 700, 175, 2, 24};  // a quarter of the way
  const auto out = PlaceImage(in);
  EXPECT_EQ(out.Horizontal.Maximum, 1400);
  EXPECT_EQ(out.Horizontal.Value, 350);
  EXPECT_EQ(out.ControlLeft, -350 * 15);
  in.PreviousHorizontal = {};  // the bar was not shown: the middle
  EXPECT_EQ(PlaceImage(in).Horizontal.Value, 700);
}

TEST(Placing, ZoomToSelectionBringsTheSelectionsCentreToTheMiddle) {
  PlacingInput in = Panel(2000, 1500, 200);  // a 1000 x 750 image at 200 %
  in.PendingFlag = Pending::ZoomToSelection;
  in.Selection = {600 * 15, 400 * 15, 100 * 15, 100 * 15};  // centre at 650, 450 image pixels
  const auto out = PlaceImage(in);
  // The centre, 1300 x 900 screen pixels into the zoomed image, lands within a pixel of the
  // middle of the usable panel (583 x 383 beside the bars).
  EXPECT_NEAR(1300 - out.Horizontal.Value, 583 / 2.0, 1);
  EXPECT_NEAR(900 - out.Vertical.Value, 383 / 2.0, 1);
}

}  // namespace
