// frmMain's Undo and Redo (Part 4.4).
#include "app/frmMain.h"
#include "view/Viewport.h"

namespace app {

void frmMain::BuildEditCommands() {
  CommandRegistry& c = commands_;
  connect(c.Add(QStringLiteral("mnuEditUndo"), QStringLiteral("&Undo"), QKeySequence(Qt::CTRL | Qt::Key_Z)),
          &QAction::triggered, this, [this] { session_.Undo(); });
  connect(c.Add(QStringLiteral("mnuEditRedo"), QStringLiteral("&Redo"), QKeySequence(Qt::CTRL | Qt::Key_Y)),
          &QAction::triggered, this, [this] { session_.Redo(); });
  c.EnableWhen(QStringLiteral("mnuEditUndo"), [this] { return session_.CanEdit() && session_.UndoHistory().CanUndo(); });
  c.EnableWhen(QStringLiteral("mnuEditRedo"), [this] { return session_.CanEdit() && session_.UndoHistory().CanRedo(); });
}

void frmMain::UpdateUndoCaptions() {
  const Session::History& history = session_.UndoHistory();
  QAction* undo = commands_.Get(QStringLiteral("mnuEditUndo"));
  QAction* redo = commands_.Get(QStringLiteral("mnuEditRedo"));
  if (!undo || !redo) return;
  undo->setText(history.UndoCaption());
  redo->setText(history.RedoCaption());
  undo->setToolTip(history.UndoTooltip());
  redo->setToolTip(history.RedoTooltip());
  commands_.Refresh();
}

void frmMain::ShowEditedImage(const imaging::Image& image, bool removeSelection) {
  if (removeSelection) picFondo_->SelectNone();
  picFondo_->ReplaceImage(image, session_.NaturalSizeTag());
  commands_.Refresh();
}

}  // namespace app
