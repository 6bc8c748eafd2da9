// Arbitrary bytes as "Ini.in": reading never crashes or hangs, always leaves a usable
// SettingsStore, and what is written back is always the current format, line for line.
#include "settings/SettingsFile.h"
#include "settings/SettingsSchema.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const base::ScreenMetrics metrics;
  settings::SettingsStore store = settings::DefaultSettings(metrics);
  settings::ReadSettingsText(QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)), metrics,
                        store);
  if (store.SplitterPos < 30 * metrics.TwipsPerPixelX || store.SplitterPos > 360 * metrics.TwipsPerPixelX) {
    std::abort();
  }
  const QByteArray written =
      settings::WriteSettingsText(store, metrics, settings::PlacementFromSettings(store, metrics));
  const auto lines = static_cast<qsizetype>(settings::SettingsLines().size());
  if (written.count("\r\n") != lines || written.count('\n') != lines) std::abort();
  // A kind outside 0..2 shifts every later line on reading (kept on purpose), so the
  // written file reads back the same only for the three known kinds.
  if (store.LastOpenKind < 0 || store.LastOpenKind > 2) return 0;
  settings::SettingsStore reread = settings::DefaultSettings(metrics);
  settings::ReadSettingsText(written, metrics, reread);
  if (reread.RecentFolders != store.RecentFolders || reread.StartOption != store.StartOption) std::abort();
  return 0;
}
