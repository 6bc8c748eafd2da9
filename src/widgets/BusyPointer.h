#pragma once
// The busy pointer that brackets long work, as scopes: a BusyPointerGuard shows it while
// it lives and guards nest; a NormalPointerGuard gives the normal pointer back while the
// user answers a question in the middle of such work, and the busy one returns after.

namespace widgets {

bool IsBusyPointer();
// Clears every pointer the program set (the window does this when it is activated).
void RestorePointer();

class BusyPointerGuard {
 public:
  BusyPointerGuard();
  ~BusyPointerGuard();
  BusyPointerGuard(const BusyPointerGuard&) = delete;
  BusyPointerGuard& operator=(const BusyPointerGuard&) = delete;
};

class NormalPointerGuard {
 public:
  NormalPointerGuard();
  ~NormalPointerGuard();
  NormalPointerGuard(const NormalPointerGuard&) = delete;
  NormalPointerGuard& operator=(const NormalPointerGuard&) = delete;

 private:
  bool pushed_;
};

}  // namespace widgets
