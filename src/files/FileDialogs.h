#pragma once
// The file dialogs' filters and rules, without widgets: Open File's list of
// types, Save As's twelve formats with the entry preselected for an extension, the types
// that can be read but not written, and the read-only note of "Can't save file".

#include <QString>
#include <QStringList>

#include <vector>

namespace files {

struct DialogFilter {
  QString Description;  // as the dialog shows it: "Jpeg (*.jpg)"
  QStringList Patterns;
};

// "All image files", one entry per type, "All files" last.
std::vector<DialogFilter> OpenFileFilters();
// The twelve Save As formats, filter index 1 .. 12 in this order.
std::vector<DialogFilter> SaveAsFilters();
// The 1-based Save As entry for an extension (jpeg gives 4), 0 when it has none.
int SaveAsFilterIndex(const QString& lowerCaseExtension);
// The chosen path, given the extension of the chosen Save As entry when it has none.
QString WithSaveAsExtension(const QString& path, int filterIndex);
// Qt's name filters: the description shown, the patterns in a last pair of parentheses
// that the dialog hides (QFileDialog::HideNameFilterDetails).
QStringList QtNameFilters(const std::vector<DialogFilter>& filters);

// "cal", "cur", "emf", "gif", "ico", "rle", "wmf": opened, never written by Save.
bool CannotBeWritten(const QString& lowerCaseExtension);
// The Windows read-only attribute, on Linux the owner's write permission being off (so it
// holds for root too). Saving never replaces such a file.
bool IsMarkedReadOnly(const QString& path);
// ". File is marked as read-only" when the file exists and is marked so, else "".
QString ReadOnlyNote(const QString& path);
// The same for the destination of Copy To and Move To.
QString DestinationReadOnlyNote(const QString& path);

}  // namespace files
