// Delete on the real main window: the file goes to the desktop's Trash, where the desktop's
// own tool (gio, on a private D-Bus session) lists it and restores it to where it came
// from, and the list shows the entry that took its place; No changes nothing.
#include "support/DialogAnswerer.h"
#include "support/MainWindowTest.h"

#include <QFile>
#include <QProcess>
#include <QTreeView>

namespace {

using testing_support::DialogAnswerer;

// What `gio trash --list` says, after which the file is restored with `gio trash --restore`.
QString ListedByTheDesktopThenRestored(const QString& name) {
  QProcess gio;
  gio.start(QStringLiteral("dbus-run-session"),
            {"--", "sh", "-c", "gio trash --list && gio trash --restore \"trash:///$1\"", "sh", name});
  gio.waitForFinished(30000);
  return QString::fromUtf8(gio.readAllStandardOutput()).trimmed();
}

class frmMainDeleteTest : public testing_support::MainWindowTest {
 protected:
  void StartOnFolderOf(std::initializer_list<const char*> names) {
    for (const char* name : names) pictures_.WritePng(QLatin1String(name));
    Start(pictures_.Path());
  }
  void Select(int row) { Child<QTreeView>("lisLista")->setCurrentIndex(window_->ListModel().index(row, 0)); }
  QString Shown() const { return Doc().CurrentFilePath(); }
};

TEST_F(frmMainDeleteTest, TheFileGoesToTheTrashAndTheNextEntryTakesItsPlace) {
  StartOnFolderOf({"a.png", "b.png", "c.png"});
  Select(1);
  {
    DialogAnswerer no(QMessageBox::No);
    Trigger("mnuFileDelete");
    EXPECT_EQ(no.LastText(), QStringLiteral("Move \"b.png\" to the Trash?"));
  }
  EXPECT_TRUE(QFile::exists(pictures_.File(QStringLiteral("b.png"))));
  DialogAnswerer yes(QMessageBox::Yes);
  Trigger("mnuFileDelete");
  EXPECT_FALSE(QFile::exists(pictures_.File(QStringLiteral("b.png"))));
  EXPECT_EQ(window_->ListModel().Count(), 2);
  EXPECT_EQ(Shown(), pictures_.File(QStringLiteral("c.png")));
  Trigger("mnuFileDelete");  // the last entry: the new last one is shown
  EXPECT_EQ(Shown(), pictures_.File(QStringLiteral("a.png")));
  Trigger("mnuFileDelete");  // the only entry: nothing is left
  EXPECT_EQ(window_->ListModel().Count(), 0);
  EXPECT_FALSE(Doc().ImageLoaded());
  EXPECT_FALSE(Command("mnuFileDelete")->isEnabled());
  EXPECT_TRUE(ListedByTheDesktopThenRestored(QStringLiteral("b.png"))
                  .split(u'\n')
                  .contains(QStringLiteral("trash:///b.png\t") + pictures_.File(QStringLiteral("b.png"))));
  EXPECT_TRUE(QFile::exists(pictures_.File(QStringLiteral("b.png"))));
}

TEST_F(frmMainDeleteTest, ASingleFileIsClosedAndWithoutTheQuestionWhenTheSettingsSaySo) {
  Start(pictures_.WritePng(QStringLiteral("alone.png")));
  window_->State().Settings.ConfirmDelete = false;
  DialogAnswerer answerer;
  Trigger("mnuFileDelete");
  EXPECT_EQ(answerer.Count(), 0);
  EXPECT_FALSE(QFile::exists(pictures_.File(QStringLiteral("alone.png"))));
  EXPECT_FALSE(Doc().ImageLoaded());
  EXPECT_EQ(window_->State().Settings.LastOpenKind, settings::kOpenNothing);
}

}  // namespace
