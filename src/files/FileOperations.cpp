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

bool MoveToTrash(const QString& path) {
  if (!QFileInfo(path).isFile()) return false;
  return QFile::moveToTrash(path) && !QFileInfo::exists(path);
}

QString MoveToTrashQuestion(const QString& path) {
  return QStringLiteral("Move \"%1\" to the Trash?").arg(QFileInfo(path).fileName());
}

}  // namespace files
