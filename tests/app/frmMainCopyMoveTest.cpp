// Copy To and Move To on the real main window: what the list shows afterwards, the
// question about a new extension, and a failure that loses nothing.
#include "support/DialogAnswerer.h"
#include "support/MainWindowTest.h"

#include <QFile>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QTreeView>

#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using testing_support::DialogAnswerer;
using testing_support::ReadAll;

class frmMainCopyMoveTest : public testing_support::MainWindowTest {
 protected:
  frmMainCopyMoveTest() {
    a_ = pictures_.WritePng(QStringLiteral("a.png"));
    pictures_.WritePng(QStringLiteral("b.png"));
    Start(pictures_.Path());
  }
  QString ListedAt(int row) const { return window_->ListModel().Entry(row).FileName; }
  int Listed() const { return window_->ListModel().Count(); }

  QString a_;
};

TEST_F(frmMainCopyMoveTest, CopyToKeepsTheSourceShownAndListsACopyInTheSameFolder) {
  fileAnswer_ = {pictures_.File(QStringLiteral("a copy.png")), 1};
  Trigger("mnuFileCopyTo");
  EXPECT_EQ(requests_.back().Title, QStringLiteral("Copy To"));
  EXPECT_EQ(ReadAll(pictures_.File(QStringLiteral("a copy.png"))), ReadAll(a_));
  EXPECT_EQ(Listed(), 3);
  EXPECT_EQ(Doc().CurrentFilePath(), a_);
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

TEST_F(frmMainCopyMoveTest, MoveToFollowsTheFileInItsFolderAndLeavesItsPlaceWhenItGoes) {
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
TEST_F(frmMainCopyMoveTest, AFailedCopyOrMoveLosesNothing) {
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
      EXPECT_TRUE(QFile::exists(a_)) << command;
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

TEST_F(frmMainCopyMoveTest, PropertiesOfAFileThatIsGoneSaysSo) {
  QFile::remove(a_);
  DialogAnswerer answerer;
  Trigger("mnuFileProperties");
  EXPECT_EQ(answerer.LastText(), QStringLiteral("Can't find file"));
  EXPECT_EQ(answerer.LastTitle(), QStringLiteral("Properties"));
}

// Across file systems a move is a copy checked against the source, then the source removed.
TEST_F(frmMainCopyMoveTest, MoveToAnotherFileSystemCopiesChecksAndThenRemoves) {
  struct stat here {}, shm {};
  if (::stat("/dev/shm", &shm) != 0 || ::stat(QFile::encodeName(pictures_.Path()).constData(), &here) != 0 ||
      here.st_dev == shm.st_dev) {
    GTEST_SKIP() << "no second file system at /dev/shm";
  }
  const QByteArray bytes = ReadAll(a_);
  const QString target = QStringLiteral("/dev/shm/vistrel-move-test-%1.png").arg(QCoreApplication::applicationPid());
  fileAnswer_ = {target, 1};
  Trigger("mnuFileMoveTo");
  EXPECT_EQ(ReadAll(target), bytes);
  EXPECT_FALSE(QFile::exists(a_));
  QFile::remove(target);
}

}  // namespace
