#pragma once
// A text box for a decimal number: typed characters other than digits, "+", "-" and the
// locale's decimal separator are dropped (control keys pass), and gaining the focus
// selects the whole text.

class QLineEdit;

namespace widgets {

void MakeNumberBox(QLineEdit* box);

}  // namespace widgets
