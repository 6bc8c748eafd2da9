#include "base/NumberRules.h"

#include <gtest/gtest.h>

#include <clocale>
#include <string>

namespace {

// The leading number after blanks, a point for the decimals even where the locale's
// separator is a comma, and 0 when there is none.
TEST(LeadingNumber, TakesTheLeadingNumberAfterBlanksOrZero) {
  const std::string before = std::setlocale(LC_NUMERIC, nullptr);
  ASSERT_NE(std::setlocale(LC_NUMERIC, "de_DE.UTF-8"), nullptr) << "scripts/setup makes this locale";
  const std::pair<const char16_t*, double> cases[] = {
      {u"  12abc", 12}, {u"\t-3.5e2x", -350}, {u"1.5.3", 1.5}, {u".25", 0.25}, {u"1D3", 1000}, {u"1.5E2x", 150},
      {u"7e", 7},  // an exponent without digits is not part of the number
      {u"", 0},    {u"abc", 0},           {u"-", 0},       {u".", 0}};
  for (const auto& [text, value] : cases) EXPECT_EQ(numbers::LeadingNumber(text), value) << QString::fromUtf16(text).toStdString();
  std::setlocale(LC_NUMERIC, before.c_str());
}

TEST(Rounding, HalvesGoToEvenAndOverflowIsNoValue) {
  const std::pair<double, std::optional<std::int32_t>> to32[] = {
      {2.5, 2}, {3.5, 4}, {-2.5, -2}, {1462.5, 1462}, {2.6, 3}, {2147483647.0, 2147483647}, {3e9, std::nullopt},
      {std::numeric_limits<double>::quiet_NaN(), std::nullopt}};
  for (const auto& [value, rounded] : to32) EXPECT_EQ(numbers::RoundToInt32(value), rounded) << value;
  EXPECT_EQ(numbers::RoundToInt16(0.5), 0);
  EXPECT_EQ(numbers::RoundToInt16(1.5), 2);
  EXPECT_FALSE(numbers::RoundToInt16(40000).has_value());
}

// Integer division rounds both operands first, then truncates.
TEST(RoundedDiv, RoundsBothOperandsThenTruncates) {
  const std::tuple<double, double, std::optional<std::int32_t>> cases[] = {
      {1462, 15, 97}, {1950, 15, 130}, {7.5, 2, 4}, {6.5, 2.5, 3}, {-7, 2, -3},
      {1, 0.4, std::nullopt}};  // the divisor rounds to 0
  for (const auto& [dividend, divisor, quotient] : cases) {
    EXPECT_EQ(numbers::RoundedDiv(dividend, divisor), quotient) << dividend << " \\ " << divisor;
  }
}

// Whole numbers round halves away from zero, unlike the rounding above; the separators
// are the locale's.
TEST(FormatThousands, GroupsThousandsWithTheLocalesSeparators) {
  const QLocale us(QStringLiteral("en_US")), germany(QStringLiteral("de_DE"));
  const std::pair<double, const char*> cases[] = {{1204, "1,204"}, {3, "3"},   {999, "999"},       {1234567.5, "1,234,568"},
                                                  {2.5, "3"},      {0, "0"},   {-1234, "-1,234"}};
  for (const auto& [value, text] : cases) EXPECT_EQ(numbers::FormatThousands(value, us), QLatin1String(text)) << value;
  EXPECT_EQ(numbers::FormatThousandsOneDecimal(1234.56, us), QStringLiteral("1,234.6"));
  EXPECT_EQ(numbers::FormatThousandsOneDecimal(0.04, us), QStringLiteral("0.0"));
  EXPECT_EQ(numbers::FormatThousandsOneDecimal(1234567.25, germany), QStringLiteral("1.234.567,3"));
}

TEST(FormatGeneralDate, FollowsTheLocaleAndLeavesOutMidnight) {
  const QDateTime evening(QDate(2026, 11, 21), QTime(21, 5, 3));
  const std::tuple<QLocale::Language, QLocale::Territory, const char*, const char*> cases[] = {
      {QLocale::English, QLocale::UnitedStates, "11/21/", "9:05:03 PM"},
      {QLocale::German, QLocale::Germany, "21.11.", "21:05:03"},
      {QLocale::English, QLocale::UnitedKingdom, "21/11/", "21:05:03"},
  };
  for (const auto& [language, territory, date, time] : cases) {
    const QLocale locale(language, territory);
    const QString text = numbers::FormatGeneralDate(evening, locale);
    EXPECT_TRUE(text.startsWith(QLatin1String(date)) && text.endsWith(QLatin1String(time))) << text.toStdString();
    EXPECT_FALSE(numbers::FormatGeneralDate(QDateTime(QDate(2026, 1, 2), QTime(0, 0)), locale).contains(u':'));
  }
}

}  // namespace
