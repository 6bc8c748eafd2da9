// The editing commands' frame on the real main window (offscreen), with the parameter
// dialog driven through the window's dialog runner.
#include "settings/SettingsFile.h"
#include "app/frmMain.h"
#include "edit/Catalogue.h"
#include "edit/frmDiseno.h"
#include "imaging/Operations.h"
#include "support/DialogAnswerer.h"
#include "support/ImageCompare.h"
#include "support/TestFiles.h"
#include "view/Viewport.h"

#include <QAction>
#include <QClipboard>
#include <QFile>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QSlider>
#include <QtTest/QTest>

#include <gtest/gtest.h>

namespace {

using testing_support::DialogAnswerer;
using testing_support::MeanAbsoluteDifference;
using testing_support::TempFolder;

class frmMainCatalogueTest : public ::testing::Test {
 protected:
  // An 800 x 600 window at 100 % showing `file` (a 120 x 90 photo unless told).
  void Start(QString file = {}) {
    settings::SettingsStore s = settings::DefaultSettings({});
    s.FitToWindow = false;
    settings::WriteSettingsFile(config_.File(QStringLiteral("Ini.in")), settings::WriteSettingsText(s, {}, {0, 0, 800, 600, false}));
    if (file.isEmpty()) {
      file = pictures_.File(QStringLiteral("photo.png"));
      QImage(QStringLiteral(VISTREL_CORPUS_DIR "/formats/hopper.png")).scaled(120, 90).save(file);
    }
    window_ = std::make_unique<app::frmMain>(config_.File(QStringLiteral("Ini.in")));
    window_->SetParameterDialogRunner([this](edit::frmDiseno& dialog) {
      ++dialogsShown_;
      return answer_ ? answer_(dialog) : false;
    });
    window_->RunStartup(file);
  }
  QAction* Command(const char* name) { return window_->findChild<QAction*>(QLatin1String(name)); }
  void Trigger(const char* name) { Command(name)->trigger(); }
  const imaging::Image& Shown() { return *window_->CurrentDocument().CurrentImage(); }
  int Steps() { return window_->CurrentDocument().UndoHistory().Count(); }
  void Select(QPoint from, QPoint to) {
    QWidget* canvas = window_->findChild<QWidget*>(QStringLiteral("imaImagen"));
    QTest::mousePress(canvas, Qt::LeftButton, {}, from);
    QTest::mouseMove(canvas, to);
    QTest::mouseRelease(canvas, Qt::LeftButton, {}, to);
  }

  TempFolder config_;
  TempFolder pictures_;
  std::unique_ptr<app::frmMain> window_;
  std::function<bool(edit::frmDiseno&)> answer_;
  int dialogsShown_ = 0;
};

TEST_F(frmMainCatalogueTest, InTheThumbnailsViewEveryCommandDoesNothing) {
  Start();
  const imaging::Image before = Shown();
  window_->CurrentDocument().SetViewMode(document::ViewMode::Thumbnails);
  answer_ = [](edit::frmDiseno&) { return true; };
  DialogAnswerer answerer;
  for (const edit::CatalogueCommand& command : edit::Catalogue()) {
    EXPECT_FALSE(Command(command.Command)->isEnabled());
    Command(command.Command)->setEnabled(true);  // refused even if reached
    Trigger(command.Command);
  }
  Command("mnuEditCopy")->setEnabled(true);
  QGuiApplication::clipboard()->clear();
  Trigger("mnuEditCopy");
  EXPECT_TRUE(QGuiApplication::clipboard()->image().isNull());
  EXPECT_EQ(dialogsShown_, 0);
  EXPECT_EQ(answerer.Count(), 0);
  EXPECT_EQ(Steps(), 1);  // the base state alone
  EXPECT_EQ(MeanAbsoluteDifference(Shown(), before), 0);
}

class frmMainMetafileTest : public frmMainCatalogueTest, public ::testing::WithParamInterface<const char*> {};

TEST_P(frmMainMetafileTest, AMetafileRefusesEditingButCopies) {
  const QString name = QLatin1String(GetParam());
  const QString metafile = pictures_.File(name);
  QFile::copy(QStringLiteral(VISTREL_CORPUS_DIR "/formats/") + name, metafile);
  Start(metafile);
  ASSERT_TRUE(window_->CurrentDocument().ImageLoaded());
  EXPECT_FALSE(Command("mnuColorsNegative")->isEnabled());
  EXPECT_TRUE(Command("mnuEditCopy")->isEnabled());
  answer_ = [](edit::frmDiseno&) { return true; };
  for (const edit::CatalogueCommand& command : edit::Catalogue()) {
    Command(command.Command)->setEnabled(true);  // the frame refuses even if reached
    Trigger(command.Command);
  }
  EXPECT_EQ(dialogsShown_, 0);
  EXPECT_EQ(Steps(), 1);
  QGuiApplication::clipboard()->clear();
  Trigger("mnuEditCopy");
  EXPECT_EQ(QGuiApplication::clipboard()->image().size(), QSize(Shown().Width(), Shown().Height()));
}

INSTANTIATE_TEST_SUITE_P(WmfAndEmf, frmMainMetafileTest, ::testing::Values("drawing.wmf", "drawing.emf"));

TEST_F(frmMainCatalogueTest, CropAndRedEyeWithoutASelectionOnlyTellTheUser) {
  Start();
  DialogAnswerer answerer;
  Trigger("mnuImageCrop");
  EXPECT_EQ(answerer.LastTitle(), QStringLiteral("Crop"));
  EXPECT_EQ(answerer.LastText(), QStringLiteral("Select an area before cropping"));
  Trigger("mnuColorsRedEye");
  EXPECT_EQ(answerer.LastTitle(), QStringLiteral("Red Eye Removal"));
  EXPECT_EQ(answerer.LastText(), QStringLiteral("Select an area to apply red eye removal"));
  EXPECT_EQ(Steps(), 1);
  EXPECT_EQ(window_->CurrentDocument().ChangeLevel(), 0);
}

TEST_F(frmMainCatalogueTest, CropTakesTheSelectionAndRefreshesTheGeometry) {
  Start();
  Select(QPoint(10, 20), QPoint(49, 39));  // 40 x 20 pixels at 100 %
  Trigger("mnuImageCrop");
  EXPECT_EQ(Shown().Width(), 40);
  EXPECT_EQ(Shown().Height(), 20);
  EXPECT_EQ(window_->CurrentDocument().Natural(), (base::NaturalSize{600, 300}));
  EXPECT_FALSE(window_->ImageView().Selection().Exists());
  EXPECT_EQ(window_->ImageView().Percentage(), 100);
  EXPECT_EQ(window_->findChild<QLabel*>(QStringLiteral("lblStatusSize"))->text(), QStringLiteral("40 x 20"));
  EXPECT_EQ(Command("mnuEditUndo")->text(), QStringLiteral("&Undo Crop"));
}

TEST_F(frmMainCatalogueTest, CancellingAnyDialogLeavesImageAndHistoryAlone) {
  Start();
  const imaging::Image before = Shown();
  answer_ = [](edit::frmDiseno& dialog) {
    if (auto* slider = dialog.findChild<QSlider*>(QStringLiteral("sliControl(1)"))) slider->setValue(slider->maximum());
    return false;
  };
  int dialogs = 0;
  for (const edit::CatalogueCommand& command : edit::Catalogue()) {
    if (!*command.DialogClass) continue;
    Trigger(command.Command);
    ++dialogs;
  }
  EXPECT_EQ(dialogs, 18);
  EXPECT_EQ(dialogsShown_, 18);
  EXPECT_EQ(Steps(), 1);
  EXPECT_EQ(MeanAbsoluteDifference(Shown(), before), 0);
}

TEST_F(frmMainCatalogueTest, RotateNinetyThroughItsButtonSwapsTheSides) {
  Start();
  answer_ = [](edit::frmDiseno& dialog) {
    QTest::mouseClick(dialog.findChild<QWidget*>(QStringLiteral("cmdBoton(2)")), Qt::LeftButton);
    return true;
  };
  Trigger("mnuImageRotate");
  EXPECT_EQ(Shown().Width(), 90);
  EXPECT_EQ(Shown().Height(), 120);
  EXPECT_EQ(window_->findChild<QLabel*>(QStringLiteral("lblStatusSize"))->text(), QStringLiteral("90 x 120"));
  Trigger("mnuEditUndo");
  EXPECT_EQ(Shown().Width(), 120);
}

TEST_F(frmMainCatalogueTest, CopyExportsTheSelectionAndLeavesTheImage) {
  Start();
  Select(QPoint(1, 1), QPoint(30, 10));  // QTest takes (0, 0) for the widget's centre
  ASSERT_EQ(window_->ImageView().Selection().Pixels(15, 15), QRect(1, 1, 30, 10));
  QGuiApplication::clipboard()->clear();
  Trigger("mnuEditCopy");
  EXPECT_EQ(QGuiApplication::clipboard()->image().size(), QSize(30, 10));
  EXPECT_EQ(Shown().Width(), 120);
  EXPECT_EQ(Steps(), 1);
  EXPECT_TRUE(window_->ImageView().Selection().Exists());
}

}  // namespace
