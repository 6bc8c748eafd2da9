#include "settings/RecentFolders.h"

#include "base/NumberRules.h"
#include "settings/SettingsFile.h"

namespace settings {

namespace {

// Paths compare as the file system does: exactly where names are case-sensitive.
constexpr Qt::CaseSensitivity kPathCase =
#if defined(Q_OS_WIN) || defined(Q_OS_MACOS)
    Qt::CaseInsensitive;
#else
    Qt::CaseSensitive;
#endif

}  // namespace

void AddRecentFolder(settings::SettingsStore& settings, const QString& folder) {
  const QString added = numbers::TrimBlanks(folder);
  if (!settings.RecentEnabled || added.isEmpty() || !FitsOnALine(added)) return;
  std::array<QString, settings::kRecentFolderSlots> rebuilt;
  size_t next = 0;
  rebuilt[next++] = added;
  for (const QString& old : settings.RecentFolders) {
    if (next == rebuilt.size()) break;
    if (old.compare(added, kPathCase) == 0) continue;
    rebuilt[next++] = old;
  }
  settings.RecentFolders = rebuilt;
}

}  // namespace settings
