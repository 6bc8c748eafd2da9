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
#include <string>
#include <thread>
#include <unordered_set>

namespace browse {

namespace {

// The scan extensions as a hash set of short strings, made once for each list.
const std::unordered_set<std::string>& ScanExtensionSet(bool modern) {
  const auto make = [](bool today) {
    std::unordered_set<std::string> set;
    for (const QString& extension : ScanExtensions(today)) set.insert(extension.toStdString());
    return set;
  };
  static const std::unordered_set<std::string> classic = make(false), todays = make(true);
  return modern ? todays : classic;
}

// The extension test on the raw name, before any text is decoded: most files of a
// large folder are rejected or accepted here without an allocation.
bool HasScanExtension(const char* name, const std::unordered_set<std::string>& extensions) {
  const char* dot = std::strrchr(name, '.');
  if (!dot) return false;
  char lower[8];
  size_t n = 0;
  for (const char* c = dot + 1; *c; ++c) {
    if (*c == ' ') continue;  // FileExtension trims blanks
    if (n == sizeof lower - 1) return false;
    lower[n++] = static_cast<char>(*c >= 'A' && *c <= 'Z' ? *c - 'A' + 'a' : *c);
  }
  return extensions.count(std::string(lower, n)) != 0;  // short enough to stay off the heap
}

bool IsRegularFile(int folderFd, const dirent* entry) {
  if (entry->d_type == DT_REG) return true;
  if (entry->d_type != DT_LNK && entry->d_type != DT_UNKNOWN) return false;
  struct stat info {};
  return fstatat(folderFd, entry->d_name, &info, 0) == 0 && S_ISREG(info.st_mode);
}

}  // namespace

// A large folder is sorted in two halves at once, then merged: the list's comparison is
// most of a large scan's time.
void SortEntries(std::vector<FileEntry>& entries) {
  const auto less = [](const FileEntry& a, const FileEntry& b) { return ListTextLess(a.DisplayName, b.DisplayName); };
  if (entries.size() < 20000) return std::sort(entries.begin(), entries.end(), less);
  const auto middle = entries.begin() + std::ptrdiff_t(entries.size() / 2);
  std::thread firstHalf([&] { std::sort(entries.begin(), middle, less); });
  std::sort(middle, entries.end(), less);
  firstHalf.join();
  std::inplace_merge(entries.begin(), middle, entries.end(), less);
}

std::vector<FileEntry> ScanFolder(const QString& folder, ScanFilter filter, const std::atomic_bool* cancel) {
  std::vector<FileEntry> entries;
  DIR* dir = folder.isEmpty() ? nullptr : opendir(base::EncodeFileName(folder).constData());
  if (!dir) return entries;
  const auto& extensions = ScanExtensionSet(filter == ScanFilter::Images);
  while (const dirent* entry = readdir(dir)) {
    if (cancel && cancel->load(std::memory_order_relaxed)) {
      closedir(dir);
      return {};
    }
    if (filter != ScanFilter::AllFiles && !HasScanExtension(entry->d_name, extensions)) continue;
    if (!IsRegularFile(dirfd(dir), entry)) continue;
    const QString name = base::DecodeFileName(entry->d_name);
    entries.push_back({base::DisplayName(name), name});
  }
  closedir(dir);
  SortEntries(entries);
  return entries;
}

}  // namespace browse
