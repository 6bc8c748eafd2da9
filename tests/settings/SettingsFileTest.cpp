// The settings file in its current format, read and written, and the recent folders it keeps.
#include "settings/RecentFolders.h"
#include "settings/SettingsFile.h"
#include "settings/SettingsSchema.h"
#include "support/TestFiles.h"

#include <QDir>

#include <functional>

#include <QLocale>

#include <gtest/gtest.h>

namespace {

using base::ScreenMetrics;
using settings::SettingsStore;
using testing_support::CrLfLines;

const base::ScreenMetrics kMetrics;  // 15 twips per pixel, a 1920 x 1080 screen

QByteArray Join(const QStringList& lines) {
  QByteArray text;
  for (const QString& line : lines) text += line.toUtf8() + "\r\n";
  return text;
}

// The place of a named line.
int At(const char* name) { return settings::LineIndex(QLatin1String(name)); }
const int kLineCount = static_cast<int>(settings::SettingsLines().size());

// The lines written for the defaults, to be edited line by line.
QStringList DefaultLines() {
  const SettingsStore defaults = settings::DefaultSettings(kMetrics);
  return CrLfLines(settings::WriteSettingsText(defaults, kMetrics, settings::PlacementFromSettings(defaults, kMetrics)));
}

SettingsStore Read(const QStringList& lines) {
  SettingsStore store = settings::DefaultSettings(kMetrics);
  settings::ReadSettingsText(Join(lines), kMetrics, store);
  return store;
}

TEST(SettingsRead, NoFileAnEmptyOneOrAnUnknownHeaderKeepsTheDefaults) {
  QStringList unknown = DefaultLines();
  unknown[0] = QStringLiteral("Vistrel 7");
  unknown[At("StartOption")] = QStringLiteral("2");
  SettingsStore store = settings::DefaultSettings(kMetrics);
  settings::ReadSettingsFile(QStringLiteral("/nonexistent/folder/Ini.in"), kMetrics, store);
  EXPECT_EQ(store, settings::DefaultSettings(kMetrics));
  EXPECT_EQ(Read({}), settings::DefaultSettings(kMetrics));
  EXPECT_EQ(Read(unknown), settings::DefaultSettings(kMetrics));
}

TEST(SettingsWrite, WritesEveryLineEndedByCrLfWithTheRestoredRectangleInPixels) {
  const QByteArray text = settings::WriteSettingsText(settings::DefaultSettings(kMetrics), kMetrics,
                                                      {10, 20, 800, 600, true});
  EXPECT_EQ(text.count("\r\n"), kLineCount);
  EXPECT_EQ(text.count('\n'), kLineCount);
  const QStringList lines = CrLfLines(text);
  EXPECT_EQ(lines[0], QStringLiteral("Vistrel 6.2"));
  EXPECT_EQ(lines.mid(At("WindowLeft"), 5), QStringList({"10", "20", "800", "600", "1"}));
}

TEST(SettingsRoundTrip, ReadingWhatWasWrittenGivesTheSameSettings) {
  SettingsStore s = settings::DefaultSettings(kMetrics);
  s.WindowLeft = 150;
  s.WindowTop = 300;
  s.WindowWidth = 12000;
  s.WindowHeight = 9000;
  s.WindowMaximized = false;
  s.SplitterPos = 200 * 15;
  s.LastOpenKind = settings::kOpenFolder;
  s.LastFolder = QStringLiteral("/home/ana/Fotos/Año 2024");
  s.RecentFolders[0] = s.LastFolder;
  s.RecentFolders[2] = QStringLiteral(" /with blanks ");
  s.PrintMargins = {0.5f, 1.25f, 2.54f, 0.1f};
  s.PrintUnits = 1;
  s.StartOption = 1;
  s.ImageExtensionsOnly = false;
  s.ConfirmDelete = false;
  s.ColorImage = settings::RGB(1, 2, 3);
  s.ShowToolbar = false;
  s.FitToWindow = false;
  s.FileTypeIcon = 3;
  s.ColourManaged = false;
  s.PerceptualIntent = true;
  s.WheelAction = 2;
  s.SortOrder = 3;
  s.SortDescending = true;
  s.ScreenProfileFile = QStringLiteral("/home/ana/.local/share/icc/Écran.icc");
  const QByteArray text = settings::WriteSettingsText(s, kMetrics, settings::PlacementFromSettings(s, kMetrics));
  SettingsStore back = settings::DefaultSettings(kMetrics);
  settings::ReadSettingsText(text, kMetrics, back);
  EXPECT_EQ(back, s);
}

// One line of a written file changed, and what the reader makes of it.
TEST(SettingsRead, LineByLine) {
  struct Case {
    const char* what;
    const char* line;  // none: the header
    const char* text;
    std::function<double(const SettingsStore&)> field;
    double expected;
  };
  const auto splitter = [](const SettingsStore& s) { return double(s.SplitterPos); };
  const auto start = [](const SettingsStore& s) { return double(s.StartOption); };
  const auto colour = [](const SettingsStore& s) { return double(s.ColorImage); };
  const Case cases[] = {
      {"the list pane has at least 30 pixels", "SplitterPos", "10", splitter, 30 * 15},
      {"and at most 360", "SplitterPos", "500", splitter, 360 * 15},
      {"window pixels become twips", "WindowLeft", "10", [](const SettingsStore& s) { return double(s.WindowLeft); }, 150},
      {"a header in capitals with blanks", nullptr, "   VISTREL 6.2  ", start, 0},
      {"a number followed by text", "StartOption", "  1 (open last)", start, 1},
      {"no number reads as false", "ImageExtensionsOnly", "yes", [](const SettingsStore& s) { return double(s.ImageExtensionsOnly); }, 0},
      {"halves round to even", "ColorImage", "255.5", colour, 256},
      {"an overflow keeps the value", "ColorImage", "99999999999", colour, settings::RGB(153, 153, 153)},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    QStringList lines = DefaultLines();
    lines[At("StartOption")] = QStringLiteral("0");
    lines[c.line ? At(c.line) : 0] = QLatin1String(c.text);
    EXPECT_EQ(c.field(Read(lines)), c.expected);
  }
}

// Linux allows a line break in a name; such a path is never written, so the lines after it
// keep their places.
TEST(SettingsWrite, APathWithALineBreakIsNotKept) {
  SettingsStore s = settings::DefaultSettings(kMetrics);
  s.LastOpenKind = settings::kOpenFolder;
  s.LastFolder = QStringLiteral("/tmp/two\nlines");
  s.RecentFolders[0] = s.LastFolder;
  s.StartOption = 1;
  settings::AddRecentFolder(s, QStringLiteral("/tmp/also\rbroken"));
  const QByteArray text = settings::WriteSettingsText(s, kMetrics, {});
  EXPECT_EQ(CrLfLines(text).size(), kLineCount);
  SettingsStore back = settings::DefaultSettings(kMetrics);
  settings::ReadSettingsText(text, kMetrics, back);
  EXPECT_EQ(back.LastOpenKind, settings::kOpenNothing);
  EXPECT_TRUE(back.RecentFolders[0].isEmpty());
  EXPECT_EQ(back.StartOption, 1);
}

// Without a settings file the margins are in the locale's measurement system.
TEST(SettingsDefaults, MarginsFollowTheLocalesMeasurementSystem) {
  const std::tuple<QLocale, int, float> cases[] = {{QLocale(QLocale::English, QLocale::UnitedStates), 0, 0.7f},
                                                   {QLocale(QLocale::German, QLocale::Germany), 1, 1.8f},
                                                   {QLocale::c(), 0, 0.7f}};
  const QLocale before;
  for (const auto& [locale, units, margin] : cases) {
    QLocale::setDefault(locale);
    const SettingsStore s = settings::DefaultSettings(kMetrics);
    EXPECT_EQ(std::tuple(s.PrintUnits, s.PrintMargins[0]), std::tuple(units, margin)) << locale.name().toStdString();
  }
  QLocale::setDefault(before);
}

TEST(SettingsRead, AFileEndingEarlyReparsesItsLastLineForTheRestWhateverItsLineEnds) {
  QStringList lines = DefaultLines().mid(0, At("ImageExtensionsOnly") + 1);  // ends with ImageExtensionsOnly "1"
  lines[At("StartOption")] = QStringLiteral("2");
  const SettingsStore s = Read(lines);
  EXPECT_EQ(std::tuple(s.StartOption, s.ImageExtensionsOnly, s.RecentEnabled), std::tuple(2, true, true));
  EXPECT_EQ(std::tuple(s.ColorImage, s.ColorFullScreen, s.FileTypeIcon), std::tuple(1, 1, 1));
  // A line added later is not in an older file of this layout: it keeps its default.
  QStringList before = DefaultLines().mid(0, At("EnlargeSmallImages") + 1);
  before.back() = QStringLiteral("0");
  EXPECT_TRUE(Read(before).ColourManaged);
  SettingsStore lf = settings::DefaultSettings(kMetrics);  // LF-only line ends read as well
  settings::ReadSettingsText(lines.join(u'\n').toUtf8(), kMetrics, lf);
  EXPECT_EQ(lf.StartOption, 2);
}

TEST(SettingsFileAccess, WritesAtomicallyAndReadsBackAndAFailedWriteLeavesTheOldFile) {
  testing_support::TempFolder folder;
  const QString path = folder.File(QStringLiteral("sub/Ini.in"));
  SettingsStore s = settings::DefaultSettings(kMetrics);
  s.StartOption = 1;
  ASSERT_TRUE(settings::WriteSettingsFile(path, settings::WriteSettingsText(s, kMetrics, {})));
  ASSERT_TRUE(settings::WriteSettingsFile(path, settings::WriteSettingsText(s, kMetrics, {})));
  SettingsStore back = settings::DefaultSettings(kMetrics);
  settings::ReadSettingsFile(path, kMetrics, back);
  EXPECT_EQ(back.StartOption, 1);
  EXPECT_EQ(QDir(folder.File(QStringLiteral("sub"))).entryList(QDir::Files), QStringList{"Ini.in"});
  const QString old = folder.WriteBytes(QStringLiteral("Ini.in"), "old");  // a failed write leaves the old file
  EXPECT_FALSE(settings::WriteSettingsFile(folder.File(QStringLiteral("Ini.in/inside")), "new"));
  EXPECT_EQ(testing_support::ReadAll(old), QByteArray("old"));
}

TEST(SettingsLocation, IsAWritableProgramFolderUnlessTheProgramIsInstalled) {
  testing_support::TempFolder program, installed;
  QDir(installed.Path()).mkpath(QStringLiteral("share/applications"));
  QDir(installed.Path()).mkdir(QStringLiteral("bin"));
  installed.Touch(QStringLiteral("share/applications/vistrel.desktop"));
  const QString config = QStringLiteral("/home/u/.config"), user = config + QStringLiteral("/vistrel/Ini.in");
  EXPECT_EQ(settings::SettingsFilePath(program.Path(), config), program.Path() + QStringLiteral("/Ini.in"));
  EXPECT_EQ(settings::SettingsFilePath(program.File(QStringLiteral("missing")), config), user);
  EXPECT_EQ(settings::SettingsFilePath(installed.File(QStringLiteral("bin")), config), user);
}

TEST(RecentFolders, AddingPutsTheTrimmedFolderOnTopOnce) {
  struct Case {
    const char* what;
    QStringList added;
    QStringList expectedTopFour;
    bool enabled = true;
  };
  QStringList twentyOne;
  for (int i = 0; i < 20; ++i) twentyOne << QStringLiteral("/f%1").arg(i);
  twentyOne << QStringLiteral("/new");
  const Case cases[] = {
      {"trimmed, newest first", {"/a", "  /b "}, {"/b", "/a", "", ""}},
      // On a case-sensitive file system "/fotos" is another folder.
      {"the same folder moves up", {"/Fotos", "/other", "/fotos", "/Fotos"}, {"/Fotos", "/fotos", "/other", ""}},
      {"full: the oldest goes", twentyOne, {"/new", "/f19", "/f18", "/f17"}},
      {"blanks are no folder", {"   "}, {"", "", "", ""}},
      {"turned off", {"/a"}, {"", "", "", ""}, false},
  };
  for (const Case& c : cases) {
    settings::SettingsStore s = settings::DefaultSettings({});
    s.RecentEnabled = c.enabled;
    for (const QString& folder : c.added) settings::AddRecentFolder(s, folder);
    EXPECT_EQ(QStringList(s.RecentFolders.begin(), s.RecentFolders.begin() + 4), c.expectedTopFour) << c.what;
    if (c.added == twentyOne) {
      EXPECT_EQ(s.RecentFolders[19], QStringLiteral("/f1"));
    }
  }
}

}  // namespace
