#pragma once
// Watches the open folder and the file shown for what other programs do to them (inotify,
// through QFileSystemWatcher). A burst of changes (a copy of many files, an editor saving
// in several steps) comes out as one notice a quarter second after the last of them.

#include <QFileSystemWatcher>
#include <QObject>
#include <QTimer>

namespace browse {

class FolderWatch : public QObject {
  Q_OBJECT

 public:
  explicit FolderWatch(QObject* parent = nullptr);

  // Watches this folder and this file (either may be empty); what was watched before is let go.
  void Watch(const QString& folder, const QString& file);
  // The notice comes again a quarter second from now (it arrived while it could not be taken).
  void FolderAgainLater() { folderQuiet_.start(); }
  void FileAgainLater() { fileQuiet_.start(); }

 Q_SIGNALS:
  void FolderChanged();
  void FileChanged();

 private:
  QFileSystemWatcher watcher_;
  QString file_;
  QTimer folderQuiet_, fileQuiet_;
};

}  // namespace browse
