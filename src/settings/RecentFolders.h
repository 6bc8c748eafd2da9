#pragma once
// The recent folders list (20 slots, slot 0 the most recent).

#include "settings/SettingsStore.h"

#include <QString>
#include <QStringList>

namespace settings {

// Moves (or puts) the trimmed folder at the top, dropping an entry that names the same
// folder (ignoring case only where the file system does) and the oldest one when full.
// Nothing when disabled or empty.
void AddRecentFolder(settings::SettingsStore& settings, const QString& folder);

// The recent folders in slot order, empty slots left out.
QStringList RecentFolderList(const settings::SettingsStore& settings);

// Removes the folder in `slot`; the later ones move up, so no gap is left.
void RemoveRecentFolder(settings::SettingsStore& settings, int slot);

// Empties every slot.
void ClearRecentFolders(settings::SettingsStore& settings);

}  // namespace settings
