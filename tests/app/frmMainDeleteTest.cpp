// Delete on the real main window: the file goes to the desktop's Trash, as files/NAME with
// info/NAME.trashinfo recording where it came from (so any file manager restores it), and
// the list shows the entry that took its place; No changes nothing.
#include "support/DialogAnswerer.h"
#include "support/MainWindowTest.h"

#include <QFile>
#include <QTreeView>

namespace {

using testing_support::DialogAnswerer;

// The Trash's record of a file: where it came from, as files/NAME and info/NAME.trashinfo.
QString TrashRecord(const QString& name) {
  const QString trash = QString::fromLocal8Bit(qgetenv("XDG_DATA_HOME")) + QStringLiteral("/Trash/");
  if (!QFile::exists(trash + QStringLiteral("files/") + name)) return {};
  QFile info(trash + QStringLiteral("info/") + name + QStringLiteral(".trashinfo"));
  return info.open(QIODevice::ReadOnly) ? QString::fromUtf8(info.readAll()) : QString();
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
  const QString record = TrashRecord(QStringLiteral("b.png"));
  EXPECT_TRUE(record.startsWith(QStringLiteral("[Trash Info]\nPath="))) << record.toStdString();
  EXPECT_TRUE(record.contains(QStringLiteral("DeletionDate="))) << record.toStdString();
  EXPECT_EQ(window_->ListModel().Count(), 2);
  EXPECT_EQ(Shown(), pictures_.File(QStringLiteral("c.png")));
  Trigger("mnuFileDelete");  // the last entry: the new last one is shown
  EXPECT_EQ(Shown(), pictures_.File(QStringLiteral("a.png")));
  Trigger("mnuFileDelete");  // the only entry: nothing is left
  EXPECT_EQ(window_->ListModel().Count(), 0);
  EXPECT_FALSE(Doc().ImageLoaded());
  EXPECT_FALSE(Command("mnuFileDelete")->isEnabled());
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
