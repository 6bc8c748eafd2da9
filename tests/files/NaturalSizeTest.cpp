#include "files/NaturalSize.h"

#include <gtest/gtest.h>

namespace {

TEST(NaturalSizeRecord, IsTwipsWidthFirstWithOneBlank) {
  EXPECT_EQ(files::NaturalSizeRecord(320, 240, {}), QStringLiteral("4800 3600"));
  app::ScreenMetrics large;
  large.TwipsPerPixelX = large.TwipsPerPixelY = 12;  // 120 dpi
  EXPECT_EQ(files::NaturalSizeRecord(320, 240, large), QStringLiteral("3840 2880"));
}

TEST(NaturalSizeRecord, ReadsBackAndGivesZerosWithoutABlank) {
  const files::NaturalSize size = files::ReadNaturalSizeRecord(QStringLiteral("4800 3600"));
  EXPECT_EQ(size.WidthTwips, 4800);
  EXPECT_EQ(size.HeightTwips, 3600);
  EXPECT_EQ(files::ReadNaturalSizeRecord(QStringLiteral("4800")).WidthTwips, 0);
  EXPECT_EQ(files::ReadNaturalSizeRecord(QString()).HeightTwips, 0);
}

}  // namespace
