#include "settings/SettingsStore.h"

#include <QLocale>

namespace settings {

SettingsStore DefaultSettings(const base::ScreenMetrics& metrics) {
  SettingsStore store;
  store.WindowLeft = (metrics.ScreenWidthTwips - store.WindowWidth) / 2;
  store.WindowTop = (metrics.ScreenHeightTwips - store.WindowHeight) / 2;
  store.SplitterPos = 130 * metrics.TwipsPerPixelX;
  const QLocale locale;
  if (locale.language() != QLocale::C && locale.measurementSystem() == QLocale::MetricSystem) {
    store.PrintUnits = 1;
    store.PrintMargins.fill(1.8f);
  }
  return store;
}

}  // namespace settings
