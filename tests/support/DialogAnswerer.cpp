#include "support/DialogAnswerer.h"

#include <QAbstractButton>
#include <QApplication>

namespace testing_support {

DialogAnswerer::DialogAnswerer(QMessageBox::StandardButton button) : button_(button) {
  QObject::connect(&timer_, &QTimer::timeout, [this] { AnswerVisibleBoxes(); });
  timer_.start(10);
}

void DialogAnswerer::AnswerVisibleBoxes() {
  for (QWidget* widget : QApplication::topLevelWidgets()) {
    auto* box = qobject_cast<QMessageBox*>(widget);
    if (!box || !box->isVisible()) continue;
    ++count_;
    lastText_ = box->text();
    lastTitle_ = box->windowTitle();
    if (QAbstractButton* button = box->button(button_)) {
      button->click();
    } else {
      box->reject();
    }
  }
}

}  // namespace testing_support
