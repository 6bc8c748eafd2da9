#include "settings/SettingsStore.h"

namespace settings {

SettingsStore DefaultSettings(const base::ScreenMetrics& metrics) {
  SettingsStore store;
  store.WindowLeft = (metrics.ScreenWidthTwips - store.WindowWidth) / 2;
  store.WindowTop = (metrics.ScreenHeightTwips - store.WindowHeight) / 2;
  store.SplitterPos = 130 * metrics.TwipsPerPixelX;
  return store;
}

}  // namespace settings
