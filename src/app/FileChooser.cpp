#include "app/FileChooser.h"

#include <QFileDialog>

namespace app {

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
  return {dialog.selectedFiles().constFirst(), int(request.NameFilters.indexOf(dialog.selectedNameFilter())) + 1};
}

}  // namespace app
