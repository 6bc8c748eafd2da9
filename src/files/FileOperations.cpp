#include "files/FileOperations.h"

#include <QFile>
#include <QFileInfo>

namespace files {

bool RenameFile(const QString& from, const QString& to) {
  if (from == to) return true;
  const QFileInfo target(to);
  if (target.exists() && target.canonicalFilePath() != QFileInfo(from).canonicalFilePath()) return false;
  return QFile::rename(from, to);
}

}  // namespace files
