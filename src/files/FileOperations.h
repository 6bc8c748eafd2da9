#pragma once
// File operations of Part 5.2 that other Parts already call.

#include <QString>

namespace files {

// Renames a file; never replaces another file (a change of capitals only is allowed).
bool RenameFile(const QString& from, const QString& to);

}  // namespace files
