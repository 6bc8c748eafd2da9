// Part 1.2: the current format, read and written.
#include "settings/SettingsFile.h"
#include "support/TestFiles.h"

#include <QDir>
#include <QFile>

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

// The 55 lines written for the defaults, to be edited line by line (1-based).
QStringList DefaultLines() {
  const SettingsStore defaults = settings::DefaultSettings(kMetrics);
  return CrLfLines(settings::WriteSettingsText(defaults, kMetrics, settings::PlacementFromSettings(defaults, kMetrics)));
}

SettingsStore Read(const QStringList& lines) {
  SettingsStore store = settings::DefaultSettings(kMetrics);
  settings::ReadSettingsText(Join(lines), kMetrics, store);
  return store;
}

TEST(SettingsDefaults, AreMaximizedOverACentredNormalRectangleWithA130PixelList) {
  const SettingsStore s = settings::DefaultSettings(kMetrics);
  EXPECT_TRUE(s.WindowMaximized);
  EXPECT_EQ(s.WindowWidth, 9075);
  EXPECT_EQ(s.WindowHeight, 6570);
  EXPECT_EQ(s.WindowLeft, (1920 * 15 - 9075) / 2.0f);
  EXPECT_EQ(s.WindowTop, (1080 * 15 - 6570) / 2.0f);
  EXPECT_EQ(s.SplitterPos, 130 * 15);
  EXPECT_EQ(s.ColorImage, settings::RGB(153, 153, 153));
  EXPECT_EQ(s.ColorThumbnails, settings::RGB(51, 51, 51));
  EXPECT_EQ(s.PrintMargins[3], 0.7f);
}

TEST(SettingsDefaults, HoldWhenThereIsNoFile) {
  SettingsStore store = settings::DefaultSettings(kMetrics);
  settings::ReadSettingsFile(QStringLiteral("/nonexistent/folder/Ini.in"), kMetrics, store);
  EXPECT_EQ(store, settings::DefaultSettings(kMetrics));
}

TEST(SettingsWrite, WritesExactly55CrLfLinesOfTheCurrentFormat) {
  const QByteArray text = settings::WriteSettingsText(settings::DefaultSettings(kMetrics), kMetrics,
                                                 {658, 321, 605, 438, true});
  EXPECT_EQ(text.count("\r\n"), 55);
  EXPECT_EQ(text.count('\n'), 55);
  EXPECT_TRUE(text.endsWith("\r\n"));
  const QStringList expected = {
      "Vistrel 6.2", "", "Window", "658", "321", "605", "438", "1", "130", "", "File", "0", "", "", "Recent folders",
      "", "", "", "", "", "", "", "", "", "", "", "", "", "", "", "", "", "", "", "",
      "", "Print", "0.7", "0.7", "0.7", "0.7", "0", "", "Options", "0", "1", "1", "1",
      "10066329", "3355443", "0", "1", "1", "1", "0"};
  EXPECT_EQ(CrLfLines(text), expected);
}

TEST(SettingsWrite, PlacementFromTheDefaultsIsTheCentredRectangleInPixels) {
  const settings::WindowPlacement p = settings::PlacementFromSettings(settings::DefaultSettings(kMetrics), kMetrics);
  EXPECT_EQ(p.Left, 658);  // 9862.5 twips are 657.5 pixels, rounded half to even
  EXPECT_EQ(p.Top, 321);
  EXPECT_EQ(p.Width, 605);
  EXPECT_EQ(p.Height, 438);
}

TEST(SettingsWrite, WhileMaximizedStoresTheRestoredRectangleAndOne) {
  const QStringList lines = CrLfLines(
      settings::WriteSettingsText(settings::DefaultSettings(kMetrics), kMetrics, {10, 20, 800, 600, true}));
  EXPECT_EQ(lines.mid(3, 5), QStringList({"10", "20", "800", "600", "1"}));
}

TEST(SettingsWrite, AnOpenFileWritesKindOneAndItsPath) {
  SettingsStore s = settings::DefaultSettings(kMetrics);
  s.LastOpenKind = settings::kOpenFile;
  s.LastFile = QStringLiteral("C:\\x.jpg");
  s.LastFolder = QStringLiteral("C:\\ignored");
  const QStringList lines = CrLfLines(settings::WriteSettingsText(s, kMetrics, {}));
  EXPECT_EQ(lines[11], QStringLiteral("1"));
  EXPECT_EQ(lines[12], QStringLiteral("C:\\x.jpg"));
}

TEST(SettingsWrite, ListPaneWidthIsRoundedTwipsIntegerDividedByRoundedTwipsPerPixel) {
  SettingsStore s = settings::DefaultSettings(kMetrics);
  s.SplitterPos = 1972.5f;  // rounds to 1972; 1972 \ 15 = 131
  EXPECT_EQ(CrLfLines(settings::WriteSettingsText(s, kMetrics, {}))[8], QStringLiteral("131"));
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
  const QByteArray text = settings::WriteSettingsText(s, kMetrics, settings::PlacementFromSettings(s, kMetrics));
  SettingsStore back = settings::DefaultSettings(kMetrics);
  settings::ReadSettingsText(text, kMetrics, back);
  EXPECT_EQ(back, s);
}

TEST(SettingsRead, ClampsTheListPaneTo30And360Pixels) {
  QStringList lines = DefaultLines();
  lines[8] = QStringLiteral("10");
  EXPECT_EQ(Read(lines).SplitterPos, 30 * 15);
  lines[8] = QStringLiteral("500");
  EXPECT_EQ(Read(lines).SplitterPos, 360 * 15);
}

TEST(SettingsRead, AcceptsTheCurrentHeaderInCapitalsWithBlanksAround) {
  QStringList lines = DefaultLines();
  lines[0] = QStringLiteral("   VISTREL 6.2  ");
  lines[44] = QStringLiteral("2");
  EXPECT_EQ(Read(lines).StartOption, 2);
}

TEST(SettingsRead, AnUnknownHeaderKeepsTheDefaults) {
  QStringList lines = DefaultLines();
  lines[0] = QStringLiteral("Vistrel 7");
  lines[44] = QStringLiteral("2");
  EXPECT_EQ(Read(lines), settings::DefaultSettings(kMetrics));
}

TEST(SettingsRead, MultipliesWindowPixelsByTwipsPerPixel) {
  QStringList lines = DefaultLines();
  lines[3] = QStringLiteral("10");
  lines[4] = QStringLiteral("20");
  lines[7] = QStringLiteral("0");
  const SettingsStore s = Read(lines);
  EXPECT_EQ(s.WindowLeft, 150);
  EXPECT_EQ(s.WindowTop, 300);
  EXPECT_FALSE(s.WindowMaximized);
}

TEST(SettingsRead, NumbersAreLenientAndBadNumbersReadAsZero) {
  QStringList lines = DefaultLines();
  lines[44] = QStringLiteral("  1 (open last)");
  lines[45] = QStringLiteral("yes");  // no number: False
  lines[48] = QStringLiteral("255.5");  // rounds half to even: 256
  const SettingsStore s = Read(lines);
  EXPECT_EQ(s.StartOption, 1);
  EXPECT_FALSE(s.ImageExtensionsOnly);
  EXPECT_EQ(s.ColorImage, 256);
}

TEST(SettingsRead, AnOverflowingNumberLeavesThePreviousValue) {
  QStringList lines = DefaultLines();
  lines[48] = QStringLiteral("99999999999");
  EXPECT_EQ(Read(lines).ColorImage, settings::RGB(153, 153, 153));
}

TEST(SettingsRead, RecentFoldersAreKeptExactlyAsTheyStand) {
  QStringList lines = DefaultLines();
  lines[15] = QString();
  lines[16] = QStringLiteral("  /b  ");
  const SettingsStore s = Read(lines);
  EXPECT_EQ(s.RecentFolders[0], QString());
  EXPECT_EQ(s.RecentFolders[1], QStringLiteral("  /b  "));
}

TEST(SettingsRead, AKindOutsideZeroToTwoReadsNoPathLineAndShiftsTheRest) {
  QStringList lines = DefaultLines();
  lines[11] = QStringLiteral("7");
  lines[14] = QStringLiteral("/first/recent");  // line 15 becomes recent folder 0
  lines[44] = QStringLiteral("1");              // line 45 is read as ImageExtensionsOnly
  lines[45] = QStringLiteral("0");              // line 46 as RecentEnabled
  const SettingsStore s = Read(lines);
  EXPECT_EQ(s.LastOpenKind, 7);
  EXPECT_EQ(s.RecentFolders[0], QStringLiteral("/first/recent"));
  EXPECT_EQ(s.PrintMargins[0], 0);  // line 37, "Print"
  EXPECT_EQ(s.PrintUnits, 1);       // line 41, 0.7 rounded
  EXPECT_EQ(s.StartOption, 0);      // line 44, "Options"
  EXPECT_TRUE(s.ImageExtensionsOnly);
  EXPECT_FALSE(s.RecentEnabled);
}

TEST(SettingsRead, AFileEndingEarlyReparsesItsLastLineForTheRest) {
  QStringList lines = DefaultLines().mid(0, 46);  // ends with ImageExtensionsOnly "1"
  lines[44] = QStringLiteral("2");
  const SettingsStore s = Read(lines);
  EXPECT_EQ(s.StartOption, 2);
  EXPECT_TRUE(s.ImageExtensionsOnly);
  EXPECT_TRUE(s.RecentEnabled);
  EXPECT_EQ(s.ColorImage, 1);
  EXPECT_EQ(s.ColorFullScreen, 1);
  EXPECT_EQ(s.FileTypeIcon, 1);
}

TEST(SettingsRead, AnEmptyFileKeepsTheDefaults) {
  SettingsStore store = settings::DefaultSettings(kMetrics);
  settings::ReadSettingsText({}, kMetrics, store);
  EXPECT_EQ(store, settings::DefaultSettings(kMetrics));
}

TEST(SettingsRead, AcceptsLfOnlyLineEnds) {
  QStringList lines = DefaultLines();
  lines[44] = QStringLiteral("1");
  SettingsStore store = settings::DefaultSettings(kMetrics);
  settings::ReadSettingsText(lines.join(u'\n').toUtf8(), kMetrics, store);
  EXPECT_EQ(store.StartOption, 1);
}

TEST(SettingsFileAccess, WritesAtomicallyAndReadsBack) {
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
}

TEST(SettingsFileAccess, AFailedWriteLeavesTheOldFile) {
  testing_support::TempFolder folder;
  const QString path = folder.WriteBytes(QStringLiteral("Ini.in"), "old");
  const QString blocked = folder.File(QStringLiteral("Ini.in/inside"));  // a file is no folder
  EXPECT_FALSE(settings::WriteSettingsFile(blocked, "new"));
  EXPECT_EQ(testing_support::ReadAll(path), QByteArray("old"));
}

TEST(SettingsLocation, IsTheProgramFolderWhenWritableElseTheUserConfigFolder) {
  testing_support::TempFolder program;
  EXPECT_EQ(settings::SettingsFilePath(program.Path(), QStringLiteral("/home/u/.config")),
            program.Path() + QStringLiteral("/Ini.in"));
  EXPECT_EQ(settings::SettingsFilePath(program.File(QStringLiteral("missing")), QStringLiteral("/home/u/.config")),
            QStringLiteral("/home/u/.config/vistrel/Ini.in"));
}

}  // namespace
