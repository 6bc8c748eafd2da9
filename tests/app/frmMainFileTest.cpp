// Open File, Save, Save As and the save question on the real main window, with the file
// dialogs answered through the window's file chooser and the message boxes by
// DialogAnswerer: a user's file is never lost or half-written.
#include "support/DialogAnswerer.h"
#include "files/FileDialogs.h"
#include "imaging/Loader.h"
#include "imaging/Operations.h"
#include "support/MainWindowTest.h"

#include <QDir>
#include <QComboBox>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QStatusBar>
#include <QTest>
#include <QToolButton>
#include <QTreeView>

namespace {

using testing_support::DialogAnswerer;
using testing_support::ReadAll;

using frmMainFileTest = testing_support::MainWindowTest;

// A GIF is never saved over: Save, like Yes on leaving, offers Save As as PNG.
TEST_F(frmMainFileTest, AGifIsNeverSavedOverSaveOffersSaveAs) {
  const QString gif = pictures_.File(QStringLiteral("anim.gif"));
  ASSERT_EQ(QProcess::execute(QStringLiteral("convert"), {"-size", "10x10", "gradient:", gif}), 0);
  const QByteArray before = ReadAll(gif);
  Start(gif);
  EXPECT_EQ(window_->windowTitle(), QStringLiteral("anim.gif - Vistrel"));
  Trigger("mnuImageFlip");
  EXPECT_EQ(window_->windowTitle(), QStringLiteral("anim.gif* - Vistrel"));  // the modified mark
  Trigger("mnuFileSave");  // cancelled in its dialog: nothing written, the edit kept
  EXPECT_EQ(ReadAll(gif), before);
  EXPECT_TRUE(Doc().IsChanged());
  fileAnswer_ = {pictures_.File(QStringLiteral("anim.png")), files::SaveAsFilterIndex(QStringLiteral("png"))};
  DialogAnswerer answerer(QMessageBox::Yes);
  EXPECT_TRUE(window_->close());
  ASSERT_EQ(requests_.size(), 2u);
  for (const auto& request : requests_) EXPECT_TRUE(request.ProposedPath.endsWith(QStringLiteral("anim.png")));
  EXPECT_TRUE(QFile::exists(fileAnswer_.Path));
  EXPECT_EQ(ReadAll(gif), before);
}

// Saving over a 16-bit file keeps its 16 bits; after a palette of 256 colours it asks first.
TEST_F(frmMainFileTest, SavingOverDeepColourAsksOnlyWhenTheBitsWouldGo) {
  const QString tiff = pictures_.File(QStringLiteral("scan.tif"));
  ASSERT_EQ(QProcess::execute(QStringLiteral("convert"), {"-size", "16x12", "xc:red", "-depth", "16", tiff}), 0);
  Start(tiff);
  Trigger("mnuColorsNegative");
  DialogAnswerer save(QMessageBox::Save);
  Trigger("mnuFileSave");
  EXPECT_EQ(save.Count(), 0);
  EXPECT_EQ(imaging::ReadSourceFacts(tiff).BitsPerChannel, 16);
  EXPECT_EQ(imaging::LoadFile(tiff)->ToQImage().pixelColor(0, 0), QColor(0, 255, 255));
  Doc().ApplyEdit(imaging::ops::ColorDepth(*Doc().CurrentImage(), 8), QStringLiteral("Colour depth"));
  Trigger("mnuFileSave");
  EXPECT_EQ(save.LastText(), QStringLiteral("scan.tif has 16 bits per channel. Saving over it keeps 8 bits per channel."));
}

// A file of pages opens on the first and turns with Ctrl and Page Down or Up, or the status
// bar's buttons; a changed page is asked about before it goes, and saving over the file
// says which page it keeps.
TEST_F(frmMainFileTest, PagesTurnAndSavingOverSaysWhichPageItKeeps) {
  const QString tiff = pictures_.File(QStringLiteral("pages.tif"));
  ASSERT_EQ(QProcess::execute(QStringLiteral("convert"), {"-size", "16x12", "xc:red", "xc:lime", "xc:blue", tiff}), 0);
  Start(tiff);
  EXPECT_EQ(Pane("lblStatusPage"), QStringLiteral("page 1/3"));
  EXPECT_FALSE(Command("mnuViewPreviousPage")->isEnabled());
  window_->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
  Canvas()->setFocus();
  QTest::keyClick(Canvas(), Qt::Key_PageDown, Qt::ControlModifier);
  EXPECT_EQ(Pane("lblStatusPage"), QStringLiteral("page 2/3"));
  EXPECT_EQ(Shown().ToQImage().pixelColor(0, 0), QColor(Qt::green));
  Trigger("mnuColorsNegative");
  {
    DialogAnswerer cancel(QMessageBox::Cancel);
    Trigger("mnuViewNextPage");
    EXPECT_EQ(cancel.Count(), 1);  // the save question, cancelled: the changed page stays
    EXPECT_EQ(Pane("lblStatusPage"), QStringLiteral("page 2/3"));
    Trigger("mnuFileSave");
    EXPECT_EQ(cancel.LastText(), QStringLiteral("pages.tif has 3 pages. Saving over it keeps page 2 only."));
  }
  {
    DialogAnswerer saveAs(QMessageBox::SaveAll);
    Trigger("mnuFileSave");
    EXPECT_EQ(requests_.size(), 1u);  // Save As instead, which the test cancels
  }
  DialogAnswerer no(QMessageBox::No);
  const auto buttons = window_->statusBar()->findChildren<QToolButton*>();
  const auto next = std::find_if(buttons.begin(), buttons.end(),
                                 [this](QToolButton* b) { return b->defaultAction() == Command("mnuViewNextPage"); });
  ASSERT_NE(next, buttons.end());
  QTest::mouseClick(*next, Qt::LeftButton);
  EXPECT_EQ(Pane("lblStatusPage"), QStringLiteral("page 3/3"));
  EXPECT_EQ(Shown().ToQImage().pixelColor(0, 0), QColor(Qt::blue));
  EXPECT_FALSE(Command("mnuViewNextPage")->isEnabled());
}

// File > Close asks about a changed image, then leaves nothing open.
TEST_F(frmMainFileTest, CloseAsksAboutAChangedImageThenLeavesNothingOpen) {
  Start(pictures_.WritePng(QStringLiteral("a.png")));
  Trigger("mnuImageFlip");
  {
    DialogAnswerer cancel(QMessageBox::Cancel);
    Trigger("mnuFileClose");
    EXPECT_EQ(std::pair(cancel.Count(), Doc().ImageLoaded()), std::pair(1, true));
  }
  DialogAnswerer no(QMessageBox::No);
  Trigger("mnuFileClose");
  EXPECT_EQ(std::tuple(Doc().ImageLoaded(), window_->ListModel().Count(), window_->windowTitle()),
            std::tuple(false, 0, QStringLiteral("Vistrel")));
  EXPECT_FALSE(Command("mnuFileClose")->isEnabled());
}

// Save, and Yes to the question on leaving, both say so and keep file, image, history and window.
TEST_F(frmMainFileTest, SavingAReadOnlyFileSaysSoAndLosesNothing) {
  const QString file = pictures_.WritePng(QStringLiteral("locked.png"), 30, 20);
  const QByteArray before = ReadAll(file);
  QFile::setPermissions(file, QFileDevice::ReadOwner | QFileDevice::ReadGroup);
  Start(file);
  Trigger("mnuImageMirror");
  {
    DialogAnswerer answerer;
    Trigger("mnuFileSave");
    EXPECT_EQ(answerer.LastText(), QStringLiteral("Can't save file. File is marked as read-only"));
    EXPECT_EQ(answerer.LastTitle(), QStringLiteral("Save"));
  }
  EXPECT_EQ(ReadAll(file), before);
  EXPECT_TRUE(Command("mnuEditUndo")->isEnabled());
  DialogAnswerer answerer(QMessageBox::Yes);  // Yes to the question, then OK to "Can't save file"
  EXPECT_FALSE(window_->close());
  EXPECT_EQ(answerer.Count(), 2);
  EXPECT_EQ(answerer.LastText(), QStringLiteral("Can't save file. File is marked as read-only"));
  EXPECT_TRUE(Doc().IsChanged());
}

TEST_F(frmMainFileTest, SaveAsProposesTheShownFormatTakesTheChosenOnesExtensionAndBecomesTheOpenFile) {
  const QString file = pictures_.File(QStringLiteral("photo.jpeg"));
  QImage(12, 8, QImage::Format_RGB32).save(file, "JPEG");
  Start(file);
  Trigger("mnuImageFlip");
  fileAnswer_ = {pictures_.File(QStringLiteral("copy")), 11};  // "Tiff (*.tif)", no extension typed
  saveOptions_ = [](files::frmSaveOptions& dialog) { testing_support::Child<QComboBox>(dialog, "cboCompression")->setCurrentIndex(1); };
  Trigger("mnuFileSaveAs");
  ASSERT_EQ(requests_.size(), 1u);
  const widgets::FileDialogRequest& request = requests_.front();
  ASSERT_GT(request.SelectedFilter, 0);
  EXPECT_TRUE(request.NameFilters[request.SelectedFilter - 1].endsWith(QStringLiteral("(*.jpg)")));
  const QString saved = pictures_.File(QStringLiteral("copy.tif"));
  ASSERT_TRUE(QFile::exists(saved));
  EXPECT_EQ(testing_support::Run(QStringLiteral("identify"), {"-format", "%C", saved}).Output, QStringLiteral("Zip"));  // Deflate, as chosen
  EXPECT_EQ(window_->State().Settings.TiffCompression, 1);
  EXPECT_EQ(window_->CurrentDocument().Open().File, saved);
  EXPECT_FALSE(Doc().IsChanged());
}

// Save As into the open folder rescans it and selects the new file; outside it, the image
// goes by its new name and is asked about on leaving.
TEST_F(frmMainFileTest, SaveAsInTheFolderSelectsTheNewFileAndOutsideItKeepsTheImageNamed) {
  pictures_.WritePng(QStringLiteral("a.png"), 30, 20);
  pictures_.WritePng(QStringLiteral("c.png"), 30, 20);
  Start(pictures_.Path());
  fileAnswer_ = {pictures_.File(QStringLiteral("b.bmp")), 1};
  Trigger("mnuFileSaveAs");
  auto* list = Child<QTreeView>("lisLista");
  ASSERT_EQ(list->model()->rowCount(), 3);
  EXPECT_EQ(list->currentIndex().data().toString(), QStringLiteral("b.bmp"));
  EXPECT_EQ(Doc().ShownRow(), 1);
  Trigger("mnuImageFlip");
  fileAnswer_ = {config_.File(QStringLiteral("elsewhere.png")), files::SaveAsFilterIndex(QStringLiteral("png"))};
  Trigger("mnuFileSaveAs");
  EXPECT_EQ(Doc().CurrentFilePath(), fileAnswer_.Path);
  EXPECT_TRUE(Command("mnuFileSave")->isEnabled());
  Trigger("mnuColorsNegative");
  DialogAnswerer answerer(QMessageBox::Cancel);
  EXPECT_FALSE(window_->close());
  EXPECT_EQ(answerer.LastText(), QStringLiteral("'elsewhere.png' has changed. Do you want to save changes?"));
  EXPECT_EQ(answerer.LastTitle(), QStringLiteral("Save Changes"));
  EXPECT_TRUE(Doc().IsChanged());
}

// Open File and Open Folder ask about the edits only once something is chosen; a file opens
// in the Image view with its folder behind it.
TEST_F(frmMainFileTest, OpenFileAndOpenFolderAskAboutTheEditsOnlyOnceSomethingIsChosen) {
  Start(pictures_.WritePng(QStringLiteral("photo.png"), 30, 20));
  QString chosen;  // the dialogs closed without a choice (fileAnswer_ is empty too)
  window_->SetFolderChooser([&](QWidget*, settings::SettingsStore&, const QString&) { return chosen; });
  Trigger("mnuColorsNegative");
  for (const char* command : {"mnuFileOpenFile", "mnuFileOpenFolder"}) {
    DialogAnswerer answerer(QMessageBox::No);
    Trigger(command);
    EXPECT_EQ(answerer.Count(), 0) << command;
    EXPECT_TRUE(Doc().IsChanged()) << command;
  }
  fileAnswer_ = {config_.WritePng(QStringLiteral("other.png"), 30, 20), 1};
  {
    DialogAnswerer answerer(QMessageBox::No);
    Trigger("mnuFileOpenFile");
    EXPECT_EQ(answerer.LastText(), QStringLiteral("'photo.png' has changed. Do you want to save changes?"));
  }
  EXPECT_EQ(std::pair(Doc().Open().File, Doc().View()), std::pair(fileAnswer_.Path, document::ViewMode::Image));
  const QTreeView* list = Child<QTreeView>("lisLista");
  EXPECT_EQ(list->currentIndex().data().toString(), QStringLiteral("other.png"));
  EXPECT_EQ(list->model()->rowCount(), QDir(config_.Path()).entryList({"*.png"}).size());
  Trigger("mnuColorsNegative");
  chosen = pictures_.Path();
  DialogAnswerer answerer(QMessageBox::No);
  Trigger("mnuFileOpenFolder");
  EXPECT_EQ(answerer.LastText(), QStringLiteral("'other.png' has changed. Do you want to save changes?"));
  EXPECT_EQ(Doc().View(), document::ViewMode::ListAndImage);
  EXPECT_EQ(Doc().CurrentFilePath(), pictures_.File(QStringLiteral("photo.png")));
}

}  // namespace
