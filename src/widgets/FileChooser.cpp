#include "widgets/FileChooser.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>

#include <memory>

namespace widgets {

namespace {

// Going into another folder keeps the name meant for the file: Qt's dialog replaces it by
// the folder's name or clears it. The name is the one proposed or the last typed that is
// not a folder's; typing a folder's name to go there is left alone.
void KeepNameAcrossFolders(QFileDialog& dialog) {
  auto* edit = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
  if (!edit) return;
  auto name = std::make_shared<QString>(edit->text());
  QObject::connect(edit, &QLineEdit::textEdited, &dialog, [name, &dialog](const QString& text) {
    if (!QFileInfo(dialog.directory().filePath(text)).isDir()) *name = text;
  });
  QObject::connect(&dialog, &QFileDialog::directoryEntered, edit, [edit, name](const QString& folder) {
    if (name->isEmpty() || QFileInfo(folder).fileName().startsWith(*name)) return;
    QMetaObject::invokeMethod(edit, [edit, name] { edit->setText(*name); }, Qt::QueuedConnection);
  });
}

}  // namespace

FileDialogAnswer ShowFileDialog(QWidget* parent, const FileDialogRequest& request) {
  QFileDialog dialog(parent, request.Title, request.ProposedPath);
  dialog.setOptions(QFileDialog::DontUseNativeDialog | QFileDialog::HideNameFilterDetails);
  dialog.setAcceptMode(request.Save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFileMode(request.Save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  dialog.setNameFilters(request.NameFilters);
  if (request.SelectedFilter > 0 && request.SelectedFilter <= request.NameFilters.size()) {
    dialog.selectNameFilter(request.NameFilters.at(request.SelectedFilter - 1));
  }
  if (request.Save) {
    dialog.selectFile(request.ProposedPath);
    KeepNameAcrossFolders(dialog);
  }
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
  return {dialog.selectedFiles().constFirst(), ChosenFilterIndex(request.NameFilters, dialog.selectedNameFilter())};
}

// With HideNameFilterDetails the dialog may report the entry as shown, without the
// hidden pattern part; either form names the same entry.
int ChosenFilterIndex(const QStringList& nameFilters, const QString& selected) {
  for (int i = 0; i < nameFilters.size(); ++i) {
    const QString& full = nameFilters.at(i);
    if (full == selected || full.left(full.lastIndexOf(QStringLiteral(" ("))) == selected) return i + 1;
  }
  return 0;
}

}  // namespace widgets
