#include "slideshow/SlideShowList.h"

#include "base/FileNames.h"

#include "base/NumberRules.h"
#include "base/TextEncoding.h"

#include <algorithm>
#include <cmath>

namespace slideshow {

namespace {

enum class Generation { Current, Older, Oldest };

std::optional<Generation> GenerationOf(const QString& header) {
  const QString name = header.trimmed().toLower();
  if (name == QLatin1String("vistrel 6.2 slideshow")) return Generation::Current;
  if (name == QLatin1String("slideshow50")) return Generation::Older;
  if (name == QLatin1String("slideshow")) return Generation::Oldest;
  return std::nullopt;
}

double OneDecimal(double value) { return std::floor(value * 10 + 0.5) / 10; }

// The lines of a file, read one at a time; past the end there is nothing.
class Lines {
 public:
  explicit Lines(QStringList lines) : lines_(std::move(lines)) {}
  std::optional<QString> Next() { return next_ < lines_.size() ? std::optional(lines_[next_++]) : std::nullopt; }
  std::optional<double> NextNumber() {
    const auto line = Next();
    return line ? std::optional(numbers::LeadingNumber(*line)) : std::nullopt;
  }
  std::optional<bool> NextFlag() {
    const auto value = NextNumber();
    return value ? std::optional(*value != 0) : std::nullopt;
  }

 private:
  QStringList lines_;
  qsizetype next_ = 0;
};

// Seconds with a period and at most one decimal, without a leading blank: "3", "2.5".
QString PlainSeconds(double seconds) {
  const double rounded = OneDecimal(seconds);
  return QString::number(rounded, 'f', rounded == std::floor(rounded) ? 0 : 1);  // any size, no integer overflow
}

}  // namespace

std::optional<double> SecondsFromText(const QString& text, const QLocale& locale) {
  bool ok = false;
  const double value = locale.toDouble(text.trimmed(), &ok);
  if (!ok || !std::isfinite(value)) return std::nullopt;
  return OneDecimal(value);
}

std::optional<SlideShowList> ReadSlideShowText(const QByteArray& bytes, const QLocale& locale) {
  if (bytes.size() > kLargestListFile) return std::nullopt;
  Lines lines(base::SplitLines(base::DecodeUtf8OrWindows1252(bytes)));
  const auto generation = GenerationOf(lines.Next().value_or(QString()));
  if (!generation) return std::nullopt;
  SlideShowList list;
  list.Folder = lines.Next().value_or(QString());
  const int count = numbers::RoundToInt32(lines.NextNumber().value_or(0)).value_or(0);
  if (count > kMostListRows) return std::nullopt;
  for (int i = 0; i < count; ++i) {
    const auto row = lines.Next();
    if (!row) return list;
    // The first character is the row's mark; a mark outside the BMP is one character too.
    const qsizetype mark = row->size() > 1 && row->front().isHighSurrogate() ? 2 : 1;
    list.Rows.push_back({row->mid(mark), !row->startsWith(u' ')});
  }
  list.Random = lines.NextFlag();
  list.Repeat = lines.NextFlag();
  list.FitToWindow = lines.NextFlag();
  list.ShowFileName = *generation == Generation::Current ? lines.NextFlag() : std::optional(false);
  if (const auto mode = lines.NextNumber()) list.ManualAdvance = *mode != 0;
  if (const auto seconds = lines.Next()) {
    const double read = std::clamp(numbers::LeadingNumber(*seconds), 0.0, kMostSeconds);
    list.Seconds = *generation == Generation::Oldest ? *seconds : locale.toString(read);
  }
  return list;
}

std::optional<QByteArray> WriteSlideShowText(const SlideShowList& list, const QLocale& locale) {
  const auto unwritable = [](const QString& name) {
    return name.contains(u'\r') || name.contains(u'\n') || base::HasRawBytes(name);
  };
  if (unwritable(list.Folder) ||
      std::any_of(list.Rows.begin(), list.Rows.end(), [&](const SlideShowRow& row) { return unwritable(row.Name); })) {
    return std::nullopt;
  }
  QStringList lines = {QStringLiteral("Vistrel 6.2 SlideShow"), list.Folder, QString::number(list.Rows.size())};
  for (const SlideShowRow& row : list.Rows) lines << (row.Checked ? u'.' : u' ') + row.Name;
  for (const auto& flag : {list.Random, list.Repeat, list.FitToWindow, list.ShowFileName, list.ManualAdvance}) {
    lines << (flag.value_or(false) ? QStringLiteral("1") : QStringLiteral("0"));
  }
  lines << PlainSeconds(SecondsFromText(list.Seconds.value_or(QString()), locale).value_or(0));
  const QString text = lines.join(QStringLiteral("\r\n")) + QStringLiteral("\r\n");
  // Windows-1252 bytes that happen to be valid UTF-8 would read back as other names.
  const auto windows1252 = base::EncodeWindows1252(text);
  return windows1252 && base::DecodeUtf8OrWindows1252(*windows1252) == text ? *windows1252 : text.toUtf8();
}

}  // namespace slideshow
