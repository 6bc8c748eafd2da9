#pragma once
// The recent folders list (20 slots, slot 0 the most recent).

#include "settings/SettingsStore.h"

#include <QString>

namespace settings {

// Moves (or puts) the trimmed folder at the top, dropping an entry that names the same
// folder (ignoring case only where the file system does) and the oldest one when full.
// Nothing when disabled or empty.
void AddRecentFolder(settings::SettingsStore& settings, const QString& folder);

}  // namespace settings
