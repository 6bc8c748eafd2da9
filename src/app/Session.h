#pragma once
// What is open and how it gets opened (Part 1.1's command line, start option, list item
// click and rename; Part 2.2's command once a folder is chosen), without widgets. The
// window implements SessionView and calls these.

#include "app/AppState.h"
#include "browse/FileListModel.h"
#include "files/LoadImageFile.h"
#include "imaging/Image.h"

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

  AppState& state_;
  browse::FileListModel& list_;
  SessionView& view_;
  Loader loader_;
  NeighboursHook neighbours_;
  int direction_ = 1;  // of the last step through the folder
  int shownRow_ = -1;  // the entry-shown flag, with the entry it names
  std::optional<imaging::Image> image_;
  QString naturalSizeTag_;
};

}  // namespace app
