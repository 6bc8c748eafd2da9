#include "browse/SortOrder.h"

#include "base/Paths.h"
#include "imaging/Metadata.h"

#include <QFileInfo>

#include <algorithm>
#include <variant>

namespace browse {

namespace {

using Key = std::variant<qint64, QString>;

Key KeyOf(const QString& path, SortKey sort) {
  const QFileInfo file(path);
  switch (sort) {
    case SortKey::DateTaken:
      if (const auto taken = imaging::ReadDateTaken(path)) return taken->toMSecsSinceEpoch();
      return file.lastModified().toMSecsSinceEpoch();
    case SortKey::Modified: return file.lastModified().toMSecsSinceEpoch();
    case SortKey::Size: return file.size();
    case SortKey::Type: return file.suffix().toLower();
    case SortKey::Name: break;
  }
  return qint64(0);
}

}  // namespace

void SortByKey(std::vector<FileEntry>& entries, const QString& folder, SortKey key, bool descending, const std::atomic_bool* cancel) {
  if (key == SortKey::Name) {
    if (descending) std::reverse(entries.begin(), entries.end());
    return;
  }
  std::vector<std::pair<Key, FileEntry>> keyed;
  keyed.reserve(entries.size());
  for (FileEntry& entry : entries) {
    if (cancel && cancel->load()) {
      entries.clear();  // the scan was stopped: it lists nothing
      return;
    }
    keyed.emplace_back(KeyOf(base::JoinPath(folder, entry.FileName), key), std::move(entry));
  }
  std::stable_sort(keyed.begin(), keyed.end(), [descending](const auto& a, const auto& b) {
    return descending ? b.first < a.first : a.first < b.first;
  });
  for (size_t i = 0; i < keyed.size(); ++i) entries[i] = std::move(keyed[i].second);
}

}  // namespace browse
