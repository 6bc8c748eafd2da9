// The Tools menu on the real main window: Slide Show over the open folder, and Set and
// Remove Wallpaper with the desktop's side recorded (the one file is the picture as shown,
// edits included).
#include "imaging/Loader.h"
#include "settings/SettingsStore.h"
#include "shell/Wallpaper.h"
#include "view/Viewport.h"
#include "support/DialogAnswerer.h"
#include "support/ImageCompare.h"
#include "support/MainWindowTest.h"

#include <QDir>
#include <QFileInfo>
#include <QComboBox>
#include <QListWidget>
#include <QPushButton>
#include <QStatusBar>
#include <QTreeView>
#include <QtTest/QTest>

namespace {

using testing_support::DialogAnswerer;

class frmMainToolsTest : public testing_support::MainWindowTest {
 protected:
  frmMainToolsTest() {
    pictures_.WritePng(QStringLiteral("a.png"), 30, 20);
    pictures_.WritePng(QStringLiteral("b.png"), 30, 20);
    Start(pictures_.Path());
    window_->SetWallpaperSetter([this](const QString& path) {
      desktop_ << path;
      return desktopAnswers_;
    });
  }
  QStringList desktop_;  // what the desktop was asked to show, "" for none
  bool desktopAnswers_ = true;
};

// Each Set writes the picture as shown under a fresh name and leaves only the one shown;
// with no desktop to take it, the user is told and nothing new is left.
TEST_F(frmMainToolsTest, SetWritesAFreshFileEachTimeKeepsOnlyTheShownOneAndRemoveAsks) {
  Trigger("mnuColorsNegative");
  {
    DialogAnswerer no(QMessageBox::No);
    Trigger("mnuToolsSetWallpaper");
    EXPECT_EQ(no.LastText(), QStringLiteral("Are you sure you want to set the wallpaper to this image?"));
  }
  EXPECT_TRUE(desktop_.isEmpty());
  DialogAnswerer yes(QMessageBox::Yes);
  Trigger("mnuToolsSetWallpaper");
  QTest::qWait(2);  // a fresh millisecond, a fresh name
  Trigger("mnuListSetWallpaper");
  ASSERT_EQ(desktop_.size(), 2);
  EXPECT_NE(desktop_[0], desktop_[1]);
  const QDir folder(shell::WallpaperFolder());
  EXPECT_EQ(folder.entryList(QDir::Files), QStringList{QFileInfo(desktop_[1]).fileName()});
  EXPECT_EQ(testing_support::MeanAbsoluteDifference(imaging::LoadFile(desktop_[1]).value(), Shown()), 0);
  desktopAnswers_ = false;
  Trigger("mnuToolsSetWallpaper");
  EXPECT_EQ(yes.LastText(), shell::NoDesktopMessage());
  EXPECT_EQ(folder.entryList(QDir::Files), QStringList{QFileInfo(desktop_[1]).fileName()});
  desktopAnswers_ = true;
  Child<QTreeView>("lisLista")->setCurrentIndex({});  // without a list entry Set does nothing; Remove asks
  const int asked = yes.Count();
  Trigger("mnuToolsSetWallpaper");
  EXPECT_EQ(yes.Count(), asked);
  Trigger("mnuToolsRemoveWallpaper");
  EXPECT_EQ(yes.LastTitle(), QStringLiteral("Remove Wallpaper"));
  EXPECT_EQ(desktop_.last(), QString());
}

// The player plays over the setup dialog (so that dialog never blocks its keys and mouse),
// from the row selected in the window's list, while the window's picture is hidden.
TEST_F(frmMainToolsTest, SlideShowPlaysTheFolderOverItsSetupDialog) {
  Child<QTreeView>("lisLista")->setCurrentIndex(window_->ListModel().index(1, 0));
  window_->SetSlideShowRunner([](slideshow::frmSlideShow& setup) {
    EXPECT_EQ(setup.State().Rows.size(), 2u);
    setup.findChild<QPushButton*>(QStringLiteral("cmdStart"))->click();
  });
  QWidget* canvas = Child<QWidget>("imaImagen");
  bool hiddenDuringTheShow = false;
  QString first;
  window_->SetPlayerRunner([&](slideshow::frmSlideShow2& player) {
    EXPECT_EQ(player.parentWidget()->objectName(), QStringLiteral("frmSlideShow"));
    hiddenDuringTheShow = !canvas->isVisible();
    player.show();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !player.Shown().isEmpty(); }, 2000));
    first = player.Shown();
    QTest::keyClick(&player, Qt::Key_Escape);
  });
  Trigger("mnuToolsSlideShow");
  EXPECT_TRUE(hiddenDuringTheShow);
  EXPECT_EQ(first, QStringLiteral("b.png"));
  EXPECT_TRUE(canvas->isVisible());
}

// Every option changed and seen at once (the 30 x 20 picture, fitted, is enlarged once
// asked); Restore then Cancel changes nothing; Restore then OK gives the defaults back (the
// recent folders, once emptied, stay empty).
TEST_F(frmMainToolsTest, OptionsTakeEffectAtOnceAndRestoreGivesTheDefaults) {
  const settings::SettingsStore before = window_->State().Settings;
  const auto runOptions = [this](std::function<void(app::frmOptions&)> change, const char* button) {
    window_->SetOptionsRunner([change, button](app::frmOptions& options) {
      change(options);
      options.findChild<QPushButton*>(QLatin1String(button))->click();
      return options.result();
    });
    Trigger("mnuToolsOptions");
  };
  const auto click = [](app::frmOptions& options, const char* name) {
    options.findChild<QAbstractButton*>(QLatin1String(name))->click();
  };
  runOptions([&](app::frmOptions& o) { click(o, "cmdInicio"); }, "cmdCancelar");
  EXPECT_EQ(window_->State().Settings, before);
  window_->SetColourChooser([](QWidget*, const QColor&) { return std::optional<QColor>(QColor(200, 10, 20)); });
  runOptions([&](app::frmOptions& o) {
    for (const char* name : {"cmdSelect(0)", "chkViewToolbar", "chkViewStatusBar", "chkReciente", "chkConfirma", "optInicio(2)",
                             "chkEnlarge", "chkSortDescending"}) {
      click(o, name);
    }
  }, "cmdAceptar");
  const settings::SettingsStore& now = window_->State().Settings;
  EXPECT_EQ(now.ColorImage, settings::RGB(200, 10, 20));
  EXPECT_EQ(window_->ImageView().palette().color(QPalette::Window), QColor(200, 10, 20));
  EXPECT_FALSE(Child<QWidget>("ctlToolbar")->isVisible());
  EXPECT_FALSE(window_->statusBar()->isVisible());
  EXPECT_TRUE(now.RecentFolders[0].isEmpty());
  EXPECT_EQ(std::tuple(now.StartOption, now.ConfirmDelete, now.RecentEnabled), std::tuple(2, false, false));
  EXPECT_GT(window_->ImageView().Percentage(), 100);
  EXPECT_EQ(window_->ListModel().Entry(0).FileName, QStringLiteral("b.png"));  // the list turned round at once
  runOptions([&](app::frmOptions& o) { click(o, "cmdInicio"); }, "cmdAceptar");
  const auto options = [](const settings::SettingsStore& s) {
    return std::tuple(s.StartOption, s.ImageExtensionsOnly, s.ShowToolbar, s.ShowStatusBar, s.ColorImage,
                      s.ColorThumbnails, s.ColorFullScreen, s.ConfirmDelete, s.RecentEnabled, s.EnlargeSmallImages, s.SortDescending);
  };
  EXPECT_EQ(options(now), options(settings::DefaultSettings({})));
  EXPECT_TRUE(Child<QWidget>("ctlToolbar")->isVisible());
  EXPECT_TRUE(now.RecentFolders[0].isEmpty());
  EXPECT_EQ(window_->ImageView().Percentage(), 100);
}

// Tools > Associate File Types, judged by xdg-mime in the tests' private home: the ticked
// rows become Vistrel's and show ticked next time; bmp and dib, both image/bmp, go together.
TEST_F(frmMainToolsTest, TickedFileTypesBecomeVistrelsAndUntickedOnesGoBack) {
  const auto choose = [this](std::function<void(QListWidget&)> tick) {
    window_->SetFileTypesRunner([tick](shell::frmTiposArchivo& dialog) {
      tick(*dialog.findChild<QListWidget*>(QStringLiteral("lisLista")));
      dialog.findChild<QPushButton*>(QStringLiteral("cmdAceptar"))->click();
      return dialog.result();
    });
    Trigger("mnuToolsTiposArchivo");
  };
  const auto ours = [](const char* type) {
    return testing_support::Run(QStringLiteral("xdg-mime"), {"query", "default", QLatin1String(type)}).Output.trimmed() ==
           QStringLiteral("vistrel.desktop");
  };
  choose([](QListWidget& rows) {
    for (const int row : {10, 0}) rows.item(row)->setCheckState(Qt::Checked);  // png and bmp
    EXPECT_EQ(rows.item(3)->checkState(), Qt::Checked);  // dib with bmp
  });
  EXPECT_EQ(std::tuple(ours("image/png"), ours("image/bmp"), ours("image/jpeg")), std::tuple(true, true, false));
  choose([](QListWidget& rows) {
    EXPECT_EQ(rows.item(10)->checkState(), Qt::Checked);
    rows.item(10)->setCheckState(Qt::Unchecked);
  });
  EXPECT_EQ(std::pair(ours("image/png"), ours("image/bmp")), std::pair(false, true));
}

// File > Print to a PDF: the picture as shown, or every image of the folder a page each.
TEST_F(frmMainToolsTest, PrintWritesAPdfOfTheShownPictureOrOfTheFolder) {
  for (const auto& [which, pages] : {std::pair("optWhich(0)", "1"), std::pair("optWhich(1)", "2")}) {
    window_->SetPrintDialogRunner([which = which](print::frmImprimir& dialog) {
      dialog.findChild<QComboBox*>(QStringLiteral("cboPrinter"))->setCurrentText(print::frmImprimir::PdfEntry());
      dialog.findChild<QAbstractButton*>(QLatin1String(which))->click();
      return int(QDialog::Accepted);
    });
    fileAnswer_ = {config_.File(QStringLiteral("printed")), 1};
    Trigger("mnuFilePrint");
    EXPECT_TRUE(requests_.back().ProposedPath.endsWith(QStringLiteral("a.pdf")));
    const QString info = testing_support::Run(QStringLiteral("pdfinfo"), {config_.File(QStringLiteral("printed.pdf"))}).Output;
    EXPECT_TRUE(info.contains(QStringLiteral("Pages:           ") + QLatin1String(pages))) << which;
  }
}


}  // namespace
