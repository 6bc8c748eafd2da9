// Opening and saving on the document: the save-changes question, Open File with a
// chosen path, writing the image, and what a successful Save As changes.
#include "base/Paths.h"
#include "document/Document.h"
#include "files/FileDialogs.h"
#include "imaging/Saver.h"
#include "widgets/BusyPointer.h"

#include <QFileInfo>

namespace document {

// Asks only when the image has changed and something is open. No drops the changes; Yes
// saves, and a save that fails keeps the image, its history and its change level, so the
// image is never left without the question.
bool Document::ConfirmSaveChanges() {
  widgets::RestorePointer();
  const QString file = CurrentFilePath();
  if (ChangeLevel() == 0 || state_.Settings.LastOpenKind == settings::kOpenNothing || file.isEmpty()) return true;
  switch (prompts_.AskSaveChanges(SaveChangesQuestion(file))) {
    case SaveChangesAnswer::No:
      history_.ForgetChanges();
      return true;
    case SaveChangesAnswer::Yes:
      if (!prompts_.SaveForPrompt()) return false;
      history_.ForgetChanges();
      return true;
    case SaveChangesAnswer::Cancel:
      break;
  }
  return false;
}

bool Document::OpenFile(const QString& path) {
  widgets::BusyPointerGuard busy;
  ClearCurrentImage();
  list_.Clear();
  shownRow_ = -1;
  const bool opened = OpenSingleFile(path, /*reportFailure=*/true);
  Q_EMIT StateChanged();
  Q_EMIT LayoutChanged();
  Q_EMIT StatusChanged({});
  return opened;
}

bool Document::SaveImageTo(const QString& path) {
  if (!image_ || files::IsMarkedReadOnly(path) || !imaging::SaveImage(*image_, path)) return false;
  StartHistory();
  return true;
}

void Document::AfterSaveAs(const QString& path) {
  settings::SettingsStore& s = state_.Settings;
  if (s.LastOpenKind == settings::kOpenFile) {
    s.LastFile = path;
  } else if (s.LastOpenKind == settings::kOpenFolder) {
    ScanFolder();
    const QString name = QFileInfo(path).fileName();
    if (QFileInfo(path).absolutePath() == QFileInfo(s.LastFolder + u'/').absolutePath()) {
      for (int row = 0; row < list_.Count(); ++row) {
        if (list_.Entry(row).FileName == name) shownRow_ = row;
      }
    }
    Q_EMIT ListRowSelected(shownRow_);
  }
  Q_EMIT StatusChanged({});
  Q_EMIT StateChanged();
}

}  // namespace document
