#include "files/FileOperations.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace files {

bool RenameFile(const QString& from, const QString& to) {
  if (from == to) return true;
  const QFileInfo target(to);
  if (target.exists() && target.canonicalFilePath() != QFileInfo(from).canonicalFilePath()) return false;
  return QFile::rename(from, to);
}

bool IsValidFileName(const QString& name) {
  static const QString kForbidden = QStringLiteral("\\/:*?\"<>|");
  return std::none_of(name.begin(), name.end(), [](QChar c) { return kForbidden.contains(c); });
}

bool ExtensionDiffers(const QString& first, const QString& second) {
  return QFileInfo(first).suffix().compare(QFileInfo(second).suffix(), Qt::CaseInsensitive) != 0;
}

RenameOutcome RenameWithChecks(const QString& fromText, const QString& toText,
                               const std::function<bool(const QString& question)>& confirm) {
  const QString from = fromText.trimmed(), to = toText.trimmed();
  if (QFileInfo::exists(from) && ExtensionDiffers(from, to) &&
      !confirm(QStringLiteral("The file extension is different. Do you want to continue?"))) {
    return {};
  }
  if (from.compare(to, Qt::CaseInsensitive) != 0 && QFileInfo::exists(to)) return {false, QStringLiteral("File already exists")};
  if (!RenameFile(from, to)) {
    return {false, QFileInfo::exists(from) ? QStringLiteral("Can't rename file") : QStringLiteral("Can't find file")};
  }
  return {true, {}};
}

bool MoveToTrash(const QString& path) {
  if (!QFileInfo(path).isFile()) return false;
  return QFile::moveToTrash(path) && !QFileInfo::exists(path);
}

QString MoveToTrashQuestion(const QString& path) {
  return QStringLiteral("Move \"%1\" to the Trash?").arg(QFileInfo(path).fileName());
}

}  // namespace files
