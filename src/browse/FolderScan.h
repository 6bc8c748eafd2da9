#pragma once
// The folder scan, without widgets: which files of a folder the list shows,
// under which text, in which order.

#include <QString>

#include <atomic>
#include <vector>

namespace browse {

// One list entry: the text shown (DisplayName) and the file's real name, which is
// what opening uses on a case-sensitive file system.
struct FileEntry {
  QString DisplayName;
  QString FileName;
  bool operator==(const FileEntry&) const = default;
};

// Which files the scan lists: every one, the scan extensions of the classic types only, or
// those and today's.
enum class ScanFilter { AllFiles, ClassicImages, Images };

// The files of `folder` (hidden ones included, folders never), filtered by the scan
// extensions, sorted in list order. An unreadable folder gives an empty list, and so does
// a scan stopped by `cancel` (checked between entries).
std::vector<FileEntry> ScanFolder(const QString& folder, ScanFilter filter, const std::atomic_bool* cancel = nullptr);

// Sorts entries in the one list order (by their shown text).
void SortEntries(std::vector<FileEntry>& entries);

}  // namespace browse
