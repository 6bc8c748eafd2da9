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

TEST(AddRecentFolder, MovesAnEntryEqualButForCapitalsAndTakesTheNewSpelling) {
  settings::SettingsStore s = Fresh();
  settings::AddRecentFolder(s, QStringLiteral("/Fotos"));
  settings::AddRecentFolder(s, QStringLiteral("/other"));
  settings::AddRecentFolder(s, QStringLiteral("/FOTOS"));
  EXPECT_EQ(s.RecentFolders[0], QStringLiteral("/FOTOS"));
  EXPECT_EQ(s.RecentFolders[1], QStringLiteral("/other"));
  EXPECT_TRUE(s.RecentFolders[2].isEmpty());
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
