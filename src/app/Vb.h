#pragma once
// The number and text semantics of Visual Basic 6 that the spec's Parts rely on.
// Every Part that says "rounded to a Long", "integer-divided" or "formatted #,##0"
// goes through these, so the worked examples reproduce exactly.

#include <QDateTime>
#include <QString>
#include <QStringView>

#include <cstdint>
#include <optional>

namespace vb {

// Val: skips leading blanks and tabs, takes the longest numeric prefix
// (sign, digits, one decimal point, exponent E or D); no prefix gives 0.
double Val(QStringView text);

// CLng / CInt: round half to even; nullopt where VB raises an overflow.
std::optional<std::int32_t> CLng(double value);
std::optional<std::int16_t> CInt(double value);

// CLng of a text: the whole text, blanks around it aside, must be a number; nullopt
// where VB raises a type mismatch ("", "abc", "1x") or an overflow.
std::optional<std::int32_t> CLngText(const QString& text);

// CSng: to single precision, as the settings file's Single fields are kept.
float CSng(double value);

// Int: the largest whole number not greater than the value (Int(-2.5) is -3).
double Int(double value);

// The `\` operator: both operands rounded to Long (half to even), then the
// quotient truncated toward zero; nullopt for a zero divisor or an overflow.
std::optional<std::int32_t> IntDiv(double dividend, double divisor);

// Trim: removes blanks (spaces only, as VB's Trim) at both ends.
QString Trim(const QString& text);

// Format(value, "#,##0") and Format(value, "#,##0.0"): thousands separated by
// commas; Format rounds halves away from zero (unlike CLng).
QString FormatThousands(double value);
QString FormatThousandsOneDecimal(double value);

// Format(value, "General Date") in the US English locale: "11/21/2026 9:05:03 PM";
// the time is left out at midnight.
QString GeneralDate(const QDateTime& when);

}  // namespace vb
