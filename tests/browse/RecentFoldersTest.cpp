#include "browse/RecentFolders.h"

#include <gtest/gtest.h>

namespace {

app::SettingsStore Fresh() { return app::DefaultSettings({}); }

TEST(AddRecentFolder, PutsTheTrimmedFolderOnTop) {
  app::SettingsStore s = Fresh();
  browse::AddRecentFolder(s, QStringLiteral("/a"));
  browse::AddRecentFolder(s, QStringLiteral("  /b "));
  EXPECT_EQ(s.RecentFolders[0], QStringLiteral("/b"));
  EXPECT_EQ(s.RecentFolders[1], QStringLiteral("/a"));
  EXPECT_TRUE(s.RecentFolders[2].isEmpty());
}

TEST(AddRecentFolder, MovesAnEntryEqualButForCapitalsAndTakesTheNewSpelling) {
  app::SettingsStore s = Fresh();
  browse::AddRecentFolder(s, QStringLiteral("/Fotos"));
  browse::AddRecentFolder(s, QStringLiteral("/other"));
  browse::AddRecentFolder(s, QStringLiteral("/FOTOS"));
  EXPECT_EQ(s.RecentFolders[0], QStringLiteral("/FOTOS"));
  EXPECT_EQ(s.RecentFolders[1], QStringLiteral("/other"));
  EXPECT_TRUE(s.RecentFolders[2].isEmpty());
}

TEST(AddRecentFolder, DropsTheOldestWhenFull) {
  app::SettingsStore s = Fresh();
  for (int i = 0; i < 20; ++i) browse::AddRecentFolder(s, QStringLiteral("/f%1").arg(i));
  browse::AddRecentFolder(s, QStringLiteral("/new"));
  EXPECT_EQ(s.RecentFolders[0], QStringLiteral("/new"));
  EXPECT_EQ(s.RecentFolders[19], QStringLiteral("/f1"));
}

TEST(AddRecentFolder, DoesNothingWhenDisabledOrEmpty) {
  app::SettingsStore s = Fresh();
  s.RecentEnabled = false;
  browse::AddRecentFolder(s, QStringLiteral("/a"));
  EXPECT_TRUE(s.RecentFolders[0].isEmpty());
  s.RecentEnabled = true;
  browse::AddRecentFolder(s, QStringLiteral("   "));
  EXPECT_TRUE(s.RecentFolders[0].isEmpty());
}

}  // namespace
