#include "support/DialogAnswerer.h"

#include <QAbstractButton>
#include <QApplication>
#include <QtTest/QTest>

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

void Retype(QLineEdit* box, const QString& text) {
  box->setFocus();
  box->selectAll();
  QTest::keyClick(box, Qt::Key_Delete);
  QTest::keyClicks(box, text);
}

void Drag(QWidget* widget, QPoint from, QPoint to) {
  QTest::mousePress(widget, Qt::LeftButton, {}, from);
  QTest::mouseMove(widget, to);
  QTest::mouseRelease(widget, Qt::LeftButton, {}, to);
}

}  // namespace testing_support
