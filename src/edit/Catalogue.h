#pragma once
// The editing commands' table: for each Colors, Image and Filters command its dialog class,
// undo name, selection message, parameters (where the dialog keeps them, their ranges)
// and the operation. The command (frmMain), the dialog's preview and vistrel-cli's
// `apply` all run an operation through Apply, so all three give the same pixels.
// Edit > Copy exports rather than edits and is frmMain's own.

#include "edit/DialogModel.h"
#include "edit/Operation.h"
#include "imaging/Image.h"

#include <QRect>
#include <QStringList>

#include <optional>

#include <vector>

namespace edit {

enum class Source { TextBox, Option, Selection };

struct Parameter {
  const char* Name;  // as the command line's messages call it
  double Minimum;
  double Maximum;
  Source From = Source::TextBox;
  int Index = 1;  // the text box (1-based), or the selection's left, top, width, height (0 .. 3)
  bool Fractional = false;  // Rotate's angle is read as a double
};

// An operation's values in the order of its parameters, in the dialog's units.
using Arguments = std::vector<double>;

struct CatalogueCommand {
  const char* Command;           // the menu command, "mnuColorsBrightness"
  const char* DialogClass;       // "" for a command without a dialog
  const char* UndoName;          // "Brightness"
  const char* SelectionMessage;  // "" unless the command needs a selection
  bool ChangesGeometry;          // Rotate, Resize and Crop refresh the natural size
  std::vector<Parameter> Parameters;
  imaging::Image (*Run)(const imaging::Image& image, const Arguments& values);
  int Bits = 0;  // the Color Depth commands' depth
};

const std::vector<CatalogueCommand>& Catalogue();
const CatalogueCommand* FindCatalogueCommand(const QString& menuCommand);

// The operation's values read from the dialog (a text that does not convert reads 0,
// as in the preview) and the selection in pixels, each clamped into its range.
Arguments ArgumentsFrom(const CatalogueCommand& command, const DialogValues& values, const QRect& selection = {});
// What the command applies after OK: when any text box did not convert, the
// values the dialog showed when it opened (the table's fallbacks) are used instead.
Arguments CommandArguments(const CatalogueCommand& command, const DialogValues& chosen, const DialogValues& atLoad,
                           const QRect& selection = {});

// Throws imaging::ops::OperationFailed when the operation cannot be done.
imaging::Image Apply(const CatalogueCommand& command, const imaging::Image& image, const Arguments& values);
// The same with a failure as a result: the new image, or why there is none.
struct Applied {
  std::optional<imaging::Image> Picture;
  QString Failure;  // empty when it worked
};
Applied TryApply(const CatalogueCommand& command, const imaging::Image& image, const Arguments& values);
// True for the operations that read their source once, top to bottom (not Flip, Rotate,
// the warps, Diffuse, Equalize or Red Eye Removal), which imaging's streaming path can run.
bool ReadsSourceInOrder(const CatalogueCommand& command);
// The parameter dialog's preview: Apply with the dialog's current values.
Operation PreviewOperation(const CatalogueCommand& command);

// vistrel-cli's `apply`: OPERATION [VALUE...] repeated. An operation is named by its undo
// name without blanks or by its dialog class, in any case; "ColorDepth BITS" picks the depth.
struct OperationStep {
  const CatalogueCommand* Command = nullptr;
  Arguments Values;
};
struct OperationChain {
  std::vector<OperationStep> Steps;
  QString Error;  // empty when the words parsed
};
OperationChain ParseOperationChain(const QStringList& words);

}  // namespace edit
