// What picEstado says, from plain facts.
#include "document/StatusText.h"

#include <gtest/gtest.h>

namespace {

document::StatusFacts PhotoInFolder() {
  document::StatusFacts facts;
  facts.DisplayName = QStringLiteral("Beach.jpg");
  facts.Row = 6;
  facts.Count = 1200;
  facts.Width = 6000;
  facts.Height = 4000;
  facts.Percentage = 25;
  facts.FileBytes = 3 * 1024 * 1024 + 400 * 1024;
  return facts;
}

TEST(StatusBar, AnImageInAFolderShowsNamePlaceSizeZoomAndFileSize) {
  const document::StatusTexts texts = document::ComposeStatus(PhotoInFolder());
  EXPECT_EQ(texts.Name, QStringLiteral("Beach.jpg"));
  EXPECT_EQ(texts.Position, QStringLiteral("7 / 1,200"));
  EXPECT_EQ(texts.Size, QStringLiteral("6000 x 4000"));
  EXPECT_EQ(texts.Zoom, QStringLiteral("25%"));
  EXPECT_EQ(texts.FileSize, QStringLiteral("3.4 MB"));
}

TEST(StatusBar, ASingleFileHasNoPlaceInAFolder) {
  document::StatusFacts facts = PhotoInFolder();
  facts.Row = -1;
  EXPECT_TRUE(document::ComposeStatus(facts).Position.isEmpty());
}

TEST(StatusBar, AMessageStandsAlone) {
  document::StatusFacts facts = PhotoInFolder();
  facts.Message = QStringLiteral("Scanning...");
  const document::StatusTexts texts = document::ComposeStatus(facts);
  EXPECT_EQ(texts.Name, QStringLiteral("Scanning..."));
  EXPECT_TRUE(texts.Size.isEmpty() && texts.Zoom.isEmpty() && texts.FileSize.isEmpty() && texts.Position.isEmpty());
}

TEST(StatusBar, NoImageShowsNothing) {
  const document::StatusTexts texts = document::ComposeStatus({});
  EXPECT_TRUE(texts.Name.isEmpty() && texts.Size.isEmpty());
}

TEST(StatusBar, FileSizesKeepThreeFiguresAtMost) {
  EXPECT_EQ(document::FormatFileSize(0), QStringLiteral("0 bytes"));
  EXPECT_EQ(document::FormatFileSize(1023), QStringLiteral("1023 bytes"));
  EXPECT_EQ(document::FormatFileSize(1536), QStringLiteral("1.5 KB"));
  EXPECT_EQ(document::FormatFileSize(340 * 1024), QStringLiteral("340 KB"));
  EXPECT_EQ(document::FormatFileSize(qint64(1204) * 1024 * 1024), QStringLiteral("1,204 MB"));
}

}  // namespace
