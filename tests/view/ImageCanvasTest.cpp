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

}  // namespace
