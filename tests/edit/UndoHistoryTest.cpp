// The history on its own, with numbered pictures standing for the images.
#include "edit/UndoHistory.h"

#include <gtest/gtest.h>

namespace {

using History = edit::UndoHistory<int>;

struct Editing {
  History history;
  int next = 100;  // each picture is a distinct number

  Editing() {
    history.Clear();
    history.Push(next++, QString());  // the base state of a loaded image
  }
  bool Apply(const QString& name) { return history.Push(next++, name); }
  int Shown(const edit::UndoMove& move) const { return *history.PictureIn(move.Slot); }
};

TEST(UndoHistory, EightChangesLeaveOnlyTheLastSevenUndoable) {
  Editing e;
  for (int i = 1; i <= 8; ++i) EXPECT_TRUE(e.Apply(QStringLiteral("Op%1").arg(i)));
  int undone = 0;
  std::optional<edit::UndoMove> last;
  while (auto move = e.history.Undo()) {
    last = move;
    ++undone;
  }
  EXPECT_EQ(undone, 7);
  EXPECT_EQ(e.Shown(*last), 101);  // the state after Op1: the base state is gone
  EXPECT_EQ(last->Name, QStringLiteral("Op2"));
}

TEST(UndoHistory, ANewChangeAfterUndoingDiscardsTheRedoStates) {
  Editing e;
  for (const char* name : {"A", "B", "C"}) e.Apply(QLatin1String(name));
  e.history.Undo();
  e.history.Undo();
  EXPECT_EQ(e.history.RedoCaption(), QStringLiteral("&Redo B"));
  e.Apply(QStringLiteral("D"));
  EXPECT_FALSE(e.history.CanRedo());
  EXPECT_EQ(std::tuple(e.history.RedoCaption(), e.history.UndoCaption(), e.history.Count()),
            std::tuple(QStringLiteral("&Redo"), QStringLiteral("&Undo D"), 3));
}

}  // namespace

// Changed exactly when the step shown is not the file's own state: 'e' applies an edit,
// 'u' undoes, 'r' redoes, 's' saves (a new base state), 'f' forgets the changes.
TEST(UndoHistory, IsChangedExactlyAwayFromTheFilesOwnState) {
  const std::pair<const char*, const char*> cases[] = {
      {"eu", "10"},         {"eeuur", "11101"},  {"eus", "100"},
      {"eue", "101"},       // a new edit after undoing everything
      {"eueu", "1010"},     // the redo step was dropped, the base stays
      {"eeeeeeeeuuuuuuu", "111111111111111"},  // the base has left the history: never unchanged again
      {"eefu", "1101"},
  };
  for (const auto& [moves, changed] : cases) {
    Editing e;
    QString seen;
    for (const char* m = moves; *m; ++m) {
      if (*m == 'e') e.Apply(QStringLiteral("Op"));
      if (*m == 'u') e.history.Undo();
      if (*m == 'r') e.history.Redo();
      if (*m == 's') e.history.Push(e.next++, QString());
      if (*m == 'f') e.history.ForgetChanges();
      seen += e.history.IsChanged() ? u'1' : u'0';
    }
    EXPECT_EQ(seen, QLatin1String(changed)) << moves;
  }
}
