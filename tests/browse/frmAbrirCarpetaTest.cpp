// The Open Folder dialog, typed into and clicked as a user would.
#include "browse/FolderChoice.h"
#include "browse/frmAbrirCarpeta.h"
#include "settings/RecentFolders.h"
#include "support/DialogAnswerer.h"
#include "support/TestFiles.h"

#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>
#include <QtTest/QTest>

#include <gtest/gtest.h>

namespace {

using testing_support::Child;
using testing_support::DialogAnswerer;
using testing_support::TempFolder;

class frmAbrirCarpetaTest : public ::testing::Test {
 protected:
  frmAbrirCarpetaTest() : settings_(settings::DefaultSettings({})) {
    photos_ = root_.MakeFolder(QStringLiteral("photos"));
    root_.WritePng(QStringLiteral("photos/a.png"));
    empty_ = root_.MakeFolder(QStringLiteral("empty"));
  }
  void ClickOk(QWidget& dialog) { QTest::mouseClick(Child<QPushButton>(dialog, "cmdAceptar"), Qt::LeftButton); }

  TempFolder root_;
  QString photos_, empty_;
  settings::SettingsStore settings_;
};

TEST_F(frmAbrirCarpetaTest, RefusesWhatCannotOpenAndTakesATypedFolderOnTopOfTheRecent) {
  browse::frmAbrirCarpeta dialog(settings_);
  dialog.show();
  dialog.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
  auto* box = Child<QLineEdit>(dialog, "txtCarpeta");
  const std::pair<QString, const char*> refusals[] = {
      {QString(), "Please select a folder"}, {root_.File(QStringLiteral("gone")), "Folder not found"}, {empty_, "No image found"}};
  for (const auto& [typed, message] : refusals) {
    box->setText(typed);
    DialogAnswerer answerer;
    ClickOk(dialog);
    EXPECT_EQ(answerer.LastText(), QLatin1String(message));
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(dialog.focusWidget(), box) << message;
  }
  EXPECT_TRUE(settings::RecentFolderList(settings_).isEmpty());
  settings::AddRecentFolder(settings_, QStringLiteral("/elsewhere"));
  box->setText(photos_ + u'/');  // a folder is chosen without its trailing separator, on top of the recent
  ClickOk(dialog);
  EXPECT_EQ(dialog.result(), QDialog::Accepted);
  EXPECT_EQ(dialog.ChosenFolder(), photos_);
  EXPECT_EQ(settings::RecentFolderList(settings_), (QStringList{photos_, "/elsewhere"}));
}

TEST_F(frmAbrirCarpetaTest, TheRecentTabOpensRemovesAndClears) {
  for (const QString& folder : {QStringLiteral("/gone/one"), photos_, QStringLiteral("/gone/two")}) {
    settings::AddRecentFolder(settings_, folder);
  }
  browse::frmAbrirCarpeta dialog(settings_);
  dialog.show();
  Child<QTabWidget>(dialog, "tabPestana")->setCurrentIndex(1);
  auto* recent = Child<QListWidget>(dialog, "lisRecientes");
  ASSERT_EQ(recent->count(), 3);
  const auto selectOnly = [recent](int row) {  // the selection moves, the current row stays on the first
    recent->setCurrentRow(0);
    recent->clearSelection();
    recent->item(row)->setSelected(true);
  };
  selectOnly(2);
  QTest::mouseClick(Child<QPushButton>(dialog, "cmdBorrar"), Qt::LeftButton);
  EXPECT_EQ(settings::RecentFolderList(settings_), (QStringList{"/gone/two", photos_}));
  selectOnly(1);
  ClickOk(dialog);  // the selected row opens, never the current one
  EXPECT_EQ(dialog.ChosenFolder(), photos_);
  dialog.show();
  Child<QTabWidget>(dialog, "tabPestana")->setCurrentIndex(1);
  {
    DialogAnswerer no(QMessageBox::No);
    QTest::mouseClick(Child<QPushButton>(dialog, "cmdBorrarTodo"), Qt::LeftButton);
    EXPECT_EQ(no.LastText(), QStringLiteral("Are you sure you want to clear the list of recent folders?"));
  }
  EXPECT_EQ(recent->count(), 2);
  selectOnly(1);
  Q_EMIT recent->itemDoubleClicked(recent->item(0));  // a double click acts on the row clicked
  EXPECT_EQ(dialog.ChosenFolder(), photos_);
  DialogAnswerer yes(QMessageBox::Yes);
  EXPECT_TRUE(browse::ConfirmAndClearRecentFolders(nullptr, settings_));
  EXPECT_TRUE(settings::RecentFolderList(settings_).isEmpty());
}

}  // namespace
