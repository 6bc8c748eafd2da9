#include "settings/RecentFolders.h"

#include "base/NumberRules.h"

namespace settings {

void AddRecentFolder(settings::SettingsStore& settings, const QString& folder) {
  const QString added = numbers::TrimBlanks(folder);
  if (!settings.RecentEnabled || added.isEmpty()) return;
  std::array<QString, settings::kRecentFolderSlots> rebuilt;
  size_t next = 0;
  rebuilt[next++] = added;
  for (const QString& old : settings.RecentFolders) {
    if (next == rebuilt.size()) break;
    if (old.compare(added, Qt::CaseInsensitive) == 0) continue;
    rebuilt[next++] = old;
  }
  settings.RecentFolders = rebuilt;
}

}  // namespace settings
