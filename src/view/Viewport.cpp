#include "view/Viewport.h"

#include "base/Colors.h"
#include "view/ImageCanvas.h"
#include "view/Zoom.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>
#include <QLabel>
#include <QScrollBar>
#include <QStyle>

#include <cmath>
#include <utility>

namespace view {

Viewport::Viewport(const base::ScreenMetrics& metrics, QWidget* parent) : QWidget(parent), metrics_(metrics) {
  setObjectName(QStringLiteral("picFondo"));
  setAutoFillBackground(true);
  setMinimumSize(1, 1);
  imaImagen_ = new ImageCanvas(this);
  imaImagen_->hide();
  hscImagen_ = new QScrollBar(Qt::Horizontal, this);
  hscImagen_->setObjectName(QStringLiteral("hscImagen"));
  vscImagen_ = new QScrollBar(Qt::Vertical, this);
  vscImagen_->setObjectName(QStringLiteral("vscImagen"));
  picCuadro_ = new QWidget(this);
  picCuadro_->setObjectName(QStringLiteral("picCuadro"));
  picCuadro_->setAutoFillBackground(true);
  lblMessage_ = new QLabel(this);
  lblMessage_->setObjectName(QStringLiteral("lblMessage"));
  lblMessage_->setAlignment(Qt::AlignCenter);
  lblMessage_->setWordWrap(true);
  lblMessage_->hide();
  for (QWidget* w : {static_cast<QWidget*>(hscImagen_), static_cast<QWidget*>(vscImagen_), picCuadro_}) w->hide();
  // The bars' Change handlers: the control's offset follows the value.
  connect(hscImagen_, &QScrollBar::valueChanged, this, [this](int v) { imaImagen_->move(-v, imaImagen_->y()); });
  connect(vscImagen_, &QScrollBar::valueChanged, this, [this](int v) { imaImagen_->move(imaImagen_->x(), -v); });
  connect(imaImagen_, &ImageCanvas::Pressed, this, &Viewport::BeginDrag);
  connect(imaImagen_, &ImageCanvas::Dragged, this, &Viewport::Drag);
  connect(imaImagen_, &ImageCanvas::Released, this, [this] {
    if (dragging_ && !selection_.Exists()) Drag(pressedAt_);  // a click selects the pixel under it
    dragging_ = false;
    tmrSel_.stop();
    imaImagen_->unsetCursor();
  });
  connect(imaImagen_, &ImageCanvas::DoubleClicked, this, &Viewport::FullScreenRequested);
  setFocusPolicy(Qt::StrongFocus);
  imaImagen_->setFocusProxy(this);
  imaImagen_->setFocusPolicy(Qt::ClickFocus);
  imaImagen_->installEventFilter(this);
  tmrSel_.setInterval(50);
  connect(&tmrSel_, &QTimer::timeout, this, &Viewport::AutoScroll);
}

float Viewport::TwipsX() const { return metrics_.TwipsPerPixelX; }

float Viewport::TwipsY() const { return metrics_.TwipsPerPixelY; }

void Viewport::SetBackground(const QColor& color) {
  QPalette p = palette();
  p.setColor(QPalette::Window, color);
  p.setColor(QPalette::WindowText, base::TextColorOn(color));
  setPalette(p);
}

void Viewport::ShowMessage(const QString& text) {
  lblMessage_->setText(text);
  lblMessage_->setGeometry(rect());
  lblMessage_->setVisible(!text.isEmpty() && !image_);
}

// After quick pictures of the image, the last one stays on screen, scaled to the frame,
// until the exact frame is reduced from the whole image off the UI thread.
void Viewport::SetImage(const std::optional<imaging::Image>& image, base::NaturalSize natural, bool fit) {
  const std::optional<imaging::Image> standIn = std::exchange(standIn_, std::nullopt);
  SelectNone();
  Show(image, natural, fit);
  if (standIn && image) imaImagen_->ShowStandInFrame(*standIn);
}

void Viewport::SetRedraw(std::function<std::optional<imaging::Image>(double scale, const QRect& area)> redraw) {
  imaImagen_->SetRedraw(std::move(redraw));
}

void Viewport::ShowStandIn(const imaging::Image& picture, base::NaturalSize natural, bool fit) {
  SelectNone();
  Show(picture, natural, fit);
  standIn_ = picture;
  const double wholeWidth = natural.WidthTwips / metrics_.ImageTwipsPerPixelX();
  imaImagen_->SetImage(picture, wholeWidth > 0 ? picture.Width() / wholeWidth : 1.0);
}

// An edit that keeps the size keeps the view where it was; one that changes it is placed anew.
void Viewport::ReplaceImage(const imaging::Image& image, base::NaturalSize natural, const QImage& interim) {
  const bool sameSize = image_ && image_->Width() == image.Width() && image_->Height() == image.Height();
  Show(image, natural, fitRules_().AlwaysFit, sameSize ? Pending::ZoomStep : Pending::None);
  if (!interim.isNull()) imaImagen_->ShowInterimFrame(interim);
}

void Viewport::RemakeFrames() { imaImagen_->RemakeFrames(); }

void Viewport::ShowFrame(const imaging::Image& frame, const QImage& screen) {
  if (image_ && frame.Width() == image_->Width() && frame.Height() == image_->Height()) imaImagen_->SetFrame(frame, screen);
}

QSize Viewport::FramePaintedSize() const { return imaImagen_->PaintedSize(); }

const QImage& Viewport::ReducedFrame() const { return imaImagen_->ReducedFrame(); }

bool Viewport::FrameExact() const { return imaImagen_->FrameExact(); }

void Viewport::Show(const std::optional<imaging::Image>& image, base::NaturalSize natural, bool fit, Pending pending) {
  image_ = image;
  lblMessage_->hide();
  natural_ = image ? natural : base::NaturalSize{};
  imaImagen_->SetImage(image);
  imaImagen_->setVisible(image.has_value());
  ApplyZoom(fit && image ? FitPercentage() : percentage_, pending);
}

QSizeF Viewport::ControlTwips() const {
  return QSizeF(float(percentage_) * natural_.WidthTwips / 100.0f, float(percentage_) * natural_.HeightTwips / 100.0f);
}

void Viewport::ApplyZoom(int percentage, Pending flag) {
  const bool changed = percentage != percentage_;
  percentage_ = percentage;
  const QSizeF control = ControlTwips();
  imaImagen_->SetZoom(percentage);
  imaImagen_->resize(std::max(1, int(std::lround(control.width() / TwipsX()))),
                     std::max(1, int(std::lround(control.height() / TwipsY()))));
  ShowOutline();
  pending_ = flag;
  Place();
  if (changed) Q_EMIT ZoomChanged(percentage_);
}

void Viewport::SetPictureHidden(bool hidden) {
  imaImagen_->setVisible(!hidden);
  if (hidden) imaImagen_->repaint();
}

int Viewport::FitPercentage() const {
  return view::FitPercentage(float(width()) * TwipsX(), float(height()) * TwipsY(), natural_.WidthTwips,
                             natural_.HeightTwips, fitRules_().Enlarge);
}

int Viewport::SelectionFitPercentage() const {
  SelectionFitInput in;
  in.PanelWidth = float(width()) * TwipsX();
  in.PanelHeight = float(height()) * TwipsY();
  const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
  in.VerticalBarWidth = float(bar) * TwipsX();
  in.HorizontalBarHeight = float(bar) * TwipsY();
  in.NaturalWidth = natural_.WidthTwips;
  in.NaturalHeight = natural_.HeightTwips;
  in.SelectionWidth = selection_.Width;
  in.SelectionHeight = selection_.Height;
  return view::SelectionFitPercentage(in);
}

void Viewport::Place() {
  const float tx = TwipsX(), ty = TwipsY();
  const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
  PlacingInput in;
  in.TwipsPerPixelX = tx;
  in.TwipsPerPixelY = ty;
  in.ControlWidth = float(imaImagen_->width()) * tx;
  in.ControlHeight = float(imaImagen_->height()) * ty;
  in.PanelWidth = float(width()) * tx;
  in.PanelHeight = float(height()) * ty;
  in.VerticalBarWidth = float(bar) * tx;
  in.HorizontalBarHeight = float(bar) * ty;
  in.ImageLoaded = image_.has_value();
  in.Percentage = percentage_;
  in.PendingFlag = pending_;
  in.PreviousHorizontal = {hscImagen_->isVisible(), hscImagen_->maximum(), hscImagen_->value(), 1, 1};
  in.PreviousVertical = {vscImagen_->isVisible(), vscImagen_->maximum(), vscImagen_->value(), 1, 1};
  in.Selection = {selection_.Left, selection_.Top, selection_.Width, selection_.Height};
  const Placement out = PlaceImage(in);
  const auto apply = [](QScrollBar* scroll, const ScrollBarState& state) {
    const QSignalBlocker blocker(scroll);
    scroll->setVisible(state.Visible);
    scroll->setRange(0, state.Maximum);
    scroll->setSingleStep(state.SmallChange);
    scroll->setPageStep(state.LargeChange);
    scroll->setValue(state.Value);
  };
  apply(hscImagen_, out.Horizontal);
  apply(vscImagen_, out.Vertical);
  const int right = out.Vertical.Visible ? width() - bar : width();
  const int bottom = out.Horizontal.Visible ? height() - bar : height();
  hscImagen_->setGeometry(0, bottom, right, bar);
  vscImagen_->setGeometry(right, 0, bar, bottom);
  picCuadro_->setGeometry(right, bottom, bar, bar);
  picCuadro_->setVisible(out.CornerVisible);
  imaImagen_->move(int(std::lround(out.ControlLeft / tx)), int(std::lround(out.ControlTop / ty)));
  pending_ = Pending::None;
}

void Viewport::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  lblMessage_->setGeometry(rect());
  Q_EMIT Resized(size() * devicePixelRatioF());
  if (image_ && fitRules_().AlwaysFit) {
    ApplyZoom(FitPercentage());
  } else {
    Place();
  }
}

void Viewport::SelectNone() {
  dragging_ = false;
  tmrSel_.stop();
  selection_ = {};
  ShowOutline();
  imaImagen_->unsetCursor();
  Q_EMIT SelectionChanged();
}

void Viewport::ShowOutline() {
  imaImagen_->SetOutline(selection_.Shown ? selection_.Pixels(metrics_.ImageTwipsPerPixelX(), metrics_.ImageTwipsPerPixelY())
                                          : QRect());
}

void Viewport::BeginDrag(QPointF pixels) {
  SelectNone();
  anchor_ = QPointF(pixels.x() * TwipsX(), pixels.y() * TwipsY());
  pressedAt_ = pixels;
  dragging_ = true;
  tmrSel_.start();
}

void Viewport::Drag(QPointF pixels) {
  if (!dragging_ || !image_) return;
  lastPointer_ = pixels;
  const float tx = TwipsX(), ty = TwipsY();
  drag_ = SpanDrag(anchor_, QPointF(pixels.x() * tx, pixels.y() * ty), ControlTwips(), tx, ty);
  selection_ = ToSelectionRecord(drag_, percentage_, metrics_.ImageTwipsPerPixelX(), metrics_.ImageTwipsPerPixelY(),
                                 QSizeF(natural_.WidthTwips, natural_.HeightTwips));
  ShowOutline();
  imaImagen_->setCursor(Qt::CrossCursor);
  Q_EMIT SelectionChanged();
}

void Viewport::AutoScroll() {
  if (!dragging_ || !selection_.Shown || !(hscImagen_->isVisible() || vscImagen_->isVisible())) return;
  const QPointF inPanel = imaImagen_->mapTo(this, lastPointer_.toPoint());
  const float tx = TwipsX(), ty = TwipsY();
  const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
  if (hscImagen_->isVisible()) {
    const float panel = float(vscImagen_->isVisible() ? width() - bar : width()) * tx;
    if (auto v = AutoScrollValue({float(inPanel.x()) * tx, panel, drag_.Left, drag_.Width, tx, 0, hscImagen_->maximum()})) {
      hscImagen_->setValue(*v);
    }
  }
  if (vscImagen_->isVisible()) {
    const float panel = float(hscImagen_->isVisible() ? height() - bar : height()) * ty;
    if (auto v = AutoScrollValue({float(inPanel.y()) * ty, panel, drag_.Top, drag_.Height, ty, 0, vscImagen_->maximum()})) {
      vscImagen_->setValue(*v);
    }
  }
}

}  // namespace view

namespace view {

void Viewport::wheelEvent(QWheelEvent* event) { HandleWheel(event); }

// Wheels that report in finer steps than a notch (touchpads, smooth wheels) add up until a
// notch's worth has turned; a sideways turn, or Shift, scrolls across.
void Viewport::HandleWheel(QWheelEvent* event) {
  constexpr int kNotch = 120;
  const bool shifted = event->modifiers() & Qt::ShiftModifier;
  const QPoint delta = event->angleDelta();
  const bool across = shifted || (delta.x() != 0 && delta.y() == 0);
  wheelTurned_ += across && !shifted ? delta.x() : (delta.y() != 0 ? delta.y() : delta.x());
  const int steps = wheelTurned_ / kNotch;
  wheelTurned_ -= steps * kNotch;
  const Wheel wheel = wheel_();
  if (steps != 0) {
    if ((event->modifiers() & Qt::ControlModifier) || wheel == Wheel::Zooms) {
      Q_EMIT ZoomStepRequested(steps > 0 ? 1 : -1);
    } else if (wheel == Wheel::Steps) {
      Q_EMIT StepRequested(steps > 0 ? -1 : 1);  // turned down (towards the user): the next
    } else {
      QScrollBar* bar = across ? hscImagen_ : vscImagen_;
      if (bar->isVisible()) bar->setValue(bar->value() - steps * bar->pageStep());
    }
  }
  event->accept();
}

// An arrow scrolls along its bar when the bar is shown; otherwise it steps through the folder.
bool Viewport::ArrowKey(int key) {
  const bool horizontal = key == Qt::Key_Left || key == Qt::Key_Right;
  const bool forward = key == Qt::Key_Right || key == Qt::Key_Down;
  QScrollBar* bar = horizontal ? hscImagen_ : vscImagen_;
  if (bar->isVisible()) {
    bar->setValue(bar->value() + (forward ? 1 : -1) * bar->singleStep());
  } else {
    Q_EMIT StepRequested(forward ? 1 : -1);
  }
  return true;
}

// A double-click on the panel around the image opens Full Screen, as one on the image does.
void Viewport::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) Q_EMIT FullScreenRequested();
}

// The keys alone step and scroll; with Ctrl they belong to the window's commands (Ctrl and
// Page Down turns a page).
void Viewport::keyPressEvent(QKeyEvent* event) {
  if (event->modifiers() & Qt::ControlModifier) return QWidget::keyPressEvent(event);
  switch (event->key()) {
    case Qt::Key_Left: case Qt::Key_Right: case Qt::Key_Up: case Qt::Key_Down: ArrowKey(event->key()); break;
    case Qt::Key_Space: case Qt::Key_PageDown: Q_EMIT StepRequested(1); break;
    case Qt::Key_Backspace: case Qt::Key_PageUp: Q_EMIT StepRequested(-1); break;
    case Qt::Key_Home: Q_EMIT FirstRequested(); break;
    case Qt::Key_End: Q_EMIT LastRequested(); break;
    default: QWidget::keyPressEvent(event); return;
  }
  event->accept();
}

// The mouse on the image beyond the selection drag: the back and forward buttons step
// through the folder, the middle button pans.
bool Viewport::eventFilter(QObject* watched, QEvent* event) {
  if (watched != imaImagen_) return QWidget::eventFilter(watched, event);
  if (event->type() == QEvent::Wheel) {
    HandleWheel(static_cast<QWheelEvent*>(event));
    return true;
  }
  if (event->type() == QEvent::MouseButtonPress) {
    const auto* mouse = static_cast<QMouseEvent*>(event);
    if (mouse->button() == Qt::BackButton) Q_EMIT StepRequested(-1);
    if (mouse->button() == Qt::ForwardButton) Q_EMIT StepRequested(1);
    if (mouse->button() == Qt::MiddleButton) panFrom_ = middlePressedAt_ = mouse->globalPosition().toPoint();
    if (mouse->button() == Qt::LeftButton && (mouse->modifiers() & Qt::ControlModifier) && image_) {
      dragOutFrom_ = mouse->globalPosition().toPoint();
      return true;  // not the start of a selection
    }
  } else if (event->type() == QEvent::MouseButtonRelease) {
    const auto* mouse = static_cast<QMouseEvent*>(event);
    if (mouse->button() == Qt::LeftButton && dragOutFrom_) {
      dragOutFrom_.reset();
      return true;
    }
    const QPoint moved = mouse->globalPosition().toPoint() - middlePressedAt_;
    if (mouse->button() == Qt::MiddleButton && moved.manhattanLength() < QApplication::startDragDistance()) Q_EMIT FullScreenRequested();
  } else if (event->type() == QEvent::MouseMove) {
    const auto* mouse = static_cast<QMouseEvent*>(event);
    if (dragOutFrom_) {
      if ((mouse->globalPosition().toPoint() - *dragOutFrom_).manhattanLength() >= QApplication::startDragDistance()) {
        dragOutFrom_.reset();
        Q_EMIT DragOutRequested();
      }
      return true;
    }
    if (mouse->buttons() & Qt::MiddleButton) {
      const QPoint now = mouse->globalPosition().toPoint();
      hscImagen_->setValue(hscImagen_->value() - (now.x() - panFrom_.x()));
      vscImagen_->setValue(vscImagen_->value() - (now.y() - panFrom_.y()));
      panFrom_ = now;
    }
  }
  return QWidget::eventFilter(watched, event);
}

}  // namespace view
