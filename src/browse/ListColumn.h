#pragma once
// FitListColumn's measure: the widest entry text plus 20 pixels; an empty
// list gives 20 pixels. The entry being edited counts with its new name.

#include "browse/FolderScan.h"

#include <functional>
#include <vector>

namespace browse {

struct EditedEntry {
  int Row = -1;
  QString NewName;
};

// Shaping a text exactly is slow for 100,000 names, so each name is first estimated as
// the sum of its characters' advances; only the names whose estimate comes near the
// widest are measured exactly. Kerning moves a name's width by a few pixels at most.
struct TextMeasure {
  std::function<int(const QString&)> Exact;
  std::function<int(QChar)> Advance;
};

int FitListColumnWidth(const std::vector<FileEntry>& entries, const TextMeasure& measure,
                       const EditedEntry& edited = {});

}  // namespace browse
