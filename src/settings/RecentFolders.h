#pragma once
// The recent folders list (20 slots, slot 0 the most recent).

#include "settings/SettingsStore.h"

#include <QString>

namespace settings {

// Moves (or puts) the trimmed folder at the top, dropping an entry equal to it
// ignoring case and the oldest one when full. Nothing when disabled or empty.
void AddRecentFolder(settings::SettingsStore& settings, const QString& folder);

}  // namespace settings
