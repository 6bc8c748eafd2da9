#pragma once
// The recent folders list of Part 2.2 (20 slots, slot 0 the most recent).

#include "app/SettingsStore.h"

#include <QString>

namespace browse {

// Moves (or puts) the trimmed folder at the top, dropping an entry equal to it
// ignoring case and the oldest one when full. Nothing when disabled or empty.
void AddRecentFolder(app::SettingsStore& settings, const QString& folder);

}  // namespace browse
