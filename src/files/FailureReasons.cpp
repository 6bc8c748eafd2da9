#include "files/FailureReasons.h"
#include "base/Texts.h"

#include "base/FileNames.h"
#include "files/FileDialogs.h"
#include "imaging/Saver.h"

#include <QFileInfo>

namespace files {

QString OpenFailureReason(const QString& path) {
  const QFileInfo file(path);
  if (!file.exists()) return Texts::tr("the file does not exist");
  if (file.isDir()) return Texts::tr("it is a folder");
  if (base::IsSpecialFile(path)) return Texts::tr("not a regular file");
  if (!file.isReadable()) return Texts::tr("no permission to read it");
  if (file.size() == 0) return Texts::tr("the file is empty");
  return Texts::tr("not an image this program reads");
}

QString SaveFailureReason(const QString& path, QSize imageSize) {
  const QString extension = QFileInfo(path).suffix().toLower();
  if (!imaging::CanEncode(extension)) return Texts::tr("this format cannot be written");
  const qint64 largest = imaging::LargestPixelsFor(extension);
  if (largest > 0 && qint64(imageSize.width()) * imageSize.height() > largest) {
    return Texts::tr("the image is too large for this format");
  }
  return WriteFailureReason(path);
}

QString WriteFailureReason(const QString& path) {
  const QFileInfo file(path);
  const QFileInfo folder(file.absolutePath());
  if (!folder.isDir()) return Texts::tr("the folder does not exist");
  if (file.isDir()) return Texts::tr("it is a folder");
  if (file.isSymLink() && !file.exists()) return Texts::tr("the link points to no file");
  if (base::IsSpecialFile(path)) return Texts::tr("not a regular file");
  if (IsMarkedReadOnly(path)) return Texts::tr("the file is marked as read-only");
  if (!folder.isWritable()) return Texts::tr("no permission to write in the folder");
  return Texts::tr("the disk is full or the write failed");
}

}  // namespace files
