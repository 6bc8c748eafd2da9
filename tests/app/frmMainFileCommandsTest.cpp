// File > Copy To, Move To, Rename and Delete on the real main window: what the list and the
// open file show afterwards, the questions asked (a new extension, the name's rules, the
// Trash), and failures that lose nothing. The Trash is judged by the desktop's own tool
// (gio, on a private D-Bus session), which lists the file and restores it.
#include "document/Document.h"
#include "files/FileOperations.h"
#include "support/DialogAnswerer.h"
#include "support/MainWindowTest.h"
#include "widgets/frmTexto.h"

#include <QApplication>
#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QTreeView>
#include <QUrl>

#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using testing_support::DialogAnswerer;
using testing_support::ReadAll;

// What `gio trash --list` says, after which the file is restored with `gio trash --restore`.
QString ListedByTheDesktopThenRestored(const QString& uri) {
  return testing_support::Run(QStringLiteral("dbus-run-session"),
                              {"--", "sh", "-c", "gio trash --list && gio trash --restore \"$1\"", "sh", uri})
      .Output.trimmed();
}

class frmMainFileCommandsTest : public testing_support::MainWindowTest {
 protected:
  void StartOnFolderOf(std::initializer_list<const char*> names) {
    for (const char* name : names) pictures_.WritePng(QLatin1String(name));
    Start(pictures_.Path());
  }
  QString A() const { return pictures_.File(QStringLiteral("a.png")); }
  int Listed() const { return window_->ListModel().Count(); }
  void Select(int row) { Child<QTreeView>("lisLista")->setCurrentIndex(window_->ListModel().index(row, 0)); }
  QString ShownFile() const { return Doc().CurrentFilePath(); }
  // Runs Rename, typing `name` and pressing OK; a dialog still open after that is cancelled.
  // Message boxes get `answer`. Returns what the last message box said.
  QString RenameTo(const QString& name, QMessageBox::StandardButton answer = QMessageBox::Ok) {
    DialogAnswerer answerer(answer);
    bool typed = false;
    QTimer driver;
    QObject::connect(&driver, &QTimer::timeout, [&] {
      auto* dialog = qobject_cast<widgets::frmTexto*>(QApplication::activeModalWidget());
      if (!dialog) return;
      if (typed) {
        dialog->reject();
        return;
      }
      typed = true;
      dialog->findChild<QLineEdit*>(QStringLiteral("txtTexto"))->setText(name);
      dialog->findChild<QPushButton*>(QStringLiteral("cmdAceptar"))->click();
    });
    driver.start(20);
    Trigger("mnuFileRename");
    return answerer.LastText();
  }
};

TEST_F(frmMainFileCommandsTest, CopyToKeepsTheSourceShownAndListsACopyInTheSameFolder) {
  StartOnFolderOf({"a.png", "b.png"});
  const QDateTime lastYear = QDateTime::currentDateTime().addYears(-1);
  QFile::setPermissions(A(), QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ReadGroup);
  { QFile a(A()); ASSERT_TRUE(a.open(QIODevice::ReadWrite) && a.setFileTime(lastYear, QFileDevice::FileModificationTime)); }
  fileAnswer_ = {pictures_.File(QStringLiteral("a copy.png")), 1};
  Trigger("mnuFileCopyTo");
  EXPECT_EQ(requests_.back().Title, QStringLiteral("Copy To"));
  const QFileInfo copy(pictures_.File(QStringLiteral("a copy.png")));
  EXPECT_EQ(ReadAll(copy.filePath()), ReadAll(A()));
  EXPECT_EQ(copy.permissions(), QFileInfo(A()).permissions());  // as `cp -p` keeps them
  EXPECT_EQ(copy.lastModified().toSecsSinceEpoch(), lastYear.toSecsSinceEpoch());
  EXPECT_EQ(Listed(), 3);
  EXPECT_EQ(Doc().CurrentFilePath(), A());
  fileAnswer_ = {pictures_.File(QStringLiteral("b.png ")), 1};  // a blank the dialog's own check did not see
  const auto inodeOf = [](const QString& path) {
    struct stat info {};
    return ::stat(QFile::encodeName(path).constData(), &info) == 0 ? info.st_ino : 0;
  };
  const auto inodeBefore = inodeOf(pictures_.File(QStringLiteral("b.png")));
  {
    DialogAnswerer no(QMessageBox::No);
    Trigger("mnuFileCopyTo");
    EXPECT_EQ(no.LastText(), QStringLiteral("b.png already exists.\nDo you want to replace it?"));
  }
  EXPECT_EQ(inodeOf(pictures_.File(QStringLiteral("b.png"))), inodeBefore);  // not replaced
  fileAnswer_ = {config_.File(QStringLiteral("a.bmp")), 1};
  {
    DialogAnswerer no(QMessageBox::No);
    Trigger("mnuFileCopyTo");
    EXPECT_EQ(no.LastText(), QStringLiteral("The file extension is different. Do you want to continue?"));
  }
  EXPECT_FALSE(QFile::exists(fileAnswer_.Path));
  DialogAnswerer yes(QMessageBox::Yes);
  Trigger("mnuFileCopyTo");
  EXPECT_TRUE(QFile::exists(fileAnswer_.Path));  // the bytes as they are: only the name changed
}

TEST_F(frmMainFileCommandsTest, MoveToFollowsTheFileInItsFolderAndLeavesItsPlaceWhenItGoes) {
  StartOnFolderOf({"a.png", "b.png"});
  fileAnswer_ = {pictures_.File(QStringLiteral("c.png")), 1};
  Trigger("mnuFileMoveTo");
  EXPECT_EQ(Listed(), 2);
  EXPECT_EQ(Doc().CurrentFilePath(), pictures_.File(QStringLiteral("c.png")));
  EXPECT_EQ(Child<QTreeView>("lisLista")->currentIndex().row(), 1);
  fileAnswer_ = {config_.File(QStringLiteral("c.png")), 1};
  Trigger("mnuFileMoveTo");
  EXPECT_TRUE(QFile::exists(config_.File(QStringLiteral("c.png"))));
  EXPECT_EQ(Listed(), 1);
  EXPECT_EQ(Doc().CurrentFilePath(), pictures_.File(QStringLiteral("b.png")));
}

// A destination that cannot be written, does not exist or is a full disk (a small tmpfs,
// mounted when the tests run as root): the message says so, nothing is left behind, and the
// files and the list are as they were.
TEST_F(frmMainFileCommandsTest, AFailedCopyOrMoveLosesNothing) {
  StartOnFolderOf({"a.png", "b.png"});
  const QString locked = config_.WriteBytes(QStringLiteral("locked.png"), "keep me");
  QFile::setPermissions(locked, QFileDevice::ReadOwner);
  QStringList targets = {locked, config_.File(QStringLiteral("missing/x.png"))};
  testing_support::TempFolder disk;
  const bool full = ::geteuid() == 0 &&
                    ::mount("tmpfs", QFile::encodeName(disk.Path()).constData(), "tmpfs", 0, "size=64k") == 0;
  if (full) {
    QFile filler(disk.File(QStringLiteral("filler")));
    ASSERT_TRUE(filler.open(QIODevice::WriteOnly));
    while (filler.write(QByteArray(4096, 'x')) == 4096 && filler.flush()) {
    }
    targets << disk.File(QStringLiteral("a.png"));
  }
  for (const char* command : {"mnuFileCopyTo", "mnuFileMoveTo"}) {
    for (const QString& target : targets) {
      fileAnswer_ = {target, 1};
      DialogAnswerer answerer;
      Trigger(command);
      EXPECT_TRUE(answerer.LastText().startsWith(QStringLiteral("Can't "))) << command << target.toStdString();
      EXPECT_TRUE(QFile::exists(A())) << command;
      EXPECT_EQ(Listed(), 2);
    }
  }
  EXPECT_EQ(ReadAll(locked), QByteArray("keep me"));
  if (full) {
    EXPECT_EQ(QDir(disk.Path()).entryList(QDir::Files | QDir::Hidden), QStringList{"filler"});
    ::umount2(QFile::encodeName(disk.Path()).constData(), MNT_DETACH);
  }
  DialogAnswerer answerer;
  fileAnswer_ = {locked, 1};
  Trigger("mnuFileCopyTo");
  EXPECT_EQ(answerer.LastText(), QStringLiteral("Can't copy file. Destination file is as marked as read-only"));
}

// Across file systems a move is a copy checked against the source, then the source removed.
TEST_F(frmMainFileCommandsTest, MoveToAnotherFileSystemCopiesChecksAndThenRemoves) {
  StartOnFolderOf({"a.png", "b.png"});
  struct stat here {}, shm {};
  if (::stat("/dev/shm", &shm) != 0 || ::stat(QFile::encodeName(pictures_.Path()).constData(), &here) != 0 ||
      here.st_dev == shm.st_dev) {
    GTEST_SKIP() << "no second file system at /dev/shm";
  }
  const QByteArray bytes = ReadAll(A());
  const QString target = QStringLiteral("/dev/shm/vistrel-move-test-%1.png").arg(QCoreApplication::applicationPid());
  fileAnswer_ = {target, 1};
  Trigger("mnuFileMoveTo");
  EXPECT_EQ(ReadAll(target), bytes);
  EXPECT_FALSE(QFile::exists(A()));
  QFile::remove(target);
}

TEST_F(frmMainFileCommandsTest, TheFileGoesToTheTrashAndTheNextEntryTakesItsPlace) {
  // "%2F" in a name must reach the Trash's record percent-encoded, or it restores elsewhere.
  StartOnFolderOf({"a.png", "b%2F.png", "c.png"});
  const QString b = pictures_.File(QStringLiteral("b%2F.png"));
  Select(1);
  {
    DialogAnswerer no(QMessageBox::No);
    Trigger("mnuFileDelete");
    EXPECT_EQ(no.LastText(), QStringLiteral("Move \"b%2F.png\" to the Trash?"));
  }
  EXPECT_TRUE(QFile::exists(b));
  DialogAnswerer yes(QMessageBox::Yes);
  Trigger("mnuFileDelete");
  EXPECT_FALSE(QFile::exists(b));
  EXPECT_EQ(window_->ListModel().Count(), 2);
  EXPECT_EQ(ShownFile(), pictures_.File(QStringLiteral("c.png")));
  Trigger("mnuFileDelete");  // the last entry: the new last one is shown
  EXPECT_EQ(ShownFile(), pictures_.File(QStringLiteral("a.png")));
  Trigger("mnuFileDelete");  // the only entry: nothing is left
  EXPECT_EQ(window_->ListModel().Count(), 0);
  EXPECT_FALSE(Doc().ImageLoaded());
  EXPECT_FALSE(Command("mnuFileDelete")->isEnabled());
  const QString uri = QStringLiteral("trash:///") + QString::fromLatin1(QUrl::toPercentEncoding(QStringLiteral("b%2F.png")));
  EXPECT_TRUE(ListedByTheDesktopThenRestored(uri).split(u'\n').contains(uri + u'\t' + b));
  EXPECT_TRUE(QFile::exists(b));
}

TEST_F(frmMainFileCommandsTest, ASingleFileIsClosedAndWithoutTheQuestionWhenTheSettingsSaySo) {
  Start(pictures_.WritePng(QStringLiteral("alone.png")));
  window_->State().Settings.ConfirmDelete = false;
  DialogAnswerer answerer;
  Trigger("mnuFileDelete");
  EXPECT_EQ(answerer.Count(), 0);
  EXPECT_FALSE(QFile::exists(pictures_.File(QStringLiteral("alone.png"))));
  EXPECT_FALSE(Doc().ImageLoaded());
  EXPECT_EQ(window_->CurrentDocument().Open().Kind, settings::kOpenNothing);
}

TEST_F(frmMainFileCommandsTest, RenameOutcomesInAFolder) {
  StartOnFolderOf({"a.png", "b.png"});
  const auto exists = [this](const char* name) { return QFile::exists(pictures_.File(QLatin1String(name))); };
  EXPECT_EQ(RenameTo(QStringLiteral("a*.png")), files::ForbiddenNameMessage());
  EXPECT_EQ(RenameTo(QStringLiteral("b.png")), QStringLiteral("File already exists"));
  EXPECT_EQ(RenameTo(QStringLiteral("a.jpg"), QMessageBox::No),
            QStringLiteral("The file extension is different. Do you want to continue?"));
  EXPECT_TRUE(exists("a.png") && exists("b.png") && !exists("a.jpg"));
  RenameTo(QStringLiteral("A.png"));  // a change of capitals only
  EXPECT_TRUE(exists("A.png"));
  EXPECT_FALSE(exists("a.png"));
  EXPECT_EQ(Doc().CurrentFilePath(), pictures_.File(QStringLiteral("A.png")));
  EXPECT_EQ(window_->ListModel().Entry(0).FileName, QStringLiteral("A.png"));
  // The old name is taken exactly: "b.png " is renamed, never "b.png".
  const QString blank = pictures_.WritePng(QStringLiteral("b.png "));
  EXPECT_TRUE(files::RenameWithChecks(blank, pictures_.File(QStringLiteral("c.png")), [](const QString&) { return true; }).Renamed);
  EXPECT_TRUE(exists("b.png") && exists("c.png") && !exists("b.png "));
}

}  // namespace
