// Reading "Ini.in": the current layout and the three older ones.
#include "base/TextEncoding.h"
#include "settings/SettingsFile.h"
#include "base/NumberRules.h"

#include <QStringList>

#include <cmath>
#include <limits>

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
  void Skip(int count) {
    for (int i = 0; i < count; ++i) Next();
  }
  double NextNumber() { return numbers::LeadingNumber(Next()); }

 private:
  QStringList lines_;
  qsizetype next_ = 0;
  QString buffer_;
};

// A value that overflows its field is skipped and the field keeps what it had.
void AssignLong(std::int32_t& field, double value) {
  if (const auto converted = numbers::RoundToInt32(value)) field = *converted;
}

void AssignSingle(float& field, double value) {
  if (std::isfinite(value) && std::fabs(value) <= std::numeric_limits<float>::max()) {
    field = numbers::ToSingle(value);
  }
}

enum class Layout { Current, V61, V41, Oldest };

std::optional<Layout> LayoutOfHeader(const QString& line) {
  const QString header = numbers::TrimBlanks(line).toLower();
  if (header == QLatin1String("vistrel 6.2")) return Layout::Current;
  if (header == QLatin1String("vistrel61")) return Layout::V61;
  if (header == QLatin1String("vistrel41")) return Layout::V41;
  if (header == QLatin1String("vistrel")) return Layout::Oldest;
  return std::nullopt;
}

void ReadWindowLines(LineReader& in, const base::ScreenMetrics& m, SettingsStore& s) {
  in.Skip(2);
  AssignSingle(s.WindowLeft, in.NextNumber() * m.TwipsPerPixelX);
  AssignSingle(s.WindowTop, in.NextNumber() * m.TwipsPerPixelY);
  AssignSingle(s.WindowWidth, in.NextNumber() * m.TwipsPerPixelX);
  AssignSingle(s.WindowHeight, in.NextNumber() * m.TwipsPerPixelY);
  s.WindowMaximized = in.NextNumber() != 0;
  AssignSingle(s.SplitterPos, in.NextNumber() * m.TwipsPerPixelX);
  const float low = kSplitterMinPixels * m.TwipsPerPixelX;
  const float high = kSplitterMaxPixels * m.TwipsPerPixelX;
  if (s.SplitterPos < low) s.SplitterPos = low;
  if (s.SplitterPos > high) s.SplitterPos = high;
}

// Deliberately unguarded: a kind outside 0..2 reads no path line, shifting the rest.
void ReadFileLines(LineReader& in, SettingsStore& s) {
  in.Skip(2);
  AssignLong(s.LastOpenKind, in.NextNumber());
  if (s.LastOpenKind == kOpenNothing) in.Next();
  if (s.LastOpenKind == kOpenFile) s.LastFile = in.Next();
  if (s.LastOpenKind == kOpenFolder) s.LastFolder = in.Next();
}

void ReadRecentLinesAsTheyStand(LineReader& in, SettingsStore& s) {
  in.Skip(2);
  for (QString& slot : s.RecentFolders) slot = in.Next();
}

void ReadRecentLinesClosingGaps(LineReader& in, SettingsStore& s) {
  in.Skip(2);
  QStringList kept;
  for (int i = 0; i < kRecentFolderSlots; ++i) {
    const QString folder = numbers::TrimBlanks(in.Next());
    if (!folder.isEmpty()) kept << folder;
  }
  s.RecentFolders.fill(QString());
  for (qsizetype i = 0; i < kept.size(); ++i) s.RecentFolders[static_cast<size_t>(i)] = kept[i];
}

void ReadPrintLines(LineReader& in, SettingsStore& s) {
  in.Skip(2);
  for (float& margin : s.PrintMargins) AssignSingle(margin, in.NextNumber());
  AssignLong(s.PrintUnits, in.NextNumber());
}

void ReadOptionLines(LineReader& in, Layout layout, SettingsStore& s) {
  in.Skip(2);
  AssignLong(s.StartOption, in.NextNumber());
  s.ImageExtensionsOnly = in.NextNumber() != 0;
  s.RecentEnabled = in.NextNumber() != 0;
  s.ConfirmDelete = in.NextNumber() != 0;
  AssignLong(s.ColorImage, in.NextNumber());
  AssignLong(s.ColorThumbnails, in.NextNumber());
  AssignLong(s.ColorFullScreen, in.NextNumber());
  if (layout == Layout::Current) {
    s.ShowToolbar = in.NextNumber() != 0;
    s.ShowStatusBar = in.NextNumber() != 0;
  }
  s.FitToWindow = in.NextNumber() != 0;
  if (layout != Layout::V41) AssignLong(s.FileTypeIcon, in.NextNumber());
  if (layout == Layout::V61) s.FileTypeIcon = 0;  // that version stored another value there
  if (layout == Layout::Current) s.EnlargeSmallImages = in.NextNumber() != 0;  // absent before: off
}

void ReadOldestOptionLines(LineReader& in, SettingsStore& s) {
  in.Skip(2);
  AssignLong(s.StartOption, in.NextNumber());
  s.ConfirmDelete = in.NextNumber() != 0;
  AssignLong(s.ColorImage, in.NextNumber());
  AssignLong(s.ColorThumbnails, in.NextNumber());
  AssignLong(s.ColorFullScreen, in.NextNumber());
}

}  // namespace

void ReadSettingsText(const QByteArray& bytes, const base::ScreenMetrics& metrics, SettingsStore& store) {
  LineReader in(base::SplitLines(base::DecodeUtf8OrWindows1252(bytes)));
  const auto layout = LayoutOfHeader(in.Next());
  if (!layout) return;
  ReadWindowLines(in, metrics, store);
  ReadFileLines(in, store);
  if (*layout == Layout::Oldest) {
    ReadRecentLinesClosingGaps(in, store);
    ReadPrintLines(in, store);
    ReadOldestOptionLines(in, store);
    return;
  }
  ReadRecentLinesAsTheyStand(in, store);
  ReadPrintLines(in, store);
  ReadOptionLines(in, *layout, store);
}

}  // namespace settings
