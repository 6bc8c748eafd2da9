// Which files the scan lists, under which text, in which order.
#include "browse/FolderScan.h"
#include "support/TestFiles.h"

#include <gtest/gtest.h>

namespace {

using browse::FileEntry;
using testing_support::TempFolder;

QStringList Shown(const std::vector<FileEntry>& entries) {
  QStringList names;
  for (const FileEntry& e : entries) names << e.DisplayName;
  return names;
}

TEST(ScanFolder, WithImageExtensionsOnlyListsOnlyThe21Extensions) {
  TempFolder folder;
  for (const char* name : {"a.JPG", "b.jpe", "c.tiff", "d.txt"}) folder.Touch(QLatin1String(name));
  EXPECT_EQ(Shown(browse::ScanFolder(folder.Path(), true)), QStringList{"a.JPG"});
}

TEST(ScanFolder, WithAllFilesListsHiddenOnesButNeverFolders) {
  TempFolder folder;
  folder.Touch(QStringLiteral(".hidden"));
  folder.Touch(QStringLiteral("notes.txt"));
  folder.Touch(QStringLiteral("x.png"));
  folder.MakeFolder(QStringLiteral("sub.jpg"));
  EXPECT_EQ(Shown(browse::ScanFolder(folder.Path(), false)), QStringList({".hidden", "notes.txt", "x.png"}));
}

TEST(ScanFolder, AnUnreadableFolderGivesAnEmptyList) {
  EXPECT_TRUE(browse::ScanFolder(QStringLiteral("/nonexistent/folder"), true).empty());
  EXPECT_TRUE(browse::ScanFolder(QString(), false).empty());
}

}  // namespace
