#include "shell/FolderEntry.h"

#include "shell/FreedesktopShell.h"

#include <QCoreApplication>

namespace shell {

namespace {

FreedesktopShell Desktop() { return FreedesktopShell(QCoreApplication::applicationFilePath()); }

}  // namespace

bool FolderEntryExists() { return Desktop().FolderEntryExists(); }

void SetFolderEntry(bool present) { present ? Desktop().AddFolderEntry() : Desktop().RemoveFolderEntry(); }

QString FolderEntryUnavailable() { return {}; }

}  // namespace shell
