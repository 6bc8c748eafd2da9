// Reading "Ini.in": the current layout and the three older ones.
#include "base/TextEncoding.h"
#include "settings/SettingsFile.h"
#include "settings/SettingsSchema.h"
#include "base/NumberRules.h"

#include <QStringList>

namespace settings {

namespace {

// Line Input semantics: once the file has ended, every further read leaves the
// buffer holding the last line that was read.
class LineReader {
 public:
  explicit LineReader(QStringList lines) : lines_(std::move(lines)) {}

  const QString& Next() {
    if (next_ < lines_.size()) buffer_ = lines_[next_++];
    return buffer_;
  }
  bool Ended() const { return next_ >= lines_.size(); }

 private:
  QStringList lines_;
  qsizetype next_ = 0;
  QString buffer_;
};

enum class Layout { Current, V61, V41, Oldest };

std::optional<Layout> LayoutOfHeader(const QString& line) {
  const QString header = numbers::TrimBlanks(line).toLower();
  if (header == QLatin1String("vistrel 6.2")) return Layout::Current;
  if (header == QLatin1String("vistrel61")) return Layout::V61;
  if (header == QLatin1String("vistrel41")) return Layout::V41;
  if (header == QLatin1String("vistrel")) return Layout::Oldest;
  return std::nullopt;
}

unsigned LayoutBit(Layout layout) {
  switch (layout) {
    case Layout::Current: return kCurrentLayout;
    case Layout::V61: return kLayout61;
    case Layout::V41: return kLayout41;
    case Layout::Oldest: break;
  }
  return kOldestLayout;
}

// The oldest layout kept gaps between recent folders; they close up on reading.
void CloseRecentGaps(SettingsStore& s) {
  QStringList kept;
  for (const QString& folder : s.RecentFolders) {
    if (const QString trimmed = numbers::TrimBlanks(folder); !trimmed.isEmpty()) kept << trimmed;
  }
  s.RecentFolders.fill(QString());
  for (qsizetype i = 0; i < kept.size(); ++i) s.RecentFolders[static_cast<size_t>(i)] = kept[i];
}

}  // namespace

void ReadSettingsText(const QByteArray& bytes, const base::ScreenMetrics& metrics, SettingsStore& store) {
  LineReader in(base::SplitLines(base::DecodeUtf8OrWindows1252(bytes)));
  const auto layout = LayoutOfHeader(in.Next());
  if (!layout) return;
  const unsigned bit = LayoutBit(*layout);
  const std::vector<SettingsLine>& lines = SettingsLines();
  for (auto line = lines.begin() + 1; line != lines.end(); ++line) {
    if (!(line->Layouts & bit) || (line->PresentWhen && !line->PresentWhen(store))) continue;
    if (line->Added && in.Ended()) continue;
    const QString& text = in.Next();
    if (line->Read) line->Read(text, metrics, store);
  }
  if (*layout == Layout::Oldest) CloseRecentGaps(store);
  if (*layout == Layout::V61) store.FileTypeIcon = 0;  // that version stored another value there
}

}  // namespace settings
