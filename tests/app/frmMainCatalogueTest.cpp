// The editing commands' frame on the real main window, with the parameter dialog driven
// through the window's dialog runner.
#include "edit/Catalogue.h"
#include "imaging/Operations.h"
#include "support/DialogAnswerer.h"
#include "support/ImageCompare.h"
#include "support/MainWindowTest.h"
#include "view/Viewport.h"

#include <QClipboard>
#include <QFile>
#include <QGuiApplication>
#include <QProgressBar>
#include <QSlider>
#include <QThread>
#include <QThreadPool>
#include <QTimer>
#include <QtTest/QTest>

#include <vips/vips.h>

namespace {

using testing_support::DialogAnswerer;
using testing_support::MeanAbsoluteDifference;

class frmMainCatalogueTest : public testing_support::MainWindowTest {
 protected:
  // A 120 x 90 photo at 100 %.
  void StartOnPhoto() {
    const QString file = pictures_.File(QStringLiteral("photo.png"));
    QImage(testing_support::CorpusPath(QStringLiteral("formats/hopper.png"))).scaled(120, 90).save(file);
    Start(file, /*alwaysFit=*/false);
  }
  // Triggers every editing command, even one its rule disables, and says Yes to its dialog.
  void ForceEveryCommand() {
    parameters_ = [](edit::frmDiseno&) { return true; };
    for (const edit::CatalogueCommand& command : edit::Catalogue()) {
      Command(command.Command)->setEnabled(true);
      Trigger(command.Command);
    }
  }
  QImage CopiedAfterCopy() {
    QGuiApplication::clipboard()->clear();
    Command("mnuEditCopy")->setEnabled(true);
    Trigger("mnuEditCopy");
    return QGuiApplication::clipboard()->image();
  }
};

TEST_F(frmMainCatalogueTest, InTheThumbnailsViewNoCommandRunsEvenIfReached) {
  StartOnPhoto();
  const imaging::Image before = Shown();
  Doc().SetViewMode(document::ViewMode::Thumbnails);
  EXPECT_FALSE(Command("mnuColorsNegative")->isEnabled());
  DialogAnswerer answerer;
  ForceEveryCommand();
  EXPECT_TRUE(CopiedAfterCopy().isNull());
  EXPECT_EQ(dialogsShown_ + answerer.Count(), 0);
  EXPECT_TRUE(NothingToUndo());
  EXPECT_EQ(MeanAbsoluteDifference(Shown(), before), 0);
}

class frmMainMetafileTest : public frmMainCatalogueTest, public ::testing::WithParamInterface<const char*> {};

TEST_P(frmMainMetafileTest, AMetafileRefusesEditingButCopies) {
  const QString metafile = pictures_.File(QLatin1String(GetParam()));
  QFile::copy(testing_support::CorpusPath(QStringLiteral("formats/") + QLatin1String(GetParam())), metafile);
  Start(metafile);
  ASSERT_TRUE(Doc().ImageLoaded());
  EXPECT_FALSE(Command("mnuColorsNegative")->isEnabled());
  EXPECT_TRUE(Command("mnuEditCopy")->isEnabled());
  ForceEveryCommand();
  EXPECT_EQ(dialogsShown_, 0);
  EXPECT_TRUE(NothingToUndo());
  EXPECT_EQ(CopiedAfterCopy().size(), QSize(Shown().Width(), Shown().Height()));
}

INSTANTIATE_TEST_SUITE_P(WmfAndEmf, frmMainMetafileTest, ::testing::Values("drawing.wmf", "drawing.emf"));

TEST_F(frmMainCatalogueTest, CropWithoutASelectionOnlyTellsTheUserAndWithOneTakesItAndRefreshesTheGeometry) {
  StartOnPhoto();
  DialogAnswerer answerer;
  Trigger("mnuImageCrop");
  EXPECT_EQ(answerer.LastTitle(), QStringLiteral("Crop"));
  EXPECT_EQ(answerer.LastText(), QStringLiteral("Select an area before cropping"));
  Trigger("mnuColorsRedEye");
  EXPECT_EQ(answerer.LastText(), QStringLiteral("Select an area to apply red eye removal"));
  EXPECT_TRUE(NothingToUndo());
  EXPECT_FALSE(Doc().IsChanged());
  testing_support::Drag(Canvas(), {10, 20}, {49, 39});  // 40 x 20 pixels at 100 %
  EXPECT_EQ(CopiedAfterCopy().size(), QSize(40, 20));  // Copy exports the selection and leaves the image
  EXPECT_TRUE(NothingToUndo());
  Trigger("mnuImageCrop");
  EXPECT_EQ(Doc().Natural(), (base::NaturalSize{600, 300}));
  EXPECT_FALSE(window_->ImageView().Selection().Exists());
  EXPECT_EQ(Pane("lblStatusSize"), QStringLiteral("40 x 20"));
  EXPECT_EQ(Command("mnuEditUndo")->text(), QStringLiteral("&Undo Crop"));
  EXPECT_EQ(Command("mnuEditUndo")->toolTip(), QStringLiteral("Undo Crop"));
  Trigger("mnuEditUndo");
  EXPECT_EQ(Pane("lblStatusSize"), QStringLiteral("120 x 90"));
  EXPECT_EQ(Command("mnuEditRedo")->text(), QStringLiteral("&Redo Crop"));
}

TEST_F(frmMainCatalogueTest, CancellingAnyDialogLeavesImageAndHistoryAlone) {
  StartOnPhoto();
  const imaging::Image before = Shown();
  parameters_ = [](edit::frmDiseno& dialog) {
    if (auto* slider = dialog.findChild<QSlider*>(QStringLiteral("sliControl(1)"))) slider->setValue(slider->maximum());
    return false;
  };
  for (const edit::CatalogueCommand& command : edit::Catalogue()) {
    if (command.HasDialog()) Trigger(command.Command);
  }
  EXPECT_EQ(dialogsShown_, 18);
  EXPECT_TRUE(NothingToUndo());
  EXPECT_EQ(MeanAbsoluteDifference(Shown(), before), 0);
}

// An operation libvips cannot do says so and leaves the picture and the history alone
// (libvips refuses the lookup table the tone curves go through).
TEST_F(frmMainCatalogueTest, AnOperationThatFailsSaysWhyAndRecordsNothing) {
  StartOnPhoto();
  const imaging::Image before = Shown();
  vips_operation_block_set("VipsMaplut", TRUE);
  DialogAnswerer answerer;
  Trigger("mnuColorsNegative");
  vips_operation_block_set("VipsMaplut", FALSE);
  EXPECT_EQ(std::tuple(answerer.Count(), answerer.LastText()), std::tuple(1, QStringLiteral("Can't apply Negative")));
  EXPECT_TRUE(NothingToUndo());
  EXPECT_FALSE(Doc().IsChanged());
  EXPECT_EQ(MeanAbsoluteDifference(Shown(), before), 0);
  Trigger("mnuColorsNegative");  // and works again once libvips does
  EXPECT_FALSE(NothingToUndo());
}

// An edit that takes its time shows a busy bar after a quarter second; Esc gives it up at
// once with the picture and the history as they were, and its late result is dropped.
TEST_F(frmMainCatalogueTest, EscGivesUpASlowEditAndItsLateResult) {
  StartOnPhoto();
  const imaging::Image before = Shown();
  std::atomic_bool release = false;
  window_->SetEditRunner([&release](const edit::CatalogueCommand& command, const imaging::Image& image, const edit::Arguments& values) {
    while (!release) QThread::msleep(5);
    return edit::TryApply(command, image, values);
  });
  auto* progress = Child<QProgressBar>("prgEdit");
  QString said;
  QTimer user;  // waits, as a user does, for the busy bar, then presses Esc
  QObject::connect(&user, &QTimer::timeout, [&] {
    if (!progress->isVisible()) return;
    said = Pane("lblStatusName");
    QTest::keyClick(window_.get(), Qt::Key_Escape);
  });
  user.start(20);
  Trigger("mnuColorsNegative");
  user.stop();
  EXPECT_EQ(said, QStringLiteral("Negative... (Esc cancels)"));
  EXPECT_FALSE(progress->isVisible());
  release = true;
  QThreadPool::globalInstance()->waitForDone();
  QCoreApplication::processEvents();
  EXPECT_TRUE(NothingToUndo());
  EXPECT_EQ(MeanAbsoluteDifference(Shown(), before), 0);
}

TEST_F(frmMainCatalogueTest, RotateNinetyThroughItsButtonSwapsTheSidesAndCtrlShiftZRedoes) {
  StartOnPhoto();
  parameters_ = [](edit::frmDiseno& dialog) {
    QTest::mouseClick(dialog.findChild<QWidget*>(QStringLiteral("cmdBoton(2)")), Qt::LeftButton);
    return true;
  };
  Trigger("mnuImageRotate");
  EXPECT_EQ(Pane("lblStatusSize"), QStringLiteral("90 x 120"));
  EXPECT_TRUE(Doc().IsChanged());
  window_->activateWindow();  // the desktop's usual key: Ctrl+Shift+Z redoes
  ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
  Trigger("mnuEditUndo");
  QTest::keyClick(window_.get(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(Command("mnuEditUndo")->text(), QStringLiteral("&Undo Rotate"));
}

// The quick turns and flips on their keys, each an undo step; a photo whose sides are not
// whole JPEG blocks is saved encoded again, and the status bar says so.
TEST_F(frmMainCatalogueTest, QuickTurnsAndFlipsRunOnTheirKeysAndSaveSaysWhenItEncodesAgain) {
  const QString file = pictures_.File(QStringLiteral("photo.jpg"));
  QImage(testing_support::CorpusPath(QStringLiteral("formats/hopper.png"))).scaled(120, 90).save(file, "JPEG", 95);
  Start(file, /*alwaysFit=*/false);
  const imaging::Image original = *Doc().CurrentImage();
  window_->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
  const struct {
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
    const char* undo;
    const char* size;
  } keys[] = {{Qt::Key_R, Qt::ControlModifier, "&Undo Rotate Right", "90 x 120"},
              {Qt::Key_L, Qt::ControlModifier, "&Undo Rotate Left", "120 x 90"},
              {Qt::Key_H, Qt::ControlModifier | Qt::ShiftModifier, "&Undo Flip Horizontal", "120 x 90"},
              {Qt::Key_V, Qt::ControlModifier | Qt::ShiftModifier, "&Undo Flip Vertical", "120 x 90"}};
  for (const auto& k : keys) {
    QTest::keyClick(window_.get(), k.key, k.modifiers);
    EXPECT_EQ(Command("mnuEditUndo")->text(), QLatin1String(k.undo));
    EXPECT_EQ(Pane("lblStatusSize"), QLatin1String(k.size));
  }
  EXPECT_EQ(MeanAbsoluteDifference(*Doc().CurrentImage(), imaging::ops::RotateQuarter(original, 2)), 0);
  Trigger("mnuFileSave");
  EXPECT_FALSE(Doc().IsChanged());
  EXPECT_EQ(Pane("lblStatusName"), QStringLiteral("saved with recompression: the image is not a multiple of 16 pixels"));
}

}  // namespace
