#pragma once
// frmAbout, "About Vistrel": the name and version, what the program is, and the licences
// of what it ships.

#include <QDialog>

namespace app {

class frmAbout : public QDialog {
  Q_OBJECT

 public:
  explicit frmAbout(QWidget* parent = nullptr);
};

}  // namespace app
