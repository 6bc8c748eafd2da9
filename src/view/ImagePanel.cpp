#include "view/ImagePanel.h"

#include <QPainter>

namespace view {

ImagePanel::ImagePanel(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("picFondo"));
  setAutoFillBackground(true);
  setMinimumSize(1, 1);
}

void ImagePanel::SetBackground(const QColor& color) {
  QPalette p = palette();
  p.setColor(QPalette::Window, color);
  setPalette(p);
}

void ImagePanel::SetImage(const imaging::Image* image) {
  image_.reset();
  if (image) image_ = *image;
  RenderForSize();
  update();
}

void ImagePanel::RenderForSize() {
  rendered_ = image_ ? image_->ToQImageFitting(width(), height()) : QImage();
}

void ImagePanel::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  RenderForSize();
}

QRect ImagePanel::ImageRect() const {
  if (rendered_.isNull()) return {};
  return QRect(QPoint((width() - rendered_.width()) / 2, (height() - rendered_.height()) / 2), rendered_.size());
}

void ImagePanel::paintEvent(QPaintEvent*) {
  if (rendered_.isNull()) return;
  QPainter painter(this);
  painter.drawImage(ImageRect().topLeft(), rendered_);
}

}  // namespace view
