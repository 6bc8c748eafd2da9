#pragma once
// `frmFull`: the image alone on the full-screen background, fitted to the screen (small
// images enlarged up to 1000 %), with the image view's own scrolling. Right, Space, Page
// Down and the wheel turned down ask for the next image, Left, Backspace, Page Up and the
// wheel turned up for the previous one; any other key pressed without Shift, Ctrl or Alt,
// or a click, closes it, but only once it is ready: the key or click that opened it never
// closes it at once. While an animation plays, its keys (P and Pause, comma and period)
// are passed on rather than closing it.

#include "base/Twips.h"
#include "imaging/Image.h"

#include <QDialog>
#include <QTimer>

namespace view {

class Viewport;

class frmFull : public QDialog {
  Q_OBJECT

 public:
  frmFull(const imaging::Image& image, base::NaturalSize natural, const base::ScreenMetrics& metrics,
          const QColor& background, QWidget* parent = nullptr);

  bool IsReady() const { return ready_; }
  int Percentage() const;
  // Another image in its place (none: the background alone), fitted again.
  void ShowImage(const std::optional<imaging::Image>& image, base::NaturalSize natural);
  // An animation's frame in the picture's place (Viewport::ShowFrame), and its keys.
  void ShowFrame(const imaging::Image& frame, const QImage& screen);
  QSize FramePaintedSize() const;
  void SetAnimated(bool animated) { animated_ = animated; }

 Q_SIGNALS:
  // +1 the next image, -1 the previous one.
  void StepRequested(int delta);
  void AnimationKeyPressed(int key);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void CloseWhenReady();
  void wheelEvent(QWheelEvent* event) override;
  int wheelTurn_ = 0;

  base::ScreenMetrics metrics_;  // its own copy: the view outlives no one's metrics
  Viewport* picFondo_ = nullptr;
  QTimer Timer1_;
  bool ready_ = false;
  bool animated_ = false;
};

}  // namespace view
