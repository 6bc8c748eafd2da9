#pragma once
// `picFondo`: the image panel with `imaImagen`, the scroll bars `hscImagen` and
// `vscImagen` and the corner `picCuadro`. It keeps the zoom percentage, the pending flag
// and the selection record, and arranges itself with view::PlaceImage. Twips convert to
// pixels through the window's one ScreenMetrics.

#include "base/Twips.h"
#include "imaging/Image.h"
#include "view/Placing.h"
#include "view/Selection.h"

#include <QTimer>
#include <QWidget>

#include <functional>
#include <optional>

class QLabel;
class QScrollBar;

namespace view {

class ImageCanvas;

class Viewport : public QWidget {
  Q_OBJECT

 public:
  explicit Viewport(const base::ScreenMetrics& metrics, QWidget* parent = nullptr);

  void SetBackground(const QColor& color);
  // Shows an image with its size at 100 %, or nothing; clears the selection. `fit`
  // applies the fit percentage at once (one zoom, one reduced copy).
  void SetImage(const std::optional<imaging::Image>& image, base::NaturalSize natural, bool fit = false);
  bool HasImage() const { return image_.has_value(); }
  // A text in the picture's place while there is no picture (why a file did not open);
  // the next image takes it away.
  void ShowMessage(const QString& text);
  // The picture painted again from the image (the screen's colours changed).
  void RemakeFrames();
  // A reduced picture in the place of an image still being read, at the whole image's
  // size and zoom; SetImage replaces it.
  // The image shown is a drawing: above 100 % its part on screen is drawn again (ImageCanvas).
  void SetRedraw(std::function<std::optional<imaging::Image>(double scale, const QRect& area)> redraw);
  void ShowStandIn(const imaging::Image& picture, base::NaturalSize natural, bool fit);
  // An edited, undone or redone image: the zoom and any selection stay. `interim`, when
  // given, is shown at once while the exact frame is made (ImageCanvas::ShowInterimFrame).
  void ReplaceImage(const imaging::Image& image, base::NaturalSize natural, const QImage& interim = {});
  // A frame of the animation shown, in the picture's place: zoom, scroll and selection
  // stay (ImageCanvas::SetFrame). The size a frame is painted at now, for frames made ahead.
  void ShowFrame(const imaging::Image& frame, const QImage& screen);
  QSize FramePaintedSize() const;
  // The picture as painted now below 100 % (null otherwise), to make an interim frame from.
  const QImage& ReducedFrame() const;
  // No exact frame is being made off the UI thread.
  bool FrameExact() const;

  int Percentage() const { return percentage_; }
  // The apply-zoom sequence: store, size the control, set the pending flag, lay out.
  void ApplyZoom(int percentage, Pending flag = Pending::None);
  int FitPercentage() const;
  int SelectionFitPercentage() const;

  // How Fit behaves, read afresh each time it is needed: AlwaysFit (every layout fits the
  // image first) and whether Fit enlarges pictures smaller than the panel.
  struct FitRules {
    bool AlwaysFit = false;
    bool Enlarge = false;
  };
  void SetFitRules(std::function<FitRules()> rules) { fitRules_ = std::move(rules); }
  // What the wheel does without Ctrl (which always zooms).
  enum class Wheel { Scrolls, Zooms, Steps };
  void SetWheel(std::function<Wheel()> wheel) { wheel_ = std::move(wheel); }

  // Hides the picture (while something else covers the screen, so it never redraws
  // behind it), or shows it again.
  void SetPictureHidden(bool hidden);

  const SelectionRecord& Selection() const { return selection_; }
  void SelectNone();

  // The placing step; the main window's layout pass calls it after sizing the panel.
  void Place();

 Q_SIGNALS:
  void SelectionChanged();
  // The zoom percentage changed (a command, or Always Fit after a resize).
  void ZoomChanged(int percentage);
  void FullScreenRequested();
  // Ctrl and a drag of the left button: the picture goes out to another program.
  void DragOutRequested();
  // The panel's new size in device pixels.
  void Resized(QSize size);
  // Ctrl+wheel: +1 zooms in, -1 out (the View menu's commands).
  void ZoomStepRequested(int direction);
  // Stepping through the folder: +1 next, -1 previous; First and Last go to the ends.
  void StepRequested(int delta);
  void FirstRequested();
  void LastRequested();

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Show(const std::optional<imaging::Image>& image, base::NaturalSize natural, bool fit,
            Pending pending = Pending::None);
  float TwipsX() const;
  float TwipsY() const;
  QSizeF ControlTwips() const;
  void HandleWheel(QWheelEvent* event);
  bool ArrowKey(int key);
  void BeginDrag(QPointF pixels);
  void Drag(QPointF pixels);
  void AutoScroll();
  void ShowOutline();

  const base::ScreenMetrics& metrics_;
  ImageCanvas* imaImagen_ = nullptr;
  QScrollBar* hscImagen_ = nullptr;
  QScrollBar* vscImagen_ = nullptr;
  QLabel* lblMessage_ = nullptr;
  QWidget* picCuadro_ = nullptr;
  QTimer tmrSel_;
  std::optional<imaging::Image> image_;
  std::optional<imaging::Image> standIn_;  // the quick picture shown while the image is read
  base::NaturalSize natural_;
  int percentage_ = 100;
  std::function<FitRules()> fitRules_ = [] { return FitRules{}; };
  std::function<Wheel()> wheel_ = [] { return Wheel::Scrolls; };
  Pending pending_ = Pending::None;
  SelectionRecord selection_;
  bool dragging_ = false;
  QPointF anchor_;  // control twips
  QPointF lastPointer_;
  QPointF pressedAt_;  // where the left button went down, in the control's pixels
  QPoint panFrom_;
  QPoint middlePressedAt_;  // a middle click that does not pan shows the picture full screen
  std::optional<QPoint> dragOutFrom_;  // where Ctrl and the left button went down
  int wheelTurned_ = 0;  // eighths of a degree not yet acted on  // the middle button's last position, while panning
  DragRectangle drag_;
};

}  // namespace view
