// The zoom steps and the fit rules.
#include "view/Zoom.h"

#include <gtest/gtest.h>

namespace {

using namespace view;

TEST(ZoomSteps, MoveByTwentyWithinTenToAThousand) {
  const std::tuple<int, std::optional<int>, std::optional<int>> cases[] = {
      // from, Zoom In, Zoom Out
      {100, 120, 80}, {990, 1000, 970}, {1000, std::nullopt, 980}, {15, 35, 10}, {25, 45, 10}, {10, 30, std::nullopt}};
  for (const auto& [from, in, out] : cases) {
    EXPECT_EQ(ZoomIn(from), in) << from;
    EXPECT_EQ(ZoomOut(from), out) << from;
  }
}

// Fit takes the smaller ratio, floored, from 1; it enlarges (to 1000) only when asked.
// Without a natural size it is 100.
TEST(Fit, TakesTheSmallerRatioAndEnlargesOnlyWhenAsked) {
  const std::tuple<float, float, float, float, int, int> cases[] = {
      // panel, natural, enlarging, not enlarging
      {7500, 6000, 3000, 2400, 250, 100},  {150000, 150000, 15, 15, 1000, 100}, {1000, 900, 3000, 1000, 33, 33},
      {15000, 10500, 240000, 180000, 5, 5}, {10, 10, 100000, 100000, 1, 1},     {1000, 1000, 0, 500, 100, 100},
      {1000, 1000, 500, -1, 100, 100}};
  for (const auto& [panelWidth, panelHeight, naturalWidth, naturalHeight, enlarged, kept] : cases) {
    EXPECT_EQ(FitPercentage(panelWidth, panelHeight, naturalWidth, naturalHeight, true), enlarged) << naturalWidth;
    EXPECT_EQ(FitPercentage(panelWidth, panelHeight, naturalWidth, naturalHeight, false), kept) << naturalWidth;
  }
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

}  // namespace
