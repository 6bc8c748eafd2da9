#include "view/frmFull.h"

#include "view/Viewport.h"

#include <QKeyEvent>
#include <QScrollBar>
#include <QVBoxLayout>

namespace view {

namespace {
constexpr int kReadyAfterMs = 250;
}

frmFull::frmFull(const imaging::Image& image, base::NaturalSize natural, const base::ScreenMetrics& metrics,
                 const QColor& background, QWidget* parent)
    : QDialog(parent), metrics_(metrics) {
  setObjectName(QStringLiteral("frmFull"));
  setWindowTitle(QStringLiteral("Vistrel"));
  picFondo_ = new Viewport(metrics_, this);
  picFondo_->SetBackground(background);
  for (const auto& [from, to] : {std::pair{"hscImagen", "hscFull"}, std::pair{"vscImagen", "vscFull"}}) {
    if (auto* bar = picFondo_->findChild<QScrollBar*>(QLatin1String(from))) bar->setObjectName(QLatin1String(to));
  }
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(picFondo_);
  picFondo_->SetAlwaysFit(true);  // every resize fits again
  picFondo_->SetImage(image, natural, /*fit=*/true);
  // The panel's own keys and clicks (stepping, selecting) do not apply here: they close.
  picFondo_->installEventFilter(this);
  for (QWidget* child : picFondo_->findChildren<QWidget*>()) child->installEventFilter(this);
  Timer1_.setSingleShot(true);
  connect(&Timer1_, &QTimer::timeout, this, [this] { ready_ = true; });
  Timer1_.start(kReadyAfterMs);
}

int frmFull::Percentage() const { return picFondo_->Percentage(); }

void frmFull::CloseWhenReady() {
  if (ready_) accept();
}

bool frmFull::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::KeyPress:
      keyPressEvent(static_cast<QKeyEvent*>(event));
      return true;
    case QEvent::MouseButtonPress: {
      // A click on the scroll bars scrolls; anywhere else it closes.
      if (qobject_cast<QScrollBar*>(watched)) return false;
      CloseWhenReady();
      return true;
    }
    case QEvent::MouseButtonDblClick: case QEvent::MouseButtonRelease: case QEvent::MouseMove:
      return !qobject_cast<QScrollBar*>(watched);
    default:
      return QDialog::eventFilter(watched, event);
  }
}

void frmFull::keyPressEvent(QKeyEvent* event) {
  if (event->modifiers() & (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier)) return;
  if (event->key() == Qt::Key_Shift || event->key() == Qt::Key_Control || event->key() == Qt::Key_Alt) return;
  CloseWhenReady();
}

}  // namespace view
