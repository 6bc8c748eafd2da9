#include "widgets/BusyPointer.h"

#include <QCursor>
#include <QGuiApplication>

namespace widgets {

bool IsBusyPointer() {
  const QCursor* cursor = QGuiApplication::overrideCursor();
  return cursor && cursor->shape() == Qt::WaitCursor;
}

void RestorePointer() {
  while (QGuiApplication::overrideCursor()) QGuiApplication::restoreOverrideCursor();
}

// Qt keeps the pointers set as a stack; restoring an empty one does nothing, so a guard
// outliving RestorePointer is harmless.
BusyPointerGuard::BusyPointerGuard() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }

BusyPointerGuard::~BusyPointerGuard() { QGuiApplication::restoreOverrideCursor(); }

NormalPointerGuard::NormalPointerGuard() : pushed_(IsBusyPointer()) {
  if (pushed_) QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
}

NormalPointerGuard::~NormalPointerGuard() {
  if (pushed_) QGuiApplication::restoreOverrideCursor();
}

}  // namespace widgets
