#include "widgets/WaitForWork.h"

#include "widgets/BusyPointer.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QFutureWatcher>
#include <QKeyEvent>
#include <QTimer>

namespace widgets {

namespace {

// Swallows user input for the whole application; Esc becomes the request to stop.
class InputHold : public QObject {
 public:
  InputHold(std::atomic_bool& cancel, std::function<void()> onEscape) : cancel_(cancel), onEscape_(std::move(onEscape)) {
    QCoreApplication::instance()->installEventFilter(this);
  }
  ~InputHold() override { QCoreApplication::instance()->removeEventFilter(this); }
  InputHold(const InputHold&) = delete;
  InputHold& operator=(const InputHold&) = delete;

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    switch (event->type()) {
      // Esc may come as the override asked before a shortcut (a window's Esc action) or as
      // the key itself.
      case QEvent::KeyPress: case QEvent::ShortcutOverride:
        if (static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
          cancel_ = true;
          onEscape_();
        }
        return true;
      case QEvent::KeyRelease: case QEvent::Shortcut:
      case QEvent::MouseButtonPress: case QEvent::MouseButtonRelease: case QEvent::MouseButtonDblClick:
      case QEvent::Wheel: case QEvent::ContextMenu: case QEvent::Close:
        return true;
      default:
        return false;
    }
  }

 private:
  std::atomic_bool& cancel_;
  std::function<void()> onEscape_;
};

}  // namespace

bool WaitForWork(const QFuture<void>& work, std::atomic_bool& cancel, const WaitOptions& options) {
  BusyPointerGuard busy;
  QEventLoop loop;
  InputHold hold(cancel, [&] {
    if (options.LeaveOnEscape) loop.quit();
  });
  QFutureWatcher<void> watcher;
  QObject::connect(&watcher, &QFutureWatcher<void>::finished, &loop, &QEventLoop::quit);
  QTimer slow;
  bool toldSlow = false;
  slow.setSingleShot(true);
  QObject::connect(&slow, &QTimer::timeout, [&] {
    toldSlow = true;
    options.Slow(true);
  });
  if (options.Slow) slow.start(250);
  watcher.setFuture(work);
  if (!work.isFinished()) loop.exec();
  if (toldSlow) options.Slow(false);
  return cancel.load();
}

}  // namespace widgets
