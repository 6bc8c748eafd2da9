#include "view/FrameQueue.h"

#include "view/ScreenCopy.h"

#include <algorithm>

namespace view {

namespace {

// Frames queued ahead: about 48 MB of them, at least two and at most eight.
constexpr qint64 kQueueBytes = qint64(48) << 20;
constexpr size_t kMinQueued = 2, kMaxQueued = 8;

size_t CapacityFor(const imaging::Image& frame) {
  const qint64 bytes = std::max<qint64>(1, qint64(frame.Width()) * frame.Height() * frame.Bands() * 2);  // the frame and its copy
  return std::clamp(size_t(kQueueBytes / bytes), kMinQueued, kMaxQueued);
}

}  // namespace

FrameQueue::FrameQueue(QString path, int loops, QSize screenSize, int first, std::function<void()> arrived)
    : path_(std::move(path)), loops_(loops), arrived_(std::move(arrived)), restartAt_(first), screenSize_(screenSize),
      thread_([this] { Work(); }) {}

FrameQueue::~FrameQueue() {
  {
    const std::lock_guard lock(mutex_);
    stopping_ = true;
  }
  wake_.notify_all();
  thread_.join();
}

void FrameQueue::Restart(int index) {
  {
    const std::lock_guard lock(mutex_);
    queued_.clear();
    restartAt_ = index;
    loopsPlayed_ = 0;
    finished_ = damaged_ = false;
  }
  wake_.notify_all();
}

std::optional<AnimationFrame> FrameQueue::Take() {
  std::optional<AnimationFrame> frame;
  {
    const std::lock_guard lock(mutex_);
    if (queued_.empty()) return std::nullopt;
    frame = std::move(queued_.front());
    queued_.pop_front();
  }
  wake_.notify_all();
  return frame;
}

bool FrameQueue::Finished() const {
  const std::lock_guard lock(mutex_);
  return finished_ && queued_.empty();
}

bool FrameQueue::Damaged() const {
  const std::lock_guard lock(mutex_);
  return damaged_;
}

void FrameQueue::SetScreenSize(QSize size) {
  const std::lock_guard lock(mutex_);
  screenSize_ = size;
}

void FrameQueue::Work() {
  std::unique_lock lock(mutex_);
  std::optional<imaging::FrameReader> reader;
  while (!stopping_) {
    if (restartAt_) {
      reader.emplace(path_);
      skipTo_ = *restartAt_;
      restartAt_.reset();
    }
    if (finished_ || queued_.size() >= capacity_) {
      wake_.wait(lock, [this] { return stopping_ || restartAt_ || (!finished_ && queued_.size() < capacity_); });
      continue;
    }
    // Decoding runs unlocked; a restart asked meanwhile drops the frame.
    const int index = reader->NextIndex();
    const QSize size = screenSize_;
    lock.unlock();
    std::optional<imaging::Image> picture = reader->Next();
    QImage screen = picture && index >= skipTo_ ? ScreenCopy(*picture, size.isEmpty() ? QSize(picture->Width(), picture->Height()) : size) : QImage();
    lock.lock();
    if (restartAt_ || stopping_) continue;
    if (picture) {
      if (index == 0) capacity_ = CapacityFor(*picture);
      if (index >= skipTo_) queued_.push_back({std::move(*picture), std::move(screen), index});
      if (index < skipTo_) continue;
    } else if (reader->Failed()) {
      damaged_ = finished_ = true;
    } else if (loops_ == 0 || ++loopsPlayed_ < loops_) {
      reader.emplace(path_);
      skipTo_ = 0;
      continue;
    } else {
      finished_ = true;
    }
    lock.unlock();
    arrived_();
    lock.lock();
  }
}

}  // namespace view
