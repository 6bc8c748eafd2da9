#pragma once
// ApplyTahomaFont: every form sets its font to "Tahoma" at load. Where the
// system has no Tahoma, Wine's metric-compatible one is registered when installed; the
// parameter dialogs' fixed grid was laid out for it.

class QWidget;

namespace widgets {

// Sets the form's font family to Tahoma (falling back to its current family), keeping
// its size unless `pointSize` is given.
void ApplyTahomaFont(QWidget& form, int pointSize = 0);

}  // namespace widgets
