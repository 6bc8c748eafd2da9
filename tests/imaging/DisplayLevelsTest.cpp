// Reductions for display: exact sizes, the same picture whether or not the levels were
// warmed, alpha onto white, and no aliasing of fine detail.
#include "imaging/Image.h"
#include "imaging/Loader.h"
#include "support/ImageCompare.h"

#include <QColor>

#include <gtest/gtest.h>

namespace {

using testing_support::Hopper;
using testing_support::MeanAbsoluteDifference;

// Alternate black and white columns: the worst case for a reduction that skips pixels.
imaging::Image Stripes(int width, int height) {
  QImage stripes(width, height, QImage::Format_RGB888);
  for (int x = 0; x < width; ++x) {
    for (int y = 0; y < height; ++y) stripes.setPixelColor(x, y, x % 2 ? Qt::white : Qt::black);
  }
  return imaging::Image::FromQImage(stripes);
}

TEST(DisplayLevels, APreviewFitsLikeFitWithinFromTheLevels) {
  const imaging::Image photo = Hopper();
  photo.WarmDisplayLevels(16);
  const imaging::Image preview = photo.FitWithinForDisplay(112, 40);
  const imaging::Image fitted = photo.FitWithin(112, 40);
  EXPECT_EQ(testing_support::SizeOf(preview), QSize(fitted.Width(), 40));
  EXPECT_GT(testing_support::Psnr(preview, fitted), 30);
  EXPECT_EQ(photo.FitWithinForDisplay(500, 500).Width(), 128);  // never enlarged
}

TEST(DisplayLevels, AReductionHasExactlyTheSizeAskedAndNeverEnlarges) {
  const imaging::Image reduced = Hopper().ReducedForDisplay(37, 20);
  EXPECT_EQ(testing_support::SizeOf(reduced), QSize(37, 20));
  EXPECT_EQ(reduced.Bands(), 3);
  EXPECT_EQ(MeanAbsoluteDifference(Hopper().ReducedForDisplay(500, 500), Hopper()), 0);
}

TEST(DisplayLevels, WarmedLevelsGiveNearlyTheSamePictureAsADirectReduction) {
  const imaging::Image cold = Hopper().ReducedForDisplay(20, 20);
  const imaging::Image warm = Hopper();
  warm.WarmDisplayLevels(16);
  EXPECT_LT(MeanAbsoluteDifference(warm.ReducedForDisplay(20, 20), cold), 4.0);
}

TEST(DisplayLevels, FineDetailAveragesToGreyRatherThanAliasing) {
  const imaging::Image reduced = Stripes(600, 40).ReducedForDisplay(55, 4);
  const QImage pixels = reduced.ToQImage();
  for (int x = 2; x < 53; ++x) EXPECT_NEAR(pixels.pixelColor(x, 2).red(), 128, 20) << x;
}

TEST(DisplayLevels, AlphaIsCompositedOntoWhiteAndTheCopyOutlivesTheImage) {
  QImage clear(40, 40, QImage::Format_ARGB32);
  clear.fill(Qt::transparent);
  const QImage shown = imaging::Image::FromQImage(clear).ReducedForDisplay(10, 10).ToQImage();
  EXPECT_EQ(shown.pixelColor(5, 5), QColor(Qt::white));
  QImage copy;  // the display copy shares the pixels and outlives the image
  {
    const imaging::Image reduced = Hopper().ReducedForDisplay(64, 64);
    copy = reduced.ToQImage();
  }
  EXPECT_EQ(copy.width(), 64);
  EXPECT_NE(copy.pixelColor(32, 32), QColor(Qt::black));  // still readable: the QImage holds the pixels
}

}  // namespace
