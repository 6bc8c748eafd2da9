// Which files the scan lists, in which order, and how their types are named.
#include "browse/FileTypes.h"
#include "browse/FolderScan.h"
#include "browse/ListBadges.h"
#include "browse/ListOrder.h"
#include "support/TestFiles.h"

#include <QSignalSpy>
#include <QTest>

#include <algorithm>

#include <gtest/gtest.h>

namespace {

using browse::FileEntry;
using testing_support::TempFolder;

QStringList Shown(const std::vector<FileEntry>& entries) {
  QStringList names;
  for (const FileEntry& e : entries) names << e.DisplayName;
  return names;
}

// The classic list is the 21 extensions; today's adds HEIC, WebP, jpe, tiff and the rest.
TEST(ScanFolder, ImagesAreTheClassicExtensionsOrTheseAndTodays) {
  TempFolder folder;
  for (const char* name : {"a.JPG", "b.jpe", "c.tiff", "d.txt", "e.HEIC", "f.webp", "g.avif", "h.jxl", "i.svg", "j.psd"}) {
    folder.Touch(QLatin1String(name));
  }
  EXPECT_EQ(Shown(browse::ScanFolder(folder.Path(), browse::ScanFilter::ClassicImages)), QStringList{"a.JPG"});
  EXPECT_EQ(Shown(browse::ScanFolder(folder.Path(), browse::ScanFilter::Images)),
            QStringList({"a.JPG", "b.jpe", "c.tiff", "e.HEIC", "f.webp", "g.avif", "h.jxl", "i.svg", "j.psd"}));
  EXPECT_EQ(browse::ScanExtensions(false).size(), 21);
}

TEST(ScanFolder, WithAllFilesListsHiddenOnesButNeverFolders) {
  TempFolder folder;
  folder.Touch(QStringLiteral(".hidden"));
  folder.Touch(QStringLiteral("notes.txt"));
  folder.Touch(QStringLiteral("x.png"));
  folder.MakeFolder(QStringLiteral("sub.jpg"));
  EXPECT_EQ(Shown(browse::ScanFolder(folder.Path(), browse::ScanFilter::AllFiles)), QStringList({".hidden", "notes.txt", "x.png"}));
}

TEST(ScanFolder, AnUnreadableFolderGivesAnEmptyList) {
  EXPECT_TRUE(browse::ScanFolder(QStringLiteral("/nonexistent/folder"), browse::ScanFilter::Images).empty());
  EXPECT_TRUE(browse::ScanFolder(QString(), browse::ScanFilter::AllFiles).empty());
}

TEST(ListOrder, IgnoresCaseComparesNumbersByValueAndIsTotal) {
  QStringList names = {"img10.jpg", "Img2.jpg", "b.png", "A.png", "img1.jpg", "img02.jpg"};
  std::sort(names.begin(), names.end(), browse::ListTextLess);
  // img02 and Img2 are equal by value and case; the plain comparison orders them.
  EXPECT_EQ(names, QStringList({"A.png", "b.png", "img1.jpg", "Img2.jpg", "img02.jpg", "img10.jpg"}));
  // Names equal but for case are still ordered.
  EXPECT_NE(browse::CompareListText(QStringLiteral("a.jpg"), QStringLiteral("A.jpg")), 0);
  EXPECT_EQ(browse::CompareListText(QStringLiteral("a.jpg"), QStringLiteral("a.jpg")), 0);
  EXPECT_LT(browse::CompareListText(QStringLiteral("a"), QStringLiteral("a1")), 0);
}

// A large list, sorted in two halves at once and merged, is in list order throughout.
TEST(ListOrder, ALargeListIsSortedWholeAcrossItsHalves) {
  std::vector<browse::FileEntry> entries;
  for (int i = 30000; i > 0; --i) {
    const QString name = QStringLiteral("%1 photo %2.jpg").arg(QChar(u'a' + i % 26)).arg(i * 7919 % 30011);
    entries.push_back({name, name});
  }
  browse::SortEntries(entries);
  EXPECT_TRUE(std::is_sorted(entries.begin(), entries.end(),
                             [](const browse::FileEntry& a, const browse::FileEntry& b) { return browse::ListTextLess(a.DisplayName, b.DisplayName); }));
}

TEST(FileTypeDescription, IgnoresCaseAndBlanksAndNamesAnUnknownOne) {
  EXPECT_EQ(browse::FileTypeDescription(QStringLiteral("XYZ")), QStringLiteral("XYZ file"));
  EXPECT_EQ(browse::FileTypeDescription(QString()), QStringLiteral("File"));
  EXPECT_EQ(browse::FileTypeDescription(QStringLiteral(" Jif ")), QStringLiteral("Jpeg image"));
}

}  // namespace

// The list's marks are read off the painting thread, once a file; another folder drops them.
TEST(ListBadges, MarkFilesOfSeveralPagesOrFramesOnceRead) {
  TempFolder folder;
  const QString gif = folder.File(QStringLiteral("moving.gif")), tiff = folder.File(QStringLiteral("pages.tif"));
  ASSERT_EQ(testing_support::Run(QStringLiteral("convert"), {"-delay", "10", "-size", "4x3", "xc:red", "xc:lime", "xc:blue", gif}).ExitCode, 0);
  ASSERT_EQ(testing_support::Run(QStringLiteral("convert"), {"-size", "4x3", "xc:red", "xc:lime", tiff}).ExitCode, 0);
  const QString png = folder.WritePng(QStringLiteral("still.png"));
  browse::ListBadges badges;
  QSignalSpy ready(&badges, &browse::ListBadges::Ready);
  for (const QString& path : {gif, tiff, png}) EXPECT_FALSE(badges.Find(path).has_value());
  EXPECT_FALSE(badges.Find(gif).has_value());  // asked once
  ASSERT_TRUE(QTest::qWaitFor([&] { return ready.count() == 3; }, 10000));
  EXPECT_EQ(badges.Find(gif), QStringLiteral("3 frames"));
  EXPECT_EQ(badges.Find(tiff), QStringLiteral("2 pages"));
  EXPECT_EQ(badges.Find(png), QString());
  badges.Clear();
  EXPECT_FALSE(badges.Find(gif).has_value());
}
