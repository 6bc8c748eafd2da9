#include "settings/RecentFolders.h"

#include <gtest/gtest.h>

namespace {

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

TEST(RecentFolders, RemovingOneLeavesNoGap) {
  settings::SettingsStore s = settings::DefaultSettings({});
  for (const char* folder : {"/c", "/b", "/a"}) settings::AddRecentFolder(s, QLatin1String(folder));
  settings::RemoveRecentFolder(s, 1);
  EXPECT_EQ(settings::RecentFolderList(s), (QStringList{"/a", "/c"}));
  EXPECT_TRUE(s.RecentFolders[2].isEmpty());
}

}  // namespace
