#pragma once
// The orders the list can take besides its own by name: by the date a photo was taken (its
// EXIF, else the file's last change), by the last change, by size or by type (the
// extension); any of them descending. Entries the key does not tell apart keep the name order.

#include "browse/FolderScan.h"

#include <atomic>
#include <vector>

namespace browse {

enum class SortKey { Name, DateTaken, Modified, Size, Type };

// `entries` of `folder`, in name order, put in the order asked; each file's facts are read
// from the disk (its header, for the date taken). `cancel` stops the reading between files.
void SortByKey(std::vector<FileEntry>& entries, const QString& folder, SortKey key, bool descending,
               const std::atomic_bool* cancel = nullptr);

}  // namespace browse
