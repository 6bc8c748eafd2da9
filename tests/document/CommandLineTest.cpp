// Plain text of the document: how the command line is read (one path, quotes and trailing
// separators dropped, made absolute before anything keeps it) and what the status bar says.
#include "document/CommandLine.h"
#include "document/StatusText.h"
#include "support/UsLocale.h"

#include <gtest/gtest.h>

namespace {

using document::CommandLinePath;

TEST(CommandLine, IsOnePath) {
  const std::pair<const char*, const char*> cases[] = {
      {"\"/home/ana/My Pictures/\"", "/home/ana/My Pictures"},
      {"\"\"/tmp/a\"\"", "\"/tmp/a\""},  // one quote at each end goes
      {"\" /tmp/a \"", "/tmp/a"},
      {"/", "/"},
      {"//", "/"},
      {"\"\"", ""},
      {"  \" \"  ", ""},
      {"     ", ""},
  };
  for (const auto& [line, path] : cases) EXPECT_EQ(CommandLinePath(QLatin1String(line)), QLatin1String(path)) << line;
  EXPECT_EQ(CommandLinePath(document::JoinArguments({"/home/ana/My", "Pictures/a.jpg"})),
            QStringLiteral("/home/ana/My Pictures/a.jpg"));
}

TEST(CommandLine, IsMadeAbsoluteAndTakesFileUris) {
  const std::pair<const char*, const char*> cases[] = {
      {"a.jpg", "/work/a.jpg"},
      {"../pictures/", "/pictures"},
      {"./", "/work"},
      {"/tmp/x/../a.jpg", "/tmp/a.jpg"},
      {"file:///home/ana/My%20Pictures/a.jpg", "/home/ana/My Pictures/a.jpg"},
      {"", ""},
  };
  for (const auto& [given, absolute] : cases) {
    EXPECT_EQ(document::ResolveCommandLinePath(CommandLinePath(QLatin1String(given)), QStringLiteral("/work")),
              QLatin1String(absolute))
        << given;
  }
}

TEST(StatusBar, FileSizesKeepThreeFiguresAtMost) {
  const testing_support::UsLocale us;
  const std::pair<qint64, const char*> sizes[] = {
      {0, "0 bytes"}, {1023, "1023 bytes"}, {1536, "1.5 KB"}, {340 * 1024, "340 KB"}, {qint64(1204) << 20, "1,204 MB"}};
  for (const auto& [bytes, text] : sizes) EXPECT_EQ(document::FormatFileSize(bytes), QLatin1String(text)) << bytes;
}

}  // namespace
