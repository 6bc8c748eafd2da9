// The dialogs' filters as the format table makes them: every known type once in "All image
// files", the grouped types together, and the Save As entry each extension preselects.
#include "files/FileDialogs.h"
#include "base/FileFormats.h"

#include <algorithm>

#include <gtest/gtest.h>

namespace {

TEST(FileDialogs, OpenGroupsAndSaveAsEntriesComeFromTheFormatTable) {
  const std::vector<files::DialogFilter> open = files::OpenFileFilters();
  ASSERT_GT(open.size(), 2u);
  EXPECT_EQ(open.front().Patterns.size(), qsizetype(base::FileFormats().size()));  // every type once, jpe too
  EXPECT_EQ(open.back().Description, QStringLiteral("All files"));
  const auto entryWith = [&open](const char* pattern) {
    return *std::find_if(open.begin() + 1, open.end(), [pattern](const files::DialogFilter& f) { return f.Patterns.contains(QLatin1String(pattern)); });
  };
  EXPECT_EQ(entryWith("*.jpe").Description, QStringLiteral("Jpeg image (*.jpg, *.jpeg, *.jpe, *.jif)"));
  EXPECT_EQ(entryWith("*.pcx").Patterns, QStringList({"*.pcx", "*.dcx"}));
  EXPECT_EQ(entryWith("*.nef").Patterns, entryWith("*.dng").Patterns);  // the camera RAW types together
  const std::pair<const char*, int> preselected[] = {{"jpg", 4}, {"jif", 4}, {"jpe", 0}, {"wpg", 12}, {"gif", 0}};
  for (const auto& [extension, entry] : preselected) EXPECT_EQ(files::SaveAsFilterIndex(QLatin1String(extension)), entry) << extension;
  EXPECT_EQ(files::WithSaveAsExtension(QStringLiteral("/p/photo"), 4), QStringLiteral("/p/photo.jpg"));
  EXPECT_TRUE(files::CannotBeWritten(QStringLiteral("gif")));
  EXPECT_FALSE(files::CannotBeWritten(QStringLiteral("jpe")) || files::CannotBeWritten(QStringLiteral("xyz")));
}

}  // namespace
