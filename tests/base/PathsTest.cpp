// Paths, file names and the text of older files.
#include "base/FileNames.h"
#include "base/Paths.h"
#include "base/TextEncoding.h"
#include "support/TestFiles.h"

#include <gtest/gtest.h>

namespace {

using namespace base;

// The one-path rules, each case the rule, its input and what it gives.
TEST(Paths, ExtensionDisplayNameAndTrailingSeparators) {
  using Rule = QString (*)(const QString&);
  const std::tuple<Rule, const char*, const char*> cases[] = {
      {FileExtension, "/a/IMG_1.JPG", "jpg"},  // trimmed and lower-cased, after the last point
      {FileExtension, "a.tar.GZ ", "gz"},
      {FileExtension, "README", ""},
      {FileExtension, "name.", ""},
      {DisplayName, "/x/IMG_0001.JPG", "IMG_0001.JPG"},  // shown exactly as named
      {DisplayName, "Mixed.Jpg", "Mixed.Jpg"},
      {DisplayName, "/x/", ""},
      {StripTrailingBackslashes, "/home/ana//", "/home/ana"},  // but the root stays
      {StripTrailingBackslashes, "/", "/"},
      {StripTrailingBackslashes, "", ""},
      {StripTrailingBackslashes, "a\\", "a\\"},  // a name character on Linux
  };
  for (const auto& [rule, input, output] : cases) EXPECT_EQ(rule(QLatin1String(input)), QLatin1String(output)) << input;
}

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

TEST(AnsiText, ValidUtf8IsReadAsUtf8AndOtherBytesAsWindows1252) {
  EXPECT_EQ(base::DecodeUtf8OrWindows1252("A\xC3\xB1o"), QStringLiteral("Año"));
  EXPECT_EQ(base::DecodeUtf8OrWindows1252("A\xF1o"), QStringLiteral("Año"));
  EXPECT_EQ(base::DecodeWindows1252("\x80\x93\x9F\xFF"), QStringLiteral("€“Ÿÿ"));
}

TEST(AnsiText, SplitsOnCrLfCrAndLfWithoutATrailingEmptyLine) {
  EXPECT_EQ(base::SplitLines(QStringLiteral("a\r\nb\rc\nd")), QStringList({"a", "b", "c", "d"}));
  EXPECT_EQ(base::SplitLines(QStringLiteral("a\r\n\r\n")), QStringList({"a", ""}));
  EXPECT_EQ(base::SplitLines(QString()), QStringList());
}

}  // namespace
