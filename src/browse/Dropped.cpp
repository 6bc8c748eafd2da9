#include "browse/Dropped.h"

#include <QDir>
#include <QFileInfo>

namespace browse {

DroppedOpen WhatToOpen(const QList<QUrl>& urls) {
  QStringList files, folders;
  for (const QUrl& url : urls) {
    if (!url.isLocalFile()) continue;
    const QFileInfo item(url.toLocalFile());
    if (item.isDir()) folders << QDir::cleanPath(item.absoluteFilePath());
    else if (item.isFile()) files << item.absoluteFilePath();
  }
  if (files.isEmpty()) {
    return folders.size() == 1 ? DroppedOpen{DroppedOpen::Kind::Folder, folders.front(), {}} : DroppedOpen{};
  }
  if (files.size() == 1) return {DroppedOpen::Kind::File, files.front(), {}};
  const QString folder = QFileInfo(files.front()).absolutePath();
  QStringList together;
  for (const QString& file : files) {
    if (QFileInfo(file).absolutePath() == folder && !together.contains(file)) together << file;
  }
  if (together.size() == 1) return {DroppedOpen::Kind::File, together.front(), {}};
  return {DroppedOpen::Kind::Files, folder, together};
}

}  // namespace browse
