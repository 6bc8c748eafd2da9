// How the command line is read.
#include "document/CommandLine.h"

#include <gtest/gtest.h>

namespace {

using document::CommandLinePath;

TEST(CommandLine, AQuotedFolderWithATrailingSeparatorLosesBoth) {
  EXPECT_EQ(CommandLinePath(QStringLiteral("\"/home/ana/My Pictures/\"")), QStringLiteral("/home/ana/My Pictures"));
}

TEST(CommandLine, AnUnquotedPathWithBlanksIsOnePath) {
  EXPECT_EQ(CommandLinePath(document::JoinArguments({"/home/ana/My", "Pictures/a.jpg"})),
            QStringLiteral("/home/ana/My Pictures/a.jpg"));
}

TEST(CommandLine, TwoQuotesOnlyOrBlanksOnlyAreNoCommandLine) {
  EXPECT_TRUE(CommandLinePath(QStringLiteral("\"\"")).isEmpty());
  EXPECT_TRUE(CommandLinePath(QStringLiteral("  \" \"  ")).isEmpty());
  EXPECT_TRUE(CommandLinePath(QStringLiteral("     ")).isEmpty());
  EXPECT_TRUE(CommandLinePath(QString()).isEmpty());
}

TEST(CommandLine, OnlyOneQuoteIsRemovedAtEachEnd) {
  EXPECT_EQ(CommandLinePath(QStringLiteral("\"\"/tmp/a\"\"")), QStringLiteral("\"/tmp/a\""));
  EXPECT_EQ(CommandLinePath(QStringLiteral("\" /tmp/a \"")), QStringLiteral("/tmp/a"));
}

TEST(CommandLine, TheRootStaysTheRoot) {
  EXPECT_EQ(CommandLinePath(QStringLiteral("/")), QStringLiteral("/"));
  EXPECT_EQ(CommandLinePath(QStringLiteral("//")), QStringLiteral("/"));
}

}  // namespace
