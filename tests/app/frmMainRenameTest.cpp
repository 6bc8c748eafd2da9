// File > Rename in its dialog: the name's rules, a change of capitals allowed, another
// file never replaced, a new extension confirmed; the list and the open file follow.
#include "document/Document.h"
#include "support/DialogAnswerer.h"
#include "support/MainWindowTest.h"
#include "widgets/frmTexto.h"

#include <QApplication>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>

namespace {

using testing_support::DialogAnswerer;

class frmMainRenameTest : public testing_support::MainWindowTest {
 protected:
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

TEST_F(frmMainRenameTest, OutcomesInAFolder) {
  pictures_.WritePng(QStringLiteral("a.png"));
  pictures_.WritePng(QStringLiteral("b.png"));
  Start(pictures_.Path());
  const auto exists = [this](const char* name) { return QFile::exists(pictures_.File(QLatin1String(name))); };
  EXPECT_EQ(RenameTo(QStringLiteral("a*.png")), document::Document::ForbiddenNameMessage());
  EXPECT_EQ(RenameTo(QStringLiteral("b.png")), QStringLiteral("File already exists"));
  EXPECT_EQ(RenameTo(QStringLiteral("a.jpg"), QMessageBox::No),
            QStringLiteral("The file extension is different. Do you want to continue?"));
  EXPECT_TRUE(exists("a.png") && exists("b.png") && !exists("a.jpg"));
  RenameTo(QStringLiteral("A.png"));  // a change of capitals only
  EXPECT_TRUE(exists("A.png"));
  EXPECT_FALSE(exists("a.png"));
  EXPECT_EQ(Doc().CurrentFilePath(), pictures_.File(QStringLiteral("A.png")));
  EXPECT_EQ(window_->ListModel().Entry(0).FileName, QStringLiteral("A.png"));
}

TEST_F(frmMainRenameTest, TheSingleFileOpenFollowsItsNewName) {
  Start(pictures_.WritePng(QStringLiteral("photo.png")));
  RenameTo(QStringLiteral("holiday.png"));
  EXPECT_EQ(window_->State().Settings.LastFile, pictures_.File(QStringLiteral("holiday.png")));
  EXPECT_EQ(Pane("lblStatusName"), QStringLiteral("holiday.png"));
}

}  // namespace
