// Part 4.3's common command frame on frmMain: every Colors, Image and Filters command of
// the catalogue, and Edit > Copy.
#include "app/BusyPointer.h"
#include "app/frmMain.h"
#include "edit/Catalogue.h"
#include "edit/DialogDescriptions.h"
#include "edit/frmDiseno.h"
#include "files/NaturalSize.h"
#include "imaging/Operations.h"
#include "view/Viewport.h"

#include <QClipboard>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMessageBox>

namespace app {

bool RunParameterDialog(edit::frmDiseno& dialog) { return dialog.exec() == QDialog::Accepted; }

void frmMain::ConnectCatalogueCommands() {
  for (const edit::CatalogueCommand& command : edit::Catalogue()) {
    const QString name = QLatin1String(command.Command);
    connect(commands_.Get(name), &QAction::triggered, this, [this, &command] { RunCatalogueCommand(command); });
    commands_.EnableWhen(name, [this] { return CanRunImageCommand(); });
  }
  connect(commands_.Get(QStringLiteral("mnuEditCopy")), &QAction::triggered, this, [this] { CopyToClipboard(); });
  commands_.EnableWhen(QStringLiteral("mnuEditCopy"), [this] { return session_.CanEdit(); });
}

// Step 1 of the frame: not Thumbnails, an image loaded, not a metafile.
bool frmMain::CanRunImageCommand() const {
  if (!session_.CanEdit()) return false;
  const QString extension = QFileInfo(session_.CurrentFilePath()).suffix().toLower();
  return extension != QLatin1String("wmf") && extension != QLatin1String("emf");
}

QRect frmMain::SelectionPixels() const {
  const view::SelectionRecord& selection = picFondo_->Selection();
  if (!selection.Exists()) return {};
  return selection.Pixels(state_.Metrics.TwipsPerPixelX, state_.Metrics.TwipsPerPixelY);
}

void frmMain::RunCatalogueCommand(const edit::CatalogueCommand& command) {
  if (!CanRunImageCommand() || !session_.CurrentImage()) return;
  const QRect selection = SelectionPixels();
  if (*command.SelectionMessage && selection.isEmpty()) {
    QMessageBox::warning(this, QLatin1String(command.UndoName), QLatin1String(command.SelectionMessage));
    return;
  }
  edit::Arguments arguments;
  if (*command.DialogClass) {
    const auto chosen = AskParameters(command);
    if (!chosen) return;
    arguments = *chosen;
  } else {
    arguments = edit::ArgumentsFrom(command, {}, selection);
  }
  BusyPointerGuard busy;
  picFondo_->SelectNone();
  session_.ApplyEdit(edit::Apply(command, *session_.CurrentImage(), arguments), QLatin1String(command.UndoName));
  commands_.Refresh();
}

// Step 3 and 4: the dialog sequence of Part 4.2, then the values with their fallbacks.
std::optional<edit::Arguments> frmMain::AskParameters(const edit::CatalogueCommand& command) {
  const QString description = edit::DialogDescriptionFor(QLatin1String(command.Command));
  const files::NaturalSize natural = files::ReadNaturalSizeRecord(session_.NaturalSizeTag());
  const edit::DialogContext context{natural.WidthTwips, natural.HeightTwips, state_.Metrics.TwipsPerPixelX,
                                    state_.Metrics.TwipsPerPixelY};
  QCoreApplication::processEvents();
  edit::frmDiseno dialog(description, context, session_.CurrentImage(), edit::PreviewOperation(command), this);
  const bool accepted = runParameterDialog_(dialog);
  picFondo_->update();
  state_.DialogCancelled = !accepted;
  if (!accepted) return std::nullopt;
  edit::DialogModel atLoad(edit::ParseDialogDescription(description), context);
  atLoad.Initialize();
  return edit::CommandArguments(command, dialog.Values(), atLoad.Values());
}

// Edit > Copy: the selection, or the whole image, to the clipboard; the image unchanged.
void frmMain::CopyToClipboard() {
  if (!session_.CanEdit() || !session_.CurrentImage()) return;
  const QRect selection = SelectionPixels();
  const imaging::Image& image = *session_.CurrentImage();
  const QImage copied = (selection.isEmpty() ? image : imaging::ops::Crop(image, selection)).ToQImage();
  QGuiApplication::clipboard()->setImage(copied.copy());
}

}  // namespace app
