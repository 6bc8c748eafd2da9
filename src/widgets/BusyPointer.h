#pragma once
// ShowBusyPointer / RestorePointer / IsBusyPointer: the hourglass that brackets long work.

namespace widgets {

void ShowBusyPointer();
void RestorePointer();
bool IsBusyPointer();

// Shows the hourglass unless it is already showing, and restores it on leaving
// only when it was this guard that set it.
class BusyPointerGuard {
 public:
  BusyPointerGuard();
  ~BusyPointerGuard();
  BusyPointerGuard(const BusyPointerGuard&) = delete;
  BusyPointerGuard& operator=(const BusyPointerGuard&) = delete;

 private:
  bool setHere_;
};

}  // namespace widgets
