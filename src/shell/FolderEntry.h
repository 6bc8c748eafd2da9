#pragma once
// The file managers' "Open with Vistrel" entry on folders, for this program.

#include <QString>

namespace shell {

bool FolderEntryExists();
void SetFolderEntry(bool present);
// Why the entry cannot be offered here; empty when it can.
QString FolderEntryUnavailable();

}  // namespace shell
