// Part 1.1's command line, start options, item click and rename, on the logic alone.
#include "app/Session.h"
#include "imaging/Loader.h"
#include "support/FakeSessionView.h"
#include "support/TestFiles.h"

#include <QFile>

#include <gtest/gtest.h>

namespace {

using app::Session;
using testing_support::TempFolder;

using FakeView = testing_support::FakeSessionView;

class SessionTest : public ::testing::Test {
 protected:
  SessionTest()
      : session_(state_, list_, view_, [this](const QString& path) {
          loaded_ << path;
          return files::LoadImageFile(path, state_.Metrics);
        }) {
    state_.LoadDefaultSettings();
  }

  app::AppState state_;
  browse::FileListModel list_;
  FakeView view_;
  QStringList loaded_;
  Session session_;
  TempFolder folder_;
};

TEST_F(SessionTest, AQuotedFolderOpensInListAndImageViewWithItsFirstEntry) {
  folder_.WritePng(QStringLiteral("b.png"));
  folder_.WritePng(QStringLiteral("a.png"));
  session_.OpenAtStartup(u'"' + folder_.Path() + QStringLiteral("/\""));
  EXPECT_EQ(state_.Settings.LastOpenKind, app::kOpenFolder);
  EXPECT_EQ(state_.Settings.LastFolder, folder_.Path());
  EXPECT_EQ(state_.ViewMode, app::kViewListAndImage);
  EXPECT_EQ(state_.Settings.RecentFolders[0], folder_.Path());
  EXPECT_EQ(list_.Count(), 2);
  EXPECT_EQ(view_.selectedRow, 0);
  EXPECT_EQ(session_.ShownRow(), 0);
  EXPECT_TRUE(state_.ImageLoaded);
  EXPECT_EQ(loaded_, QStringList{folder_.File(QStringLiteral("a.png"))});
}

TEST_F(SessionTest, AFolderWithoutImagesOpensNothing) {
  folder_.Touch(QStringLiteral("notes.txt"));
  session_.OpenAtStartup(folder_.Path());
  EXPECT_EQ(list_.Count(), 0);
  EXPECT_FALSE(state_.ImageLoaded);
  EXPECT_TRUE(loaded_.isEmpty());
  EXPECT_EQ(state_.ViewMode, app::kViewListAndImage);
}

TEST_F(SessionTest, AnUnquotedFileOpensInImageView) {
  const QString file = folder_.WritePng(QStringLiteral("my photo.png"), 5, 4);
  session_.OpenAtStartup(file);
  EXPECT_EQ(state_.Settings.LastOpenKind, app::kOpenFile);
  EXPECT_EQ(state_.Settings.LastFile, file);
  EXPECT_EQ(state_.ViewMode, app::kViewImage);
  ASSERT_TRUE(state_.ImageLoaded);
  EXPECT_EQ(session_.CurrentImage()->Width(), 5);
  EXPECT_EQ(session_.NaturalSizeTag(), QStringLiteral("75 60"));  // 5 x 4 pixels at 15 twips
  EXPECT_TRUE(view_.messages.isEmpty());
}

TEST_F(SessionTest, AFileThatDoesNotLoadSaysCantOpenFile) {
  const QString file = folder_.WriteBytes(QStringLiteral("broken.png"), "not a png");
  session_.OpenAtStartup(file);
  EXPECT_EQ(view_.messages, QStringList{"Can't open file"});
  EXPECT_EQ(state_.Settings.LastOpenKind, app::kOpenNothing);
  EXPECT_TRUE(state_.Settings.LastFile.isEmpty());
  EXPECT_FALSE(state_.ImageLoaded);
}

TEST_F(SessionTest, TheRootOpensAsAFolder) {
  session_.OpenAtStartup(QStringLiteral("/"));
  EXPECT_EQ(state_.Settings.LastFolder, QStringLiteral("/"));
  EXPECT_EQ(state_.Settings.LastOpenKind, app::kOpenFolder);
}

TEST_F(SessionTest, BlanksOnlyCountAsNoCommandLine) {
  state_.Settings.StartOption = 2;
  EXPECT_EQ(session_.OpenAtStartup(QStringLiteral("   ")), app::StartupEnd::OpenFolderDialogRan);
  EXPECT_EQ(view_.openFolderCommands, 1);
}

TEST_F(SessionTest, StartOptionTwoYieldsToACommandLine) {
  state_.Settings.StartOption = 2;
  folder_.WritePng(QStringLiteral("a.png"));
  EXPECT_EQ(session_.OpenAtStartup(folder_.Path()), app::StartupEnd::Normal);
  EXPECT_EQ(view_.openFolderCommands, 0);
  EXPECT_EQ(state_.Settings.LastOpenKind, app::kOpenFolder);
}

TEST_F(SessionTest, StartOptionZeroForgetsTheLastSession) {
  state_.Settings.LastOpenKind = app::kOpenFolder;
  state_.Settings.LastFolder = folder_.Path();
  session_.OpenAtStartup(QString());
  EXPECT_EQ(state_.Settings.LastOpenKind, app::kOpenNothing);
  EXPECT_TRUE(state_.Settings.LastFolder.isEmpty());
  EXPECT_EQ(state_.ViewMode, app::kViewImage);
}

TEST_F(SessionTest, StartOptionOneReopensTheLastFolderWithoutAddingItToRecent) {
  folder_.WritePng(QStringLiteral("a.png"));
  state_.Settings.StartOption = 1;
  state_.Settings.LastOpenKind = app::kOpenFolder;
  state_.Settings.LastFolder = folder_.Path();
  session_.OpenAtStartup(QString());
  EXPECT_EQ(state_.ViewMode, app::kViewListAndImage);
  EXPECT_EQ(session_.ShownRow(), 0);
  EXPECT_TRUE(state_.Settings.RecentFolders[0].isEmpty());
}

TEST_F(SessionTest, StartOptionOneWithAMissingFolderOrFileStartsEmptyAndSilent) {
  state_.Settings.StartOption = 1;
  state_.Settings.LastOpenKind = app::kOpenFolder;
  state_.Settings.LastFolder = folder_.File(QStringLiteral("gone"));
  session_.OpenAtStartup(QString());
  EXPECT_EQ(state_.Settings.LastOpenKind, app::kOpenNothing);
  EXPECT_EQ(state_.ViewMode, app::kViewImage);
  state_.Settings.LastOpenKind = app::kOpenFile;
  state_.Settings.LastFile = folder_.File(QStringLiteral("gone.png"));
  session_.OpenAtStartup(QString());
  EXPECT_EQ(state_.Settings.LastOpenKind, app::kOpenNothing);
  EXPECT_TRUE(state_.Settings.LastFile.isEmpty());
  EXPECT_TRUE(view_.messages.isEmpty());
}

TEST_F(SessionTest, AClickOnTheEntryAlreadyShownDoesNotReloadIt) {
  folder_.WritePng(QStringLiteral("a.png"));
  folder_.WritePng(QStringLiteral("b.png"));
  session_.OpenAtStartup(folder_.Path());
  session_.ClickEntry(0);
  EXPECT_EQ(loaded_.size(), 1);
  session_.ClickEntry(1);
  EXPECT_EQ(loaded_.size(), 2);
  EXPECT_EQ(session_.ShownRow(), 1);
}

TEST_F(SessionTest, CancellingTheSaveQuestionKeepsThePreviousEntry) {
  folder_.WritePng(QStringLiteral("a.png"));
  folder_.WritePng(QStringLiteral("b.png"));
  session_.OpenAtStartup(folder_.Path());
  view_.answerSaveChanges = false;
  session_.ClickEntry(1);
  EXPECT_EQ(loaded_.size(), 1);
  EXPECT_EQ(session_.ShownRow(), 0);
  EXPECT_EQ(view_.selectedRow, 0);
  EXPECT_TRUE(state_.ImageLoaded);
}

TEST_F(SessionTest, AnEntryOpensByItsRealName) {
  folder_.WritePng(QStringLiteral("PHOTO.PNG"));
  session_.OpenAtStartup(folder_.Path());
  EXPECT_EQ(list_.Entry(0).DisplayName, QStringLiteral("Photo.png"));
  EXPECT_EQ(loaded_, QStringList{folder_.File(QStringLiteral("PHOTO.PNG"))});
  EXPECT_TRUE(state_.ImageLoaded);
}

TEST_F(SessionTest, RenamingRefusesForbiddenCharactersWithTheExactMessage) {
  folder_.WritePng(QStringLiteral("a.png"));
  session_.OpenAtStartup(folder_.Path());
  EXPECT_FALSE(session_.RenameEntry(0, QStringLiteral("a?.png")));
  EXPECT_EQ(view_.messages,
            QStringList{"The file name can't include any of the following characters: \\ / : ? \" < > |"});
  EXPECT_TRUE(QFile::exists(folder_.File(QStringLiteral("a.png"))));
}

TEST_F(SessionTest, RenamingMovesTheFileAndResortsTheList) {
  folder_.WritePng(QStringLiteral("a.png"));
  folder_.WritePng(QStringLiteral("b.png"));
  session_.OpenAtStartup(folder_.Path());
  EXPECT_TRUE(session_.RenameEntry(0, QStringLiteral("  c.png ")));
  EXPECT_TRUE(QFile::exists(folder_.File(QStringLiteral("c.png"))));
  EXPECT_FALSE(QFile::exists(folder_.File(QStringLiteral("a.png"))));
  EXPECT_EQ(list_.Entry(1).FileName, QStringLiteral("c.png"));
  EXPECT_EQ(session_.ShownRow(), 1);
  EXPECT_EQ(session_.CurrentFilePath(), folder_.File(QStringLiteral("c.png")));
}

TEST_F(SessionTest, RenamingNeverReplacesAnotherFile) {
  folder_.WritePng(QStringLiteral("a.png"));
  folder_.WritePng(QStringLiteral("b.png"));
  session_.OpenAtStartup(folder_.Path());
  EXPECT_FALSE(session_.RenameEntry(0, QStringLiteral("b.png")));
  EXPECT_TRUE(QFile::exists(folder_.File(QStringLiteral("a.png"))));
  EXPECT_EQ(list_.Count(), 2);
}

}  // namespace

namespace {

TEST_F(SessionTest, OpeningAnEntryAnnouncesItsNeighboursNearestInTheDirectionOfTravelFirst) {
  for (const char* name : {"a.png", "b.png", "c.png", "d.png"}) folder_.WritePng(QLatin1String(name));
  QList<QStringList> announced;
  session_.SetNeighboursHook([&](const QStringList& paths) { announced << paths; });
  session_.OpenAtStartup(folder_.Path());
  ASSERT_EQ(announced.size(), 1);
  EXPECT_EQ(announced.back(), QStringList{folder_.File(QStringLiteral("b.png"))});  // nothing before the first
  session_.Step(1);
  session_.Step(1);
  EXPECT_EQ(announced.back(), (QStringList{folder_.File(QStringLiteral("d.png")), folder_.File(QStringLiteral("b.png"))}));
  session_.Step(-1);
  EXPECT_EQ(announced.back(), (QStringList{folder_.File(QStringLiteral("a.png")), folder_.File(QStringLiteral("c.png"))}));
  EXPECT_EQ(session_.ShownRow(), 1);
}

TEST_F(SessionTest, AnEntryThatFailsToOpenAnnouncesNothing) {
  folder_.WriteBytes(QStringLiteral("a.png"), "broken");
  folder_.WritePng(QStringLiteral("b.png"));
  int announcements = 0;
  session_.SetNeighboursHook([&](const QStringList&) { ++announcements; });
  session_.OpenAtStartup(folder_.Path());
  EXPECT_EQ(announcements, 0);
}

}  // namespace
