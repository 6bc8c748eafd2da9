#pragma once
// What the whole program shares besides the document: the user's settings, the screen's
// twips per pixel and whether the start-up sequence is still running. Owned by the main
// window and handed by reference to whoever needs it; there is no global.

#include "settings/SettingsStore.h"

namespace document {

struct AppState {
  settings::SettingsStore Settings;
  base::ScreenMetrics Metrics;
  // While true, change events and layout passes do nothing (start-up, or code filling
  // controls whose change events must not react).
  bool StartingUp = false;

  void LoadDefaultSettings() { Settings = settings::DefaultSettings(Metrics); }
};

}  // namespace document
