#pragma once
// frmSlideShow2: the borderless full-screen player. Each image is shown in one of two
// slots while the next one is decoded and scaled in the other, off the UI thread, so a
// step paints at once; the slots change in one step. An animation plays in its slot for as
// long as it is shown.

#include "slideshow/PlayerSettings.h"
#include "slideshow/Sequence.h"
#include "view/AnimationPlayer.h"

#include <QDialog>
#include <QFuture>
#include <QImage>
#include <QTimer>

#include <array>
#include <random>

class QLabel;
class QMenu;

namespace slideshow {

class frmSlideShow2 : public QDialog {
  Q_OBJECT

 public:
  frmSlideShow2(const PlayerSettings& settings, QWidget* parent = nullptr);
  ~frmSlideShow2() override;

  const PlayOrder& Order() const { return order_; }
  QString Shown() const { return shownName_; }
  bool Playing() const { return tmrPlay_.isActive(); }
  // Waits until the next picture is decoded and scaled (for measurements).
  void WaitForTheNextPicture() { next_.waitForFinished(); }

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  struct Prepared {
    QString Name;
    QImage Picture;  // scaled for the screen, in device pixels; null when it failed to load
  };

  void BuildMenus();
  void Tick();
  void Step(bool forward);
  void ShowCurrent();
  void PrepareNext();
  void PlayIfAnimated(const QImage& shown);
  Prepared PreparedFor(const QString& name);
  void ShowHint();
  void RunCommand(const QString& word);
  void PopUpMenu(QPoint at);
  void LayOutSlots();
  QSize Area() const;
  int StripHeight() const;  // the file name strip's, 0 without it

  PlayerSettings settings_;
  std::mt19937 generator_;
  PlayOrder order_;
  bool busy_ = false;
  bool firstTick_ = true;
  double elapsed_ = 0;
  QString shownName_;
  QFuture<Prepared> next_;
  std::array<QLabel*, 2> slots_{};
  view::AnimationPlayer player_;
  int slot_ = 0;
  QWidget* picInfo_ = nullptr;
  QLabel* lblEstado_ = nullptr;
  QMenu* mnuSlideShowManual_ = nullptr;
  QMenu* mnuSlideShowAuto_ = nullptr;
  QAction* pause_ = nullptr;
  QTimer tmrPlay_;
  QTimer tmrInfo_;
};

}  // namespace slideshow
