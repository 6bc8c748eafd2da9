#include "settings/RecentFolders.h"

#include <gtest/gtest.h>

namespace {

settings::SettingsStore Fresh() { return settings::DefaultSettings({}); }

TEST(AddRecentFolder, PutsTheTrimmedFolderOnTop) {
  settings::SettingsStore s = Fresh();
  settings::AddRecentFolder(s, QStringLiteral("/a"));
  settings::AddRecentFolder(s, QStringLiteral("  /b "));
  EXPECT_EQ(s.RecentFolders[0], QStringLiteral("/b"));
  EXPECT_EQ(s.RecentFolders[1], QStringLiteral("/a"));
  EXPECT_TRUE(s.RecentFolders[2].isEmpty());
}

TEST(AddRecentFolder, MovesTheSameFolderToTheTopAndKeepsFoldersThatDifferInCase) {
  settings::SettingsStore s = Fresh();
  for (const char* folder : {"/Fotos", "/other", "/fotos", "/Fotos"}) settings::AddRecentFolder(s, QLatin1String(folder));
  // On a case-sensitive file system "/fotos" is another folder.
  EXPECT_EQ(QStringList(s.RecentFolders.begin(), s.RecentFolders.begin() + 4),
            (QStringList{"/Fotos", "/fotos", "/other", ""}));
}

TEST(AddRecentFolder, DropsTheOldestWhenFull) {
  settings::SettingsStore s = Fresh();
  for (int i = 0; i < 20; ++i) settings::AddRecentFolder(s, QStringLiteral("/f%1").arg(i));
  settings::AddRecentFolder(s, QStringLiteral("/new"));
  EXPECT_EQ(s.RecentFolders[0], QStringLiteral("/new"));
  EXPECT_EQ(s.RecentFolders[19], QStringLiteral("/f1"));
}

TEST(AddRecentFolder, DoesNothingWhenDisabledOrEmpty) {
  settings::SettingsStore s = Fresh();
  s.RecentEnabled = false;
  settings::AddRecentFolder(s, QStringLiteral("/a"));
  EXPECT_TRUE(s.RecentFolders[0].isEmpty());
  s.RecentEnabled = true;
  settings::AddRecentFolder(s, QStringLiteral("   "));
  EXPECT_TRUE(s.RecentFolders[0].isEmpty());
}

}  // namespace
