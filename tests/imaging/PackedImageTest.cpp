// Packed undo states: lossless, smaller than the pixels for a photograph, alpha kept.
#include "imaging/Loader.h"
#include "imaging/PackedImage.h"
#include "support/ImageCompare.h"

#include <gtest/gtest.h>

namespace {

using testing_support::CorpusPath;
using testing_support::MeanAbsoluteDifference;

TEST(PackedImage, UnpacksToExactlyThePixelsPacked) {
  const imaging::Image photo = imaging::LoadFile(CorpusPath(QStringLiteral("formats/hopper.png"))).value();
  const imaging::PackedImage packed = imaging::PackedImage::Pack(photo);
  EXPECT_EQ(MeanAbsoluteDifference(packed.Unpack(), photo), 0);
  EXPECT_LT(packed.Bytes(), qint64(photo.Width()) * photo.Height() * 3);
}

TEST(PackedImage, KeepsAlphaOddSizesAndASinglePixel) {
  QImage sprite(7, 3, QImage::Format_ARGB32);
  for (int x = 0; x < 7; ++x) {
    for (int y = 0; y < 3; ++y) sprite.setPixelColor(x, y, QColor(x * 30, y * 80, 200 - x * 20, x * 36));
  }
  const imaging::Image image = imaging::Image::FromQImage(sprite);
  const imaging::Image back = imaging::PackedImage::Pack(image).Unpack();
  EXPECT_EQ(back.Bands(), 4);
  EXPECT_EQ(MeanAbsoluteDifference(back, image), 0);
  QImage dot(1, 1, QImage::Format_RGB888);  // a single pixel
  dot.setPixelColor(0, 0, QColor(1, 2, 3));
  const imaging::Image one = imaging::Image::FromQImage(dot);
  EXPECT_EQ(MeanAbsoluteDifference(imaging::PackedImage::Pack(one).Unpack(), one), 0);
}

}  // namespace
