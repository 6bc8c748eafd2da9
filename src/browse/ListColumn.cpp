#include "browse/ListColumn.h"

#include <algorithm>

namespace browse {

int FitListColumnWidth(const std::vector<FileEntry>& entries, const std::function<int(const QString&)>& textWidth,
                       const EditedEntry& edited) {
  int widest = 0;
  for (size_t i = 0; i < entries.size(); ++i) {
    const bool isEdited = static_cast<int>(i) == edited.Row;
    widest = std::max(widest, textWidth(isEdited ? edited.NewName : entries[i].DisplayName));
  }
  return widest + 20;
}

}  // namespace browse
