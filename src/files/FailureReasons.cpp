#include "files/FailureReasons.h"

#include "files/FileDialogs.h"
#include "imaging/Saver.h"

#include <QFileInfo>

namespace files {

QString OpenFailureReason(const QString& path) {
  const QFileInfo file(path);
  if (!file.exists()) return QStringLiteral("the file does not exist");
  if (file.isDir()) return QStringLiteral("it is a folder");
  if (!file.isReadable()) return QStringLiteral("no permission to read it");
  if (file.size() == 0) return QStringLiteral("the file is empty");
  return QStringLiteral("not an image this program reads");
}

QString SaveFailureReason(const QString& path) {
  if (!imaging::CanEncode(QFileInfo(path).suffix().toLower())) return QStringLiteral("this format cannot be written");
  return WriteFailureReason(path);
}

QString WriteFailureReason(const QString& path) {
  const QFileInfo folder(QFileInfo(path).absolutePath());
  if (!folder.isDir()) return QStringLiteral("the folder does not exist");
  if (IsMarkedReadOnly(path)) return QStringLiteral("the file is marked as read-only");
  if (!folder.isWritable()) return QStringLiteral("no permission to write in the folder");
  return QStringLiteral("the disk is full or the write failed");
}

}  // namespace files
