#pragma once
// Files and folders that a process of ours keeps only while it works (a save's part file,
// the helper's temporary folder) carry the process's id in their names, "-pid1234-". When
// that process is gone, whatever it left is debris and any later run removes it, whatever
// its age; a name without an id is debris after ten minutes.

#include <QDir>
#include <QString>

namespace base {

// "-pid<this process's id>-", for the names of such files.
QString OwnerTag();

// True when the name carries the id of a process that no longer runs, or carries none and
// the file was last changed more than ten minutes ago.
bool IsLeftover(const QFileInfo& entry);

// Removes the leftovers among the folder's entries that match the pattern (files and
// folders, hidden ones included).
void SweepLeftovers(const QDir& folder, const QString& pattern);

}  // namespace base
