#pragma once
// The undo and redo history without widgets: eight slots of pictures, the named steps
// with the current one, the slot search of a new step (which records nothing when no
// slot is free), the moves, the menu captions and whether the image is changed: it is
// exactly when the current step is not the loaded or saved state.
// `Picture` is what a slot holds: the whole image, or a form of it that costs less memory.

#include "base/Texts.h"

#include <QString>

#include <array>
#include <optional>

namespace edit {

struct UndoMove {
  QString Name;      // Undo: the state left; Redo: the state entered
  int Slot = 0;      // the slot holding the picture to show now
  bool SizeChanges;  // a step that may change the size (Crop, Resize, Rotate): the selection goes first
};

template <typename Picture>
class UndoHistory {
 public:
  static constexpr int kSlots = 8;

  // Forgets every step; nothing is changed any more.
  void Clear() {
    cleanStep_ = -1;
    unrecordedChange_ = false;
    count_ = 0;
    current_ = -1;
    pictures_.fill(std::nullopt);
  }

  // Records a step: a named change, or the unnamed base state (a loaded or saved image,
  // the file's own state). False when no slot is free and nothing was recorded; the image
  // then counts as changed until the next base state.
  bool Push(Picture picture, const QString& name, bool changesSize = false) {
    const bool full = current_ >= kSlots - 1;
    std::array<bool, kSlots> used{};
    for (int i = full ? 1 : 0; i < count_; ++i) used[static_cast<size_t>(steps_[static_cast<size_t>(i)].Slot)] = true;
    int slot = 0;
    while (slot < kSlots && used[static_cast<size_t>(slot)]) ++slot;
    if (slot == kSlots) {
      unrecordedChange_ = unrecordedChange_ || !name.isEmpty();
      return false;
    }
    pictures_[static_cast<size_t>(slot)] = std::move(picture);
    if (cleanStep_ > current_) cleanStep_ = -1;  // the redo steps, the file's state among them, go
    if (full) {
      for (int i = 1; i < kSlots; ++i) steps_[static_cast<size_t>(i - 1)] = steps_[static_cast<size_t>(i)];
      if (cleanStep_ >= 0) --cleanStep_;
    } else {
      ++current_;
    }
    steps_[static_cast<size_t>(current_)] = {slot, name, changesSize};
    count_ = current_ + 1;
    if (name.isEmpty()) {
      cleanStep_ = current_;
      unrecordedChange_ = false;
    }
    return true;
  }

  bool CanUndo() const { return count_ > 0 && current_ > 0; }
  bool CanRedo() const { return count_ >= 1 && current_ >= 0 && current_ < count_ - 1; }

  std::optional<UndoMove> Undo() {
    if (!CanUndo()) return std::nullopt;
    const Step& left = steps_[static_cast<size_t>(current_)];
    --current_;
    return UndoMove{left.Name, steps_[static_cast<size_t>(current_)].Slot, left.ChangesSize};
  }

  std::optional<UndoMove> Redo() {
    if (!CanRedo()) return std::nullopt;
    ++current_;
    const auto& entered = steps_[static_cast<size_t>(current_)];
    return UndoMove{entered.Name, entered.Slot, entered.ChangesSize};
  }

  const std::optional<Picture>& PictureIn(int slot) const { return pictures_.at(static_cast<size_t>(slot)); }

  // The menu captions "&Undo Blur" / Texts::tr("&Undo"), and the toolbar's "Undo Blur" / Texts::tr("Undo").
  QString UndoCaption() const { return Caption(Texts::tr("&Undo"), UndoName()); }
  QString RedoCaption() const { return Caption(Texts::tr("&Redo"), RedoName()); }
  QString UndoTooltip() const { return Caption(Texts::tr("Undo"), UndoName()); }
  QString RedoTooltip() const { return Caption(Texts::tr("Redo"), RedoName()); }

  // Undo back to the loaded or saved state makes the image unchanged again.
  bool IsChanged() const { return unrecordedChange_ || (count_ > 0 && current_ != cleanStep_); }
  // The user chose to drop the changes: the image shown counts as unchanged.
  void ForgetChanges() {
    cleanStep_ = current_;
    unrecordedChange_ = false;
  }

  int Current() const { return current_; }
  int Count() const { return count_; }

 private:
  struct Step {
    int Slot = 0;
    QString Name;
    bool ChangesSize = false;
  };

  QString UndoName() const { return CanUndo() ? steps_[static_cast<size_t>(current_)].Name : QString(); }
  QString RedoName() const { return CanRedo() ? steps_[static_cast<size_t>(current_ + 1)].Name : QString(); }
  static QString Caption(const QString& command, const QString& name) {
    return name.isEmpty() ? command : command + u' ' + name;
  }

  std::array<Step, kSlots> steps_{};
  std::array<std::optional<Picture>, kSlots> pictures_{};
  int current_ = -1;
  int count_ = 0;
  int cleanStep_ = -1;  // the step holding the file's own state; -1 when none does
  bool unrecordedChange_ = false;
};

}  // namespace edit
