#include "app/SettingsStore.h"

namespace app {

SettingsStore DefaultSettings(const ScreenMetrics& metrics) {
  SettingsStore store;
  store.WindowLeft = (metrics.ScreenWidthTwips - store.WindowWidth) / 2;
  store.WindowTop = (metrics.ScreenHeightTwips - store.WindowHeight) / 2;
  store.SplitterPos = 130 * metrics.TwipsPerPixelX;
  return store;
}

}  // namespace app
