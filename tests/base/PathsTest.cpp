#include "base/Paths.h"
#include "support/TestFiles.h"

#include <gtest/gtest.h>

namespace {

using namespace base;

TEST(JoinPath, AddsOneSeparatorUnlessTheFolderEndsInOne) {
  EXPECT_EQ(JoinPath(QStringLiteral("/home/ana"), QStringLiteral("a.jpg")), QStringLiteral("/home/ana/a.jpg"));
  EXPECT_EQ(JoinPath(QStringLiteral("/"), QStringLiteral("a.jpg")), QStringLiteral("/a.jpg"));
  EXPECT_EQ(JoinPath(QStringLiteral("/tmp/"), QStringLiteral("Ini.in")), QStringLiteral("/tmp/Ini.in"));
}

TEST(FileExtension, IsTheTrimmedLowerCasedTextAfterTheLastPoint) {
  EXPECT_EQ(FileExtension(QStringLiteral("/a/IMG_1.JPG")), QStringLiteral("jpg"));
  EXPECT_EQ(FileExtension(QStringLiteral("a.tar.GZ ")), QStringLiteral("gz"));
  EXPECT_EQ(FileExtension(QStringLiteral("README")), QString());
  EXPECT_EQ(FileExtension(QStringLiteral("name.")), QString());
}

TEST(DisplayName, ShowsAnAllCapitalsNameCapitalisedOnce) {
  EXPECT_EQ(DisplayName(QStringLiteral("/x/IMG_0001.JPG")), QStringLiteral("Img_0001.jpg"));
  EXPECT_EQ(DisplayName(QStringLiteral("PHOTO.BMP")), QStringLiteral("Photo.bmp"));
  EXPECT_EQ(DisplayName(QStringLiteral("a.JPG")), QStringLiteral("a.JPG"));
  EXPECT_EQ(DisplayName(QStringLiteral("Mixed.Jpg")), QStringLiteral("Mixed.Jpg"));
  EXPECT_EQ(DisplayName(QStringLiteral("123.JPG")), QStringLiteral("123.jpg"));
  EXPECT_EQ(DisplayName(QStringLiteral("/x/")), QString());
}

TEST(StripTrailingBackslashes, DropsTrailingSeparatorsButKeepsTheRoot) {
  EXPECT_EQ(StripTrailingBackslashes(QStringLiteral("/home/ana//")), QStringLiteral("/home/ana"));
  EXPECT_EQ(StripTrailingBackslashes(QStringLiteral("/")), QStringLiteral("/"));
  EXPECT_EQ(StripTrailingBackslashes(QString()), QString());
  EXPECT_EQ(StripTrailingBackslashes(QStringLiteral("a\\")), QStringLiteral("a\\"));  // a name character on Linux
}

TEST(FolderExists, IsTrueForFoldersOnly) {
  testing_support::TempFolder folder;
  EXPECT_TRUE(FolderExists(folder.Path()));
  EXPECT_TRUE(FolderExists(QStringLiteral("/")));
  EXPECT_FALSE(FolderExists(folder.Touch(QStringLiteral("file.jpg"))));
  EXPECT_FALSE(FolderExists(folder.File(QStringLiteral("missing"))));
  EXPECT_FALSE(FolderExists(QString()));
}

}  // namespace
