#include "view/frmFull.h"

#include "view/Viewport.h"

#include <QKeyEvent>
#include <QScrollBar>
#include <QVBoxLayout>
#include <QWheelEvent>

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
  // Every resize fits again, and small pictures fill the screen, up to 1000 %.
  picFondo_->SetFitRules([] { return Viewport::FitRules{true, true}; });
  picFondo_->SetImage(image, natural, /*fit=*/true);
  // The panel's own keys and clicks (stepping, selecting) do not apply here: they close.
  picFondo_->installEventFilter(this);
  for (QWidget* child : picFondo_->findChildren<QWidget*>()) child->installEventFilter(this);
  Timer1_.setSingleShot(true);
  connect(&Timer1_, &QTimer::timeout, this, [this] { ready_ = true; });
  Timer1_.start(kReadyAfterMs);
}

int frmFull::Percentage() const { return picFondo_->Percentage(); }

void frmFull::ShowImage(const std::optional<imaging::Image>& image, base::NaturalSize natural) {
  picFondo_->SetImage(image, natural, /*fit=*/true);
}

void frmFull::ShowFrame(const imaging::Image& frame, const QImage& screen) { picFondo_->ShowFrame(frame, screen); }

QSize frmFull::FramePaintedSize() const { return picFondo_->FramePaintedSize(); }

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
    case QEvent::Wheel:
      wheelEvent(static_cast<QWheelEvent*>(event));
      return true;
    default:
      return QDialog::eventFilter(watched, event);
  }
}

void frmFull::keyPressEvent(QKeyEvent* event) {
  if (event->modifiers() & (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier)) return;
  switch (event->key()) {
    case Qt::Key_Shift: case Qt::Key_Control: case Qt::Key_Alt: return;
    case Qt::Key_Right: case Qt::Key_Space: case Qt::Key_PageDown: Q_EMIT StepRequested(1); return;
    case Qt::Key_Left: case Qt::Key_Backspace: case Qt::Key_PageUp: Q_EMIT StepRequested(-1); return;
    case Qt::Key_P: case Qt::Key_Pause: case Qt::Key_Comma: case Qt::Key_Period:
      if (animated_) return Q_EMIT AnimationKeyPressed(event->key());
      return CloseWhenReady();
    default: CloseWhenReady();
  }
}

void frmFull::wheelEvent(QWheelEvent* event) {
  wheelTurn_ += event->angleDelta().y();
  const int notches = wheelTurn_ / 120;
  wheelTurn_ -= notches * 120;
  if (notches != 0) Q_EMIT StepRequested(notches < 0 ? 1 : -1);
  event->accept();
}

}  // namespace view
