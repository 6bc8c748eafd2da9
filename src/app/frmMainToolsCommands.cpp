// Tools > Options, Slide Show, Set Wallpaper and Remove Wallpaper (and the list menu's Set
// Wallpaper).
#include "app/frmMain.h"

#include "base/Colors.h"
#include "edit/frmBatch.h"
#include "shell/FolderEntry.h"
#include "shell/FreedesktopShell.h"
#include "view/Viewport.h"
#include "widgets/BusyPointer.h"
#include "widgets/WaitForWork.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <memory>
#include <QMessageBox>
#include <QScreen>
#include <QTreeView>
#include <QtConcurrent/QtConcurrentRun>

namespace app {

namespace {

bool AskYesNo(QWidget* parent, const QString& title, const QString& question) {
  widgets::NormalPointerGuard normal;
  return QMessageBox::warning(parent, title, question, QMessageBox::Yes | QMessageBox::No, QMessageBox::No) ==
         QMessageBox::Yes;
}

}  // namespace

// Options: accepted, the window shows the new colours and bars at once. The thumbnails
// page is drawn again only when its own colour was chosen and it is showing.
void frmMain::RunOptions() {
  app::frmOptions options(state_.Settings, {shell::FolderEntryExists, shell::SetFolderEntry, shell::FolderEntryUnavailable()},
                              chooseColour_, this);
  options.SetScreenProfileInUse(screenColour_.InUse());
  const std::pair sortedBefore(int(state_.Settings.SortOrder), bool(state_.Settings.SortDescending));
  const bool accepted = runOptions_(options) == QDialog::Accepted;
  QCoreApplication::processEvents();  // the dialog's area is drawn again before the busy work
  if (!accepted) return;
  widgets::BusyPointerGuard busy;
  picFondo_->SetBackground(base::ColorFromBgr(state_.Settings.ColorImage));
  screenColour_.Refresh();
  if (options.ThumbColorChanged() && document_.FolderOpen() &&
      document_.View() == document::ViewMode::Thumbnails) {
    ShowThumbnails();
  }
  if (options.ViewBarsChanged()) LayOut();
  if (std::pair(int(state_.Settings.SortOrder), bool(state_.Settings.SortDescending)) != sortedBefore) {
    SortListBy(state_.Settings.SortOrder, state_.Settings.SortDescending);
  }
  if (state_.Settings.FitToWindow && document_.ImageLoaded()) ZoomTo(picFondo_->FitPercentage(), view::Pending::None);
  commands_.Refresh();
}

// The desktop's default viewer of chosen image types.
void frmMain::RunFileTypes() {
  auto desktop = std::make_shared<shell::FreedesktopShell>(QCoreApplication::applicationFilePath());
  shell::frmTiposArchivo dialog({[desktop](const QString& extension) { return desktop->IsAssociated(extension); },
                                 [desktop](const QString& extension, int icon, const QString&) { desktop->Associate(extension, icon); },
                                 [desktop](const QString& extension) { desktop->Unassociate(extension); },
                                 [](const QString& extension) { return shell::MimeTypesOf(extension); }},
                                state_.Settings.FileTypeIcon, this);
  runFileTypes_(dialog);
}

// The folder open, or the folder of the file open.
void frmMain::RunBatchConvert() {
  const QString folder = document_.FolderOpen() ? document_.Open().Folder : QFileInfo(document_.Open().File).absolutePath();
  edit::frmBatch dialog(folder, this);
  dialog.exec();
}

// The setup dialog takes the open folder's list; it stays open while the player runs.
void frmMain::RunSlideShow() {
  const bool folderOpen = document_.FolderOpen();
  QStringList names;
  for (int i = 0; folderOpen && i < list_.Count(); ++i) names << list_.Entry(i).FileName;
  slideshow::frmSlideShow setup(document_.Open().Folder, names,
                                lisLista_->currentIndex().isValid() ? lisLista_->currentIndex().row() : -1,
                                base::ColorFromBgr(state_.Settings.ColorFullScreen), chooseFile_,
                                [this](const slideshow::PlayerSettings& settings, QWidget* dialog) {
                                  PlaySlideShow(settings, dialog);
                                }, this);
  runSlideShow_(setup);
}

// The window's picture is hidden while the show covers the screen, so it never redraws
// behind it.
void frmMain::PlaySlideShow(const slideshow::PlayerSettings& settings, QWidget* setup) {
  QCoreApplication::processEvents();  // the setup dialog finishes drawing before the show covers it
  picFondo_->SetPictureHidden(true);
  slideshow::frmSlideShow2 player(settings, setup);
  if (const QScreen* screen = this->screen()) player.setGeometry(screen->geometry());  // the window's screen
  runPlayer_(player);
  picFondo_->SetPictureHidden(!document_.ImageLoaded());
  QCoreApplication::processEvents();  // the window is drawn again before the setup dialog takes the keys
}

// An image is shown from an open file or folder; in a folder, a list entry is selected.
bool frmMain::CanSetWallpaper() const {
  if (!document_.ImageLoaded() || !document_.SomethingOpen()) return false;
  return !document_.FolderOpen() || lisLista_->currentIndex().isValid();
}

// The picture as it stands, unsaved edits included, not the file on disk. The desktop's
// own tools can take seconds: they run off the UI thread while the window stays painted.
void frmMain::RunSetWallpaper() {
  if (!AskYesNo(this, tr("Set Wallpaper"),
                tr("Are you sure you want to set the wallpaper to this image?"))) {
    return;
  }
  const imaging::Image picture = *document_.CurrentImage();
  shell::WallpaperOutcome outcome = shell::WallpaperOutcome::NotWritten;
  std::atomic_bool ignored{false};
  widgets::WaitForWork(QtConcurrent::run([&] { outcome = shell::SetWallpaperPicture(picture, setWallpaper_); }), ignored);
  if (outcome == shell::WallpaperOutcome::NotWritten) ShowCantSave(shell::FreshWallpaperPath(), tr("Set Wallpaper"));
  if (outcome == shell::WallpaperOutcome::NoDesktop) ShowWarning(this, tr("Set Wallpaper"), shell::NoDesktopMessage(), {});
}

void frmMain::RunRemoveWallpaper() {
  if (!AskYesNo(this, tr("Remove Wallpaper"),
                tr("Are you sure you want to remove the desktop wallpaper?"))) {
    return;
  }
  bool removed = false;
  std::atomic_bool ignored{false};
  widgets::WaitForWork(QtConcurrent::run([&] { removed = shell::RemoveWallpaper(setWallpaper_); }), ignored);
  if (!removed) ShowWarning(this, tr("Remove Wallpaper"), shell::NoDesktopMessage(), {});
}

}  // namespace app
