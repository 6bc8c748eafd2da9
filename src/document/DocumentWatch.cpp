// What other programs do to the folder open and the file shown: files added, removed or
// renamed come and go in the list, keeping the entry shown; the file shown, changed on disk,
// is read again, at once without edits and only when the user says so with them.
#include "document/Document.h"
#include "base/Texts.h"

#include "base/Paths.h"

#include <QFileInfo>
#include <QThread>

namespace document {

namespace {

// A notice that comes while the user is in a dialog or the program waits on work (a nested
// event loop) waits until that is over: the list and the image never change under them.
bool InTheMiddleOfSomething() { return QThread::currentThread()->loopLevel() > 1; }

}  // namespace

void Document::WatchWhatIsOpen() {
  watch_.Watch(SomethingOpen() ? ListFolder() : QString(), image_ ? CurrentFilePath() : QString());
}

void Document::RefreshFolderFromDisk() {
  if (InTheMiddleOfSomething()) return watch_.FolderAgainLater();
  ListAgainKeepingShown();
}

void Document::ListAgainKeepingShown() {
  if (!SomethingOpen() || ListFolder().isEmpty()) return;
  const int row = shownRow_;
  const QString shown = row >= 0 ? list_.Entry(row).FileName : QString();
  const QString file = open_.File;
  ScanFolder();
  if (shown.isEmpty()) {
    if (FileOpen()) Follow(list_.RowOfFileName(QFileInfo(file).fileName()));
  } else if (const int now = list_.RowOfFileName(shown); now >= 0) {
    Follow(now);
  } else if (list_.Count() > 0 && !IsChanged()) {  // the file shown went: the entry in its place opens
    Q_EMIT ListRowSelected(std::min(row, list_.Count() - 1));
    OpenEntry(std::min(row, list_.Count() - 1));
    return;
  }
  Q_EMIT ListRowSelected(shownRow_);
  Q_EMIT StatusChanged({});
  AnnounceNeighbours();
}

void Document::RefreshShownFileFromDisk() {
  const QString path = CurrentFilePath();
  const QFileInfo file(path);
  if (!image_ || shownRow_ < 0 || !file.exists()) return;  // a file that went is the folder's business
  if (InTheMiddleOfSomething()) return watch_.FileAgainLater();
  const BaseFile now{path, file.lastModified(), file.size()};
  const auto same = [&now](const BaseFile& seen) { return seen.Path == now.Path && seen.Modified == now.Modified && seen.Size == now.Size; };
  if (same(baseFile_) || same(declinedReload_)) return;  // our own save, or a change the user kept away
  if (IsChanged() && !prompts_.AskToReload(Texts::tr("'%1' has changed on disk. Read it again and lose your changes?")
                                               .arg(base::DisplayName(path)))) {
    declinedReload_ = now;
    return;
  }
  OpenEntry(shownRow_);
}

}  // namespace document
