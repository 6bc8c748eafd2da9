#pragma once
// Waiting for work on another thread while the window stays painted: the busy pointer
// shows, the user's clicks and keys are held back (so no command starts in between),
// and Esc asks the work to stop.

#include <QFuture>

#include <atomic>
#include <functional>

namespace widgets {

struct WaitOptions {
  // Esc returns at once, leaving the work to finish on its own (its result unwanted).
  bool LeaveOnEscape = false;
  // Called with true once the work has taken a quarter of a second, and with false when the
  // wait ends after that: the moment to show that something is going on.
  std::function<void(bool slow)> Slow;
};

// Runs the event loop until `work` has finished; true when Esc set `cancel` meanwhile.
bool WaitForWork(const QFuture<void>& work, std::atomic_bool& cancel, const WaitOptions& options = {});

}  // namespace widgets
