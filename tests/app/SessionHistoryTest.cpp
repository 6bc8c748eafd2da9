// Part 4.4's edge cases on the session: real images, packed states, the captions the
// Edit menu shows and the change level.
#include "app/Session.h"
#include "imaging/Operations.h"
#include "support/FakeSessionView.h"
#include "support/ImageCompare.h"
#include "support/TestFiles.h"

#include <gtest/gtest.h>

namespace {

using testing_support::MeanAbsoluteDifference;


class SessionHistoryTest : public ::testing::Test {
 protected:
  SessionHistoryTest()
      : session_(state_, list_, view_, [this](const QString& path) { return files::LoadImageFile(path, state_.Metrics); }) {
    state_.LoadDefaultSettings();
    session_.OpenAtStartup(folder_.WritePng(QStringLiteral("photo.png"), 40, 30));
    original_ = *session_.CurrentImage();
  }

  const imaging::Image& Shown() const { return *session_.CurrentImage(); }
  void Edit(const char* name) { session_.ApplyEdit(imaging::ops::Brightness(Shown(), 5), QLatin1String(name)); }
  QString UndoCaption() const { return session_.UndoHistory().UndoCaption(); }
  QString RedoCaption() const { return session_.UndoHistory().RedoCaption(); }

  testing_support::TempFolder folder_;
  app::AppState state_;
  browse::FileListModel list_;
  testing_support::FakeSessionView view_;
  app::Session session_;
  imaging::Image original_ = imaging::Image::FromQImage(QImage(1, 1, QImage::Format_RGB888));
};

TEST_F(SessionHistoryTest, BlurNamesUndoAndAfterUndoNamesRedo) {
  ASSERT_TRUE(state_.ImageLoaded);
  session_.ApplyEdit(imaging::ops::Blur(Shown()), QStringLiteral("Blur"));
  EXPECT_EQ(UndoCaption(), QStringLiteral("&Undo Blur"));
  EXPECT_EQ(RedoCaption(), QStringLiteral("&Redo"));
  EXPECT_EQ(state_.ChangeLevel, 1);
  session_.Undo();
  EXPECT_EQ(UndoCaption(), QStringLiteral("&Undo"));
  EXPECT_EQ(RedoCaption(), QStringLiteral("&Redo Blur"));
  EXPECT_EQ(MeanAbsoluteDifference(Shown(), original_), 0);  // the packed base state is exact
}

TEST_F(SessionHistoryTest, AfterEightChangesOnlySevenCanBeUndoneAndTheBaseIsGone) {
  for (int i = 0; i < 8; ++i) Edit("Brightness");
  int undone = 0;
  while (session_.UndoHistory().CanUndo()) {
    session_.Undo();
    ++undone;
  }
  EXPECT_EQ(undone, 7);
  EXPECT_GT(MeanAbsoluteDifference(Shown(), original_), 0);
}

TEST_F(SessionHistoryTest, ANewChangeAfterTwoUndosDiscardsTheRedoStates) {
  Edit("Blur");
  Edit("Flip");
  Edit("Mirror");
  session_.Undo();
  session_.Undo();
  EXPECT_EQ(RedoCaption(), QStringLiteral("&Redo Flip"));
  Edit("Negative");
  EXPECT_EQ(RedoCaption(), QStringLiteral("&Redo"));
  EXPECT_FALSE(session_.UndoHistory().CanRedo());
  EXPECT_EQ(UndoCaption(), QStringLiteral("&Undo Negative"));
}

TEST_F(SessionHistoryTest, SavingStartsAFreshHistoryWithNothingToUndo) {
  Edit("Brightness");
  ASSERT_TRUE(session_.SaveImageTo(folder_.File(QStringLiteral("photo.png"))));
  EXPECT_FALSE(session_.UndoHistory().CanUndo());
  EXPECT_EQ(UndoCaption(), QStringLiteral("&Undo"));
  EXPECT_EQ(state_.ChangeLevel, 0);
}

TEST_F(SessionHistoryTest, UndoingACropRestoresTheFullSizeAndRemovesTheSelectionFirst) {
  const QImage cropped = Shown().ToQImage().copy(5, 5, 10, 8);
  session_.ApplyEdit(imaging::Image::FromQImage(cropped), QStringLiteral("Crop"));
  EXPECT_EQ(Shown().Width(), 10);
  view_.selectionRemoved = false;
  session_.Undo();
  EXPECT_TRUE(view_.selectionRemoved);
  EXPECT_EQ(Shown().Width(), 40);
  EXPECT_EQ(Shown().Height(), 30);
  EXPECT_EQ(session_.NaturalSizeTag(), QStringLiteral("600 450"));
}

TEST_F(SessionHistoryTest, UndoAndRedoOfRotateRemoveTheSelectionAndOtherStepsKeepIt) {
  session_.ApplyEdit(imaging::ops::RotateQuarter(Shown(), 1), QStringLiteral("Rotate"));
  EXPECT_EQ(Shown().Width(), 30);
  session_.Undo();
  EXPECT_TRUE(view_.selectionRemoved);
  EXPECT_EQ(Shown().Width(), 40);
  session_.Redo();
  EXPECT_TRUE(view_.selectionRemoved);
  Edit("Brightness");
  session_.Undo();
  EXPECT_FALSE(view_.selectionRemoved);  // a change that keeps the size keeps the selection
}

TEST_F(SessionHistoryTest, WithEightStatesAChangeAfterOneUndoIsAppliedButNotRecorded) {
  for (int i = 0; i < 7; ++i) Edit("Brightness");  // base + 7 = eight states, every slot held
  session_.Undo();
  const QString undoBefore = UndoCaption(), redoBefore = RedoCaption();
  const imaging::Image before = Shown();
  session_.ApplyEdit(imaging::ops::Negative(Shown()), QStringLiteral("Negative"));
  EXPECT_GT(MeanAbsoluteDifference(Shown(), before), 0);  // the image changed
  EXPECT_EQ(UndoCaption(), undoBefore);                  // but no step was recorded
  EXPECT_EQ(RedoCaption(), redoBefore);
  EXPECT_EQ(session_.UndoHistory().Count(), 8);
}

TEST_F(SessionHistoryTest, UndoAndRedoLeaveTheChangeLevel) {
  Edit("Brightness");
  Edit("Brightness");
  EXPECT_EQ(state_.ChangeLevel, 2);
  session_.Undo();
  session_.Undo();
  EXPECT_EQ(state_.ChangeLevel, 2);
  session_.Redo();
  EXPECT_EQ(state_.ChangeLevel, 2);
}

TEST_F(SessionHistoryTest, NothingIsUndoneInTheThumbnailsView) {
  Edit("Brightness");
  state_.ViewMode = app::kViewThumbnails;
  session_.Undo();
  EXPECT_EQ(UndoCaption(), QStringLiteral("&Undo Brightness"));
}

}  // namespace
