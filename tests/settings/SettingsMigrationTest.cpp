// The three older settings layouts, and files written in the Windows code page.
#include "settings/SettingsFile.h"

#include <QStringList>

#include <gtest/gtest.h>

namespace {

using settings::SettingsStore;

const base::ScreenMetrics kMetrics;

// The lines every layout shares (header, window, file, recent folders, print), then `options`.
SettingsStore Read(const char* header, const QStringList& recent, const QStringList& options, const char* splitter = "150") {
  QStringList lines = {header, "", "Window", "20", "30", "700", "500", "0", splitter, "", "File", "2", "C:\\Fotos", "",
                       "Recent folders"};
  for (int i = 0; i < 20; ++i) lines << (i < recent.size() ? recent[i] : QString());
  lines << "" << "Print" << "1" << "1.5" << "2" << "2.5" << "1" << "" << "Options";
  QByteArray text;
  for (const QString& line : lines + options) text += line.toUtf8() + "\r\n";
  SettingsStore store = settings::DefaultSettings(kMetrics);
  settings::ReadSettingsText(text, kMetrics, store);
  return store;
}

TEST(SettingsMigration, Vistrel41And61ShowTheBarsAndReadTheirOwnOptions) {
  const SettingsStore v41 = Read("vistrel41", {}, {"1", "0", "0", "0", "255", "65280", "16711680", "0"});
  EXPECT_EQ(std::tuple(v41.StartOption, v41.ImageExtensionsOnly, v41.ColorFullScreen, v41.FitToWindow, v41.FileTypeIcon),
            std::tuple(1, false, 16711680, false, 0));
  EXPECT_EQ(std::tuple(v41.LastFolder, v41.SplitterPos, v41.PrintMargins[1]), std::tuple(QStringLiteral("C:\\Fotos"), 150 * 15, 1.5f));
  // 6.1 stored another value where the file type icon now stands: read, then dropped.
  const SettingsStore v61 = Read("Vistrel61", {}, {"0", "1", "1", "1", "0", "0", "0", "0", "5"});
  EXPECT_EQ(std::tuple(v61.FitToWindow, v61.FileTypeIcon), std::tuple(false, 0));
  EXPECT_TRUE(v41.ShowToolbar && v41.ShowStatusBar && v61.ShowToolbar && v61.ShowStatusBar);
}

// The oldest layout closes the gaps in the recent folders, clamps the list pane and leaves
// what it lacks at the defaults.
TEST(SettingsMigration, OldestLayoutClosesTheGapsInRecentFoldersAndClampsTheListPane) {
  const SettingsStore s = Read("vistrel", {"", "C:\\A", "", " C:\\B "}, {"2", "0", "255", "0", "65535"}, "1000");
  EXPECT_EQ(QStringList(s.RecentFolders.begin(), s.RecentFolders.end()).join(u'|'), "C:\\A|C:\\B" + QString(18, u'|'));
  EXPECT_EQ(s.SplitterPos, 360 * 15);
  EXPECT_EQ(std::tuple(s.StartOption, s.ConfirmDelete, s.ColorImage, s.ColorThumbnails, s.ColorFullScreen),
            std::tuple(2, false, 255, 0, 65535));
  EXPECT_EQ(std::tuple(s.ImageExtensionsOnly, s.RecentEnabled, s.FitToWindow, s.FileTypeIcon, s.PrintUnits),
            std::tuple(true, true, true, 0, 1));
}

TEST(SettingsMigration, PathsWrittenInTheWindowsCodePageReadCorrectly) {
  QByteArray text = "Vistrel 6.2\r\n\r\nWindow\r\n20\r\n30\r\n700\r\n500\r\n0\r\n150\r\n\r\nFile\r\n2\r\nC:\\Fotos\\A\xF1o \x80\r\n";
  SettingsStore s = settings::DefaultSettings(kMetrics);
  settings::ReadSettingsText(text, kMetrics, s);
  EXPECT_EQ(s.LastFolder, QStringLiteral("C:\\Fotos\\Año €"));  // "Año €" in Windows-1252
}

}  // namespace
