// Which files the scan lists, in which order, and how their types are named.
#include "browse/FileTypes.h"
#include "browse/FolderScan.h"
#include "browse/ListBadges.h"
#include "browse/ListOrder.h"
#include "browse/SortOrder.h"
#include "support/TestFiles.h"

#include <QImage>
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

// Each order on three files whose dates taken, last changes, sizes and types all disagree;
// a file without a date taken counts by its last change.
TEST(SortOrder, EachKeyOrdersByItsFactAndNameBreaksTies) {
  testing_support::TempFolder folder;
  const QDateTime now = QDateTime::currentDateTime();
  const struct {
    const char* name;
    int side;            // a larger picture, a larger file
    const char* taken;   // EXIF, or none
    int daysAgo;         // the last change
  } files[] = {{"a.jpg", 60, "2020:01:01 10:00:00", 30}, {"b.png", 2, nullptr, 0}, {"c.jpg", 20, "2010:01:01 10:00:00", 10}};
  for (const auto& f : files) {
    const QString path = folder.File(QLatin1String(f.name));
    QImage picture(f.side, f.side, QImage::Format_RGB32);
    picture.fill(Qt::darkCyan);
    ASSERT_TRUE(picture.save(path));  // a JPEG or a PNG, by the name
    if (f.taken) testing_support::Run(QStringLiteral("exiftool"), {"-q", "-overwrite_original", QStringLiteral("-DateTimeOriginal=") + f.taken, path});
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite) && file.setFileTime(now.addDays(-f.daysAgo), QFileDevice::FileModificationTime));
  }
  const std::tuple<browse::SortKey, bool, QStringList> cases[] = {
      {browse::SortKey::DateTaken, false, {"c.jpg", "a.jpg", "b.png"}}, {browse::SortKey::Modified, false, {"a.jpg", "c.jpg", "b.png"}},
      {browse::SortKey::Size, false, {"b.png", "c.jpg", "a.jpg"}},      {browse::SortKey::Type, false, {"a.jpg", "c.jpg", "b.png"}},
      {browse::SortKey::Name, true, {"c.jpg", "b.png", "a.jpg"}},       {browse::SortKey::Size, true, {"a.jpg", "c.jpg", "b.png"}}};
  for (const auto& [key, descending, expected] : cases) {
    std::vector<browse::FileEntry> entries = browse::ScanFolder(folder.Path(), browse::ScanFilter::Images);
    browse::SortByKey(entries, folder.Path(), key, descending);
    QStringList names;
    for (const browse::FileEntry& entry : entries) names << entry.FileName;
    EXPECT_EQ(names, expected) << int(key) << descending;
  }
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
