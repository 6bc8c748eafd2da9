#pragma once
// `frmZoom`: the zoom dialog, "Zoom Functions". Its rules are view/Zoom.h's.

#include <QDialog>

class QComboBox;

namespace view {

class frmZoom : public QDialog {
  Q_OBJECT

 public:
  // `percentage` is the current zoom, shown as "120%".
  explicit frmZoom(int percentage, QWidget* parent = nullptr);

  // The accepted percentage (meaningful after Accepted).
  int Value() const { return value_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void AcceptIfValid();

  QComboBox* cboZoom_ = nullptr;
  int value_ = 0;
};

}  // namespace view
