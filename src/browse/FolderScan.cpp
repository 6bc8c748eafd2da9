#include "browse/FolderScan.h"

#include "browse/FileTypes.h"
#include "browse/ListOrder.h"
#include "browse/Paths.h"

#include <QFile>

#include <algorithm>
#include <filesystem>

namespace browse {

void SortEntries(std::vector<FileEntry>& entries) {
  std::sort(entries.begin(), entries.end(),
            [](const FileEntry& a, const FileEntry& b) { return ListTextLess(a.DisplayName, b.DisplayName); });
}

std::vector<FileEntry> ScanFolder(const QString& folder, bool imageExtensionsOnly) {
  namespace fs = std::filesystem;
  std::vector<FileEntry> entries;
  std::error_code error;
  fs::directory_iterator it(fs::path(QFile::encodeName(folder).toStdString()), error);
  for (; !error && it != fs::directory_iterator(); it.increment(error)) {
    std::error_code typeError;
    if (it->is_directory(typeError) || !it->is_regular_file(typeError)) continue;
    const QString name = QFile::decodeName(it->path().filename().native().c_str());
    if (imageExtensionsOnly && !IsScanExtension(FileExtension(name))) continue;
    entries.push_back({DisplayName(name), name});
  }
  SortEntries(entries);
  return entries;
}

}  // namespace browse
