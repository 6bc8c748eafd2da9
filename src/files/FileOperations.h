#pragma once
// The file operations that the list's rename already needs.

#include <QString>

namespace files {

// Renames a file; never replaces another file (a change of capitals only is allowed).
bool RenameFile(const QString& from, const QString& to);

}  // namespace files
