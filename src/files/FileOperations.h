#pragma once
// Operations on the user's files: renaming, and deleting to the desktop's Trash.

#include <QString>

namespace files {

// Renames a file; never replaces another file (a change of capitals only is allowed).
bool RenameFile(const QString& from, const QString& to);

// Moves the file to the Trash of its own volume (the freedesktop Trash: files/ and
// info/NAME.trashinfo), so any file manager can restore it. It is never deleted outright:
// where the Trash cannot take it, false, and the file stays.
bool MoveToTrash(const QString& path);

// The question asked before, in a file manager's words: Move "NAME" to the Trash?
QString MoveToTrashQuestion(const QString& path);

}  // namespace files
