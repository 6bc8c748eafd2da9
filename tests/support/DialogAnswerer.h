#pragma once
// Driving windows as a user does: DialogAnswerer answers every message box the code under
// test shows while it lives and records what the boxes said; the functions below find a
// dialog's controls, type into boxes and drag.

#include <QLineEdit>
#include <QMessageBox>
#include <QString>
#include <QTimer>

namespace testing_support {

class DialogAnswerer {
 public:
  explicit DialogAnswerer(QMessageBox::StandardButton button = QMessageBox::Ok);

  int Count() const { return count_; }
  QString LastText() const { return lastText_; }
  QString LastTitle() const { return lastTitle_; }

 private:
  void AnswerVisibleBoxes();

  QMessageBox::StandardButton button_;
  QTimer timer_;  // keeps looking while modal loops run; stops with the object
  int count_ = 0;
  QString lastText_;
  QString lastTitle_;
};

// The child of `parent` with this object name.
template <typename T>
T* Child(QWidget& parent, const char* name) {
  return parent.findChild<T*>(QLatin1String(name));
}

// Replaces what a box holds by typing, key by key, as a user would.
void Retype(QLineEdit* box, const QString& text);

// Presses the left button at `from`, moves to `to` and lets go there.
void Drag(QWidget* widget, QPoint from, QPoint to);

}  // namespace testing_support
