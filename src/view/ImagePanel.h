#pragma once
// `picFondo`: the image area on its background colour. Until the viewport of Part 3.1
// lands it shows the image fitted to the panel (when FitToWindow, or when larger than
// the panel) or at its own size, centred.

#include "imaging/Image.h"

#include <QImage>
#include <QWidget>

#include <optional>

namespace view {

class ImagePanel : public QWidget {
  Q_OBJECT

 public:
  explicit ImagePanel(QWidget* parent = nullptr);

  void SetImage(const imaging::Image* image);
  void SetBackground(const QColor& color);
  bool HasImage() const { return image_.has_value(); }
  // The rectangle the image occupies, in panel pixels (empty without an image).
  QRect ImageRect() const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void RenderForSize();

  std::optional<imaging::Image> image_;
  QImage rendered_;
};

}  // namespace view
