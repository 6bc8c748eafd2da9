#include "view/FrameQueue.h"

#include "view/ScreenCopy.h"

#include <algorithm>
#include <future>

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

FrameQueue::FrameQueue(QString path, QSize screenSize, int first, std::function<void()> arrived)
    : path_(std::move(path)), arrived_(std::move(arrived)), restartAt_(first), screenSize_(screenSize) {}

void FrameQueue::Start() {
  if (!thread_.joinable()) thread_ = std::thread([this] { Work(); });
}

FrameQueue::~FrameQueue() {
  {
    const std::lock_guard lock(mutex_);
    stopping_ = true;
  }
  wake_.notify_all();
  if (thread_.joinable()) thread_.join();
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

std::optional<imaging::FrameTiming> FrameQueue::Timing() const {
  const std::lock_guard lock(mutex_);
  return timing_;
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

// Decoding is sequential; each frame's copy for the screen is made on the other core while
// the next frame decodes, and the frame is queued once both are done.
void FrameQueue::Work() {
  std::optional<imaging::FrameTiming> timing = imaging::ReadFrameTiming(path_);
  std::unique_lock lock(mutex_);
  timing_ = timing;
  damaged_ = finished_ = !timing;
  const int loops = timing ? timing->Loops : 1;
  lock.unlock();
  arrived_();
  lock.lock();
  std::optional<imaging::FrameReader> reader;
  std::optional<AnimationFrame> copying;
  std::future<QImage> copy;
  // The frame whose copy is being made, queued when the copy is done; false when dropped.
  const auto land = [&] {
    if (!copying) return false;
    lock.unlock();
    copying->Screen = copy.get();
    lock.lock();
    const bool kept = !restartAt_ && !stopping_;
    if (kept) queued_.push_back(std::move(*copying));
    copying.reset();
    return kept;
  };
  while (!stopping_) {
    if (restartAt_) {
      land();
      queued_.clear();
      reader.emplace(path_);
      skipTo_ = *restartAt_;
      restartAt_.reset();
    }
    if (finished_ || queued_.size() + (copying ? 1 : 0) >= capacity_) {
      if (land()) {
        lock.unlock();
        arrived_();
        lock.lock();
        continue;
      }
      wake_.wait(lock, [this] { return stopping_ || restartAt_ || (!finished_ && queued_.size() < capacity_); });
      continue;
    }
    // Decoding runs unlocked; a restart asked meanwhile drops the frame.
    const int index = reader->NextIndex();
    const QSize size = screenSize_;
    lock.unlock();
    std::optional<imaging::Image> picture = reader->Next();
    lock.lock();
    if (restartAt_ || stopping_) continue;
    bool arrived = land();
    if (picture && index >= skipTo_) {
      if (index == 0) capacity_ = CapacityFor(*picture);
      const QSize wanted = size.isEmpty() ? QSize(picture->Width(), picture->Height()) : size;
      copy = std::async(std::launch::async, [frame = *picture, wanted] { return ScreenCopy(frame, wanted, true); });
      copying = AnimationFrame{std::move(*picture), QImage(), index};
    } else if (!picture && reader->Failed()) {
      arrived = damaged_ = finished_ = true;
    } else if (!picture && (loops == 0 || ++loopsPlayed_ < loops)) {
      reader.emplace(path_);
      skipTo_ = 0;
    } else if (!picture) {
      arrived = finished_ = true;
    }
    if (!arrived) continue;
    lock.unlock();
    arrived_();
    lock.lock();
  }
  if (copying) copy.wait();
}

}  // namespace view
