#pragma once
// The editing commands' table, one row per command in menu order: its identifier, menu
// name and caption, dialog class, undo name, selection message, whether it changes the
// picture's size, whether it reads its source in order, its parameters (where the dialog
// keeps them, their ranges) and the operation. The command (frmMain), the dialog's preview and vistrel-cli's
// `apply` all run an operation through Apply, so all three give the same pixels.
// Edit > Copy exports rather than edits and is frmMain's own.

#include "edit/DialogModel.h"
#include "edit/Operation.h"
#include "edit/OperationId.h"
#include "imaging/Image.h"
#include "imaging/LosslessJpeg.h"

#include <QCoreApplication>
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

// How a command touches its picture, beyond its pixels.
enum Trait : unsigned {
  kNoTrait = 0,
  kChangesGeometry = 1,  // the size may change: the selection goes and the natural size is read again
  kRandomAccess = 2,     // reads its source out of order, so the streaming path cannot run it
  kPointwise = 4,        // each pixel from itself alone: run on a reduced copy, it gives the reduced result
};

struct CatalogueCommand {
  OperationId Id;
  const char* Command;           // the menu command, "mnuColorsBrightness"
  const char* MenuCaption;       // UTF-8, "&Brightness...", the English source of a translation
  const char* DialogClass;       // "" for a command without a dialog
  const char* UndoName;          // UTF-8, "Brightness"
  const char* SelectionMessage;  // "" unless the command needs a selection
  unsigned Traits;
  std::vector<Parameter> Parameters;
  imaging::Image (*Run)(const imaging::Image& image, const Arguments& values);
  int Bits = 0;  // the Color Depth commands' depth

  bool ChangesGeometry() const { return (Traits & kChangesGeometry) != 0; }
  // The operations that read their source once, top to bottom, which imaging's streaming
  // path can run.
  bool ReadsSourceInOrder() const { return (Traits & kRandomAccess) == 0; }
  bool HasDialog() const { return *DialogClass != 0; }
  bool IsPointwise() const { return (Traits & kPointwise) != 0; }
  // The texts the user reads, in the user's language.
  QString Menu() const { return QCoreApplication::translate("edit::Catalogue", MenuCaption); }
  QString Undo() const { return QCoreApplication::translate("edit::Catalogue", UndoName); }
  QString Selection() const { return QCoreApplication::translate("edit::Catalogue", SelectionMessage); }
};

// Every command, in menu order.
const std::vector<CatalogueCommand>& Catalogue();
const CatalogueCommand& CommandFor(OperationId id);

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
// The edit as one the compressed blocks of a JPEG can follow (a right-angle turn or flip, a
// crop); nullopt for any other.
std::optional<imaging::BlockStep> BlockStepOf(const CatalogueCommand& command, const Arguments& values);
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

// The chain as the blocks of a JPEG of `picture`'s size can follow it, when every step is
// a right-angle turn or flip or a crop; nullopt otherwise.
std::optional<imaging::BlockEdit> BlockEditOf(const std::vector<OperationStep>& steps, QSize picture);

}  // namespace edit
