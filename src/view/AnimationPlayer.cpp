#include "view/AnimationPlayer.h"

#include "view/FrameQueue.h"

#include <algorithm>

namespace view {

namespace {

constexpr size_t kKeptBehind = 4;  // frames a paused user can step back through at once

}  // namespace

AnimationPlayer::AnimationPlayer(QObject* parent) : QObject(parent) {
  timer_.setSingleShot(true);
  timer_.setTimerType(Qt::PreciseTimer);
  connect(&timer_, &QTimer::timeout, this, &AnimationPlayer::Tick);
}

AnimationPlayer::~AnimationPlayer() { queue_.reset(); }

void AnimationPlayer::Play(const QString& path, const imaging::Image& shown, int index) {
  Stop();
  timing_ = {};
  current_ = AnimationFrame{shown, QImage(), std::max(0, index)};
  paused_ = ended_ = damaged_ = false;
  queue_ = std::make_unique<FrameQueue>(path, screenSize_, current_->Index + 1, [this] {
    QMetaObject::invokeMethod(this, [this] { FrameArrived(); }, Qt::QueuedConnection);
  });
  // After the events waiting now, the first frame's paint among them.
  QTimer::singleShot(0, this, [this, queue = queue_.get()] {
    if (queue_.get() == queue) queue_->Start();
  });
  Q_EMIT StateChanged();
}

// The timing the worker has read: the first frame's time starts now. False while it is
// still being read; a file without one is no animation, and the player stops.
bool AnimationPlayer::TakeTiming() {
  if (timing_.Frames() > 0) return true;
  const std::optional<imaging::FrameTiming> timing = queue_->Timing();
  if (!timing) {
    if (queue_->Finished()) Stop();
    return false;
  }
  timing_ = *timing;
  current_->Index = std::min(current_->Index, timing_.Frames() - 1);
  clock_.start();
  dueMs_ = 0;
  ScheduleNext();
  Q_EMIT StateChanged();
  return true;
}

void AnimationPlayer::Stop() {
  if (!queue_) return;
  queue_.reset();
  timer_.stop();
  current_.reset();
  behind_.clear();
  ahead_.clear();
  awaited_.reset();
  Q_EMIT StateChanged();
}

void AnimationPlayer::SetScreenSize(QSize size) {
  screenSize_ = size;
  if (queue_) queue_->SetScreenSize(size);
}

void AnimationPlayer::SetPaused(bool paused) {
  if (!queue_ || paused == paused_) return;
  paused_ = paused;
  timer_.stop();
  awaited_.reset();
  if (!paused_ && ended_) {
    Restart(0);  // played again from the first frame
  } else if (!paused_) {
    dueMs_ = clock_.elapsed();
    ScheduleNext();
  }
  Q_EMIT StateChanged();
}

bool AnimationPlayer::CanStep(int delta) const {
  if (!queue_ || !paused_) return false;
  if (delta < 0) return current_->Index > 0;
  return !ahead_.empty() || !queue_->Finished();
}

void AnimationPlayer::Step(int delta) {
  if (!CanStep(delta)) return;
  if (delta > 0) return Tick();
  if (behind_.empty() || behind_.back().Index != current_->Index - 1) return Restart(current_->Index - 1);
  ahead_.push_front(std::move(*current_));
  current_ = std::move(behind_.back());
  behind_.pop_back();
  Q_EMIT FrameShown();
}

// Decodes again from `index`: the frames kept either side of the one shown are no use.
void AnimationPlayer::Restart(int index) {
  behind_.clear();
  ahead_.clear();
  ended_ = false;
  queue_->Restart(index);
  awaited_ = index;
}

// The next frame is due (or asked for by a step): the one stepped back over, else the
// worker's next. Not yet decoded, it shows the moment it arrives.
void AnimationPlayer::Tick() {
  if (!ahead_.empty()) {
    AnimationFrame next = std::move(ahead_.front());
    ahead_.pop_front();
    return Show(std::move(next));
  }
  if (std::optional<AnimationFrame> next = queue_->Take()) return Show(std::move(*next));
  if (queue_->Finished()) {
    ended_ = true;
    damaged_ = queue_->Damaged();
    Q_EMIT StateChanged();
    return;
  }
  awaited_ = -1;
}

void AnimationPlayer::FrameArrived() {
  if (!queue_ || !TakeTiming() || !awaited_) return;
  const int wanted = *awaited_;
  if (wanted == -1) {
    awaited_.reset();
    return Tick();
  }
  std::optional<AnimationFrame> frame = queue_->Take();
  if (!frame) return;
  awaited_.reset();
  current_ = std::move(*frame);
  Q_EMIT FrameShown();
  if (!paused_) {
    dueMs_ = clock_.elapsed();
    ScheduleNext();
  }
}

void AnimationPlayer::Show(AnimationFrame frame) {
  behind_.push_back(std::move(*current_));
  if (behind_.size() > kKeptBehind) behind_.pop_front();
  current_ = std::move(frame);
  Q_EMIT FrameShown();
  ScheduleNext();
}

// The next frame is due the current one's delay after this one was due, not after it
// landed, so the pace holds; a machine so busy that a whole delay was lost starts afresh
// rather than rushing through the frames it missed.
void AnimationPlayer::ScheduleNext() {
  if (paused_ || ended_ || timing_.Frames() == 0) return;
  const int delay = timing_.DelaysMs[size_t(current_->Index)];
  const qint64 now = clock_.elapsed();
  dueMs_ += delay;
  if (dueMs_ < now) dueMs_ = now + delay;
  timer_.start(int(std::max<qint64>(0, dueMs_ - now)));
}

}  // namespace view
