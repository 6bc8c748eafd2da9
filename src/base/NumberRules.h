#pragma once
// The number and text rules that the settings file, the dialogs and the zoom arithmetic
// share: the leading-number parse, rounding half to even, the rounded integer division
// and the "#,##0" format. Every computation that rounds, divides or formats a number
// for the user goes through these, so the same input always gives the same figure.

#include <QDateTime>
#include <QLocale>
#include <QString>
#include <QStringView>

#include <cstdint>
#include <optional>

namespace numbers {

// Skips leading blanks and tabs, takes the longest numeric prefix (sign, digits, one
// decimal point, exponent E or D); no prefix gives 0. "12abc" is 12, "abc" is 0.
double LeadingNumber(QStringView text);

// Rounds half to even (2.5 is 2, 3.5 is 4); nullopt outside the type's range.
std::optional<std::int32_t> RoundToInt32(double value);
std::optional<std::int16_t> RoundToInt16(double value);

// The whole text, blanks around it aside, must be a number, then rounded half to
// even; nullopt for "", "abc", "1x" or a number out of range.
std::optional<std::int32_t> ParseInt32(const QString& text);

// To single precision, as the settings file keeps its fractional fields.
float ToSingle(double value);

// The largest whole number not greater than the value (Floor(-2.5) is -3).
double Floor(double value);

// Both operands rounded half to even, then the quotient truncated toward zero;
// nullopt for a zero divisor or an overflow.
std::optional<std::int32_t> RoundedDiv(double dividend, double divisor);

// Removes spaces (not tabs) at both ends.
QString TrimBlanks(const QString& text);

// "#,##0" and "#,##0.0" with the locale's separators ("1,234.5" in the US, "1.234,5" in
// Germany), halves rounded away from zero (unlike RoundToInt32).
QString FormatThousands(double value, const QLocale& locale = QLocale());
QString FormatThousandsOneDecimal(double value, const QLocale& locale = QLocale());

// A date and time as the user's locale writes them, the short date and the time with
// seconds: "11/21/26 9:05:03 PM" in the US, "21.11.26 21:05:03" in Germany; the time is
// left out at midnight.
QString FormatGeneralDate(const QDateTime& when, const QLocale& locale = QLocale());

}  // namespace numbers
