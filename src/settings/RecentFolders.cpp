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

QStringList RecentFolderList(const settings::SettingsStore& settings) {
  QStringList folders;
  for (const QString& folder : settings.RecentFolders) {
    if (!folder.isEmpty()) folders << folder;
  }
  return folders;
}

void RemoveRecentFolder(settings::SettingsStore& settings, int slot) {
  auto& slots = settings.RecentFolders;
  if (slot < 0 || slot >= int(slots.size())) return;
  for (size_t i = size_t(slot); i + 1 < slots.size(); ++i) slots[i] = slots[i + 1];
  slots.back().clear();
}

void ClearRecentFolders(settings::SettingsStore& settings) {
  for (QString& folder : settings.RecentFolders) folder.clear();
}

}  // namespace settings
