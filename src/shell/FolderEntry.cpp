#include "shell/FolderEntry.h"

namespace shell {

bool FolderEntryExists() { return false; }

void SetFolderEntry(bool) {}

QString FolderEntryUnavailable() {
  return QStringLiteral("Not available yet: Vistrel cannot add entries to this desktop's file manager.");
}

}  // namespace shell
