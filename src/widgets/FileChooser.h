#pragma once
// The open and save dialogs as one call, so that the commands can be
// driven by tests with the request checked (title, filters in order, preselected entry).

#include <QString>
#include <QStringList>

#include <functional>

class QWidget;

namespace widgets {

struct FileDialogRequest {
  QString Title;
  QStringList NameFilters;  // Qt name filters, shown without their pattern details
  int SelectedFilter = 0;   // 1-based; 0 leaves the dialog's default
  QString ProposedPath;     // the folder to start in, or the file name to propose
  bool Save = false;
};

struct FileDialogAnswer {
  QString Path;  // empty when the user cancelled
  int FilterIndex = 0;  // 1-based entry chosen
};

using FileChooser = std::function<FileDialogAnswer(QWidget* parent, const FileDialogRequest& request)>;

// The 1-based entry of `nameFilters` that the dialog reports as `selected`, 0 when none.
int ChosenFilterIndex(const QStringList& nameFilters, const QString& selected);

// Qt's own file dialog (not the platform's, so it is the same everywhere).
FileDialogAnswer ShowFileDialog(QWidget* parent, const FileDialogRequest& request);

}  // namespace widgets
