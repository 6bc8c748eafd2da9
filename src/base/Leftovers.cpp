#include "base/Leftovers.h"

#include <QDateTime>
#include <QFileInfo>
#include <QRegularExpression>

#include <cerrno>
#include <csignal>

#include <unistd.h>

namespace base {

QString OwnerTag() { return QStringLiteral("-pid%1-").arg(::getpid()); }

bool IsLeftover(const QFileInfo& entry) {
  static const QRegularExpression kTag(QStringLiteral("-pid(\\d+)-"));
  const QRegularExpressionMatch tag = kTag.match(entry.fileName());
  if (!tag.hasMatch()) return entry.lastModified() < QDateTime::currentDateTime().addSecs(-600);
  bool ok = false;
  const qint64 pid = tag.captured(1).toLongLong(&ok);
  if (!ok || pid <= 0 || pid > 0x3FFFFFFF) return false;
  return ::kill(pid_t(pid), 0) != 0 && errno == ESRCH;
}

void SweepLeftovers(const QDir& folder, const QString& pattern) {
  const auto entries = folder.entryInfoList({pattern}, QDir::Files | QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot);
  for (const QFileInfo& entry : entries) {
    if (!IsLeftover(entry)) continue;
    if (entry.isDir() && !entry.isSymLink()) {
      QDir(entry.filePath()).removeRecursively();
    } else {
      QFile::remove(entry.filePath());
    }
  }
}

}  // namespace base
