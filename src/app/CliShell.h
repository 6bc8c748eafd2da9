#pragma once
// vistrel-cli associate [--remove] EXT... | associate --list, and folder-entry
// add | remove | status: the desktop integration of the viewer beside this program.

#include <QStringList>

namespace cli {

// Exit code: 0 done, 2 wrong words.
int Associate(const QStringList& words, const QString& viewer);
int FolderEntry(const QStringList& words, const QString& viewer);

}  // namespace cli
