// frmMain's Open File, Save and Save As (Part 5.1) and the save-changes prompt's Save.
#include "app/BusyPointer.h"
#include "app/frmMain.h"
#include "browse/Paths.h"
#include "files/FileDialogs.h"
#include "files/SaveChanges.h"
#include "view/Viewport.h"

#include <QFileInfo>
#include <QMessageBox>

namespace app {

namespace {

QString LowerSuffix(const QString& path) { return QFileInfo(path).suffix().toLower(); }

}  // namespace

void frmMain::BuildFileCommands() {
  CommandRegistry& c = commands_;
  connect(c.Add(QStringLiteral("mnuFileOpenFile"), QStringLiteral("&Open File..."), QKeySequence(Qt::CTRL | Qt::Key_O)),
          &QAction::triggered, this, [this] { RunOpenFile(); });
  connect(c.Add(QStringLiteral("mnuFileSave"), QStringLiteral("&Save"), QKeySequence(Qt::CTRL | Qt::Key_S)),
          &QAction::triggered, this, [this] { RunSave(); });
  connect(c.Add(QStringLiteral("mnuFileSaveAs"), QStringLiteral("Save &As..."),
                QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S)),
          &QAction::triggered, this, [this] { RunSaveAs(); });
  c.EnableWhen(QStringLiteral("mnuFileSave"), [this] { return CanSave(); });
  c.EnableWhen(QStringLiteral("mnuFileSaveAs"), [this] { return CanSaveAs(); });
}

bool frmMain::CanSave() const {
  return state_.ViewMode != kViewThumbnails && state_.ImageLoaded && !session_.CurrentFilePath().isEmpty();
}

bool frmMain::CanSaveAs() const { return state_.ImageLoaded && !session_.CurrentFilePath().isEmpty(); }

void frmMain::RunOpenFile() {
  if (!ConfirmSaveChanges()) return;
  FileDialogRequest request;
  request.Title = QStringLiteral("Open File");
  request.NameFilters = files::QtNameFilters(files::OpenFileFilters());
  request.ProposedPath = state_.Settings.LastOpenKind == kOpenFile ? QFileInfo(state_.Settings.LastFile).absolutePath()
                                                                   : state_.Settings.LastFolder;
  const FileDialogAnswer answer = chooseFile_(this, request);
  if (answer.Path.isEmpty()) return;
  session_.OpenFile(answer.Path);
}

void frmMain::ShowCantSave(const QString& path, const QString& title) {
  RestorePointer();
  QMessageBox::warning(this, title, QStringLiteral("Can't save file") + files::ReadOnlyNote(path));
  picFondo_->update();
}

// Save. Only a failed write sets DialogCancelled (and returns false); the silent refusals
// (preconditions, a type that cannot be written) leave it as it was, as the Part says, so
// the save-changes prompt then drops the changes.
bool frmMain::RunSave() {
  if (!CanSave()) return !state_.DialogCancelled;
  const QString target = session_.CurrentFilePath();
  if (files::CannotBeWritten(LowerSuffix(target))) return !state_.DialogCancelled;
  ShowBusyPointer();
  picFondo_->SelectNone();
  if (!session_.SaveImageTo(target)) {
    state_.DialogCancelled = true;
    ShowCantSave(target, QStringLiteral("Save"));
    return false;
  }
  RestorePointer();
  RefreshStatusBar({});
  commands_.Refresh();
  return true;
}

void frmMain::RunSaveAs() {
  if (!CanSaveAs()) return;
  const QString current = session_.CurrentFilePath();
  FileDialogRequest request;
  request.Title = QStringLiteral("Save As");
  request.Save = true;
  request.NameFilters = files::QtNameFilters(files::SaveAsFilters());
  request.SelectedFilter = files::SaveAsFilterIndex(LowerSuffix(current));
  request.ProposedPath = current;
  const FileDialogAnswer answer = chooseFile_(this, request);
  if (answer.Path.isEmpty()) return;
  state_.DialogCancelled = true;
  ShowBusyPointer();
  picFondo_->SelectNone();
  const QString target = files::WithSaveAsExtension(answer.Path, answer.FilterIndex);
  if (!session_.SaveImageTo(target)) {
    ShowCantSave(target, QStringLiteral("Save As"));
    return;
  }
  state_.DialogCancelled = false;
  session_.AfterSaveAs(target);
  RestorePointer();
  commands_.Refresh();
}

bool frmMain::ConfirmSaveChanges() {
  RestorePointer();
  files::SaveChangesHooks hooks;
  hooks.Ask = [this](const QString& question) {
    const auto answer = QMessageBox::warning(this, QStringLiteral("Save Changes"), question,
                                             QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    if (answer == QMessageBox::Yes) return files::SaveChangesAnswer::Yes;
    if (answer == QMessageBox::No) return files::SaveChangesAnswer::No;
    return files::SaveChangesAnswer::Cancel;
  };
  hooks.Save = [this] { return RunSave(); };
  return files::ConfirmSaveChanges(state_, session_.CurrentFilePath(), hooks);
}

}  // namespace app
