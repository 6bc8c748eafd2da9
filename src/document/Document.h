#pragma once
// What is open and how it gets opened, without widgets: the command line and the start
// option, a click on a list entry, stepping through the folder, renaming, a chosen
// folder, Open File, saving, and the undo history of the image shown. The document owns
// this state and says when it changes through its signals; whether an image is shown
// and the change level are read from it, never kept beside it. The few questions it
// must ask the user go through DocumentPrompts.

#include "base/Twips.h"
#include "base/Texts.h"
#include "browse/FileListModel.h"
#include "browse/FolderScan.h"
#include "browse/FolderWatch.h"
#include "document/AppState.h"
#include "document/SaveChanges.h"
#include "edit/UndoHistory.h"
#include "files/LoadImageFile.h"
#include "imaging/Image.h"
#include "imaging/LosslessJpeg.h"
#include "imaging/PackedImage.h"
#include "imaging/Saver.h"

#include <QDateTime>
#include <QSet>
#include <QFuture>
#include <QObject>
#include <QThreadPool>
#include <QStringList>

#include <atomic>
#include <functional>
#include <optional>

namespace document {

enum class ViewMode : int { Image = 0, ListAndImage = 1, Thumbnails = 2 };

// What the document needs from the user interface: a few questions, and a way to wait.
// What a picture pasted from the clipboard is called until it is saved.
inline QString PastedName() { return Texts::tr("Pasted image"); }

class DocumentPrompts {
 public:
  virtual ~DocumentPrompts() = default;
  // The message as the program words it, and what went wrong in a few words (may be empty).
  virtual void ShowExclamation(const QString& text, const QString& detail = {}) = 0;
  virtual SaveChangesAnswer AskSaveChanges(const QString& question) = 0;
  // The Save command, for a Yes to the question: false when the write failed.
  virtual bool SaveForPrompt() = 0;
  // Work the user waits for begins and ends (the busy pointer); the calls nest.
  virtual void BeginBusy() {}
  virtual void EndBusy() {}
  // Waits for work on another thread while the window stays painted; true when the user
  // asked it to stop (`cancel` is set then). Without a window it just waits.
  virtual bool WaitFor(const QFuture<void>& work, std::atomic_bool& cancel) {
    QFuture<void>(work).waitForFinished();
    return cancel.load();
  }
  // Whether to read again the file shown, which another program changed, losing the edits.
  virtual bool AskToReload(const QString& question) {
    (void)question;
    return false;
  }
};

// Begin and end of busy work as a scope.
class BusyScope {
 public:
  explicit BusyScope(DocumentPrompts& prompts) : prompts_(prompts) { prompts_.BeginBusy(); }
  ~BusyScope() { prompts_.EndBusy(); }
  BusyScope(const BusyScope&) = delete;
  BusyScope& operator=(const BusyScope&) = delete;

 private:
  DocumentPrompts& prompts_;
};

enum class StartupEnd { Normal, OpenFolderDialogWanted };

// What is open: nothing, one file (its folder behind it in the list), or a folder.
struct WhatIsOpen {
  settings::OpenKind Kind = settings::kOpenNothing;
  QString File;    // the single file open
  QString Folder;  // the folder open
};

// A state of the image in the history: its packed picture, and the turns, flips and crops
// that lead to it from the file's own picture when no other edit was made.
struct HistoryState {
  imaging::PackedImage Picture;
  std::optional<imaging::BlockEdit> Blocks;
};

class Document : public QObject {
  Q_OBJECT

 public:
  using Loader = std::function<std::optional<files::LoadedImage>(const QString& path)>;
  using History = edit::UndoHistory<HistoryState>;
  using Scanner = std::function<std::vector<browse::FileEntry>(const QString& folder, browse::ScanFilter filter,
                                                               const std::atomic_bool* cancel)>;

  Document(AppState& state, browse::FileListModel& list, DocumentPrompts& prompts, Loader loader);

  // The command line wins; otherwise the start option. Option 2 leaves nothing open and
  // asks the caller for the Open Folder command.
  StartupEnd OpenAtStartup(const QString& commandLine);

  // Reads the folder into the list on a worker; the window stays painted, and Esc stops
  // the scan (the list then stays empty and the status bar says so).
  void ScanFolder();
  void SetScanner(Scanner scanner) { scanner_ = std::move(scanner); }
  // The quick pictures shown while a large image is read (files::LoadQuickPictures), fitted
  // to the box the window shows the image in.
  using QuickLoader = std::function<void(const QString& path, QSize box, const base::ScreenMetrics& metrics,
                                         const files::QuickPictureSink& deliver)>;
  void SetQuickPictureLoader(QuickLoader quick) { quick_ = std::move(quick); }
  void SetQuickPictureBox(QSize box) { quickBox_ = box; }
  // Whether the loader has a file's image at hand (the prefetcher's store). Such a read is
  // waited for (up to 100 ms) before any quick picture, so stepping never flickers; any other
  // read makes its quick pictures at once.
  void SetReadyCheck(std::function<bool(const QString& path)> ready) { ready_ = std::move(ready); }
  void ClickEntry(int row);
  // Next and previous image, first and last: the list's selection moves and the entry
  // opens as a click on it would. Nothing beyond either end.
  void StepTo(int row);
  void Step(int delta) { StepTo(shownRow_ + delta); }
  // The entry's file now has `name`: the list is sorted again and follows it.
  void EntryRenamed(int row, const QString& name);
  // The single file open now lives at `path`.
  void FileRenamed(const QString& path);
  // After Copy To or a move within the folder: the list is read again and the entry named
  // `fileName`, the image shown, is selected.
  void FolderChangedKeeping(const QString& fileName);
  // The folder, listing every image in it or, when `only` is given, just the files so named
  // (several files dropped on the window) for as long as the folder stays open.
  void OpenChosenFolder(const QString& folder, const std::optional<QSet<QString>>& only = std::nullopt);
  // The folder read again (another order chosen, another program's changes), the entry
  // shown kept; when its file went, the entry in its place opens.
  void ListAgainKeepingShown();
  // After the entry in `row` left the folder: the list is read again and the entry now in
  // that place (or the new last one) opens; an emptied list shows nothing.
  void AfterEntryDeleted(int row);
  // The file or folder open is closed: nothing is open afterwards.
  void CloseFile();
  // The pages of the file shown (a TIFF's, a DCX's, an icon's images): the page shown (0
  // the first, which every file opens on) and how many there are. Turning asks about the
  // edits first, as stepping does; a page that does not open says so in the view.
  int Page() const { return page_; }
  int PageCount() const { return pageCount_; }
  bool CanTurnPage(int delta) const;
  void TurnPage(int delta);
  // An animation (its first frame is the image). A frame the player shows when it stops
  // becomes the image, as the page shown is, so that edits, Copy and the save question
  // work on it: only while there are no edits.
  bool Animated() const { return animated_; }
  void AdoptFrame(int index, const imaging::Image& frame);

  // A camera RAW shows its embedded preview until the whole image is wanted (an edit, a zoom
  // above 100 %, Copy, saving): DevelopPreview then develops it on the loading thread and
  // shows it in the preview's place; a RAW that does not develop keeps its preview and says so.
  bool ShowsPreview() const { return preview_; }
  void DevelopPreview();

  const WhatIsOpen& Open() const { return open_; }
  bool FolderOpen() const { return open_.Kind == settings::kOpenFolder; }
  bool FileOpen() const { return open_.Kind == settings::kOpenFile; }
  bool SomethingOpen() const { return open_.Kind != settings::kOpenNothing; }
  // What is open, for the settings file, so that the start option can open it again.
  void RememberWhatIsOpen(settings::SettingsStore& settings) const;

  ViewMode View() const { return viewMode_; }
  void SetViewMode(ViewMode mode);

  bool ImageLoaded() const { return image_.has_value(); }
  int ShownRow() const { return shownRow_; }
  const std::optional<imaging::Image>& CurrentImage() const { return image_; }
  base::NaturalSize Natural() const { return natural_; }
  // The file whose image is shown (or was last chosen), empty when none.
  QString CurrentFilePath() const;
  // The file of a list entry.
  QString EntryPath(int row) const;
  bool IsMetafile() const;

  // Editing (DocumentHistory.cpp). The history holds packed states; the image shown is
  // always unpacked in CurrentImage().
  const History& UndoHistory() const { return history_; }
  // A picture pasted from the clipboard has no file until Save As gives it one; until then it
  // counts as changed, so that leaving asks about it.
  void OpenPasted(const imaging::Image& picture);
  bool IsPasted() const { return pasted_; }
  bool IsChanged() const { return pasted_ || history_.IsChanged(); }
  bool CanEdit() const { return viewMode_ != ViewMode::Thumbnails && ImageLoaded(); }
  // An edit's result becomes the image, recorded as a step named `undoName`; `blocks` tells
  // a turn, flip or crop a JPEG's compressed blocks can follow.
  void ApplyEdit(const imaging::Image& edited, const QString& undoName, bool changesGeometry = false,
                 const std::optional<imaging::BlockStep>& blocks = std::nullopt);
  void Undo();
  void Redo();

  // Opening and saving (DocumentFiles.cpp).
  // Asks before the image with changes is closed or replaced: false when the caller
  // must stop (Cancel, or Yes with a save that failed).
  bool ConfirmSaveChanges();
  // The same question before the file is copied or moved: No keeps the edits on screen,
  // since nothing replaces the image.
  bool OfferToSaveChanges();
  // Open File with a chosen path: false (after "Can't open file") when it does not load.
  bool OpenFile(const QString& path);
  // Writes the image; on success the history starts again from it. A JPEG only turned,
  // flipped or cropped since it was read is saved as a JPEG by moving its compressed blocks,
  // so nothing is lost; where that cannot be done it is encoded again and the status bar
  // says why. No other message here.
  bool SaveImageTo(const QString& path);
  // After Save As: the single file follows the new name; in a folder the list is
  // rescanned and the new file selected when it is in the folder.
  void AfterSaveAs(const QString& path);

 Q_SIGNALS:
  // Anything the commands' enabled and checked rules read changed.
  void StateChanged();
  // The entry chosen did not open: what to show in the picture's place, and why.
  void OpenFailed(const QString& text);
  // A new image, or none (nullptr): the selection goes and the zoom starts again.
  void ImageShown(const imaging::Image* image);
  // While a large image is read: a reduced picture of it and the whole image's natural size.
  void StandInShown(const imaging::Image& picture, base::NaturalSize natural);
  // The image changed by an edit, undo or redo, shown at the current zoom; the selection
  // goes first for an undone or redone Crop, Resize or Rotate.
  void ImageEdited(const imaging::Image& image, bool removeSelection);
  // The status bar: `message` alone when not empty, otherwise the facts of the image.
  void StatusChanged(const QString& message);
  // Select and scroll into view without reacting; -1 clears the selection.
  void ListRowSelected(int row);
  void ListFilled();
  void LayoutChanged();
  // The files next to the entry shown, nearest in the direction of travel first.
  void NeighboursAnnounced(const QStringList& paths);

 private:
  void OpenFolderFromCommandLine(const QString& folder);
  void OpenWhatWasOpenLastTime();
  void OpenLastFolder(const QString& folder);
  bool OpenSingleFile(const QString& path, bool reportFailure);
  void OpenFirstEntry();
  void Load(const QString& path, int page = 0);
  void StartQuickPictures(const QString& path);
  void ClearCurrentImage();
  void ForgetWhatIsOpen();
  void AnnounceNeighbours();
  void StartHistory();  // a new history with the image shown as its unnamed base state
  void RememberBaseFile(const QString& path);
  // Saved by moving the blocks: true or false for written or not; nullopt when that way does
  // not apply (saveNote_ then tells why when it nearly did).
  std::optional<bool> SaveByMovingBlocks(const QString& path);
  imaging::SaveOptions SaveOptions() const;
  void RecordBase();
  bool AskToSave(bool forgetOnNo);
  void ShowState(const edit::UndoMove& move);
  void ShowImage();
  // The folder the list shows: the folder open, or the folder of the single file open.
  QString ListFolder() const;
  void BrowseFolderOfFile();
  void Follow(int row);
  void OpenEntry(int row);
  // DocumentWatch.cpp: what other programs do to the folder and the file shown.
  void WatchWhatIsOpen();
  void RefreshFolderFromDisk();
  void RefreshShownFileFromDisk();

  AppState& state_;
  browse::FileListModel& list_;
  DocumentPrompts& prompts_;
  Loader loader_;
  QuickLoader quick_ = files::LoadQuickPictures;
  QSize quickBox_;
  std::function<bool(const QString& path)> ready_;
  quint64 readings_ = 0;  // counts the reads; a quick picture of an earlier one is not shown
  std::atomic<quint64> quickWanted_ = 0;  // the read whose quick pictures are still wanted
  QThreadPool loading_;       // the one thread that reads the image to show
  QThreadPool quickLoading_;  // the one thread that makes its quick pictures
  Scanner scanner_ = [](const QString& folder, browse::ScanFilter filter, const std::atomic_bool* cancel) {
    return browse::ScanFolder(folder, filter, cancel);
  };
  WhatIsOpen open_;
  ViewMode viewMode_ = ViewMode::Image;
  int direction_ = 1;  // of the last step through the folder
  int shownRow_ = -1;  // the entry shown, -1 when none
  std::optional<imaging::Image> image_;
  base::NaturalSize natural_;
  int paletteBits_ = 0;  // the palette depth of the file shown
  int page_ = 0, pageCount_ = 1;
  bool animated_ = false;
  bool preview_ = false;
  History history_;
  std::optional<imaging::Image> unrecordedBase_;  // the base state until an edit packs it
  // The image shown before the last edit, undo or redo, kept whole so that going back to it
  // is instant (its packed state hands it back while it lives).
  std::optional<imaging::Image> previous_;
  // The file the history's base state was read from or saved to, as it was then, and the
  // turns and crops since, while there were no other edits.
  struct BaseFile {
    QString Path;
    QDateTime Modified;
    qint64 Size = -1;
  } baseFile_;
  std::optional<imaging::BlockEdit> blocks_;
  QString saveNote_;  // what the status bar says after a save
  browse::FolderWatch watch_;
  std::optional<QSet<QString>> onlyThese_;
  bool pasted_ = false;  // the names the list keeps to, when not the whole folder
  BaseFile declinedReload_;  // the change on disk the user chose not to read (keeping the edits)
};

}  // namespace document
