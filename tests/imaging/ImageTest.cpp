// The image's own services: reductions for display (exact sizes, the same picture whether
// or not the levels were warmed, alpha onto white, no aliasing of fine detail) and packed undo
// states (lossless, smaller than the pixels for a photograph, alpha kept).
#include "imaging/Image.h"
#include "imaging/Loader.h"
#include "imaging/PackedImage.h"
#include "support/ImageCompare.h"

#include <QColor>

#include <gtest/gtest.h>

namespace {

using testing_support::Hopper;
using testing_support::MeanAbsoluteDifference;
using testing_support::CorpusPath;

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

// A copy of `image` in pixels of its own, packed and let go, so that unpacking has only
// the packed bytes to go on (once the worker is done).
imaging::PackedImage PackedAlone(const imaging::Image& image) {
  const imaging::PackedImage packed = imaging::PackedImage::Pack(imaging::Image::FromQImage(
      image.HasAlpha() ? image.ToQImageWithAlpha().copy() : image.ToQImage().copy()));
  (void)packed.Bytes();
  return packed;
}

TEST(PackedImage, UnpacksToExactlyThePixelsPacked) {
  const imaging::Image photo = imaging::LoadFile(CorpusPath(QStringLiteral("formats/hopper.png"))).value();
  const imaging::PackedImage packed = PackedAlone(photo);
  EXPECT_EQ(MeanAbsoluteDifference(packed.Unpack(), photo), 0);
  EXPECT_LT(packed.Bytes(), qint64(photo.Width()) * photo.Height() * 3);
}

TEST(PackedImage, KeepsAlphaOddSizesASinglePixelAndTallPictures) {
  QImage sprite(7, 3, QImage::Format_ARGB32);
  for (int x = 0; x < 7; ++x) {
    for (int y = 0; y < 3; ++y) sprite.setPixelColor(x, y, QColor(x * 30, y * 80, 200 - x * 20, x * 36));
  }
  const imaging::Image image = imaging::Image::FromQImage(sprite);
  const imaging::Image back = PackedAlone(image).Unpack();
  EXPECT_EQ(back.Bands(), 4);
  EXPECT_EQ(MeanAbsoluteDifference(back, image), 0);
  QImage dot(1, 1, QImage::Format_RGB888);  // a single pixel
  dot.setPixelColor(0, 0, QColor(1, 2, 3));
  const imaging::Image one = imaging::Image::FromQImage(dot);
  EXPECT_EQ(MeanAbsoluteDifference(PackedAlone(one).Unpack(), one), 0);
  // Tall enough for several bands of rows, the last one short.
  const imaging::Image tall = testing_support::Painted(5, 601, [](int x, int y) { return QColor(x * 50, y % 256, (x * y) % 256); });
  EXPECT_EQ(MeanAbsoluteDifference(PackedAlone(tall).Unpack(), tall), 0);
}

}  // namespace
