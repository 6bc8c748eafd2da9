#include "browse/FileListModel.h"
#include "browse/ListColumn.h"

#include <gtest/gtest.h>

namespace {

using browse::FileEntry;
using browse::FileListModel;

// Characters 7 pixels wide, "W" 12; a pair "AV" kerned 2 pixels closer.
int Advance(QChar c) { return c == u'W' ? 12 : 7; }
int Exact(const QString& text) {
  int width = 0;
  for (const QChar c : text) width += Advance(c);
  return width - 2 * static_cast<int>(text.count(QStringLiteral("AV")));
}
const browse::TextMeasure kMeasure{Exact, Advance};

TEST(FitListColumnWidth, IsTheWidestTextPlus20AndCountsTheEditedName) {
  const std::vector<FileEntry> entries = {{"abc", "abc"}, {"abcdef", "abcdef"}};
  EXPECT_EQ(browse::FitListColumnWidth(entries, kMeasure), 6 * 7 + 20);
  EXPECT_EQ(browse::FitListColumnWidth({}, kMeasure), 20);
  EXPECT_EQ(browse::FitListColumnWidth(entries, kMeasure, {1, "a"}), 3 * 7 + 20);
}

TEST(FitListColumnWidth, MeasuresExactlyWhereKerningMakesTheLongestEstimateNarrower) {
  // "AVAVAV" is estimated 42 but measures 36; "WWW" (36) and "abcde" (35) are close.
  std::vector<FileEntry> entries = {{"AVAVAV", "1"}, {"abcde", "2"}, {"WWW", "3"}};
  for (int i = 0; i < 5000; ++i) entries.push_back({QStringLiteral("x%1").arg(i % 10), "n"});
  EXPECT_EQ(browse::FitListColumnWidth(entries, kMeasure), 36 + 20);
  entries.push_back({"abcdefg", "4"});
  EXPECT_EQ(browse::FitListColumnWidth(entries, kMeasure), 49 + 20);
}

}  // namespace
