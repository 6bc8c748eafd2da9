// Part 5.1 on the session: Open File with a chosen path, writing the image, and what a
// successful Save As changes in what is open.
#include "app/BusyPointer.h"
#include "app/Session.h"
#include "browse/Paths.h"
#include "files/FileDialogs.h"
#include "imaging/Saver.h"

#include <QFileInfo>

namespace app {

bool Session::OpenFile(const QString& path) {
  BusyPointerGuard busy;
  state_.ImageLoaded = false;
  ClearCurrentImage();
  list_.Clear();
  shownRow_ = -1;
  const bool opened = OpenSingleFile(path, /*reportFailure=*/true);
  view_.ApplyViewChecks();
  view_.LayOut();
  view_.RefreshStatusBar({});
  return opened;
}

bool Session::SaveImageTo(const QString& path) {
  if (!image_ || files::IsMarkedReadOnly(path) || !imaging::SaveImage(*image_, path)) return false;
  StartHistory();
  return true;
}

void Session::AfterSaveAs(const QString& path) {
  SettingsStore& s = state_.Settings;
  if (s.LastOpenKind == kOpenFile) {
    s.LastFile = path;
  } else if (s.LastOpenKind == kOpenFolder) {
    ScanFolder();
    const QString name = QFileInfo(path).fileName();
    if (QFileInfo(path).absolutePath() == QFileInfo(s.LastFolder + u'/').absolutePath()) {
      for (int row = 0; row < list_.Count(); ++row) {
        if (list_.Entry(row).FileName == name) shownRow_ = row;
      }
    }
    view_.SelectListRow(shownRow_);
  }
  view_.RefreshStatusBar({});
}

}  // namespace app
