#include "view/ImageCanvas.h"

#include "imaging/Operations.h"
#include "view/ScreenCopy.h"

#include <QFutureWatcher>
#include <QMouseEvent>
#include <QtConcurrent/QtConcurrentRun>
#include <QPainter>
#include <QPaintEvent>
#include <QPixmap>

#include <cmath>

namespace view {

ImageCanvas::ImageCanvas(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("imaImagen"));
  setAttribute(Qt::WA_OpaquePaintEvent);
}

void ImageCanvas::SetImage(const std::optional<imaging::Image>& image, double pixelsPerImagePixel) {
  image_ = image;
  redraw_ = {};
  pixelsPerImagePixel_ = pixelsPerImagePixel;
  ++generation_;
  reducing_ = false;
  full_ = QImage();
  reduced_ = QImage();
  update();
}

void ImageCanvas::SetZoom(int percentage) {
  if (percentage != percentage_) {
    reduced_ = QImage();
    ++generation_;
    reducing_ = false;
  }
  percentage_ = percentage;
  update();
}

QImage ScreenCopy(const imaging::Image& image, QSize size, bool quickly) {
  const bool alpha = image.HasAlpha();
  if (size == QSize(image.Width(), image.Height())) return alpha ? image.ForScreenWithAlpha() : image.ForScreen();
  if (quickly) {
    const imaging::Image reduced = image.ReducedQuickly(size.width(), size.height());
    return alpha ? reduced.ForScreenWithAlpha() : reduced.ForScreen();
  }
  return alpha ? image.FitWithin(size.width(), size.height()).ForScreenWithAlpha()
               : image.ReducedForDisplay(size.width(), size.height()).ForScreen();
}

// The copy a paint needs, made once and only when it is needed.
const QImage& ImageCanvas::Source() {
  QImage& copy = percentage_ >= 100 ? full_ : reduced_;
  if (copy.isNull()) copy = ScreenCopy(*image_, PaintedSize());
  return copy;
}

QSize ImageCanvas::PaintedSize() const {
  if (!image_) return {};
  return percentage_ >= 100 ? QSize(image_->Width(), image_->Height()) : ReducedSize();
}

void ImageCanvas::SetFrame(const imaging::Image& frame, const QImage& screen) {
  image_ = frame;
  pixelsPerImagePixel_ = 1.0;
  ++generation_;
  reducing_ = false;
  const bool fits = screen.size() == PaintedSize();
  full_ = percentage_ >= 100 && fits ? screen : QImage();
  reduced_ = percentage_ < 100 && fits ? screen : QImage();
  update();
}

QSize ImageCanvas::ReducedSize() const {
  const double factor = percentage_ / 100.0 / pixelsPerImagePixel_;  // one image pixel a device pixel at 100 %
  return {std::max(1, int(std::lround(image_->Width() * factor))), std::max(1, int(std::lround(image_->Height() * factor)))};
}

void ImageCanvas::ShowInterimFrame(const QImage& frame) {
  if (!image_ || image_->HasAlpha() || percentage_ >= 100 || frame.size() != ReducedSize()) return;
  reduced_ = frame;
  update();
  ReduceInBackground();
}

void ImageCanvas::ShowStandInFrame(const imaging::Image& standIn) {
  if (!image_ || percentage_ >= 100) return;
  ShowInterimFrame(standIn.ToQImage().scaled(ReducedSize(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
}

void ImageCanvas::ReduceInBackground() {
  reducing_ = true;
  auto* watcher = new QFutureWatcher<QImage>(this);
  connect(watcher, &QFutureWatcher<QImage>::finished, this, [this, watcher, generation = generation_] {
    watcher->deleteLater();
    if (generation != generation_) return;  // another image or zoom since; its own paint reduces it
    reducing_ = false;
    reduced_ = watcher->result();
    update();
  });
  const QSize size = ReducedSize();
  watcher->setFuture(QtConcurrent::run([image = *image_, size] {
    return image.ReducedForDisplay(size.width(), size.height()).ForScreen();
  }));
}

namespace {

// Light squares of 8 logical pixels, the usual sign of transparency.
QBrush Checkerboard() {
  QPixmap tile(16, 16);
  tile.fill(Qt::white);
  QPainter painter(&tile);
  const QColor grey(204, 204, 204);
  painter.fillRect(0, 0, 8, 8, grey);
  painter.fillRect(8, 8, 8, 8, grey);
  return QBrush(tile);
}

}  // namespace

void ImageCanvas::SetOutline(const QRect& imagePixels) {
  outline_ = imagePixels;
  update();
}

void ImageCanvas::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  // The control's own background: white, or the checkerboard under a picture with alpha.
  painter.fillRect(event->rect(), image_ && image_->HasAlpha() ? Checkerboard() : QBrush(Qt::white));
  if (!image_) return;
  // Logical pixels per image pixel: at 100 % an image pixel is one device pixel.
  const double scale = percentage_ / 100.0 / devicePixelRatioF();
  if (percentage_ < 100) {
    painter.drawImage(QRectF(0, 0, width(), height()), Source());
  } else if (!PaintRedrawn(painter, event->rect())) {
    // Only the exposed part, each image pixel a sharp block.
    const QRectF exposed = event->rect();
    const double step = scale / pixelsPerImagePixel_;
    const QRectF source(exposed.left() / step, exposed.top() / step, exposed.width() / step, exposed.height() / step);
    if (image_->ShownAsIs()) {
      painter.drawImage(exposed, Source(), source);
    } else {
      // Colours are converted for the part exposed, not for the whole picture ahead of time.
      PaintConverted(painter, exposed, source);
    }
  }
  if (outline_.isEmpty()) return;
  // White under black dashes, so the outline shows on dark and light pictures alike.
  const double onePixel = 1 / devicePixelRatioF();
  const QRectF frame(outline_.left() * scale, outline_.top() * scale, outline_.width() * scale - onePixel,
                     outline_.height() * scale - onePixel);
  painter.setPen(QPen(Qt::white, 0));
  painter.drawRect(frame);
  painter.setPen(QPen(Qt::black, 0, Qt::DashLine));
  painter.drawRect(frame);
}

// The exposed part of the picture at 100 % or more, its colours converted for the screen:
// only the image pixels under `exposed` go through the transform.
void ImageCanvas::PaintConverted(QPainter& painter, const QRectF& exposed, const QRectF& source) {
  const QRect area = source.toAlignedRect().intersected(QRect(0, 0, image_->Width(), image_->Height()));
  if (area.isEmpty()) return;
  try {
    const imaging::Image part = imaging::ops::Crop(*image_, area);
    const QImage converted = image_->HasAlpha() ? part.ForScreenWithAlpha() : part.ForScreen();
    painter.drawImage(exposed, converted, source.translated(-area.topLeft()));
  } catch (const imaging::ops::OperationFailed&) {
    // Out of memory for even this part: the white ground stays.
  }
}

// Above 100 %, the drawing's part on screen drawn at the zoom when it is ready; otherwise it
// is asked for (with half a screen around it, for scrolling) and false is returned.
bool ImageCanvas::PaintRedrawn(QPainter& painter, const QRectF& exposed) {
  if (!redraw_ || percentage_ <= 100) return false;
  const double ratio = devicePixelRatioF();
  const QRectF device(exposed.topLeft() * ratio, exposed.size() * ratio);
  if (redrawn_.Generation != generation_ || !QRectF(redrawn_.Area).contains(device)) {
    RequestRedraw();
    return false;
  }
  painter.drawImage(exposed, redrawn_.Picture, device.translated(-redrawn_.Area.topLeft()));
  return true;
}

void ImageCanvas::RequestRedraw() {
  if (redrawing_ || failedGeneration_ == generation_) return;
  const double ratio = devicePixelRatioF();
  const QRectF visible = visibleRegion().boundingRect();
  const QRectF around = visible.adjusted(-visible.width() / 2, -visible.height() / 2, visible.width() / 2, visible.height() / 2);
  const QRect area = QRectF(around.topLeft() * ratio, around.size() * ratio).toAlignedRect() & QRect(QPoint(0, 0), size() * ratio);
  if (area.isEmpty()) return;
  redrawing_ = true;
  auto* watcher = new QFutureWatcher<QImage>(this);
  connect(watcher, &QFutureWatcher<QImage>::finished, this, [this, watcher, area, generation = generation_] {
    watcher->deleteLater();
    redrawing_ = false;
    if (generation != generation_) return update();  // the zoom or image changed: ask for the new part
    if (watcher->result().isNull()) failedGeneration_ = generation;
    else redrawn_ = {generation, area, watcher->result()};
    update();
  });
  watcher->setFuture(QtConcurrent::run([redraw = redraw_, scale = percentage_ / 100.0, area] {
    const std::optional<imaging::Image> part = redraw(scale, area);
    return !part ? QImage() : part->HasAlpha() ? part->ForScreenWithAlpha() : part->ForScreen();
  }));
}

void ImageCanvas::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) Q_EMIT Pressed(event->position());
}

void ImageCanvas::mouseMoveEvent(QMouseEvent* event) {
  if (event->buttons() & Qt::LeftButton) Q_EMIT Dragged(event->position());
}

void ImageCanvas::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) Q_EMIT Released();
}

void ImageCanvas::mouseDoubleClickEvent(QMouseEvent*) { Q_EMIT DoubleClicked(); }

}  // namespace view
