#include "widgets/FileChooser.h"

#include <QFileDialog>

namespace widgets {

FileDialogAnswer ShowFileDialog(QWidget* parent, const FileDialogRequest& request) {
  QFileDialog dialog(parent, request.Title, request.ProposedPath);
  dialog.setOptions(QFileDialog::DontUseNativeDialog | QFileDialog::HideNameFilterDetails);
  dialog.setAcceptMode(request.Save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFileMode(request.Save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  dialog.setNameFilters(request.NameFilters);
  if (request.SelectedFilter > 0 && request.SelectedFilter <= request.NameFilters.size()) {
    dialog.selectNameFilter(request.NameFilters.at(request.SelectedFilter - 1));
  }
  if (request.Save) dialog.selectFile(request.ProposedPath);
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
