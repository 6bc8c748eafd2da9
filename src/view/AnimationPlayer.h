#pragma once
// Plays an animation at the file's own pace. A worker decodes the frames ahead, each with
// its copy for the screen at the size the canvas paints it, into a short queue, so memory
// holds a handful of frames whatever the animation's length; a precise timer shows them,
// keeping to the file's timing rather than to when the last frame happened to land. Paused,
// it steps one frame forward or back (the last few shown are kept for that).

#include "imaging/Animation.h"
#include "imaging/Image.h"

#include <QElapsedTimer>
#include <QImage>
#include <QObject>
#include <QSize>
#include <QTimer>

#include <deque>
#include <memory>
#include <optional>

namespace view {

class FrameQueue;

struct AnimationFrame {
  imaging::Image Picture;
  QImage Screen;  // Picture as the canvas paints it, at the size asked when it was made
  int Index = 0;
};

class AnimationPlayer : public QObject {
  Q_OBJECT

 public:
  explicit AnimationPlayer(QObject* parent = nullptr);
  ~AnimationPlayer() override;

  // Plays `path` on from `shown`, its frame `index` (the first unless told), already on
  // screen; the timing is read on the worker, and the frames move once it is known. A file
  // that turns out not to be an animation stops the player.
  void Play(const QString& path, const imaging::Image& shown, int index = 0);
  void Stop();
  bool Active() const { return queue_ != nullptr; }
  bool Paused() const { return paused_; }
  // The last loop has played: the last frame stays.
  bool Ended() const { return ended_; }
  // Pausing at the end of the last loop and playing again starts from the first frame.
  void SetPaused(bool paused);
  // While paused: the next frame (+1) or the one before (-1).
  void Step(int delta);
  bool CanStep(int delta) const;
  // The frame on screen, while Active().
  const AnimationFrame& Current() const { return *current_; }
  // 0 until the timing is read.
  int Frames() const { return timing_.Frames(); }
  // The size the canvas paints a frame at now; frames made from here on come at it.
  void SetScreenSize(QSize size);
  // A frame could not be read: the animation plays what came before it.
  bool Damaged() const { return damaged_; }

 Q_SIGNALS:
  void FrameShown();
  // Paused, resumed, ended or stopped.
  void StateChanged();

 private:
  void Tick();
  void Show(AnimationFrame frame);
  void FrameArrived();
  bool TakeTiming();
  void ScheduleNext();
  void Restart(int index);

  std::unique_ptr<FrameQueue> queue_;
  imaging::FrameTiming timing_;
  std::optional<AnimationFrame> current_;
  std::deque<AnimationFrame> behind_;  // the last frames shown, newest last
  std::deque<AnimationFrame> ahead_;   // frames stepped back over, next first
  std::optional<int> awaited_;         // the frame to show as soon as the worker has it
  QSize screenSize_;
  QTimer timer_;
  QElapsedTimer clock_;
  qint64 dueMs_ = 0;
  bool paused_ = false;
  bool ended_ = false;
  bool damaged_ = false;
};

}  // namespace view
