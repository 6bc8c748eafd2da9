// Editing on the document: the base state of every image shown, each edit recorded,
// undo and redo restoring a packed state at the current zoom.
#include "document/Document.h"

#include <QFileInfo>

#include <utility>

namespace document {

// The base state is packed only when the first edit needs it: opening or saving an image
// costs nothing more than the image shown, which the history shares until then.
void Document::StartHistory() {
  history_.Clear();
  previous_.reset();
  unrecordedBase_ = image_;
  RememberBaseFile(CurrentFilePath());
  blocks_.reset();
  if (image_) blocks_.emplace(QSize(image_->Width(), image_->Height()));
  Q_EMIT StateChanged();
}

void Document::RememberBaseFile(const QString& path) {
  const QFileInfo file(path);
  baseFile_ = {path, file.lastModified(), file.exists() ? file.size() : -1};
}

void Document::RecordBase() {
  if (!unrecordedBase_) return;
  history_.Push({imaging::PackedImage::Pack(*unrecordedBase_), blocks_}, QString());
  unrecordedBase_.reset();
}

void Document::ApplyEdit(const imaging::Image& edited, const QString& undoName, bool changesGeometry,
                         const std::optional<imaging::BlockStep>& blocks) {
  RecordBase();
  blocks_ = blocks_ && blocks ? std::optional(blocks_->Then(*blocks)) : std::nullopt;
  previous_ = image_;
  image_ = edited;
  natural_ = base::NaturalSize::FromPixels(edited.Width(), edited.Height(), state_.Metrics);
  // With no free slot the edit stays, unrecorded, and the captions do not change.
  history_.Push({imaging::PackedImage::Pack(edited), blocks_}, undoName, changesGeometry);
  Q_EMIT ImageEdited(*image_, false);
  Q_EMIT StatusChanged({});
  Q_EMIT StateChanged();
}

void Document::ShowState(const edit::UndoMove& move) {
  BusyScope busy(prompts_);
  if (const auto& state = history_.PictureIn(move.Slot)) {
    imaging::Image restored = state->Picture.Unpack();  // before the image kept whole is let go
    blocks_ = state->Blocks;
    previous_ = std::exchange(image_, std::move(restored));
    natural_ = base::NaturalSize::FromPixels(image_->Width(), image_->Height(), state_.Metrics);
    Q_EMIT ImageEdited(*image_, move.SizeChanges);
  }
  Q_EMIT StatusChanged({});
  Q_EMIT StateChanged();
}

void Document::Undo() {
  if (!CanEdit()) return;
  if (const auto move = history_.Undo()) ShowState(*move);
}

void Document::Redo() {
  if (!CanEdit()) return;
  if (const auto move = history_.Redo()) ShowState(*move);
}

}  // namespace document
