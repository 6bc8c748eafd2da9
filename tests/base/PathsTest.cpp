#include "base/FileNames.h"
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

namespace {

// Names as stored on disk: every byte sequence comes back exactly, and people see text.
TEST(FileNames, KeepTheirBytesAndReadAsText) {
  const struct {
    QByteArray bytes;
    const char* readable;
    bool raw;
  } cases[] = {
      {"caf\xE9.png", "caf\u00e9.png", true},                     // Latin-1 from an old disk
      {"caf\xC3\xA9.png", "caf\u00e9.png", false},                // the same name in UTF-8
      {"\x80\x9F.jpg", "\u20ac\u0178.jpg", true},                 // Windows-1252's own letters
      {"\xF0\x90\x82\x80.png", "\U00010080.png", false},          // a pair whose low half looks like an escape
      {"\xED\xA0\x80\xC0\xAF.png", "\u00ed\u00a0\u20ac\u00c0\u00af.png", true},  // a surrogate and an overlong form
  };
  for (const auto& c : cases) {
    const QString name = base::DecodeFileName(c.bytes);
    EXPECT_EQ(base::EncodeFileName(name), c.bytes) << c.readable;
    EXPECT_EQ(base::HasRawBytes(name), c.raw) << c.readable;
    EXPECT_EQ(base::ReadableFileName(name), QString::fromUtf8(c.readable));
  }
}

}  // namespace
