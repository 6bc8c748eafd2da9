#include "browse/FolderScan.h"
#include "base/FileNames.h"

#include "browse/FileTypes.h"
#include "browse/ListOrder.h"
#include "base/Paths.h"

#include <QFile>

#include <dirent.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstring>

namespace browse {

namespace {

// The extension test on the raw name, before any text is decoded: most files of a
// large folder are rejected or accepted here without an allocation.
bool HasScanExtension(const char* name, bool modern) {
  const char* dot = std::strrchr(name, '.');
  if (!dot) return false;
  char lower[8];
  size_t n = 0;
  for (const char* c = dot + 1; *c; ++c) {
    if (*c == ' ') continue;  // FileExtension trims blanks
    if (n == sizeof lower - 1) return false;
    lower[n++] = static_cast<char>(*c >= 'A' && *c <= 'Z' ? *c - 'A' + 'a' : *c);
  }
  lower[n] = '\0';
  return IsScanExtension(QString::fromLatin1(lower, static_cast<qsizetype>(n)), modern);
}

bool IsRegularFile(int folderFd, const dirent* entry) {
  if (entry->d_type == DT_REG) return true;
  if (entry->d_type != DT_LNK && entry->d_type != DT_UNKNOWN) return false;
  struct stat info {};
  return fstatat(folderFd, entry->d_name, &info, 0) == 0 && S_ISREG(info.st_mode);
}

}  // namespace

void SortEntries(std::vector<FileEntry>& entries) {
  std::sort(entries.begin(), entries.end(),
            [](const FileEntry& a, const FileEntry& b) { return ListTextLess(a.DisplayName, b.DisplayName); });
}

std::vector<FileEntry> ScanFolder(const QString& folder, ScanFilter filter, const std::atomic_bool* cancel) {
  std::vector<FileEntry> entries;
  DIR* dir = folder.isEmpty() ? nullptr : opendir(base::EncodeFileName(folder).constData());
  if (!dir) return entries;
  while (const dirent* entry = readdir(dir)) {
    if (cancel && cancel->load(std::memory_order_relaxed)) {
      closedir(dir);
      return {};
    }
    if (filter != ScanFilter::AllFiles && !HasScanExtension(entry->d_name, filter == ScanFilter::Images)) continue;
    if (!IsRegularFile(dirfd(dir), entry)) continue;
    const QString name = base::DecodeFileName(entry->d_name);
    entries.push_back({base::DisplayName(name), name});
  }
  closedir(dir);
  SortEntries(entries);
  return entries;
}

}  // namespace browse
