#pragma once
// The row every small dialog ends with: OK (`cmdAceptar`, the default button), then the
// button that closes without a choice, at the right.

#include <QString>

#include <functional>

class QDialog;
class QHBoxLayout;

namespace widgets {

// OK runs `onOk` (which accepts the dialog when the values are good); the other button,
// named `closeName` ("cmdCancelar", "cmdCerrar"), rejects it.
QHBoxLayout* OkAndCloseButtons(QDialog& dialog, const char* closeName, const QString& closeCaption,
                               std::function<void()> onOk);

}  // namespace widgets
