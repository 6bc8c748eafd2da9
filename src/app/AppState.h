#pragma once
// The application state that modMain kept in module variables, as one explicit object
// owned by the main window and handed to whoever needs it.

#include "app/SettingsStore.h"

namespace app {

enum ViewModes : int { kViewImage = 0, kViewListAndImage = 1, kViewThumbnails = 2 };

struct AppState {
  SettingsStore Settings;
  ScreenMetrics Metrics;
  int ViewMode = kViewImage;
  bool ImageLoaded = false;
  bool StartingUp = false;
  bool DialogCancelled = false;
  int ChangeLevel = 0;  // Part 4.4: 0 unchanged; editing raises it

  // LoadDefaultSettings of Part 1.2 (the menus' view checks are the window's to apply).
  void LoadDefaultSettings() {
    Settings = DefaultSettings(Metrics);
    ViewMode = kViewImage;
  }
};

}  // namespace app
