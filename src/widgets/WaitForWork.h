#pragma once
// Waiting for work on another thread while the window stays painted: the busy pointer
// shows, the user's clicks and keys are held back (so no command starts in between),
// and Esc asks the work to stop.

#include <QFuture>

#include <atomic>

namespace widgets {

// Runs the event loop until `work` has finished; true when Esc set `cancel` meanwhile.
bool WaitForWork(const QFuture<void>& work, std::atomic_bool& cancel);

}  // namespace widgets
