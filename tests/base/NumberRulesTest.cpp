#include "base/NumberRules.h"

#include <gtest/gtest.h>

#include <clocale>
#include <string>

namespace {

TEST(LeadingNumber, TakesTheLeadingNumberAfterBlanks) {
  EXPECT_EQ(numbers::LeadingNumber(u"  12abc"), 12);
  EXPECT_EQ(numbers::LeadingNumber(u"\t-3.5e2x"), -350);
  EXPECT_EQ(numbers::LeadingNumber(u"1.5.3"), 1.5);
  EXPECT_EQ(numbers::LeadingNumber(u".25"), 0.25);
  EXPECT_EQ(numbers::LeadingNumber(u"1D3"), 1000);
  EXPECT_EQ(numbers::LeadingNumber(u"7e"), 7);  // an exponent without digits is not part of the number
}

// Under a locale whose decimal separator is a comma, a point is still the separator.
TEST(LeadingNumber, ReadsAPointWhateverTheLocale) {
  const std::string before = std::setlocale(LC_NUMERIC, nullptr);
  ASSERT_NE(std::setlocale(LC_NUMERIC, "de_DE.UTF-8"), nullptr) << "scripts/setup makes this locale";
  EXPECT_EQ(numbers::LeadingNumber(u"27.5"), 27.5);
  EXPECT_EQ(numbers::LeadingNumber(u"1.5E2x"), 150);
  std::setlocale(LC_NUMERIC, before.c_str());
}

TEST(LeadingNumber, WithoutANumberIsZero) {
  EXPECT_EQ(numbers::LeadingNumber(u""), 0);
  EXPECT_EQ(numbers::LeadingNumber(u"abc"), 0);
  EXPECT_EQ(numbers::LeadingNumber(u"-"), 0);
  EXPECT_EQ(numbers::LeadingNumber(u"."), 0);
}

TEST(RoundToInt32, RoundsHalfToEven) {
  EXPECT_EQ(numbers::RoundToInt32(2.5), 2);
  EXPECT_EQ(numbers::RoundToInt32(3.5), 4);
  EXPECT_EQ(numbers::RoundToInt32(-2.5), -2);
  EXPECT_EQ(numbers::RoundToInt32(1462.5), 1462);
  EXPECT_EQ(numbers::RoundToInt32(2.6), 3);
}

TEST(RoundToInt32, OverflowIsNoValue) {
  EXPECT_FALSE(numbers::RoundToInt32(3e9).has_value());
  EXPECT_FALSE(numbers::RoundToInt32(std::numeric_limits<double>::quiet_NaN()).has_value());
  EXPECT_EQ(numbers::RoundToInt32(2147483647.0), 2147483647);
}

TEST(RoundToInt16, RoundsHalfToEvenWithinSixteenBits) {
  EXPECT_EQ(numbers::RoundToInt16(0.5), 0);
  EXPECT_EQ(numbers::RoundToInt16(1.5), 2);
  EXPECT_FALSE(numbers::RoundToInt16(40000).has_value());
}

TEST(RoundedDiv, RoundsBothOperandsThenTruncates) {
  EXPECT_EQ(numbers::RoundedDiv(1462, 15), 97);
  EXPECT_EQ(numbers::RoundedDiv(1950, 15), 130);
  EXPECT_EQ(numbers::RoundedDiv(7.5, 2), 4);      // 8 \ 2
  EXPECT_EQ(numbers::RoundedDiv(6.5, 2.5), 3);    // 6 \ 2
  EXPECT_EQ(numbers::RoundedDiv(-7, 2), -3);
  EXPECT_FALSE(numbers::RoundedDiv(1, 0.4).has_value());  // the divisor rounds to 0
}

TEST(TrimBlanks, RemovesBlanksOnly) {
  EXPECT_EQ(numbers::TrimBlanks(QStringLiteral("  a b  ")), QStringLiteral("a b"));
  EXPECT_EQ(numbers::TrimBlanks(QStringLiteral("\tx\t")), QStringLiteral("\tx\t"));
  EXPECT_EQ(numbers::TrimBlanks(QStringLiteral("   ")), QString());
}

TEST(FormatThousands, GroupsThousands) {
  EXPECT_EQ(numbers::FormatThousands(1204), QStringLiteral("1,204"));  // "Page 3 of 1,204"
  EXPECT_EQ(numbers::FormatThousands(3), QStringLiteral("3"));
  EXPECT_EQ(numbers::FormatThousands(999), QStringLiteral("999"));
  EXPECT_EQ(numbers::FormatThousands(1234567.5), QStringLiteral("1,234,568"));
  EXPECT_EQ(numbers::FormatThousands(2.5), QStringLiteral("3"));  // Format rounds halves away from zero
  EXPECT_EQ(numbers::FormatThousands(-1234), QStringLiteral("-1,234"));
  EXPECT_EQ(numbers::FormatThousands(0), QStringLiteral("0"));
  EXPECT_EQ(numbers::FormatThousandsOneDecimal(1234.56), QStringLiteral("1,234.6"));
  EXPECT_EQ(numbers::FormatThousandsOneDecimal(0.04), QStringLiteral("0.0"));
}

TEST(FormatGeneralDate, UsesTheUsFormAndLeavesOutMidnight) {
  EXPECT_EQ(numbers::FormatGeneralDate(QDateTime(QDate(2026, 11, 21), QTime(21, 5, 3))),
            QStringLiteral("11/21/2026 9:05:03 PM"));
  EXPECT_EQ(numbers::FormatGeneralDate(QDateTime(QDate(2026, 1, 2), QTime(0, 0))), QStringLiteral("1/2/2026"));
}

}  // namespace
