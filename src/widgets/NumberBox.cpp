#include "widgets/NumberBox.h"

#include <QEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QLocale>
#include <QTimer>

namespace widgets {

namespace {

class NumberKeys : public QObject {
 public:
  explicit NumberKeys(QLineEdit* box) : QObject(box), box_(box) {}

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::FocusIn) QTimer::singleShot(0, box_, &QLineEdit::selectAll);
    if (event->type() != QEvent::KeyPress) return false;
    const QString text = static_cast<QKeyEvent*>(event)->text();
    const QString allowed = QStringLiteral("0123456789+-") + box_->locale().decimalPoint();
    return !text.isEmpty() && text[0].isPrint() && !allowed.contains(text[0]);  // Delete (\x7f) passes
  }

 private:
  QLineEdit* box_;
};

}  // namespace

void MakeNumberBox(QLineEdit* box) { box->installEventFilter(new NumberKeys(box)); }

}  // namespace widgets
