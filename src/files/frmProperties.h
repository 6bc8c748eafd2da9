#pragma once
// `frmProperties`, "Properties": the file's properties as two columns in `lisLista`, and
// one button, "Close".

#include <QDialog>

namespace files {

class frmProperties : public QDialog {
  Q_OBJECT

 public:
  explicit frmProperties(const QString& path, QWidget* parent = nullptr);
};

}  // namespace files
