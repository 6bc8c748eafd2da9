#pragma once
// What is open and how it gets opened (Part 1.1's command line, start option, list item
// click and rename; Part 2.2's command once a folder is chosen), without widgets. The
// window implements SessionView and calls these.

#include "app/AppState.h"
#include "browse/FileListModel.h"
#include "edit/UndoHistory.h"
#include "files/LoadImageFile.h"
#include "imaging/Image.h"
#include "imaging/PackedImage.h"

#include <QStringList>

#include <functional>
#include <optional>

namespace app {

class SessionView {
 public:
  virtual ~SessionView() = default;
  virtual void ShowExclamation(const QString& text) = 0;
  virtual bool ConfirmSaveChanges() = 0;  // false when the user cancels
  virtual void LayOut() = 0;
  virtual void ApplyViewChecks() = 0;
  virtual void RefreshStatusBar(const QString& text) = 0;
  virtual void SelectListRow(int row) = 0;  // select and scroll into view, without reacting; -1 clears
  virtual void FitListColumn() = 0;
  virtual void ShowImage(const imaging::Image* image) = 0;  // nullptr hides the image
  virtual void RunOpenFolderCommand() = 0;
  // The image changed by an edit, undo or redo: shown at the current zoom; the selection
  // goes first when asked (an undone or redone Crop, Resize or Rotate).
  virtual void ShowEditedImage(const imaging::Image& image, bool removeSelection) = 0;
  virtual void UpdateUndoCaptions() = 0;
};

enum class StartupEnd { Normal, OpenFolderDialogRan };

class Session {
 public:
  using Loader = std::function<std::optional<files::LoadedImage>(const QString& path)>;

  // Told the files next to an opened entry, nearest in the direction of travel first.
  using NeighboursHook = std::function<void(const QStringList& paths)>;

  Session(AppState& state, browse::FileListModel& list, SessionView& view, Loader loader);
  void SetNeighboursHook(NeighboursHook hook) { neighbours_ = std::move(hook); }

  // Steps 9 and 10 of the start-up: the command line wins; otherwise the start option.
  StartupEnd OpenAtStartup(const QString& commandLine);

  void ScanFolder();
  void ClickEntry(int row);
  // Next and previous image (delta +1, -1), first and last: the list's selection moves and
  // the entry opens as a click on it would. Nothing beyond either end.
  void StepTo(int row);
  void Step(int delta) { StepTo(shownRow_ + delta); }
  bool RenameEntry(int row, const QString& newText);
  void OpenChosenFolder(const QString& folder);

  int ShownRow() const { return shownRow_; }
  const std::optional<imaging::Image>& CurrentImage() const { return image_; }
  // The natural size record of the image shown (Part 3.1), empty without one.
  const QString& NaturalSizeTag() const { return naturalSizeTag_; }
  // The file whose image is shown (or was last chosen), empty when none.
  QString CurrentFilePath() const;

  static QString ForbiddenNameMessage();

  // Part 4.4 (SessionHistory.cpp). The history holds packed states; the image shown is
  // always unpacked in CurrentImage().
  using History = edit::UndoHistory<imaging::PackedImage>;
  const History& UndoHistory() const { return history_; }
  // An edit's result becomes the image, recorded as a step named `undoName`.
  void ApplyEdit(const imaging::Image& edited, const QString& undoName);
  bool CanEdit() const { return state_.ViewMode != kViewThumbnails && state_.ImageLoaded; }
  void Undo();
  void Redo();

  // Part 5.1 (SessionFiles.cpp).
  // Open File with a chosen path: false (after "Can't open file") when it does not load.
  bool OpenFile(const QString& path);
  // Writes the image; on success the history starts again from it. No message here.
  bool SaveImageTo(const QString& path);
  // Save As into the current folder or elsewhere: `LastFile` follows in single-file mode,
  // the list is rescanned and the new file selected in folder mode.
  void AfterSaveAs(const QString& path);

 private:
  void OpenFolderFromCommandLine(const QString& folder);
  void OpenWhatWasOpenLastTime();
  void OpenLastFolder();
  bool OpenSingleFile(const QString& path, bool reportFailure);
  void OpenFirstEntry();
  void Load(const QString& path);
  void ClearCurrentImage();
  void ForgetWhatIsOpen();
  void AnnounceNeighbours();
  void ClearUndoHistory() { history_.Clear(); }
  void StartHistory();  // ClearUndoHistory, then the base state with an empty name
  void ShowState(const edit::UndoMove& move);

  AppState& state_;
  browse::FileListModel& list_;
  SessionView& view_;
  Loader loader_;
  NeighboursHook neighbours_;
  int direction_ = 1;  // of the last step through the folder
  int shownRow_ = -1;  // the entry-shown flag, with the entry it names
  std::optional<imaging::Image> image_;
  QString naturalSizeTag_;
  History history_;
};

}  // namespace app
