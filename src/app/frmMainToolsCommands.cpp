// Tools > Set Wallpaper and Remove Wallpaper (and the list menu's Set Wallpaper).
#include "app/frmMain.h"

#include "widgets/BusyPointer.h"

#include <QMessageBox>
#include <QTreeView>

namespace app {

namespace {

bool AskYesNo(QWidget* parent, const QString& title, const QString& question) {
  widgets::RestorePointer();
  return QMessageBox::warning(parent, title, question, QMessageBox::Yes | QMessageBox::No, QMessageBox::No) ==
         QMessageBox::Yes;
}

}  // namespace

// An image is shown from an open file or folder; in a folder, a list entry is selected.
bool frmMain::CanSetWallpaper() const {
  const int kind = state_.Settings.LastOpenKind;
  if (!document_.ImageLoaded() || kind == settings::kOpenNothing) return false;
  return kind != settings::kOpenFolder || lisLista_->currentIndex().isValid();
}

// The picture as it stands, unsaved edits included, not the file on disk.
void frmMain::RunSetWallpaper() {
  if (!AskYesNo(this, QStringLiteral("Set Wallpaper"),
                QStringLiteral("Are you sure you want to set the wallpaper to this image?"))) {
    return;
  }
  widgets::BusyPointerGuard busy;
  shell::SetWallpaperPicture(*document_.CurrentImage(), setWallpaper_);
}

void frmMain::RunRemoveWallpaper() {
  if (!AskYesNo(this, QStringLiteral("Remove Wallpaper"),
                QStringLiteral("Are you sure you want to remove the desktop wallpaper?"))) {
    return;
  }
  widgets::BusyPointerGuard busy;
  shell::RemoveWallpaper(setWallpaper_);
}

}  // namespace app
