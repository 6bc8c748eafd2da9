#include "base/TextEncoding.h"

#include <gtest/gtest.h>

namespace {

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
