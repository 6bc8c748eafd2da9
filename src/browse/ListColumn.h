#pragma once
// FitListColumn's measure (Part 2.1): the widest entry text plus 20 pixels; an empty
// list gives 20 pixels. The entry being edited counts with its new name.

#include "browse/FolderScan.h"

#include <functional>
#include <vector>

namespace browse {

struct EditedEntry {
  int Row = -1;
  QString NewName;
};

int FitListColumnWidth(const std::vector<FileEntry>& entries, const std::function<int(const QString&)>& textWidth,
                       const EditedEntry& edited = {});

}  // namespace browse
