#include "document/Document.h"
#include "base/Texts.h"

#include "browse/SortOrder.h"

#include "document/CommandLine.h"
#include "base/NumberRules.h"
#include "base/Paths.h"
#include "settings/RecentFolders.h"
#include "files/FailureReasons.h"
#include "files/FileOperations.h"

#include <QDir>
#include <QtConcurrent/QtConcurrentRun>
#include <QFileInfo>

#include <memory>

namespace document {

namespace {

// An image the prefetcher holds is handed over in well under a millisecond; only a hand-over
// still going after this long (the store lost it in a race, a loaded machine) makes quick
// pictures beside it.
constexpr int kHandOverMs = 100;

}  // namespace

Document::Document(AppState& state, browse::FileListModel& list, DocumentPrompts& prompts, Loader loader)
    : state_(state), list_(list), prompts_(prompts), loader_(std::move(loader)) {
  loading_.setMaxThreadCount(1);
  quickLoading_.setMaxThreadCount(1);
  connect(&watch_, &browse::FolderWatch::FolderChanged, this, &Document::RefreshFolderFromDisk);
  connect(&watch_, &browse::FolderWatch::FileChanged, this, &Document::RefreshShownFileFromDisk);
}

StartupEnd Document::OpenAtStartup(const QString& commandLine) {
  const QString path = ResolveCommandLinePath(CommandLinePath(commandLine), QDir::currentPath());
  if (!path.isEmpty()) {
    if (base::FolderExists(path)) {
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
      return StartupEnd::OpenFolderDialogWanted;
    default:
      break;  // an unknown option does nothing
  }
  return StartupEnd::Normal;
}

void Document::ForgetWhatIsOpen() {
  open_ = {};
  onlyThese_.reset();
  viewMode_ = ViewMode::Image;
}

void Document::OpenFolderFromCommandLine(const QString& folder) {
  open_ = {settings::kOpenFolder, {}, folder};
  onlyThese_.reset();
  viewMode_ = ViewMode::ListAndImage;
  settings::AddRecentFolder(state_.Settings, folder);
  ScanFolder();
  OpenFirstEntry();
}

// The settings file gives back what was open when it was written.
void Document::OpenWhatWasOpenLastTime() {
  const settings::SettingsStore& s = state_.Settings;
  viewMode_ = ViewMode::Image;
  if (s.LastOpenKind == settings::kOpenFile) OpenSingleFile(s.LastFile, /*reportFailure=*/false);
  if (s.LastOpenKind == settings::kOpenFolder) OpenLastFolder(s.LastFolder);
}

void Document::OpenLastFolder(const QString& folder) {
  if (!base::FolderExists(folder)) {
    ForgetWhatIsOpen();
    return;
  }
  open_ = {settings::kOpenFolder, {}, folder};
  onlyThese_.reset();
  viewMode_ = ViewMode::ListAndImage;
  ScanFolder();
  OpenFirstEntry();
}

void Document::OpenFirstEntry() {
  if (list_.Count() == 0) return;
  Q_EMIT ListRowSelected(0);
  ClickEntry(0);
}

bool Document::OpenSingleFile(const QString& path, bool reportFailure) {
  open_ = {settings::kOpenFile, path, {}};
  onlyThese_.reset();
  viewMode_ = ViewMode::Image;
  Load(path);
  if (!image_) {
    open_ = {};
    onlyThese_.reset();
    if (reportFailure) {
      prompts_.ShowExclamation(Texts::tr("Can't open file"), files::OpenFailureReason(path));
    }
    return false;
  }
  StartHistory();
  ShowImage();
  BrowseFolderOfFile();
  return true;
}

// A file opened on its own brings its folder into the list, with the file current, so
// that stepping goes through its neighbours as a file manager's "Open With" user expects.
// A file the scan leaves out (another type) stays alone.
void Document::BrowseFolderOfFile() {
  ScanFolder();
  Follow(list_.RowOfFileName(QFileInfo(open_.File).fileName()));
  Q_EMIT ListRowSelected(shownRow_);
  AnnounceNeighbours();
}

// The entry shown; a single file open is that entry's file.
void Document::Follow(int row) {
  shownRow_ = row;
  if (row >= 0 && FileOpen()) open_.File = EntryPath(row);
  WatchWhatIsOpen();
}

QString Document::ListFolder() const {
  if (FileOpen()) return QFileInfo(open_.File).absolutePath();
  return open_.Folder;
}

void Document::ScanFolder() {
  std::vector<browse::FileEntry> entries;
  std::atomic_bool cancel{false};
  const QString folder = ListFolder();
  const settings::SettingsStore& s = state_.Settings;
  const browse::ScanFilter filter = !s.ImageExtensionsOnly ? browse::ScanFilter::AllFiles
                                    : s.ClassicTypesOnly    ? browse::ScanFilter::ClassicImages
                                                            : browse::ScanFilter::Images;
  const auto key = browse::SortKey(std::clamp(int(s.SortOrder), 0, int(browse::SortKey::Type)));
  const bool descending = s.SortDescending;
  const QFuture<void> scan = QtConcurrent::run([&] {
    entries = scanner_(folder, filter, &cancel);
    browse::SortByKey(entries, folder, key, descending, &cancel);
  });
  const bool cancelled = prompts_.WaitFor(scan, cancel);
  if (onlyThese_) {
    std::erase_if(entries, [this](const browse::FileEntry& entry) { return !onlyThese_->contains(entry.FileName); });
  }
  list_.SetEntries(cancelled ? std::vector<browse::FileEntry>{} : std::move(entries));
  if (cancelled) Q_EMIT StatusChanged(Texts::tr("Folder scan cancelled"));
  Q_EMIT ListFilled();
  Q_EMIT ListRowSelected(-1);
  shownRow_ = -1;
  WatchWhatIsOpen();
}

// The image is read on a worker, with quick pictures made beside it (when there are any)
// shown as they come while the window stays painted; a read from the prefetcher's store
// finishes before anything repaints, so stepping through a folder never flickers.
void Document::Load(const QString& path, int page) {
  image_.reset();
  natural_ = {};
  paletteBits_ = 0;
  page_ = page;
  if (page == 0) pageCount_ = 1;
  animated_ = false;
  preview_ = false;
  std::optional<files::LoadedImage> loaded;
  ++readings_;
  const QFuture<void> reading = QtConcurrent::run(&loading_, [&] {
    loaded = page == 0 ? loader_(path) : files::LoadImageFile(path, state_.Metrics, page);
  });
  const bool atHand = ready_ && ready_(path);
  if (page == 0 && (!atHand || !loading_.waitForDone(kHandOverMs))) StartQuickPictures(path);
  if (!loading_.waitForDone(0)) {
    std::atomic_bool ignored{false};
    prompts_.WaitFor(reading, ignored);
  }
  quickWanted_ = 0;
  ++readings_;  // what the quick pictures bring from now on is too late
  if (!loaded) return;
  image_ = std::move(loaded->Picture);
  natural_ = loaded->Natural;
  paletteBits_ = loaded->PaletteBits;
  pageCount_ = loaded->Pages;
  animated_ = loaded->Animated;
  preview_ = loaded->Preview;
}

// The quick pictures are made on a thread of their own, each handed to the UI thread as it
// is made and shown there only while the read it stands for is still going.
void Document::StartQuickPictures(const QString& path) {
  if (!quick_) return;
  const quint64 reading = readings_;
  quickWanted_ = reading;
  const auto deliver = [this, reading](files::LoadedImage picture) {
    if (quickWanted_ != reading) return false;
    QMetaObject::invokeMethod(this, [this, reading, picture = std::move(picture)] {
      if (readings_ == reading) Q_EMIT StandInShown(picture.Picture, picture.Natural);
    }, Qt::QueuedConnection);
    return true;
  };
  (void)QtConcurrent::run(&quickLoading_, [this, quick = quick_, path, box = quickBox_, metrics = state_.Metrics, reading, deliver] {
    if (quickWanted_ == reading) quick(path, box, metrics, deliver);
  });
}

void Document::DevelopPreview() {
  if (!preview_ || !image_) return;
  preview_ = false;
  BusyScope busy(prompts_);
  std::optional<files::LoadedImage> developed;
  const QString path = CurrentFilePath();
  const QFuture<void> developing = QtConcurrent::run(&loading_, [&] { developed = files::DevelopRawFile(path, state_.Metrics); });
  std::atomic_bool ignored{false};
  prompts_.WaitFor(developing, ignored);
  if (!developed) {
    Q_EMIT StatusChanged(Texts::tr("The RAW image could not be developed: its preview is shown"));
    return;
  }
  image_ = std::move(developed->Picture);
  natural_ = developed->Natural;
  StartHistory();
  ShowImage();
  Q_EMIT StatusChanged({});
}

void Document::ClearCurrentImage() {
  pasted_ = false;
  history_.Clear();
  unrecordedBase_.reset();
  previous_.reset();
  image_.reset();
  natural_ = {};
  ShowImage();
  Q_EMIT StatusChanged({});
}

void Document::ShowImage() {
  Q_EMIT ImageShown(image_ ? &*image_ : nullptr);
  Q_EMIT StateChanged();
}

QString Document::EntryPath(int row) const { return base::JoinPath(ListFolder(), list_.Entry(row).FileName); }

void Document::SetViewMode(ViewMode mode) {
  viewMode_ = mode;
  Q_EMIT StateChanged();
  Q_EMIT LayoutChanged();
}

bool Document::IsMetafile() const {
  const QString extension = QFileInfo(CurrentFilePath()).suffix().toLower();
  return extension == QLatin1String("wmf") || extension == QLatin1String("emf");
}

// An entry that does not open stays the current one, so stepping goes on from it in
// either direction, and the view says why it did not open.
void Document::ClickEntry(int row) {
  if (row < 0 || row >= list_.Count()) return;
  if (row == shownRow_ && image_) {
    Q_EMIT StatusChanged({});
    return;
  }
  if (!ConfirmSaveChanges()) {
    Q_EMIT ListRowSelected(shownRow_);
    return;
  }
  OpenEntry(row);
}

void Document::OpenEntry(int row) {
  BusyScope busy(prompts_);
  ClearCurrentImage();
  shownRow_ = -1;
  Load(EntryPath(row));
  Follow(row);
  if (image_) {
    StartHistory();  // so that Undo can go back to the image as loaded
    ShowImage();
  }
  Q_EMIT LayoutChanged();
  const QString failure = list_.Entry(row).DisplayName + Texts::tr(": Can't open file");
  Q_EMIT StatusChanged(image_ ? QString() : failure);
  if (!image_) Q_EMIT OpenFailed(failure + u'\n' + files::OpenFailureReason(EntryPath(row)));
  AnnounceNeighbours();
}

void Document::AnnounceNeighbours() {
  if (shownRow_ < 0) return;
  QStringList paths;
  for (const int row : {shownRow_ + direction_, shownRow_ - direction_}) {
    if (row >= 0 && row < list_.Count()) paths << EntryPath(row);
  }
  Q_EMIT NeighboursAnnounced(paths);
}

void Document::StepTo(int row) {
  if (!SomethingOpen() || (FileOpen() && shownRow_ < 0)) return;
  if (row < 0 || row >= list_.Count() || row == shownRow_) return;
  direction_ = row < shownRow_ ? -1 : 1;
  Q_EMIT ListRowSelected(row);
  ClickEntry(row);
}

void Document::EntryRenamed(int row, const QString& name) {
  if (onlyThese_) onlyThese_->insert(name);
  if (state_.Settings.SortOrder != 0 || state_.Settings.SortDescending) return FolderChangedKeeping(name);  // its place is the key's
  const int newRow = list_.ReplaceAndResort(row, {base::DisplayName(name), name});
  if (shownRow_ == row) Follow(newRow);
  Q_EMIT ListRowSelected(newRow);
  Q_EMIT StatusChanged({});
}

void Document::FolderChangedKeeping(const QString& fileName) {
  ScanFolder();
  Follow(list_.RowOfFileName(fileName));
  Q_EMIT ListRowSelected(shownRow_);
  Q_EMIT StatusChanged({});
}

void Document::FileRenamed(const QString& path) {
  open_.File = path;
  Q_EMIT StatusChanged({});
}

void Document::OpenChosenFolder(const QString& folder, const std::optional<QSet<QString>>& only) {
  BusyScope busy(prompts_);
  open_ = {settings::kOpenFolder, {}, folder};
  onlyThese_ = only;
  viewMode_ = ViewMode::ListAndImage;
  Q_EMIT StateChanged();
  ClearCurrentImage();
  list_.Clear();
  Q_EMIT StatusChanged({});
  ScanFolder();
  Q_EMIT LayoutChanged();
  OpenFirstEntry();
}

QString Document::CurrentFilePath() const {
  if (FileOpen()) return open_.File;
  if (FolderOpen() && shownRow_ >= 0) return EntryPath(shownRow_);
  return {};
}

void Document::RememberWhatIsOpen(settings::SettingsStore& settings) const {
  settings.LastOpenKind = open_.Kind;
  settings.LastFile = open_.File;
  settings.LastFolder = open_.Folder;
}

}  // namespace document
