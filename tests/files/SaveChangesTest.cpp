#include "files/SaveChanges.h"

#include <gtest/gtest.h>

namespace {

using files::SaveChangesAnswer;

struct Prompt {
  // A file is open; `changeLevel` says whether it was edited.
  explicit Prompt(int changeLevel, int openKind = app::kOpenFile) {
    state.ChangeLevel = changeLevel;
    state.Settings.LastOpenKind = openKind;
  }
  app::AppState state;
  int asked = 0;
  QString question;
  files::SaveChangesHooks Hooks(SaveChangesAnswer answer, bool saveSucceeds) {
    return {[this, answer](const QString& q) {
              ++asked;
              question = q;
              return answer;
            },
            [saveSucceeds] { return saveSucceeds; }};
  }
};

TEST(ConfirmSaveChanges, AsksNothingWhenUnchangedOrNothingOpen) {
  Prompt p(0);
  EXPECT_TRUE(files::ConfirmSaveChanges(p.state, QStringLiteral("/a/b.jpg"), p.Hooks(SaveChangesAnswer::Cancel, true)));
  p.state.ChangeLevel = 1;
  p.state.Settings.LastOpenKind = app::kOpenNothing;
  EXPECT_TRUE(files::ConfirmSaveChanges(p.state, QStringLiteral("/a/b.jpg"), p.Hooks(SaveChangesAnswer::Cancel, true)));
  EXPECT_EQ(p.asked, 0);
}

TEST(ConfirmSaveChanges, AsksWithTheFileNameAndCancelStops) {
  Prompt p(2, app::kOpenFolder);
  EXPECT_FALSE(files::ConfirmSaveChanges(p.state, QStringLiteral("/a/b.jpg"), p.Hooks(SaveChangesAnswer::Cancel, true)));
  EXPECT_EQ(p.question, QStringLiteral("'b.jpg' has changed. Do you want to save changes?"));
  EXPECT_EQ(p.state.ChangeLevel, 2);
}

TEST(ConfirmSaveChanges, NoDropsTheChanges) {
  Prompt p(1);
  EXPECT_TRUE(files::ConfirmSaveChanges(p.state, QStringLiteral("b.jpg"), p.Hooks(SaveChangesAnswer::No, false)));
  EXPECT_EQ(p.state.ChangeLevel, 0);
}

TEST(ConfirmSaveChanges, YesWithAFailingSaveKeepsEverything) {
  Prompt p(1);
  EXPECT_FALSE(files::ConfirmSaveChanges(p.state, QStringLiteral("b.jpg"), p.Hooks(SaveChangesAnswer::Yes, false)));
  EXPECT_TRUE(p.state.DialogCancelled);
  EXPECT_EQ(p.state.ChangeLevel, 1);
  EXPECT_TRUE(files::ConfirmSaveChanges(p.state, QStringLiteral("b.jpg"), p.Hooks(SaveChangesAnswer::Yes, true)));
  EXPECT_FALSE(p.state.DialogCancelled);
  EXPECT_EQ(p.state.ChangeLevel, 0);
}

}  // namespace
