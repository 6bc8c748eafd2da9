// Opening and saving on the document: the save-changes question, Open File with a
// chosen path, writing the image, and what a successful Save As changes.
#include "base/FileFormats.h"
#include "base/Texts.h"
#include "base/FileNames.h"
#include "base/Paths.h"
#include "document/Document.h"
#include "files/FileDialogs.h"
#include "imaging/Saver.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <utility>

namespace document {

// Asks only when the image has changed and something is open. No drops the changes; Yes
// saves, and a save that fails keeps the image, its history and its change level, so the
// image is never left without the question.
bool Document::ConfirmSaveChanges() { return AskToSave(/*forgetOnNo=*/true); }

bool Document::OfferToSaveChanges() { return AskToSave(/*forgetOnNo=*/false); }

bool Document::AskToSave(bool forgetOnNo) {
  const QString file = pasted_ ? PastedName() : CurrentFilePath();
  if (!IsChanged() || (!pasted_ && (!SomethingOpen() || file.isEmpty()))) return true;
  switch (prompts_.AskSaveChanges(SaveChangesQuestion(file))) {
    case SaveChangesAnswer::No:
      if (forgetOnNo) {
        history_.ForgetChanges();
        pasted_ = false;
      }
      return true;
    case SaveChangesAnswer::Yes:
      if (!prompts_.SaveForPrompt()) return false;
      history_.ForgetChanges();
      return true;
    case SaveChangesAnswer::Cancel:
      break;
  }
  return false;
}

bool Document::OpenFile(const QString& path) {
  BusyScope busy(prompts_);
  ClearCurrentImage();
  list_.Clear();
  shownRow_ = -1;
  const bool opened = OpenSingleFile(path, /*reportFailure=*/true);
  Q_EMIT StateChanged();
  Q_EMIT LayoutChanged();
  Q_EMIT StatusChanged({});
  return opened;
}

void Document::AfterEntryDeleted(int row) {
  BusyScope busy(prompts_);
  ClearCurrentImage();
  ScanFolder();
  Q_EMIT LayoutChanged();
  if (list_.Count() == 0) {
    if (FileOpen()) CloseFile();
    return;
  }
  const int next = std::min(row, list_.Count() - 1);
  Q_EMIT ListRowSelected(next);
  ClickEntry(next);
}

void Document::CloseFile() {
  ClearCurrentImage();
  list_.Clear();
  shownRow_ = -1;
  open_ = {};
  onlyThese_.reset();
  WatchWhatIsOpen();
  Q_EMIT StateChanged();
  Q_EMIT LayoutChanged();
}

bool Document::SaveImageTo(const QString& path) {
  DevelopPreview();
  saveNote_.clear();
  if (!image_ || files::IsMarkedReadOnly(path)) return false;
  const std::optional<bool> moved = SaveByMovingBlocks(path);
  if (moved ? !*moved : !imaging::SaveImage(*image_, path, SaveOptions())) return false;
  StartHistory();
  RememberBaseFile(path);
  Q_EMIT StatusChanged(saveNote_);
  return true;
}

imaging::SaveOptions Document::SaveOptions() const {
  imaging::SaveOptions options;
  options.PaletteBits = paletteBits_;
  options.Quality = std::clamp(int(state_.Settings.SaveQuality), 1, 100);
  options.Tiff = imaging::TiffCompression(std::clamp(int(state_.Settings.TiffCompression), 0, 3));
  return options;
}

// The file the history began from must still be the JPEG it was, and the moved blocks must
// give the picture shown; anything else is saved from the pixels.
std::optional<bool> Document::SaveByMovingBlocks(const QString& path) {
  const QFileInfo source(baseFile_.Path);
  if (!blocks_ || !base::HasJpegName(path) || baseFile_.Path.isEmpty() || source.lastModified() != baseFile_.Modified ||
      source.size() != baseFile_.Size) {
    return std::nullopt;
  }
  QFile file;
  if (!base::OpenForReading(file, baseFile_.Path) || !file.peek(3).startsWith("\xFF\xD8\xFF")) return std::nullopt;
  const QByteArray jpeg = base::ReadWhole(file, qint64(1) << 30);
  const auto upright = imaging::RightAngles::Upright(imaging::JpegOrientation(jpeg));
  const imaging::LosslessResult moved = imaging::MoveJpegBlocks(jpeg, blocks_->After(upright));
  if (!moved.Jpeg) {
    saveNote_ = Texts::tr("saved with recompression: ") + moved.WhyNot;
    return std::nullopt;
  }
  if (imaging::JpegSize(*moved.Jpeg) != QSize(image_->Width(), image_->Height())) return std::nullopt;
  return imaging::SaveEncoded(*moved.Jpeg, path);
}

// Saved outside the folder shown, the image goes on as that single file, so Save and the
// save question keep applying to what the user sees.
void Document::OpenPasted(const imaging::Image& picture) {
  BusyScope busy(prompts_);
  ClearCurrentImage();
  list_.Clear();
  shownRow_ = -1;
  open_ = {};
  onlyThese_.reset();
  viewMode_ = ViewMode::Image;
  image_ = picture;
  natural_ = base::NaturalSize::FromPixels(picture.Width(), picture.Height(), state_.Metrics);
  paletteBits_ = 0;
  page_ = 0;
  pageCount_ = 1;
  animated_ = preview_ = false;
  StartHistory();
  pasted_ = true;
  ShowImage();
  WatchWhatIsOpen();
  Q_EMIT LayoutChanged();
  Q_EMIT StateChanged();
  Q_EMIT StatusChanged({});
}

void Document::AfterSaveAs(const QString& path) {
  if (std::exchange(pasted_, false)) {  // the pasted picture is that file from now on
    open_ = {settings::kOpenFile, path, {}};
    Q_EMIT LayoutChanged();
  }
  const bool inFolder = QFileInfo(path).absolutePath() == QFileInfo(open_.Folder + u'/').absolutePath();
  if (FolderOpen() && !inFolder) {
    open_ = {settings::kOpenFile, path, {}};
    onlyThese_.reset();
    viewMode_ = ViewMode::Image;
    Q_EMIT LayoutChanged();
  }
  if (FileOpen()) {
    open_.File = path;
    BrowseFolderOfFile();
  } else if (FolderOpen()) {
    ScanFolder();
    shownRow_ = list_.RowOfFileName(QFileInfo(path).fileName());
    Q_EMIT ListRowSelected(shownRow_);
  }
  Q_EMIT StatusChanged(saveNote_);
  Q_EMIT StateChanged();
}

bool Document::CanTurnPage(int delta) const {
  const int page = page_ + delta;
  return delta != 0 && page >= 0 && page < pageCount_ && !CurrentFilePath().isEmpty();
}

void Document::TurnPage(int delta) {
  const int page = page_ + delta;
  const QString path = CurrentFilePath();
  if (!CanTurnPage(delta) || !ConfirmSaveChanges()) return;
  BusyScope busy(prompts_);
  ClearCurrentImage();
  Load(path, page);
  if (image_) {
    StartHistory();
    ShowImage();
  }
  const QString failure = base::DisplayName(path) + Texts::tr(": Can't open page %1").arg(page + 1);
  Q_EMIT StatusChanged(image_ ? QString() : failure);
  if (!image_) Q_EMIT OpenFailed(failure);
  Q_EMIT StateChanged();
}

void Document::AdoptFrame(int index, const imaging::Image& frame) {
  if (!image_ || !animated_ || IsChanged() || index == page_) return;
  image_ = frame;
  page_ = index;
  StartHistory();
}

}  // namespace document
