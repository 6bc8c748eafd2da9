#include "settings/SettingsSchema.h"
#include "base/NumberRules.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace settings {

namespace {

using Metrics = base::ScreenMetrics;

double Number(const QString& line) { return numbers::LeadingNumber(line); }
QString Text(std::int64_t value) { return QString::number(value); }

// A value that overflows its field is skipped and the field keeps what it had.
void AssignLong(std::int32_t& field, double value) {
  if (const auto converted = numbers::RoundToInt32(value)) field = *converted;
}

void AssignSingle(float& field, double value) {
  if (std::isfinite(value) && std::fabs(value) <= std::numeric_limits<float>::max()) field = numbers::ToSingle(value);
}

// The shortest decimal form of a Single, with a point: 0.7f is written "0.7".
QString SingleText(float value) {
  char buffer[32];
  const auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
  return QString::fromLatin1(buffer, result.ptr - buffer);
}

SettingsLine Added(SettingsLine line) {
  line.Added = true;
  return line;
}

SettingsLine Fixed(const QString& text, unsigned layouts = kEveryLayout) {
  return {text, layouts, [text](const SettingsStore&, const Metrics&, const WindowPlacement&) { return text; }, {}, {}};
}

SettingsLine Flag(const char* name, bool SettingsStore::*field, unsigned layouts = kEveryLayout) {
  return {QLatin1String(name), layouts,
          [field](const SettingsStore& s, const Metrics&, const WindowPlacement&) {
            return s.*field ? QStringLiteral("1") : QStringLiteral("0");
          },
          [field](const QString& line, const Metrics&, SettingsStore& s) { s.*field = Number(line) != 0; },
          {}};
}

SettingsLine Long(const char* name, std::int32_t SettingsStore::*field, unsigned layouts = kEveryLayout) {
  return {QLatin1String(name), layouts,
          [field](const SettingsStore& s, const Metrics&, const WindowPlacement&) { return Text(s.*field); },
          [field](const QString& line, const Metrics&, SettingsStore& s) { AssignLong(s.*field, Number(line)); }, {}};
}

// A window coordinate: pixels in the file, twips in the store; written from the placement.
SettingsLine WindowPixels(const char* name, float SettingsStore::*field, int WindowPlacement::*written, bool vertical) {
  return {QLatin1String(name), kEveryLayout,
          [written](const SettingsStore&, const Metrics&, const WindowPlacement& w) { return Text(w.*written); },
          [field, vertical](const QString& line, const Metrics& m, SettingsStore& s) {
            AssignSingle(s.*field, Number(line) * (vertical ? m.TwipsPerPixelY : m.TwipsPerPixelX));
          },
          {}};
}

QString OpenPath(const SettingsStore& s) {
  return s.LastOpenKind == kOpenFile ? s.LastFile : s.LastOpenKind == kOpenFolder ? s.LastFolder : QString();
}

std::vector<SettingsLine> WindowLines() {
  return {
      Fixed(QString()),
      Fixed(QStringLiteral("Window")),
      WindowPixels("WindowLeft", &SettingsStore::WindowLeft, &WindowPlacement::Left, false),
      WindowPixels("WindowTop", &SettingsStore::WindowTop, &WindowPlacement::Top, true),
      WindowPixels("WindowWidth", &SettingsStore::WindowWidth, &WindowPlacement::Width, false),
      WindowPixels("WindowHeight", &SettingsStore::WindowHeight, &WindowPlacement::Height, true),
      {QStringLiteral("WindowMaximized"), kEveryLayout,
       [](const SettingsStore&, const Metrics&, const WindowPlacement& w) { return Text(w.Maximized ? 1 : 0); },
       [](const QString& line, const Metrics&, SettingsStore& s) { s.WindowMaximized = Number(line) != 0; }, {}},
      // The list pane: 30 to 360 pixels.
      {QStringLiteral("SplitterPos"), kEveryLayout,
       [](const SettingsStore& s, const Metrics& m, const WindowPlacement&) {
         return Text(numbers::RoundedDiv(s.SplitterPos, m.TwipsPerPixelX).value_or(0));
       },
       [](const QString& line, const Metrics& m, SettingsStore& s) {
         AssignSingle(s.SplitterPos, Number(line) * m.TwipsPerPixelX);
         s.SplitterPos = std::clamp(s.SplitterPos, kSplitterMinPixels * m.TwipsPerPixelX,
                                    kSplitterMaxPixels * m.TwipsPerPixelX);
       },
       {}},
  };
}

// What was open: its kind, then its path. A path with a line break would shift every
// later line, so it is not kept. A kind outside 0..2 has no path line (the lines after it
// are read one place early).
std::vector<SettingsLine> FileLines() {
  return {
      Fixed(QString()),
      Fixed(QStringLiteral("File")),
      {QStringLiteral("LastOpenKind"), kEveryLayout,
       [](const SettingsStore& s, const Metrics&, const WindowPlacement&) {
         return Text(FitsOnALine(OpenPath(s)) ? s.LastOpenKind : kOpenNothing);
       },
       [](const QString& line, const Metrics&, SettingsStore& s) { AssignLong(s.LastOpenKind, Number(line)); }, {}},
      {QStringLiteral("LastOpenPath"), kEveryLayout,
       [](const SettingsStore& s, const Metrics&, const WindowPlacement&) {
         return FitsOnALine(OpenPath(s)) ? OpenPath(s) : QString();
       },
       [](const QString& line, const Metrics&, SettingsStore& s) {
         if (s.LastOpenKind == kOpenFile) s.LastFile = line;
         if (s.LastOpenKind == kOpenFolder) s.LastFolder = line;
       },
       [](const SettingsStore& s) { return s.LastOpenKind >= kOpenNothing && s.LastOpenKind <= kOpenFolder; }},
  };
}

std::vector<SettingsLine> RecentAndPrintLines() {
  std::vector<SettingsLine> lines = {Fixed(QString()), Fixed(QStringLiteral("Recent folders"))};
  for (size_t i = 0; i < kRecentFolderSlots; ++i) {
    lines.push_back({QStringLiteral("RecentFolder%1").arg(i), kEveryLayout,
                     [i](const SettingsStore& s, const Metrics&, const WindowPlacement&) {
                       return FitsOnALine(s.RecentFolders[i]) ? s.RecentFolders[i] : QString();
                     },
                     [i](const QString& line, const Metrics&, SettingsStore& s) { s.RecentFolders[i] = line; }, {}});
  }
  lines.push_back(Fixed(QString()));
  lines.push_back(Fixed(QStringLiteral("Print")));
  for (size_t i = 0; i < 4; ++i) {
    lines.push_back({QStringLiteral("PrintMargin%1").arg(i), kEveryLayout,
                     [i](const SettingsStore& s, const Metrics&, const WindowPlacement&) {
                       return SingleText(s.PrintMargins[i]);
                     },
                     [i](const QString& line, const Metrics&, SettingsStore& s) {
                       AssignSingle(s.PrintMargins[i], Number(line));
                     },
                     {}});
  }
  lines.push_back(Long("PrintUnits", &SettingsStore::PrintUnits));
  return lines;
}

std::vector<SettingsLine> OptionLines() {
  using S = SettingsStore;
  constexpr unsigned kSince41 = kCurrentLayout | kLayout61 | kLayout41;
  return {
      Fixed(QString()),
      Fixed(QStringLiteral("Options")),
      Long("StartOption", &S::StartOption),
      Flag("ImageExtensionsOnly", &S::ImageExtensionsOnly, kSince41),
      Flag("RecentEnabled", &S::RecentEnabled, kSince41),
      Flag("ConfirmDelete", &S::ConfirmDelete),
      Long("ColorImage", &S::ColorImage),
      Long("ColorThumbnails", &S::ColorThumbnails),
      Long("ColorFullScreen", &S::ColorFullScreen),
      Flag("ShowToolbar", &S::ShowToolbar, kCurrentLayout),
      Flag("ShowStatusBar", &S::ShowStatusBar, kCurrentLayout),
      Flag("FitToWindow", &S::FitToWindow, kSince41),
      Long("FileTypeIcon", &S::FileTypeIcon, kCurrentLayout | kLayout61),
      Added(Flag("EnlargeSmallImages", &S::EnlargeSmallImages, kCurrentLayout)),
      Added(Flag("ColourManaged", &S::ColourManaged, kCurrentLayout)),
      Added(Flag("PerceptualIntent", &S::PerceptualIntent, kCurrentLayout)),
      Added({QStringLiteral("ScreenProfileFile"), kCurrentLayout,
             [](const SettingsStore& s, const Metrics&, const WindowPlacement&) {
               return FitsOnALine(s.ScreenProfileFile) ? s.ScreenProfileFile : QString();
             },
             [](const QString& line, const Metrics&, SettingsStore& s) { s.ScreenProfileFile = line; }, {}}),
      Added(Flag("ClassicTypesOnly", &S::ClassicTypesOnly, kCurrentLayout)),
      Added(Long("SaveQuality", &S::SaveQuality, kCurrentLayout)),
      Added(Long("TiffCompression", &S::TiffCompression, kCurrentLayout)),
      Added(Long("WheelAction", &S::WheelAction, kCurrentLayout)),
      Added(Long("SortOrder", &S::SortOrder, kCurrentLayout)),
      Added(Flag("SortDescending", &S::SortDescending, kCurrentLayout)),
  };
}

std::vector<SettingsLine> MakeLines() {
  std::vector<SettingsLine> lines = {Fixed(QStringLiteral("Vistrel 6.2"))};
  for (auto part : {WindowLines(), FileLines(), RecentAndPrintLines(), OptionLines()}) {
    lines.insert(lines.end(), part.begin(), part.end());
  }
  return lines;
}

}  // namespace

const std::vector<SettingsLine>& SettingsLines() {
  static const std::vector<SettingsLine> lines = MakeLines();
  return lines;
}

int LineIndex(const QString& name) {
  const std::vector<SettingsLine>& lines = SettingsLines();
  for (size_t i = 0; i < lines.size(); ++i) {
    if (lines[i].Read && lines[i].Name == name) return static_cast<int>(i);
  }
  return -1;
}

}  // namespace settings
