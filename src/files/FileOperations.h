#pragma once
// Operations on the user's files: renaming, and deleting to the desktop's Trash.

#include <QString>

#include <functional>

namespace files {

// Renames a file; never replaces another file (a change of capitals only is allowed).
bool RenameFile(const QString& from, const QString& to);

// False when the name holds any of \ / : * ? " < > |.
bool IsValidFileName(const QString& name);
// True when the extensions differ, capitals aside.
bool ExtensionDiffers(const QString& first, const QString& second);

// Rename with its questions: a different extension is confirmed by `confirm` (with
// "The file extension is different. Do you want to continue?"); another file of the new
// name is never replaced ("File already exists"), a change of capitals only is allowed.
// Message is empty on success or when the user said No.
struct RenameOutcome {
  bool Renamed = false;
  QString Message;
};
RenameOutcome RenameWithChecks(const QString& from, const QString& to,
                               const std::function<bool(const QString& question)>& confirm);

// "The file name can't include any of the following characters: ..."
QString ForbiddenNameMessage();

// Rename to a name the user typed, the one rule of the Rename dialog and of the list's
// own editor: the typed name is trimmed (the old one names the file exactly); an empty or
// unchanged name is nothing to do; a name with \ / : * ? " < > | (or "." and "..") is
// refused with ForbiddenNameMessage(); then RenameWithChecks in the file's folder.
struct TypedRename {
  RenameOutcome Outcome;
  QString NewPath;           // set when renamed
  bool NothingToDo = false;  // empty or the same name: not a failure
};
TypedRename RenameToTypedName(const QString& file, const QString& typedName,
                              const std::function<bool(const QString& question)>& confirm);

// Copy To: the copy is written beside its destination and renamed over it once whole and
// equal to the source, so a failure leaves no partial file and the destination as it
// was. A destination marked read-only is not replaced.
bool CopyFileSafely(const QString& from, const QString& to);
// Move To: a rename where the file system allows it (an existing destination replaced in
// one step), otherwise a safe copy and then the source removed; any failure leaves the
// source where it was.
bool MoveFileSafely(const QString& from, const QString& to);

// Moves the file to the Trash of its own volume (the freedesktop Trash: files/ and
// info/NAME.trashinfo), so any file manager can restore it. It is never deleted outright:
// where the Trash cannot take it, false, and the file stays.
bool MoveToTrash(const QString& path);

// The question asked before, in a file manager's words: Move "NAME" to the Trash?
QString MoveToTrashQuestion(const QString& path);

}  // namespace files
