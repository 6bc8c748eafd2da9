// Tools > Set Wallpaper and Remove Wallpaper on the real main window, with the desktop's
// side recorded: the one file is the picture as shown, edits included.
#include "imaging/Loader.h"
#include "shell/Wallpaper.h"
#include "support/DialogAnswerer.h"
#include "support/ImageCompare.h"
#include "support/MainWindowTest.h"

#include <QDir>
#include <QFileInfo>
#include <QTreeView>

namespace {

using testing_support::DialogAnswerer;

class frmMainWallpaperTest : public testing_support::MainWindowTest {
 protected:
  frmMainWallpaperTest() {
    pictures_.WritePng(QStringLiteral("a.png"), 30, 20);
    pictures_.WritePng(QStringLiteral("b.png"), 30, 20);
    Start(pictures_.Path());
    window_->SetWallpaperSetter([this](const QString& path) { desktop_ << path; });
  }
  QStringList desktop_;  // what the desktop was asked to show, "" for none
};

TEST_F(frmMainWallpaperTest, SetTwiceKeepsOneFileOfThePictureAsShown) {
  Trigger("mnuColorsNegative");
  {
    DialogAnswerer no(QMessageBox::No);
    Trigger("mnuToolsSetWallpaper");
    EXPECT_EQ(no.LastText(), QStringLiteral("Are you sure you want to set the wallpaper to this image?"));
  }
  EXPECT_TRUE(desktop_.isEmpty());
  DialogAnswerer yes(QMessageBox::Yes);
  Trigger("mnuToolsSetWallpaper");
  Trigger("mnuListSetWallpaper");
  const QString file = shell::WallpaperFilePath();
  EXPECT_EQ(desktop_, QStringList({file, file}));
  EXPECT_EQ(QFileInfo(file).fileName(), QStringLiteral("Vistrel Wallpaper.bmp"));
  EXPECT_EQ(QDir(QFileInfo(file).path()).entryList(QDir::Files), QStringList{"Vistrel Wallpaper.bmp"});
  EXPECT_EQ(testing_support::MeanAbsoluteDifference(imaging::LoadFile(file).value(), Shown()), 0);
}

TEST_F(frmMainWallpaperTest, WithoutAListEntrySetAsksNothingAndRemoveAlwaysAsks) {
  Child<QTreeView>("lisLista")->setCurrentIndex({});
  DialogAnswerer yes(QMessageBox::Yes);
  Trigger("mnuToolsSetWallpaper");
  EXPECT_EQ(yes.Count(), 0);
  Trigger("mnuToolsRemoveWallpaper");
  EXPECT_EQ(yes.LastTitle(), QStringLiteral("Remove Wallpaper"));
  EXPECT_EQ(desktop_, QStringList{QString()});
}

}  // namespace
