#include "files/FileOperations.h"
#include "base/Texts.h"

#include "base/Paths.h"
#include "base/FileNames.h"

#include <QFile>
#include <QCryptographicHash>
#include <QFileInfo>
#include <QSaveFile>

#include <gio/gio.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

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
  // Only the new name is cleaned: the old one names a file exactly, blanks included.
  const QString& from = fromText;
  const QString to = toText.trimmed();
  if (QFileInfo::exists(from) && ExtensionDiffers(from, to) &&
      !confirm(Texts::tr("The file extension is different. Do you want to continue?"))) {
    return {};
  }
  if (from.compare(to, Qt::CaseInsensitive) != 0 && QFileInfo::exists(to)) return {false, Texts::tr("File already exists")};
  if (!RenameFile(from, to)) {
    return {false, QFileInfo::exists(from) ? Texts::tr("Can't rename file") : Texts::tr("Can't find file")};
  }
  return {true, {}};
}

QString ForbiddenNameMessage() {
  return Texts::tr("The file name can't include any of the following characters: \\ / : ? \" < > |");
}

TypedRename RenameToTypedName(const QString& file, const QString& typedName,
                              const std::function<bool(const QString& question)>& confirm) {
  const QString name = typedName.trimmed();
  if (name.isEmpty() || name == QFileInfo(file).fileName()) return {{}, {}, true};
  if (!IsValidFileName(name) || name == QLatin1String(".") || name == QLatin1String("..")) {
    return {{false, ForbiddenNameMessage()}, {}, false};
  }
  const QString target = base::JoinPath(QFileInfo(file).path(), name);
  const RenameOutcome outcome = RenameWithChecks(file, target, confirm);
  return {outcome, outcome.Renamed ? target : QString(), false};
}

namespace {

QByteArray Sha256Of(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return {};
  QCryptographicHash hash(QCryptographicHash::Sha256);
  return hash.addData(&file) ? hash.result() : QByteArray();
}

void KeepOwnerAndTimes(const QString& from, const QString& to) {
  struct stat source {};
  if (::stat(base::EncodeFileName(from).constData(), &source) != 0) return;
  const QByteArray target = base::EncodeFileName(to);
  if (::chown(target.constData(), source.st_uid, source.st_gid) != 0) {
    (void)!::chown(target.constData(), uid_t(-1), source.st_gid);  // the group alone where the owner cannot be kept
  }
  const timespec times[2] = {source.st_atim, source.st_mtim};
  ::utimensat(AT_FDCWD, target.constData(), times, 0);
}

bool IsReadOnlyFile(const QString& path) {
  const QFileInfo file(path);
  return file.exists() && !(file.permissions() & QFileDevice::WriteOwner);
}

}  // namespace

bool CopyFileSafely(const QString& from, const QString& to) {
  // A file copied onto itself (another name for it, a link) is already there; writing it
  // again could only lose it.
  if (QFileInfo(to).exists() && QFileInfo(to).canonicalFilePath() == QFileInfo(from).canonicalFilePath()) return true;
  QFile source(from);
  if (!QFileInfo(from).isFile() || IsReadOnlyFile(to) || !source.open(QIODevice::ReadOnly)) return false;
  const bool replacing = QFileInfo::exists(to);
  QSaveFile target(to);
  if (!target.open(QIODevice::WriteOnly)) return false;
  constexpr qint64 kChunk = 1 << 20;
  while (!source.atEnd()) {
    const QByteArray chunk = source.read(kChunk);
    if (chunk.isEmpty() || target.write(chunk) != chunk.size()) {
      target.cancelWriting();
      return false;
    }
  }
  // Like `cp -p` and the file managers: the copy keeps the source's mode, owner where
  // allowed, and modification time.
  const QFileInfo original(from);
  target.setPermissions(original.permissions());
  if (!target.commit()) return false;
  KeepOwnerAndTimes(from, to);
  // Read back: a copy that differs is reported. A broken new file goes; one that replaced a
  // file stays, as it may be all that is left of it.
  if (Sha256Of(to) == Sha256Of(from)) return true;
  if (!replacing) QFile::remove(to);
  return false;
}

bool MoveFileSafely(const QString& from, const QString& to) {
  if (!QFileInfo(from).isFile() || IsReadOnlyFile(to)) return false;
  if (std::rename(base::EncodeFileName(from).constData(), base::EncodeFileName(to).constData()) == 0) return true;
  if (errno != EXDEV) return false;
  return CopyFileSafely(from, to) && QFile::remove(from);
}

// GIO writes the Trash's record with the original path percent-encoded, so names with a
// newline or "%2F" are restored where they came from.
bool MoveToTrash(const QString& path) {
  if (!QFileInfo(path).isFile()) return false;
  GFile* file = g_file_new_for_path(base::EncodeFileName(path).constData());
  GError* error = nullptr;
  const bool trashed = g_file_trash(file, nullptr, &error);
  if (error) g_error_free(error);
  g_object_unref(file);
  return trashed && !QFileInfo::exists(path);
}

QString MoveToTrashQuestion(const QString& path) {
  return Texts::tr("Move \"%1\" to the Trash?").arg(QFileInfo(path).fileName());
}

}  // namespace files
