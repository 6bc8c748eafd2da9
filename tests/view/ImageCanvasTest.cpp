// The image control's selection outline shows on any picture.
#include "support/ImageCompare.h"
#include "view/ImageCanvas.h"

#include <gtest/gtest.h>

namespace {

// How many pixels of the outline's top edge are of `colour`.
int EdgePixelsOf(QColor background, QColor colour) {
  QWidget parent;
  view::ImageCanvas canvas(&parent);
  canvas.SetImage(testing_support::Painted(40, 40, [&](int, int) { return background; }));
  canvas.SetZoom(100);
  canvas.resize(40, 40);
  canvas.SetOutline(QRect(5, 5, 20, 20));
  const QImage shown = canvas.grab().toImage();
  int count = 0;
  for (int x = 5; x < 25; ++x) count += QColor(shown.pixel(x, 5)) == colour;
  return count;
}

TEST(ImageCanvas, TheSelectionOutlineShowsOnDarkAndLightPictures) {
  EXPECT_GT(EdgePixelsOf(Qt::black, Qt::white), 0);
  EXPECT_GT(EdgePixelsOf(Qt::white, Qt::black), 0);
}

// A stand-in a quarter the size of the image it stands for fills the same place: at 10 %
// and at 100 %, its left half red and its right half blue land on the canvas's halves.
TEST(ImageCanvas, AStandInFillsThePlaceOfTheWholeImage) {
  const imaging::Image standIn = testing_support::Painted(100, 50, [](int x, int) { return x < 50 ? Qt::red : Qt::blue; });
  for (const int percentage : {10, 100}) {
    QWidget parent;
    view::ImageCanvas canvas(&parent);
    canvas.SetImage(standIn, 0.25);
    canvas.SetZoom(percentage);
    canvas.resize(400 * percentage / 100, 200 * percentage / 100);
    const QImage shown = canvas.grab().toImage();
    const int w = shown.width(), h = shown.height();
    EXPECT_EQ(QColor(shown.pixel(w / 4, h / 2)), QColor(Qt::red)) << percentage;
    EXPECT_EQ(QColor(shown.pixel(3 * w / 4, h / 2)), QColor(Qt::blue)) << percentage;
    EXPECT_EQ(QColor(shown.pixel(w - 1, h - 1)), QColor(Qt::blue)) << percentage;
  }
}

}  // namespace
