#pragma once
// `imaImagen`: the image at the current zoom, sized to it and moved under `picFondo` by
// the scroll bars. It paints only the part that is exposed: below 100 % from a copy
// reduced (Lanczos, from the nearest display level) once per zoom, above it with sharp pixels straight from
// the image, or, for a drawing, the part on screen drawn again at the zoom. It draws the selection outline and reports the mouse in its own twips.

#include "imaging/Image.h"

#include <QImage>
#include <QPainter>
#include <QRect>
#include <QWidget>

#include <functional>
#include <optional>

namespace view {

class ImageCanvas : public QWidget {
  Q_OBJECT

 public:
  explicit ImageCanvas(QWidget* parent);

  // `pixelsPerImagePixel` is below 1 for a stand-in: a reduced picture shown in the place
  // of the whole image while that is read.
  void SetImage(const std::optional<imaging::Image>& image, double pixelsPerImagePixel = 1.0);
  void SetZoom(int percentage);
  // A frame of an animation in the image's place, of the same size: `screen`, the frame as
  // painted at the current zoom (made off the UI thread), is used when its size fits.
  void SetFrame(const imaging::Image& frame, const QImage& screen);
  // The size the copy for the screen is painted at now (none without an image).
  QSize PaintedSize() const;
  // Makes the painted copies again (the screen's colours changed).
  void RemakeFrames() { SetImage(std::optional(image_), pixelsPerImagePixel_); }
  // Below 100 %: shows `frame`, the picture at the current zoom made a quicker way (an edit's
  // operation run on the frame shown before it), at once; the exact reduction is made off
  // the UI thread and takes its place when ready. A frame of another size is ignored.
  void ShowInterimFrame(const QImage& frame);
  // The same with a quick picture of the image, scaled to the frame's size.
  void ShowStandInFrame(const imaging::Image& standIn);
  // The reduced copy painted now; null at 100 % and above, or before the first paint.
  const QImage& ReducedFrame() const { return reduced_; }
  // No exact reduction is on its way.
  bool FrameExact() const { return !reducing_; }
  // The selection outline, in image pixels; an empty rectangle hides it.
  void SetOutline(const QRect& imagePixels);
  // A drawing, drawn again for a zoom: the part `area` of it (in pixels at `scale`).
  using Redraw = std::function<std::optional<imaging::Image>(double scale, const QRect& area)>;
  // Until the next image, the part on screen above 100 % is drawn again by `redraw`, off
  // the UI thread, and replaces the enlarged pixels when it is ready.
  void SetRedraw(Redraw redraw) { redraw_ = std::move(redraw); }

 Q_SIGNALS:
  void Pressed(QPointF position);
  void Dragged(QPointF position);
  void Released();
  void DoubleClicked();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
  const QImage& Source();
  QSize ReducedSize() const;
  void ReduceInBackground();
  void PaintConverted(QPainter& painter, const QRectF& exposed, const QRectF& source);
  bool PaintRedrawn(QPainter& painter, const QRectF& exposed);
  void RequestRedraw();

  std::optional<imaging::Image> image_;
  QImage full_;     // the image at 100 %, for zooms above it
  QImage reduced_;  // the image at the current zoom, for zooms up to 100 %
  int percentage_ = 100;
  double pixelsPerImagePixel_ = 1.0;
  QRect outline_;
  int generation_ = 0;  // of the image and zoom; a reduction made for an older one is dropped
  bool reducing_ = false;
  Redraw redraw_;
  struct Redrawn {
    int Generation = -1;
    QRect Area;  // in device pixels of the canvas
    QImage Picture;
  } redrawn_;
  bool redrawing_ = false;
  int failedGeneration_ = -1;  // a redraw that gave nothing is not asked again
};

}  // namespace view
