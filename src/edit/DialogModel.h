#pragma once
// The runtime of `frmDiseno` without widgets: text boxes and sliders kept in
// step through their links, clamping, the Resize aspect lock, the Rotate buttons, the
// key filter and OK's validation. The widget layer shows this state and forwards events.

#include "edit/DialogDescription.h"

#include <QString>

#include <map>
#include <optional>
#include <vector>

namespace edit {

// What the dialog needs to know of the image: its size at 100 % in twips
// and the screen's twips per pixel.
struct DialogContext {
  double NaturalWidthTwips = 0;
  double NaturalHeightTwips = 0;
  double TwipsPerPixelX = 15;
  double TwipsPerPixelY = 15;
};

// The values the command reads after OK, and the preview uses meanwhile.
struct DialogValues {
  std::vector<int> Numbers;   // text box n at [n - 1]; a text that does not convert reads 0
  int SelectedOption = 0;     // 1-based; 0 when none is selected
  std::vector<bool> Checks;   // check box n at [n - 1]
  bool AllConverted = true;   // false when some text box's text is not a whole number

  int Number(int textBox) const;
};

struct ValidationFailure {
  QString Message;
  int TextBox = 0;
  bool SelectText = false;
};

class DialogModel {
 public:
  DialogModel(DialogLayout layout, DialogContext context);

  // Load after parsing: class initialisation, then each slider written into its box.
  // True when a first preview is due (the dialog has a slider).
  bool Initialize();

  // User events. Each returns true when the preview must be refreshed.
  bool SliderChanged(int slider, int value);
  bool TextChanged(int textBox, const QString& text);
  bool CheckClicked(int check, bool checked);
  bool ButtonClicked(int button);
  void OptionSelected(int option) { selectedOption_ = option; }

  // The key filter: control characters pass; printable ones only from "0123456789+-".
  static bool AcceptsCharacter(QChar c);

  std::optional<ValidationFailure> Validate() const;
  DialogValues Values() const;

  const DialogLayout& Layout() const { return layout_; }
  const QString& DialogClass() const { return layout_.DialogClass; }
  QString Text(int textBox) const;
  bool TextEnabled(int textBox) const;
  int SliderValue(int slider) const;
  bool Checked(int check) const;
  int SelectedOption() const { return selectedOption_; }
  // The help topic of the class's menu group, for F1.
  QString HelpTopic() const;

 private:
  bool IsResize() const { return layout_.DialogClass == QLatin1String("Resize"); }
  void InitializeResize();
  void WriteSliderIntoLinkedBox(int slider);
  void KeepAspect(int changedBox);
  const DialogControl* Slider(int index) const { return layout_.Find(ControlKind::Slider, index); }

  DialogLayout layout_;
  DialogContext context_;
  std::map<int, QString> texts_;
  std::map<int, bool> disabledTexts_;
  std::map<int, int> sliderValues_;
  std::map<int, bool> checks_;
  int selectedOption_ = 0;
};

}  // namespace edit
