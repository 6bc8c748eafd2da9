#include "widgets/BusyPointer.h"

#include <QCursor>
#include <QGuiApplication>

namespace widgets {

bool IsBusyPointer() {
  const QCursor* cursor = QGuiApplication::overrideCursor();
  return cursor && cursor->shape() == Qt::WaitCursor;
}

void ShowBusyPointer() {
  if (!IsBusyPointer()) QGuiApplication::setOverrideCursor(Qt::WaitCursor);
}

void RestorePointer() {
  while (QGuiApplication::overrideCursor()) QGuiApplication::restoreOverrideCursor();
}

BusyPointerGuard::BusyPointerGuard() : setHere_(!IsBusyPointer()) {
  if (setHere_) ShowBusyPointer();
}

BusyPointerGuard::~BusyPointerGuard() {
  if (setHere_) RestorePointer();
}

}  // namespace widgets
