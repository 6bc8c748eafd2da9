// frmMain's Undo and Redo (Part 4.4) and the catalogue's commands without a dialog
// (Part 4.3's common command frame).
#include "app/BusyPointer.h"
#include "app/frmMain.h"
#include "imaging/Operations.h"
#include "view/Viewport.h"

#include <QFileInfo>

namespace app {

void frmMain::BuildEditCommands() {
  CommandRegistry& c = commands_;
  connect(c.Add(QStringLiteral("mnuEditUndo"), QStringLiteral("&Undo"), QKeySequence(Qt::CTRL | Qt::Key_Z)),
          &QAction::triggered, this, [this] { session_.Undo(); });
  connect(c.Add(QStringLiteral("mnuEditRedo"), QStringLiteral("&Redo"), QKeySequence(Qt::CTRL | Qt::Key_Y)),
          &QAction::triggered, this, [this] { session_.Redo(); });
  c.EnableWhen(QStringLiteral("mnuEditUndo"), [this] { return session_.CanEdit() && session_.UndoHistory().CanUndo(); });
  c.EnableWhen(QStringLiteral("mnuEditRedo"), [this] { return session_.CanEdit() && session_.UndoHistory().CanRedo(); });

  const auto command = [this](const char* name, const char* caption, const char* undoName,
                              imaging::Image (*operation)(const imaging::Image&)) {
    connect(commands_.Add(QLatin1String(name), QLatin1String(caption)), &QAction::triggered, this,
            [this, undoName, operation] { RunImageCommand(QLatin1String(undoName), operation); });
    commands_.EnableWhen(QLatin1String(name), [this] { return CanRunImageCommand(); });
  };
  command("mnuImageFlip", "&Flip", "Flip", imaging::ops::Flip);
  command("mnuImageMirror", "&Mirror", "Mirror", imaging::ops::Mirror);
  command("mnuColorsNegative", "&Negative", "Negative", imaging::ops::Negative);
  command("mnuColorsGrayScale", "Gr&ay Scale", "Gray Scale", imaging::ops::GrayScale);
  command("mnuImageFiltersBlur", "B&lur", "Blur", imaging::ops::Blur);
}

// Step 1 of the frame: not Thumbnails, an image loaded, not a metafile.
bool frmMain::CanRunImageCommand() const {
  if (!session_.CanEdit()) return false;
  const QString extension = QFileInfo(session_.CurrentFilePath()).suffix().toLower();
  return extension != QLatin1String("wmf") && extension != QLatin1String("emf");
}

void frmMain::RunImageCommand(const QString& undoName, imaging::Image (*operation)(const imaging::Image&)) {
  if (!CanRunImageCommand() || !session_.CurrentImage()) return;
  BusyPointerGuard busy;
  picFondo_->SelectNone();
  session_.ApplyEdit(operation(*session_.CurrentImage()), undoName);
  commands_.Refresh();
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
