// The dialogs' filters as the format table makes them: every known type once in "All image
// files", the grouped types together, and the Save As entry each extension preselects.
#include "files/FileDialogs.h"

#include <gtest/gtest.h>

namespace {

TEST(FileDialogs, OpenGroupsAndSaveAsEntriesComeFromTheFormatTable) {
  const std::vector<files::DialogFilter> open = files::OpenFileFilters();
  ASSERT_EQ(open.size(), 27u);
  EXPECT_EQ(open.front().Patterns.size(), 41);  // jpe too, which the classic folder scan leaves out
  EXPECT_EQ(open[19].Description, QStringLiteral("HEIF image (*.heic, *.heif)"));  // today's after the classic ones
  EXPECT_EQ(open[7].Description, QStringLiteral("Jpeg image (*.jpg, *.jpeg, *.jpe, *.jif)"));
  EXPECT_EQ(open[9].Patterns, QStringList({"*.pcx", "*.dcx"}));
  EXPECT_EQ(open[25].Patterns.size(), 10);  // the camera RAW types in one entry
  EXPECT_EQ(open.back().Description, QStringLiteral("All files"));
  const std::pair<const char*, int> preselected[] = {{"jpg", 4}, {"jif", 4}, {"jpe", 0}, {"wpg", 12}, {"gif", 0}};
  for (const auto& [extension, entry] : preselected) EXPECT_EQ(files::SaveAsFilterIndex(QLatin1String(extension)), entry) << extension;
  EXPECT_EQ(files::WithSaveAsExtension(QStringLiteral("/p/photo"), 4), QStringLiteral("/p/photo.jpg"));
  EXPECT_TRUE(files::CannotBeWritten(QStringLiteral("gif")));
  EXPECT_FALSE(files::CannotBeWritten(QStringLiteral("jpe")) || files::CannotBeWritten(QStringLiteral("xyz")));
}

}  // namespace
