#include "app/Session.h"

#include "app/BusyPointer.h"
#include "app/CommandLine.h"
#include "app/Vb.h"
#include "browse/Paths.h"
#include "browse/RecentFolders.h"
#include "files/FileOperations.h"

namespace app {

Session::Session(AppState& state, browse::FileListModel& list, SessionView& view, Loader loader)
    : state_(state), list_(list), view_(view), loader_(std::move(loader)) {}

StartupEnd Session::OpenAtStartup(const QString& commandLine) {
  const QString path = CommandLinePath(commandLine);
  if (!path.isEmpty()) {
    if (browse::FolderExists(path)) {
      OpenFolderFromCommandLine(path);
    } else {
      OpenSingleFile(path, /*reportFailure=*/true);
    }
    return StartupEnd::Normal;
  }
  switch (state_.Settings.StartOption) {
    case 0:
      ForgetWhatIsOpen();
      break;
    case 1:
      OpenWhatWasOpenLastTime();
      break;
    case 2:
      ForgetWhatIsOpen();
      state_.StartingUp = false;
      view_.LayOut();
      RestorePointer();
      view_.RunOpenFolderCommand();
      return StartupEnd::OpenFolderDialogRan;
    default:
      break;  // an unknown option does nothing, as the original's Select Case
  }
  return StartupEnd::Normal;
}

void Session::ForgetWhatIsOpen() {
  state_.Settings.LastFile.clear();
  state_.Settings.LastFolder.clear();
  state_.Settings.LastOpenKind = kOpenNothing;
  state_.ViewMode = kViewImage;
}

void Session::OpenFolderFromCommandLine(const QString& folder) {
  SettingsStore& s = state_.Settings;
  s.LastFile.clear();
  s.LastFolder = folder;
  s.LastOpenKind = kOpenFolder;
  state_.ViewMode = kViewListAndImage;
  browse::AddRecentFolder(s, folder);
  ScanFolder();
  OpenFirstEntry();
}

void Session::OpenWhatWasOpenLastTime() {
  const SettingsStore& s = state_.Settings;
  state_.ViewMode = kViewImage;
  if (s.LastOpenKind == kOpenFile) OpenSingleFile(s.LastFile, /*reportFailure=*/false);
  if (s.LastOpenKind == kOpenFolder) OpenLastFolder();
}

void Session::OpenLastFolder() {
  if (!browse::FolderExists(state_.Settings.LastFolder)) {
    ForgetWhatIsOpen();
    return;
  }
  state_.ViewMode = kViewListAndImage;
  ScanFolder();
  OpenFirstEntry();
}

void Session::OpenFirstEntry() {
  if (list_.Count() == 0) return;
  view_.SelectListRow(0);
  ClickEntry(0);
}

bool Session::OpenSingleFile(const QString& path, bool reportFailure) {
  SettingsStore& s = state_.Settings;
  s.LastFile = path;
  s.LastFolder.clear();
  s.LastOpenKind = kOpenFile;
  state_.ViewMode = kViewImage;
  Load(path);
  if (!image_) {
    s.LastFile.clear();
    s.LastOpenKind = kOpenNothing;
    if (reportFailure) {
      RestorePointer();
      view_.ShowExclamation(QStringLiteral("Can't open file"));
    }
    return false;
  }
  state_.ImageLoaded = true;
  StartHistory();
  view_.ShowImage(&*image_);
  return true;
}

void Session::ScanFolder() {
  list_.SetEntries(browse::ScanFolder(state_.Settings.LastFolder, state_.Settings.ImageExtensionsOnly));
  view_.FitListColumn();
  view_.SelectListRow(-1);
  shownRow_ = -1;
}

void Session::Load(const QString& path) {
  auto loaded = loader_(path);
  image_.reset();
  naturalSizeTag_.clear();
  if (!loaded) return;
  image_ = std::move(loaded->Picture);
  naturalSizeTag_ = loaded->NaturalSizeTag;
}

void Session::ClearCurrentImage() {
  state_.ChangeLevel = 0;
  ClearUndoHistory();
  view_.UpdateUndoCaptions();
  image_.reset();
  naturalSizeTag_.clear();
  view_.ShowImage(nullptr);
  view_.RefreshStatusBar({});
}

void Session::ClickEntry(int row) {
  if (row < 0 || row >= list_.Count()) return;
  if (row == shownRow_) {
    view_.RefreshStatusBar({});
    return;
  }
  if (!view_.ConfirmSaveChanges()) {
    view_.SelectListRow(shownRow_);
    return;
  }
  BusyPointerGuard busy;
  state_.ImageLoaded = false;
  ClearCurrentImage();
  shownRow_ = -1;
  Load(browse::JoinPath(state_.Settings.LastFolder, list_.Entry(row).FileName));
  if (image_) {
    shownRow_ = row;
    state_.ImageLoaded = true;  // before the view shows it, so the commands follow
    view_.ShowImage(&*image_);
  }
  view_.LayOut();

  if (state_.ImageLoaded) state_.ChangeLevel = 0;
  view_.RefreshStatusBar({});
  AnnounceNeighbours();
}

void Session::AnnounceNeighbours() {
  if (!neighbours_ || shownRow_ < 0) return;
  QStringList paths;
  for (const int row : {shownRow_ + direction_, shownRow_ - direction_}) {
    if (row >= 0 && row < list_.Count()) paths << browse::JoinPath(state_.Settings.LastFolder, list_.Entry(row).FileName);
  }
  neighbours_(paths);
}

void Session::StepTo(int row) {
  if (state_.Settings.LastOpenKind != kOpenFolder || row < 0 || row >= list_.Count() || row == shownRow_) return;
  direction_ = row < shownRow_ ? -1 : 1;
  view_.SelectListRow(row);
  ClickEntry(row);
}

QString Session::ForbiddenNameMessage() {
  return QStringLiteral("The file name can't include any of the following characters: \\ / : ? ") + u'"' +
         QStringLiteral(" < > |");
}

bool Session::RenameEntry(int row, const QString& newText) {
  if (row < 0 || row >= list_.Count()) return false;
  const QString name = vb::Trim(newText);
  static const QString kForbidden = QStringLiteral("\\/:?\"<>|");
  for (const QChar c : name) {
    if (kForbidden.contains(c)) {
      view_.ShowExclamation(ForbiddenNameMessage());
      return false;
    }
  }
  const browse::FileEntry old = list_.Entry(row);
  const QString& folder = state_.Settings.LastFolder;
  if (!files::RenameFile(browse::JoinPath(folder, old.FileName), browse::JoinPath(folder, name))) return false;
  const int newRow = list_.ReplaceAndResort(row, {browse::DisplayName(name), name});
  if (shownRow_ == row) shownRow_ = newRow;
  view_.SelectListRow(newRow);
  view_.RefreshStatusBar({});
  return true;
}

void Session::OpenChosenFolder(const QString& folder) {
  BusyPointerGuard busy;
  SettingsStore& s = state_.Settings;
  s.LastFolder = folder;
  s.LastOpenKind = kOpenFolder;
  state_.ViewMode = kViewListAndImage;
  view_.ApplyViewChecks();
  state_.ImageLoaded = false;
  ClearCurrentImage();
  list_.Clear();
  view_.RefreshStatusBar({});
  ScanFolder();
  view_.LayOut();
  OpenFirstEntry();
}

QString Session::CurrentFilePath() const {
  const SettingsStore& s = state_.Settings;
  if (s.LastOpenKind == kOpenFile) return s.LastFile;
  if (s.LastOpenKind == kOpenFolder && shownRow_ >= 0) {
    return browse::JoinPath(s.LastFolder, list_.Entry(shownRow_).FileName);
  }
  return {};
}

}  // namespace app
