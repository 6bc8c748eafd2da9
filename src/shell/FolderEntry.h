#pragma once
// The file manager's "Open with Vistrel" entry on folders. The desktop integration that
// adds it is not available yet: the entry reads as absent, and adding or removing it does
// nothing.

#include <QString>

namespace shell {

bool FolderEntryExists();
void SetFolderEntry(bool present);
// Why the entry cannot be offered here; empty once it can.
QString FolderEntryUnavailable();

}  // namespace shell
