#include "browse/FolderWatch.h"

namespace browse {

namespace {

constexpr int kQuietMs = 250;

}  // namespace

FolderWatch::FolderWatch(QObject* parent) : QObject(parent) {
  for (QTimer* quiet : {&folderQuiet_, &fileQuiet_}) {
    quiet->setSingleShot(true);
    quiet->setInterval(kQuietMs);
  }
  connect(&folderQuiet_, &QTimer::timeout, this, &FolderWatch::FolderChanged);
  connect(&fileQuiet_, &QTimer::timeout, this, &FolderWatch::FileChanged);
  connect(&watcher_, &QFileSystemWatcher::directoryChanged, &folderQuiet_, qOverload<>(&QTimer::start));
  connect(&watcher_, &QFileSystemWatcher::fileChanged, this, [this](const QString& path) {
    fileQuiet_.start();
    // An editor that saves by writing a new file and renaming it over the old one leaves
    // the watch on the old file, which is gone: the new one is watched instead.
    if (path == file_ && !watcher_.files().contains(path)) watcher_.addPath(path);
  });
}

void FolderWatch::Watch(const QString& folder, const QString& file) {
  const QStringList watched = watcher_.files() + watcher_.directories();
  if (!watched.isEmpty()) watcher_.removePaths(watched);
  folderQuiet_.stop();
  fileQuiet_.stop();
  file_ = file;
  for (const QString& path : {folder, file}) {
    if (!path.isEmpty()) watcher_.addPath(path);
  }
}

}  // namespace browse
