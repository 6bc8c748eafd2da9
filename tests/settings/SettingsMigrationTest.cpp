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
  EXPECT_EQ(s.StartOption, 1);
  EXPECT_FALSE(s.ImageExtensionsOnly);
  EXPECT_EQ(s.ColorFullScreen, 16711680);
  EXPECT_TRUE(s.ShowToolbar);
  EXPECT_TRUE(s.ShowStatusBar);
  EXPECT_FALSE(s.FitToWindow);
  EXPECT_EQ(s.FileTypeIcon, 0);
  EXPECT_EQ(s.LastFolder, QStringLiteral("C:\\Fotos"));
  EXPECT_EQ(s.SplitterPos, 150 * 15);
  EXPECT_EQ(s.PrintMargins[1], 1.5f);
}

TEST(SettingsMigration, Vistrel61ReadsLine53AndDiscardsIt) {
  QStringList lines = CommonLines("Vistrel61", {});
  lines << "0" << "1" << "1" << "1" << "0" << "0" << "0" << "0" << "5";  // lines 45..53
  ASSERT_EQ(lines.size(), 53);
  const SettingsStore s = Read(lines);
  EXPECT_FALSE(s.FitToWindow);  // line 52
  EXPECT_EQ(s.FileTypeIcon, 0);
  EXPECT_TRUE(s.ShowToolbar);
  EXPECT_TRUE(s.ShowStatusBar);
}

TEST(SettingsMigration, OldestLayoutClosesTheGapsInRecentFolders) {
  QStringList lines = CommonLines("vistrel", {"", "C:\\A", "", " C:\\B "});
  lines << "2" << "0" << "255" << "0" << "65535";  // lines 45..49
  ASSERT_EQ(lines.size(), 49);
  const SettingsStore s = Read(lines);
  EXPECT_EQ(s.RecentFolders[0], QStringLiteral("C:\\A"));
  EXPECT_EQ(s.RecentFolders[1], QStringLiteral("C:\\B"));
  for (size_t i = 2; i < s.RecentFolders.size(); ++i) EXPECT_TRUE(s.RecentFolders[i].isEmpty()) << i;
  EXPECT_EQ(s.StartOption, 2);
  EXPECT_FALSE(s.ConfirmDelete);
  EXPECT_EQ(s.ColorImage, 255);
  EXPECT_EQ(s.ColorThumbnails, 0);
  EXPECT_EQ(s.ColorFullScreen, 65535);
  EXPECT_TRUE(s.ImageExtensionsOnly);  // not in the oldest layout: defaults
  EXPECT_TRUE(s.RecentEnabled);
  EXPECT_TRUE(s.FitToWindow);
  EXPECT_EQ(s.FileTypeIcon, 0);
  EXPECT_EQ(s.PrintUnits, 1);
}

TEST(SettingsMigration, OldestLayoutClampsTheListPaneToo) {
  QStringList lines = CommonLines("vistrel", {});
  lines[8] = QStringLiteral("1000");
  lines << "0" << "1" << "0" << "0" << "0";
  EXPECT_EQ(Read(lines).SplitterPos, 360 * 15);
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
