#pragma once
// The worker behind AnimationPlayer: a thread that reads an animation's timing, then decodes
// its frames in order, loop after loop, into a short queue, and waits while the queue is full.

#include "view/AnimationPlayer.h"

#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

namespace view {

class FrameQueue {
 public:
  // Frames from `first` on. `arrived` is called on the worker's thread once the timing is
  // read, each time a frame is queued, and when the frames end.
  FrameQueue(QString path, QSize screenSize, int first, std::function<void()> arrived);
  ~FrameQueue();
  // The worker starts here, so that whoever made the queue can paint the first frame first.
  void Start();
  FrameQueue(const FrameQueue&) = delete;
  FrameQueue& operator=(const FrameQueue&) = delete;

  // From frame `index` on, in a first loop again; what was queued goes.
  void Restart(int index);
  std::optional<AnimationFrame> Take();
  // The file's timing, once read; none until then, or when it is not an animation.
  std::optional<imaging::FrameTiming> Timing() const;
  // No frame will come: the last loop is done, or a frame could not be read.
  bool Finished() const;
  bool Damaged() const;
  void SetScreenSize(QSize size);

 private:
  void Work();

  const QString path_;
  const std::function<void()> arrived_;
  mutable std::mutex mutex_;
  std::condition_variable wake_;
  std::optional<imaging::FrameTiming> timing_;
  std::deque<AnimationFrame> queued_;
  size_t capacity_ = 2;  // set from the first frame's size
  std::optional<int> restartAt_;
  int skipTo_ = 0;  // frames before it are decoded (each depends on the last) but not queued
  int loopsPlayed_ = 0;
  QSize screenSize_;
  bool finished_ = false;
  bool damaged_ = false;
  bool stopping_ = false;
  std::thread thread_;
};

}  // namespace view
