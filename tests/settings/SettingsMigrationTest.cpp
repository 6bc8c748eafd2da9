// The three older settings layouts, and files written in the Windows code page.
#include "settings/SettingsFile.h"

#include <QStringList>

#include <gtest/gtest.h>

namespace {

using settings::SettingsStore;

const base::ScreenMetrics kMetrics;

// Lines 1..44 shared by every layout: header, window, file, recent folders, print.
QStringList CommonLines(const char* header, const QStringList& recent) {
  QStringList lines = {header, "", "Window", "20", "30", "700", "500", "0", "150", "", "File", "2",
                       "C:\\Fotos", "", "Recent folders"};
  for (int i = 0; i < 20; ++i) lines << (i < recent.size() ? recent[i] : QString());
  lines << "" << "Print" << "1" << "1.5" << "2" << "2.5" << "1" << "" << "Options";
  return lines;
}

SettingsStore Read(const QStringList& lines) {
  SettingsStore store = settings::DefaultSettings(kMetrics);
  QByteArray text;
  for (const QString& line : lines) text += line.toUtf8() + "\r\n";
  settings::ReadSettingsText(text, kMetrics, store);
  return store;
}

TEST(SettingsMigration, Vistrel41ShowsToolbarAndStatusBarAndTakesFitFromLine52) {
  QStringList lines = CommonLines("vistrel41", {});
  lines << "1" << "0" << "0" << "0" << "255" << "65280" << "16711680" << "0";  // lines 45..52
  ASSERT_EQ(lines.size(), 52);
  const SettingsStore s = Read(lines);
  EXPECT_EQ(std::tuple(s.StartOption, s.ImageExtensionsOnly, s.ColorFullScreen, s.FitToWindow, s.FileTypeIcon),
            std::tuple(1, false, 16711680, false, 0));
  EXPECT_TRUE(s.ShowToolbar && s.ShowStatusBar);
  EXPECT_EQ(std::tuple(s.LastFolder, s.SplitterPos, s.PrintMargins[1]), std::tuple(QStringLiteral("C:\\Fotos"), 150 * 15, 1.5f));
}

TEST(SettingsMigration, Vistrel61ReadsLine53AndDiscardsIt) {
  QStringList lines = CommonLines("Vistrel61", {});
  lines << "0" << "1" << "1" << "1" << "0" << "0" << "0" << "0" << "5";  // lines 45..53
  ASSERT_EQ(lines.size(), 53);
  const SettingsStore s = Read(lines);
  EXPECT_EQ(std::tuple(s.FitToWindow, s.FileTypeIcon), std::tuple(false, 0));  // line 52
  EXPECT_TRUE(s.ShowToolbar && s.ShowStatusBar);
}

// The oldest layout closes the gaps in the recent folders, clamps the list pane and leaves
// what it lacks at the defaults.
TEST(SettingsMigration, OldestLayoutClosesTheGapsInRecentFoldersAndClampsTheListPane) {
  QStringList lines = CommonLines("vistrel", {"", "C:\\A", "", " C:\\B "});
  lines[8] = QStringLiteral("1000");
  lines << "2" << "0" << "255" << "0" << "65535";  // lines 45..49
  ASSERT_EQ(lines.size(), 49);
  const SettingsStore s = Read(lines);
  EXPECT_EQ(QStringList(s.RecentFolders.begin(), s.RecentFolders.end()).join(u'|'), "C:\\A|C:\\B" + QString(18, u'|'));
  EXPECT_EQ(s.SplitterPos, 360 * 15);
  EXPECT_EQ(std::tuple(s.StartOption, s.ConfirmDelete, s.ColorImage, s.ColorThumbnails, s.ColorFullScreen),
            std::tuple(2, false, 255, 0, 65535));
  EXPECT_EQ(std::tuple(s.ImageExtensionsOnly, s.RecentEnabled, s.FitToWindow, s.FileTypeIcon, s.PrintUnits),
            std::tuple(true, true, true, 0, 1));
}

TEST(SettingsMigration, PathsWrittenInTheWindowsCodePageReadCorrectly) {
  QStringList lines = CommonLines("Vistrel 6.2", {});
  lines << "0" << "1" << "1" << "1" << "0" << "0" << "0" << "1" << "1" << "1" << "0";
  QByteArray text;
  for (const QString& line : lines) text += line.toLatin1() + "\r\n";
  text.replace("C:\\Fotos", "C:\\Fotos\\A\xF1o \x80");  // "Año €" in Windows-1252
  SettingsStore s = settings::DefaultSettings(kMetrics);
  settings::ReadSettingsText(text, kMetrics, s);
  EXPECT_EQ(s.LastFolder, QStringLiteral("C:\\Fotos\\Año €"));
}

}  // namespace
