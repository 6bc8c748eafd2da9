#include "widgets/WaitForWork.h"

#include "widgets/BusyPointer.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QFutureWatcher>
#include <QKeyEvent>

namespace widgets {

namespace {

// Swallows user input for the whole application; Esc becomes the request to stop.
class InputHold : public QObject {
 public:
  explicit InputHold(std::atomic_bool& cancel) : cancel_(cancel) { QCoreApplication::instance()->installEventFilter(this); }
  ~InputHold() override { QCoreApplication::instance()->removeEventFilter(this); }
  InputHold(const InputHold&) = delete;
  InputHold& operator=(const InputHold&) = delete;

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    switch (event->type()) {
      case QEvent::KeyPress:
        if (static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) cancel_ = true;
        return true;
      case QEvent::KeyRelease: case QEvent::ShortcutOverride: case QEvent::Shortcut:
      case QEvent::MouseButtonPress: case QEvent::MouseButtonRelease: case QEvent::MouseButtonDblClick:
      case QEvent::Wheel: case QEvent::ContextMenu: case QEvent::Close:
        return true;
      default:
        return false;
    }
  }

 private:
  std::atomic_bool& cancel_;
};

}  // namespace

bool WaitForWork(const QFuture<void>& work, std::atomic_bool& cancel) {
  BusyPointerGuard busy;
  InputHold hold(cancel);
  QEventLoop loop;
  QFutureWatcher<void> watcher;
  QObject::connect(&watcher, &QFutureWatcher<void>::finished, &loop, &QEventLoop::quit);
  watcher.setFuture(work);
  if (!work.isFinished()) loop.exec();
  return cancel.load();
}

}  // namespace widgets
