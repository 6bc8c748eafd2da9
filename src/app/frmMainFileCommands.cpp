// Open Folder, Open File, Save and Save As, and the questions the document asks.
#include "app/frmMain.h"
#include "base/Texts.h"

#include "base/Paths.h"
#include "files/FailureReasons.h"
#include "files/FileDialogs.h"
#include "files/FileOperations.h"
#include "imaging/Animation.h"
#include "imaging/Loader.h"
#include "files/frmProperties.h"
#include "widgets/frmTexto.h"
#include "browse/frmAbrirCarpeta.h"
#include "view/Viewport.h"
#include "widgets/BusyPointer.h"
#include "widgets/WaitForWork.h"

#include <QDir>
#include <QCoreApplication>
#include <QFileInfo>
#include <QStandardPaths>
#include <QMessageBox>
#include <QPushButton>
#include <QTreeView>

namespace app {

namespace {

QString LowerSuffix(const QString& path) { return QFileInfo(path).suffix().toLower(); }

}  // namespace

// The file a file command acts on: the single file open, or the list's current entry
// (which the Thumbnails view follows); empty when there is none.
QString frmMain::CommandFile(int* row) const {
  if (document_.FileOpen()) {
    if (row) *row = document_.ShownRow();
    return document_.Open().File;
  }
  const int current = lisLista_->currentIndex().row();
  if (!document_.FolderOpen() || current < 0 || current >= list_.Count()) return {};
  if (row) *row = current;
  return document_.EntryPath(current);
}

// Delete: to the Trash, after the question when the settings ask for it; the list then
// shows the entry that took the deleted one's place.
void frmMain::RunDelete() {
  int row = -1;
  const QString file = CommandFile(&row);
  if (file.isEmpty()) return;
  const auto yes = QMessageBox::Yes;
  if (state_.Settings.ConfirmDelete &&
      QMessageBox::question(this, tr("Delete"), files::MoveToTrashQuestion(file), yes | QMessageBox::No,
                            QMessageBox::No) != yes) {
    return;
  }
  if (!files::MoveToTrash(file)) {
    ShowWarning(this, tr("Delete"), tr("Can't move the file to the Trash"),
                tr("the file stays where it is"));
    return;
  }
  if (row < 0) {
    document_.CloseFile();
  } else {
    document_.AfterEntryDeleted(row);
  }
}

// Rename in its dialog, for the single file or the list's current entry.
void frmMain::RunRename() {
  int row = -1;
  const QString file = CommandFile(&row);
  if (file.isEmpty()) return;
  widgets::frmTexto dialog(tr("Rename"), tr("&New name:"), QFileInfo(file).fileName(),
                           [&](const QString& name) { return TryRename(file, row, name); }, this);
  dialog.SelectFirst(base::BaseNameLength(QFileInfo(file).fileName()));  // the extension stays unless asked for
  dialog.exec();
  picFondo_->update();
}

// The dialog and the list's own editor rename by one rule; false keeps the name editable.
bool frmMain::TryRename(const QString& file, int row, const QString& typedName) {
  const files::TypedRename rename = files::RenameToTypedName(file, typedName, [this](const QString& question) {
    return QMessageBox::warning(this, tr("Rename"), question, QMessageBox::Yes | QMessageBox::No) ==
           QMessageBox::Yes;
  });
  if (!rename.Outcome.Message.isEmpty()) ShowExclamation(rename.Outcome.Message);
  if (!rename.Outcome.Renamed) return rename.NothingToDo;
  if (row < 0) {
    document_.FileRenamed(rename.NewPath);
  } else {
    document_.EntryRenamed(row, QFileInfo(rename.NewPath).fileName());
  }
  return true;
}

// Copy To and Move To: the destination from the save dialog, the question about a new
// extension, then the file written whole or not at all. The save question comes once there
// is a destination, and its No keeps the edits. Afterwards a copy leaves the list on the
// source; a moved file is followed within its folder, and one moved away leaves its place
// to the next entry.
void frmMain::RunCopyOrMove(bool move) {
  int row = -1;
  const QString file = CommandFile(&row);
  if (file.isEmpty()) return;
  const QString title = move ? tr("Move To") : tr("Copy To");
  widgets::FileDialogRequest request;
  request.Title = title;
  request.Save = true;
  request.NameFilters = {tr("All files (*)")};
  request.SelectedFilter = 1;
  request.ProposedPath = file;
  const QString chosen = chooseFile_(this, request).Path;
  const QString target = chosen.trimmed();
  picFondo_->update();
  if (target.isEmpty()) return;
  // The dialog asked about the name as typed; a file under the trimmed name is asked about here.
  if (target != chosen && QFileInfo::exists(target) && !ConfirmReplace(target, title)) return;
  if (!document_.OfferToSaveChanges()) return;
  if (files::ExtensionDiffers(file, target) &&
      QMessageBox::warning(this, title, tr("The file extension is different. Do you want to continue?"),
                           QMessageBox::Yes | QMessageBox::No) != QMessageBox::Yes) {
    return;
  }
  widgets::BusyPointerGuard busy;
  if (!(move ? files::MoveFileSafely(file, target) : files::CopyFileSafely(file, target))) {
    widgets::NormalPointerGuard normal;
    ShowWarning(this, title, (move ? tr("Can't move file") : tr("Can't copy file")) +
                                 files::DestinationReadOnlyNote(target),
                files::WriteFailureReason(target));
    return;
  }
  const bool sameFolder = QFileInfo(target).absolutePath() == QFileInfo(file).absolutePath();
  if (row < 0) {
    if (move) document_.FileRenamed(target);
  } else if (!move || sameFolder) {
    document_.FolderChangedKeeping(QFileInfo(move ? target : file).fileName());
  } else {
    document_.AfterEntryDeleted(row);
  }
}

void frmMain::RunProperties() {
  const QString file = CommandFile();
  if (file.isEmpty()) return;
  if (!QFileInfo::exists(file)) {
    QMessageBox::warning(this, tr("Properties"), tr("Can't find file"));
    return;
  }
  files::frmProperties dialog(file, this);
  dialog.exec();
}

bool frmMain::CanSave() const {
  return document_.CanEdit() && (document_.IsPasted() || !document_.CurrentFilePath().isEmpty());
}

bool frmMain::CanSaveAs() const { return document_.ImageLoaded() && (document_.IsPasted() || !document_.CurrentFilePath().isEmpty()); }

QString RunOpenFolderDialog(QWidget* parent, settings::SettingsStore& settings, const QString& startFolder) {
  browse::frmAbrirCarpeta dialog(settings, startFolder, parent);
  dialog.exec();
  return dialog.ChosenFolder();
}

// The Open Folder dialog, then the chosen folder opens in List and Image. The save question
// comes only once a folder is chosen, so a closed dialog keeps the edits and their change
// level. False when nothing was opened.
bool frmMain::RunOpenFolder() {
  if (!isVisible()) {
    LayOut();
    show();
  }
  const QString chosen = chooseFolder_(this, state_.Settings, document_.Open().Folder);
  picFondo_->update();
  QCoreApplication::processEvents();  // the dialog's area is drawn again before a question or the scan
  if (chosen.isEmpty() || !document_.ConfirmSaveChanges()) return false;
  document_.OpenChosenFolder(chosen);
  lisLista_->setFocus();
  return true;
}

// Open File: the save question only once a file is chosen, as for Open Folder.
void frmMain::RunOpenFile() {
  widgets::FileDialogRequest request;
  request.Title = tr("Open File");
  request.NameFilters = files::QtNameFilters(files::OpenFileFilters());
  request.ProposedPath = document_.FileOpen() ? QFileInfo(document_.Open().File).absolutePath() : document_.Open().Folder;
  const widgets::FileDialogAnswer answer = chooseFile_(this, request);
  if (answer.Path.isEmpty() || !document_.ConfirmSaveChanges()) return;
  document_.OpenFile(answer.Path);
}

void frmMain::ShowCantSave(const QString& path, const QString& title) {
  widgets::NormalPointerGuard normal;
  const auto& image = document_.CurrentImage();
  const QSize size = image ? QSize(image->Width(), image->Height()) : QSize();
  ShowWarning(this, title, tr("Can't save file") + files::ReadOnlyNote(path), files::SaveFailureReason(path, size));
  picFondo_->update();
}

// Save: false when the write failed or Save As was cancelled. Without an image to save it
// does nothing; for a type that cannot be written (a GIF) it is Save As with a type that
// holds the image, so an edit is never dropped unasked.
bool frmMain::RunSave() {
  if (!CanSave()) return true;
  const QString target = document_.CurrentFilePath();
  if (document_.IsPasted() || files::CannotBeWritten(LowerSuffix(target))) return RunSaveAs();
  switch (AskAboutWhatSavingDrops(target)) {
    case QMessageBox::Save: break;
    case QMessageBox::SaveAll: return RunSaveAs();
    default: return false;
  }
  if (!SaveUnderBusyPointer(target)) {
    ShowCantSave(target, tr("Save"));
    return false;
  }
  return true;  // the document has told the status bar of the new file
}

// A file of several pages, or of more bits per channel than the picture now has, loses them when saved over:
// the user is told what goes and chooses Save, Save As or Cancel. Save when nothing goes.
int frmMain::AskAboutWhatSavingDrops(const QString& path) {
  const imaging::SourceFacts facts = imaging::ReadSourceFacts(path);
  QStringList had, kept;
  if (facts.Pages > 1) {
    const QString unit = facts.Animated ? tr("frame") : tr("page");
    had << QStringLiteral("%1 %2s").arg(facts.Pages).arg(unit);
    const int page = path == document_.CurrentFilePath() ? document_.Page() : 0;
    kept << (page == 0 ? tr("the first %1 only").arg(unit) : tr("%1 %2 only").arg(unit).arg(page + 1));
  }
  // A deep picture is written back at 16 bits; one an 8-bit edit made (a palette) is not.
  const int keptBits = document_.CurrentImage() ? document_.CurrentImage()->BitsPerSample() : 8;
  if (facts.BitsPerChannel > keptBits) {
    had << tr("%1 bits per channel").arg(facts.BitsPerChannel);
    kept << tr("%1 bits per channel").arg(keptBits);
  }
  if (had.isEmpty()) return QMessageBox::Save;
  QMessageBox box(QMessageBox::Warning, tr("Save"),
                  tr("%1 has %2. Saving over it keeps %3.")
                      .arg(QFileInfo(path).fileName(), had.join(tr(" and ")), kept.join(tr(", at "))),
                  QMessageBox::Save | QMessageBox::SaveAll | QMessageBox::Cancel, this);
  box.button(QMessageBox::SaveAll)->setText(tr("Save &As..."));
  box.setDefaultButton(QMessageBox::SaveAll);
  return box.exec();
}

// Save As: true when the image was written.
bool frmMain::RunSaveAs() {
  // A pasted picture is proposed as a PNG in the folder last open, or in the user's pictures.
  const QString lastFolder = !state_.Settings.LastFolder.isEmpty() ? state_.Settings.LastFolder
                                                                   : QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
  const QString current = document_.IsPasted() ? QDir(lastFolder).filePath(document::PastedName() + QStringLiteral(".png"))
                                               : document_.CurrentFilePath();
  widgets::FileDialogRequest request;
  request.Title = tr("Save As");
  request.Save = true;
  request.NameFilters = files::QtNameFilters(files::SaveAsFilters());
  // A type that cannot be written is proposed as PNG, which holds any image.
  const bool writable = !files::CannotBeWritten(LowerSuffix(current));
  const QFileInfo proposed(current);
  request.ProposedPath = writable ? current : proposed.dir().filePath(proposed.completeBaseName() + QStringLiteral(".png"));
  request.SelectedFilter = files::SaveAsFilterIndex(LowerSuffix(request.ProposedPath));
  const widgets::FileDialogAnswer answer = chooseFile_(this, request);
  if (answer.Path.isEmpty()) return false;
  const QString target = files::WithSaveAsExtension(answer.Path, answer.FilterIndex);
  // The dialog asked about the name as typed; a file under the completed name is asked about here.
  if (target != answer.Path && QFileInfo::exists(target) && !ConfirmReplace(target, request.Title)) return false;
  if (!askSaveOptions_(this, LowerSuffix(target), state_.Settings)) return false;
  if (!SaveUnderBusyPointer(target)) {
    ShowCantSave(target, tr("Save As"));
    return false;
  }
  widgets::BusyPointerGuard busy;
  document_.AfterSaveAs(target);
  return true;
}

// An unedited animation saved as WebP keeps every frame; anything else is the picture shown.
bool frmMain::SaveUnderBusyPointer(const QString& target) {
  widgets::BusyPointerGuard busy;
  picFondo_->SelectNone();
  const QString source = document_.CurrentFilePath();
  if (document_.Animated() && !document_.IsChanged() && LowerSuffix(target) == QLatin1String("webp") && source != target) {
    imaging::SaveOptions options;
    options.Quality = state_.Settings.SaveQuality;
    return imaging::SaveAnimation(source, target, options);
  }
  return document_.SaveImageTo(target);
}

bool frmMain::ConfirmReplace(const QString& path, const QString& title) {
  const QString question = tr("%1 already exists.\nDo you want to replace it?").arg(QFileInfo(path).fileName());
  return QMessageBox::warning(this, title, question, QMessageBox::Yes | QMessageBox::No,
                              QMessageBox::No) == QMessageBox::Yes;
}

// Yes to the save question.
bool frmMain::SaveForPrompt() { return RunSave(); }

void frmMain::BeginBusy() { documentBusy_.emplace_back(); }

void frmMain::EndBusy() { documentBusy_.pop_back(); }

bool frmMain::WaitFor(const QFuture<void>& work, std::atomic_bool& cancel) { return widgets::WaitForWork(work, cancel); }

void frmMain::ShowExclamation(const QString& text, const QString& detail) {
  widgets::NormalPointerGuard normal;
  ShowWarning(isVisible() ? this : nullptr, QStringLiteral("Vistrel"), text, detail);
}

// A warning box whose detail line says what went wrong; the message keeps the program's text.
void frmMain::ShowWarning(QWidget* parent, const QString& title, const QString& text, const QString& detail) {
  QMessageBox box(QMessageBox::Warning, title, text, QMessageBox::Ok, parent);
  if (!detail.isEmpty()) box.setInformativeText(detail.at(0).toUpper() + detail.mid(1) + u'.');
  box.exec();
}

document::SaveChangesAnswer frmMain::AskSaveChanges(const QString& question) {
  widgets::NormalPointerGuard normal;
  const auto answer = QMessageBox::warning(this, tr("Save Changes"), question,
                                           QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
  if (answer == QMessageBox::Yes) return document::SaveChangesAnswer::Yes;
  if (answer == QMessageBox::No) return document::SaveChangesAnswer::No;
  return document::SaveChangesAnswer::Cancel;
}

bool frmMain::AskToReload(const QString& question) {
  widgets::NormalPointerGuard normal;
  return QMessageBox::question(this, tr("Changed on Disk"), question, QMessageBox::Yes | QMessageBox::No, QMessageBox::No) ==
         QMessageBox::Yes;
}

}  // namespace app

namespace app {

// File > Print: the picture as shown (edits included), or every image of the folder from
// its file; to a queue, or to a PDF file named in a save dialog.
void frmMain::RunPrint() {
  if (!document_.CurrentImage()) return;
  const imaging::Image shown = *document_.CurrentImage();
  std::vector<print::PageSource> folderPages;
  for (int row = 0; document_.FolderOpen() && row < list_.Count(); ++row) {
    folderPages.push_back([path = document_.EntryPath(row)]() -> std::optional<imaging::Image> {
      auto loaded = files::LoadImageFile(path, {});
      return loaded ? std::optional(loaded->Picture) : std::nullopt;
    });
  }
  print::frmImprimir dialog(state_.Settings, [shown] { return std::optional(shown); }, folderPages, this);
  if (runPrintDialog_(dialog) != QDialog::Accepted) return;
  QPrinter& printer = dialog.Printer();
  if (dialog.ToPdf()) {
    const QString proposed = QFileInfo(document_.CurrentFilePath()).completeBaseName() + QStringLiteral(".pdf");
    const widgets::FileDialogAnswer answer =
        chooseFile_(this, {tr("Print to PDF"), {tr("PDF files (*.pdf)")}, 1, proposed, true});
    if (answer.Path.isEmpty()) return;
    printer.setOutputFileName(answer.Path.endsWith(QStringLiteral(".pdf"), Qt::CaseInsensitive) ? answer.Path
                                                                                                : answer.Path + ".pdf");
  }
  printer.setCopyCount(dialog.Copies());
  widgets::BusyPointerGuard busy;
  const print::PrintOutcome outcome = print::PrintPages(printer, dialog.Pages(), dialog.Options());
  if (outcome != print::PrintOutcome::Printed) {
    widgets::NormalPointerGuard normal;
    ShowWarning(this, tr("Print"), tr("Can't print"),
                outcome == print::PrintOutcome::NoRoom ? print::NoRoomReason() : printer.printerName());
  }
}

}  // namespace app
