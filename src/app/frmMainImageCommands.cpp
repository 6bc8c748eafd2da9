// The editing commands: every Colors, Image and Filters operation runs through one
// frame (its silent preconditions, the selection it needs, its parameter dialog, the
// operation on a worker under the busy pointer, one undo step), and Edit > Copy.
#include "app/frmMain.h"

#include "edit/Catalogue.h"
#include "edit/DialogDescriptions.h"
#include "edit/frmDiseno.h"
#include "imaging/Operations.h"
#include "view/Viewport.h"
#include "widgets/WaitForWork.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMessageBox>
#include <QProgressBar>
#include <QStatusBar>
#include <QtConcurrent/QtConcurrentRun>

#include <memory>

namespace app {

bool RunParameterDialog(edit::frmDiseno& dialog) { return dialog.exec() == QDialog::Accepted; }

// Not in Thumbnails, an image shown, and not a metafile (drawings are not edited).
bool frmMain::CanRunImageCommand() const { return document_.CanEdit() && !document_.IsMetafile(); }

QRect frmMain::SelectionPixels() const {
  const view::SelectionRecord& selection = picFondo_->Selection();
  if (!selection.Exists()) return {};
  return selection.Pixels(state_.Metrics.ImageTwipsPerPixelX(), state_.Metrics.ImageTwipsPerPixelY());
}

void frmMain::RunCatalogueCommand(const edit::CatalogueCommand& command) {
  SettleImage();
  if (!document_.CurrentImage()) return;
  const QRect selection = SelectionPixels();
  if (*command.SelectionMessage && selection.isEmpty()) {
    QMessageBox::warning(this, command.Undo(), command.Selection());
    return;
  }
  const QImage shownFrame = picFondo_->ReducedFrame();
  edit::Arguments arguments;
  if (command.HasDialog()) {
    const auto chosen = AskParameters(command);
    if (!chosen) return;
    arguments = *chosen;
  } else {
    arguments = edit::ArgumentsFrom(command, {}, selection);
  }
  const QString undoName = command.Undo();
  const std::optional<edit::Applied> applied = ApplyOnWorker(command, arguments);
  if (!applied) return;  // Esc: the image and the history as they were
  if (!applied->Picture) {  // nothing changes and nothing is recorded
    ShowExclamation(tr("Can't apply %1").arg(undoName), applied->Failure);
    return;
  }
  picFondo_->SelectNone();
  interimFrame_ = InterimFrame(command, shownFrame, arguments);
  document_.ApplyEdit(*applied->Picture, undoName, command.ChangesGeometry(), edit::BlockStepOf(command, arguments));
  interimFrame_ = QImage();
}

// The operation on a worker thread while the window stays painted and holds the user's
// input back. After a quarter second the status bar says what is being done, with a busy
// bar; Esc gives up the edit at once (nullopt) and its result is dropped when it comes.
std::optional<edit::Applied> frmMain::ApplyOnWorker(const edit::CatalogueCommand& command, const edit::Arguments& arguments) {
  auto result = std::make_shared<edit::Applied>();
  const QFuture<void> work = QtConcurrent::run(
      [result, run = runEdit_, &command, image = *document_.CurrentImage(), arguments] { *result = run(command, image, arguments); });
  std::atomic_bool cancel = false;
  widgets::WaitOptions options;
  options.LeaveOnEscape = true;
  options.Slow = [this, &command](bool slow) {
    RefreshStatusBar(slow ? command.Undo() + tr("... (Esc cancels)") : QString());
    editProgress_->setVisible(slow);
  };
  if (widgets::WaitForWork(work, cancel, options)) return std::nullopt;
  return *result;
}

// A pointwise operation run on the frame shown gives the new frame at once; the exact one
// follows off the UI thread. Null for the others.
QImage frmMain::InterimFrame(const edit::CatalogueCommand& command, const QImage& shown, const edit::Arguments& arguments) {
  if (!command.IsPointwise() || shown.isNull()) return {};
  const edit::Applied quick = edit::TryApply(command, imaging::Image::FromQImage(shown), arguments);
  return quick.Picture ? quick.Picture->ToQImage() : QImage();
}

// The parameter dialog with a live preview; the chosen values, or the ones the dialog
// showed when it opened where a box does not hold a number. Nothing on Cancel.
std::optional<edit::Arguments> frmMain::AskParameters(const edit::CatalogueCommand& command) {
  const QString description = edit::DialogDescriptionFor(command.Id);
  base::ScreenMetrics logical = state_.Metrics;  // the dialog gives the size in image pixels
  logical.DevicePixelRatio = 1;
  const imaging::Image& image = *document_.CurrentImage();
  const base::NaturalSize natural = base::NaturalSize::FromPixels(image.Width(), image.Height(), logical);
  const edit::DialogContext context{natural.WidthTwips, natural.HeightTwips, logical.TwipsPerPixelX, logical.TwipsPerPixelY};
  QCoreApplication::processEvents();  // the closed menu's area is drawn before the dialog's preview work
  edit::frmDiseno dialog(description, context, document_.CurrentImage(), edit::PreviewOperation(command), this);
  const bool accepted = runParameterDialog_(dialog);
  picFondo_->update();
  if (!accepted) return std::nullopt;
  edit::DialogModel atLoad(edit::ParseDialogDescription(description), context);
  atLoad.Initialize();
  return edit::CommandArguments(command, dialog.Values(), atLoad.Values());
}

void frmMain::ShowEditedImage(const imaging::Image& image, bool removeSelection) {
  if (removeSelection) picFondo_->SelectNone();
  picFondo_->ReplaceImage(image, document_.Natural(), interimFrame_);
}

}  // namespace app
