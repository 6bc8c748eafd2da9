#include "base/Paths.h"
#include "base/FileNames.h"

#include "base/NumberRules.h"

#include <QFileInfo>

namespace base {

QString JoinPath(const QString& folder, const QString& name) {
  if (folder.endsWith(kSeparator)) return folder + name;
  return folder + kSeparator + name;
}

QString FileExtension(const QString& path) {
  const qsizetype dot = path.lastIndexOf(u'.');
  if (dot < 0) return {};
  return numbers::TrimBlanks(path.mid(dot + 1)).toLower();
}

QString FileNamePart(const QString& path) { return path.mid(path.lastIndexOf(kSeparator) + 1); }

int BaseNameLength(const QString& name) {
  const qsizetype dot = name.lastIndexOf(u'.');
  return int(dot > 0 ? dot : name.size());
}

QString DisplayName(const QString& path) {
  return ReadableFileName(FileNamePart(path));
}

QString StripTrailingBackslashes(const QString& path) {
  QString result = path;
  const qsizetype keep = (kSeparator == u'/') ? 1 : 0;  // "/" is a folder of its own on Linux
  while (result.size() > keep && result.endsWith(kSeparator)) result.chop(1);
  return result;
}

bool FolderExists(const QString& path) { return !path.isEmpty() && QFileInfo(path).isDir(); }

}  // namespace base
