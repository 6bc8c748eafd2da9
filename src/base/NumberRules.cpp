#include "base/NumberRules.h"

#include <QLocale>
#include <QRegularExpression>

#include <cmath>
#include <limits>

namespace numbers {

namespace {

bool IsDigit(QChar c) { return c >= u'0' && c <= u'9'; }

// Length of the run of digits starting at `pos`.
qsizetype DigitRun(QStringView text, qsizetype pos) {
  qsizetype end = pos;
  while (end < text.size() && IsDigit(text[end])) ++end;
  return end - pos;
}

std::optional<double> RoundHalfEvenInRange(double value, double low, double high) {
  if (!std::isfinite(value)) return std::nullopt;
  const double rounded = std::nearbyint(value);  // default rounding mode: half to even
  if (rounded < low || rounded > high) return std::nullopt;
  return rounded;
}

QString GroupThousands(const QString& digits, const QString& separator) {
  QString grouped;
  const qsizetype n = digits.size();
  for (qsizetype i = 0; i < n; ++i) {
    if (i > 0 && (n - i) % 3 == 0) grouped += separator;
    grouped += digits[i];
  }
  return grouped;
}

QString FormatFixed(double value, int decimals, const QLocale& locale) {
  const double scale = std::pow(10.0, decimals);
  const double scaled = std::round(std::fabs(value) * scale);  // halves away from zero
  const auto whole = static_cast<unsigned long long>(scaled / scale);
  QString text = GroupThousands(QString::number(whole), locale.groupSeparator());
  if (decimals > 0) {
    const auto fraction = static_cast<unsigned long long>(scaled - static_cast<double>(whole) * scale);
    text += locale.decimalPoint() + QString::number(fraction).rightJustified(decimals, u'0');
  }
  return (value < 0 && scaled != 0) ? u'-' + text : text;
}

}  // namespace

double LeadingNumber(QStringView text) {
  qsizetype pos = 0;
  while (pos < text.size() && (text[pos] == u' ' || text[pos] == u'\t')) ++pos;
  const qsizetype start = pos;
  if (pos < text.size() && (text[pos] == u'+' || text[pos] == u'-')) ++pos;
  const qsizetype intDigits = DigitRun(text, pos);
  pos += intDigits;
  qsizetype fracDigits = 0;
  if (pos < text.size() && text[pos] == u'.') {
    fracDigits = DigitRun(text, pos + 1);
    pos += 1 + fracDigits;
  }
  if (intDigits + fracDigits == 0) return 0.0;
  qsizetype end = pos;
  if (pos < text.size() && QStringLiteral("eEdD").contains(text[pos])) {
    qsizetype expPos = pos + 1;
    if (expPos < text.size() && (text[expPos] == u'+' || text[expPos] == u'-')) ++expPos;
    const qsizetype expDigits = DigitRun(text, expPos);
    if (expDigits > 0) end = expPos + expDigits;
  }
  QString number = text.mid(start, end - start).toString();
  number.replace(u'd', u'e').replace(u'D', u'e');
  bool ok = false;
  const double value = QLocale::c().toDouble(number, &ok);  // "." whatever the user's locale
  return ok && std::isfinite(value) ? value : 0.0;
}

std::optional<std::int32_t> RoundToInt32(double value) {
  const auto r = RoundHalfEvenInRange(value, std::numeric_limits<std::int32_t>::min(),
                                      std::numeric_limits<std::int32_t>::max());
  if (!r) return std::nullopt;
  return static_cast<std::int32_t>(*r);
}

std::optional<std::int16_t> RoundToInt16(double value) {
  const auto r = RoundHalfEvenInRange(value, std::numeric_limits<std::int16_t>::min(),
                                      std::numeric_limits<std::int16_t>::max());
  if (!r) return std::nullopt;
  return static_cast<std::int16_t>(*r);
}

std::optional<std::int32_t> ParseInt32(const QString& text) {
  bool ok = false;
  const double value = QLocale::c().toDouble(TrimBlanks(text), &ok);
  if (!ok) return std::nullopt;
  return RoundToInt32(value);
}

float ToSingle(double value) { return static_cast<float>(value); }

double Floor(double value) { return std::floor(value); }

std::optional<std::int32_t> RoundedDiv(double dividend, double divisor) {
  const auto a = RoundToInt32(dividend);
  const auto b = RoundToInt32(divisor);
  if (!a || !b || *b == 0) return std::nullopt;
  if (*a == std::numeric_limits<std::int32_t>::min() && *b == -1) return std::nullopt;
  return *a / *b;
}

QString TrimBlanks(const QString& text) {
  qsizetype first = 0;
  qsizetype last = text.size();
  while (first < last && text[first] == u' ') ++first;
  while (last > first && text[last - 1] == u' ') --last;
  return text.mid(first, last - first);
}

QString FormatThousands(double value, const QLocale& locale) { return FormatFixed(value, 0, locale); }

QString FormatThousandsOneDecimal(double value, const QLocale& locale) { return FormatFixed(value, 1, locale); }

QString FormatGeneralDate(const QDateTime& when, const QLocale& locale) {
  const QString date = locale.toString(when.date(), QLocale::ShortFormat);
  if (when.time() == QTime(0, 0)) return date;
  QString timeFormat = locale.timeFormat(QLocale::LongFormat);  // with seconds, without the zone
  timeFormat.remove(QRegularExpression(QStringLiteral("\\s*\\(?t+\\)?")));
  return date + u' ' + locale.toString(when.time(), timeFormat.trimmed());
}

}  // namespace numbers
