// Editing on the document: the base state of every image shown, each edit recorded,
// undo and redo restoring a packed state at the current zoom.
#include "document/Document.h"

#include <utility>

namespace document {

// The base state is packed only when the first edit needs it: opening or saving an image
// costs nothing more than the image shown, which the history shares until then.
void Document::StartHistory() {
  history_.Clear();
  previous_.reset();
  unrecordedBase_ = image_;
  Q_EMIT StateChanged();
}

void Document::RecordBase() {
  if (!unrecordedBase_) return;
  history_.Push(imaging::PackedImage::Pack(*unrecordedBase_), QString());
  unrecordedBase_.reset();
}

void Document::ApplyEdit(const imaging::Image& edited, const QString& undoName, bool changesGeometry) {
  RecordBase();
  previous_ = image_;
  image_ = edited;
  natural_ = base::NaturalSize::FromPixels(edited.Width(), edited.Height(), state_.Metrics);
  // With no free slot the edit stays, unrecorded, and the captions do not change.
  history_.Push(imaging::PackedImage::Pack(edited), undoName, changesGeometry);
  Q_EMIT ImageEdited(*image_, false);
  Q_EMIT StatusChanged({});
  Q_EMIT StateChanged();
}

void Document::ShowState(const edit::UndoMove& move) {
  BusyScope busy(prompts_);
  if (const auto& packed = history_.PictureIn(move.Slot)) {
    imaging::Image restored = packed->Unpack();  // before the image kept whole is let go
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
