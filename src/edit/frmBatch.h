#pragma once
// `frmBatch`: Tools > Batch Convert. The files of the folder open (and, when asked, of its
// subfolders) are converted into a folder of the user's choice: the format and its quality,
// a box to fit, the name pattern, what to do with a name already taken, and operations in
// vistrel-cli's words. The work runs off the UI thread with a progress bar, the file just
// done and the time left; Cancel stops it between files, and a report ends it.

#include "edit/BatchConvert.h"

#include <QDialog>
#include <QElapsedTimer>
#include <QFuture>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;
class QSpinBox;

namespace edit {

// The image files of `folder` by the format table, those of its subfolders too when asked, in name order.
QStringList BatchInputs(const QString& folder, bool subfolders);

class frmBatch : public QDialog {
  Q_OBJECT

 public:
  frmBatch(const QString& folder, QWidget* parent = nullptr);
  ~frmBatch() override;

 protected:
  void reject() override;

 private:
  void BuildForm();
  void ListInputs();
  std::optional<BatchOrder> OrderFromForm();
  void Start();
  void ShowProgress(const BatchProgress& progress);
  void Finish(const std::vector<PlannedFile>& plan, const BatchReport& report);

  QString folder_;
  QStringList inputs_;
  QLabel* lblFiles_;
  QCheckBox* chkSubfolders_;
  QLineEdit* txtOutput_;
  QComboBox* cboFormat_;
  QSpinBox* spnQuality_;
  QCheckBox* chkFit_;
  QSpinBox* spnWidth_;
  QSpinBox* spnHeight_;
  QLineEdit* txtName_;
  QComboBox* cboExisting_;
  QLineEdit* txtOperations_;
  QProgressBar* prgProgress_;
  QLabel* lblCurrent_;
  QPlainTextEdit* txtReport_;
  QPushButton* cmdStart_;
  QPushButton* cmdCancel_;
  std::atomic_bool stop_{false};
  QFuture<void> running_;
  QElapsedTimer clock_;
};

}  // namespace edit
