#include "browse/FileTypes.h"

#include <gtest/gtest.h>

namespace {

using browse::FileTypeDescription;

TEST(FileTypeDescription, FollowsTheTable) {
  EXPECT_EQ(FileTypeDescription(QStringLiteral("bmp")), QStringLiteral("Bitmap image"));
  EXPECT_EQ(FileTypeDescription(QStringLiteral("JPE")), QStringLiteral("Jpeg image"));
  EXPECT_EQ(FileTypeDescription(QStringLiteral(" Jif ")), QStringLiteral("Jpeg image"));
  EXPECT_EQ(FileTypeDescription(QStringLiteral("wpg")), QStringLiteral("Word Perfect graphic bitmap image"));
  EXPECT_EQ(FileTypeDescription(QStringLiteral("dcx")), QStringLiteral("Paintbrush dcx image"));
}

TEST(FileTypeDescription, OfAnUnknownExtensionIsItAsPassedPlusFile) {
  EXPECT_EQ(FileTypeDescription(QStringLiteral("XYZ")), QStringLiteral("XYZ file"));
  EXPECT_EQ(FileTypeDescription(QString()), QStringLiteral("File"));
}

}  // namespace
