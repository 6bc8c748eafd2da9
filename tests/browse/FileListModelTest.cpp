#include "browse/FileListModel.h"
#include "browse/ListColumn.h"

#include <gtest/gtest.h>

namespace {

using browse::FileEntry;
using browse::FileListModel;

TEST(FileListModel, HasOneColumnNamedFileShowingTheDisplayName) {
  FileListModel model;
  model.SetEntries({{"Photo.bmp", "PHOTO.BMP"}});
  EXPECT_EQ(model.columnCount(), 1);
  EXPECT_EQ(model.headerData(0, Qt::Horizontal, Qt::DisplayRole).toString(), QStringLiteral("File"));
  EXPECT_EQ(model.data(model.index(0, 0), Qt::DisplayRole).toString(), QStringLiteral("Photo.bmp"));
  EXPECT_EQ(model.RowOfFileName(QStringLiteral("PHOTO.BMP")), 0);
  EXPECT_EQ(model.RowOfFileName(QStringLiteral("Photo.bmp")), -1);
}

TEST(FileListModel, ReplacingAnEntryRestoresTheOrder) {
  FileListModel model;
  model.SetEntries({{"a.png", "a.png"}, {"b.png", "b.png"}, {"c.png", "c.png"}});
  EXPECT_EQ(model.ReplaceAndResort(0, {"d.png", "d.png"}), 2);
  EXPECT_EQ(model.Entry(0).FileName, QStringLiteral("b.png"));
}

TEST(FileListModel, EditingAsksTheRenameHandler) {
  FileListModel model;
  model.SetEntries({{"a.png", "a.png"}});
  EXPECT_FALSE(model.setData(model.index(0, 0), QStringLiteral("x"), Qt::EditRole));  // no handler
  QString asked;
  model.SetRenameHandler([&](int, const QString& name) {
    asked = name;
    return false;
  });
  EXPECT_FALSE(model.setData(model.index(0, 0), QStringLiteral("z.png"), Qt::EditRole));
  EXPECT_EQ(asked, QStringLiteral("z.png"));
}

TEST(FitListColumnWidth, IsTheWidestTextPlus20AndCountsTheEditedName) {
  const std::vector<FileEntry> entries = {{"abc", "abc"}, {"abcdef", "abcdef"}};
  const auto width = [](const QString& text) { return static_cast<int>(text.size()) * 7; };
  EXPECT_EQ(browse::FitListColumnWidth(entries, width), 6 * 7 + 20);
  EXPECT_EQ(browse::FitListColumnWidth({}, width), 20);
  EXPECT_EQ(browse::FitListColumnWidth(entries, width, {1, "a"}), 3 * 7 + 20);
}

}  // namespace
