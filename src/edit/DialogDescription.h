#pragma once
// Parameter dialog descriptions: one line of comma-separated
// fields from which `frmDiseno` builds itself. The parser is a plain function from
// text to a layout model; it never fails.

#include <QString>

#include <optional>
#include <vector>

namespace edit {

inline constexpr double kGridTwips = 120;  // one grid unit, on both axes

// The next field up to `delimiter`. `position` is 1-based; returns isLast (no delimiter found).
bool NextToken(const QString& text, int& position, QString& token, QChar delimiter = u',');

enum class ControlKind { Label, TextBox, Slider, Option, Check, Button };

struct DialogControl {
  ControlKind Kind = ControlKind::Label;
  int Index = 0;        // 1, 2, 3 ... within its kind, in clause order
  double X = 0;         // twips from the client area's top-left
  double Y = 0;
  double Width = 0;     // twips; labels keep their design-time width (0 here)
  QString Caption;      // labels, options, check boxes, buttons
  int Link = 0;         // text boxes and sliders: the linked control's index (0: none)
  int Minimum = 0;      // sliders
  int Maximum = 0;
  int Value = 0;
  int TickFrequency = 0;
  int TabIndex = 0;

  bool operator==(const DialogControl&) const = default;
};

struct DialogLayout {
  QString DialogClass;                  // empty without a `cla` clause
  std::optional<double> WindowWidth;    // outer size in twips, from `ven`
  std::optional<double> WindowHeight;
  std::optional<QString> Title;
  std::optional<double> PreviewX;       // twips, from `pre`; no preview without it
  std::optional<double> PreviewY;
  std::vector<DialogControl> Controls;  // in clause order
  int OkTabIndex = 0;
  int CancelTabIndex = 1;

  int Count(ControlKind kind) const;
  // The control of a kind by its 1-based index, or nullptr.
  const DialogControl* Find(ControlKind kind, int index) const;
  bool HasPreview() const { return PreviewX.has_value(); }
};

DialogLayout ParseDialogDescription(const QString& description);

// The slider's tick frequency: (maximum - minimum + 1) / 4, rounded half to even.
int TickFrequency(int minimum, int maximum);

}  // namespace edit
