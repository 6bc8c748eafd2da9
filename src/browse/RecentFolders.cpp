#include "browse/RecentFolders.h"

#include "app/Vb.h"

namespace browse {

void AddRecentFolder(app::SettingsStore& settings, const QString& folder) {
  const QString added = vb::Trim(folder);
  if (!settings.RecentEnabled || added.isEmpty()) return;
  std::array<QString, app::kRecentFolderSlots> rebuilt;
  size_t next = 0;
  rebuilt[next++] = added;
  for (const QString& old : settings.RecentFolders) {
    if (next == rebuilt.size()) break;
    if (old.compare(added, Qt::CaseInsensitive) == 0) continue;
    rebuilt[next++] = old;
  }
  settings.RecentFolders = rebuilt;
}

}  // namespace browse
