// Part 4.4 on the session: the base state of every image shown, each edit recorded,
// undo and redo restoring a packed state at the current zoom.
#include "app/BusyPointer.h"
#include "app/Session.h"
#include "files/NaturalSize.h"

namespace app {

void Session::StartHistory() {
  ClearUndoHistory();
  if (image_) history_.Push(imaging::PackedImage::Pack(*image_), QString(), state_.ChangeLevel);
  view_.UpdateUndoCaptions();
}

void Session::ApplyEdit(const imaging::Image& edited, const QString& undoName) {
  image_ = edited;
  naturalSizeTag_ = files::NaturalSizeRecord(edited.Width(), edited.Height(), state_.Metrics);
  // No free slot (Part 4.4's intended limit): the edit stays, unrecorded, captions unchanged.
  if (history_.Push(imaging::PackedImage::Pack(edited), undoName, state_.ChangeLevel)) view_.UpdateUndoCaptions();
  view_.ShowEditedImage(*image_, false);
  view_.RefreshStatusBar({});
}

void Session::ShowState(const edit::UndoMove& move) {
  BusyPointerGuard busy;
  const auto& packed = history_.PictureIn(move.Slot);
  if (packed) {
    image_ = packed->Unpack();
    naturalSizeTag_ = files::NaturalSizeRecord(image_->Width(), image_->Height(), state_.Metrics);
    view_.ShowEditedImage(*image_, move.SizeChanges);
  }
  view_.RefreshStatusBar({});
  view_.UpdateUndoCaptions();
}

void Session::Undo() {
  if (!CanEdit()) return;
  if (const auto move = history_.Undo()) ShowState(*move);
}

void Session::Redo() {
  if (!CanEdit()) return;
  if (const auto move = history_.Redo()) ShowState(*move);
}

}  // namespace app
