// The zoom steps and the fit rules.
#include "view/Zoom.h"

#include <gtest/gtest.h>

namespace {

using namespace view;

TEST(ZoomSteps, ZoomInFrom990GivesAThousandAndThenNothing) {
  EXPECT_EQ(ZoomIn(990), 1000);
  EXPECT_FALSE(ZoomIn(1000).has_value());
  EXPECT_EQ(ZoomIn(100), 120);
  EXPECT_EQ(ZoomIn(15), 35);
}

TEST(ZoomSteps, ZoomOutClampsUpToTenAndThenDoesNothing) {
  EXPECT_EQ(ZoomOut(20), 10);
  EXPECT_EQ(ZoomOut(25), 10);  // 5 clamped up
  EXPECT_FALSE(ZoomOut(10).has_value());
  EXPECT_EQ(ZoomOut(100), 80);
}

TEST(Fit, EnlargesSmallImagesUpToAThousand) {
  EXPECT_EQ(FitPercentage(7500, 6000, 3000, 2400), 250);
  EXPECT_EQ(FitPercentage(150000, 150000, 15, 15), 1000);
}

TEST(Fit, FloorsTheSmallerRatio) {
  EXPECT_EQ(FitPercentage(1000, 900, 3000, 1000), 33);  // ratios 0.333... and 0.9
  EXPECT_EQ(FitPercentage(10, 10, 100000, 100000), 10);
}

TEST(Fit, IsOneHundredWithoutANaturalSize) {
  EXPECT_EQ(FitPercentage(1000, 1000, 0, 500), 100);
  EXPECT_EQ(FitPercentage(1000, 1000, 500, -1), 100);
}

TEST(SelectionFit, TakesTwiceTheBarsOffThePanel) {
  SelectionFitInput in;
  in.PanelWidth = 6000;
  in.PanelHeight = 4800;
  in.VerticalBarWidth = 255;
  in.HorizontalBarHeight = 255;
  in.NaturalWidth = 30000;
  in.NaturalHeight = 20000;
  in.SelectionWidth = 1500;
  in.SelectionHeight = 1500;
  EXPECT_EQ(SelectionFitPercentage(in), 286);  // min(5490, 4290) / 1500 = 2.86, in single precision
  in.SelectionHeight = 0;
  EXPECT_EQ(SelectionFitPercentage(in), 100);
}

TEST(ScrollSteps, AreTwoAndTwentyFourPixelsAtOneHundredPercent) {
  EXPECT_EQ(SmallChange(100), 2);   // 1.5 rounds to 2
  EXPECT_EQ(LargeChange(100), 24);  // 24.5 rounds to 24
  EXPECT_EQ(SmallChange(10), 1);
  EXPECT_EQ(LargeChange(10), 3);
  EXPECT_EQ(SmallChange(1000), 10);  // 10.5 rounds to 10
}

}  // namespace
