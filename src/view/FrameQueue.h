#pragma once
// The worker behind AnimationPlayer: a thread that decodes an animation's frames in order,
// loop after loop, into a short queue, and waits while the queue is full.

#include "view/AnimationPlayer.h"

#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

namespace view {

class FrameQueue {
 public:
  // Frames from `first` on. `arrived` is called on the worker's thread each time a frame is
  // queued or the frames end.
  FrameQueue(QString path, int loops, QSize screenSize, int first, std::function<void()> arrived);
  ~FrameQueue();
  FrameQueue(const FrameQueue&) = delete;
  FrameQueue& operator=(const FrameQueue&) = delete;

  // From frame `index` on, in a first loop again; what was queued goes.
  void Restart(int index);
  std::optional<AnimationFrame> Take();
  // No frame will come: the last loop is done, or a frame could not be read.
  bool Finished() const;
  bool Damaged() const;
  void SetScreenSize(QSize size);

 private:
  void Work();

  const QString path_;
  const int loops_;
  const std::function<void()> arrived_;
  mutable std::mutex mutex_;
  std::condition_variable wake_;
  std::deque<AnimationFrame> queued_;
  size_t capacity_ = 2;  // set from the first frame's size
  std::optional<int> restartAt_;
  int skipTo_ = 0;  // frames before it are decoded (each depends on the last) but not queued
  int loopsPlayed_ = 0;
  QSize screenSize_;
  bool finished_ = false;
  bool damaged_ = false;
  bool stopping_ = false;
  std::thread thread_;  // last: started once everything above is ready
};

}  // namespace view
