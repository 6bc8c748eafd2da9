// Prints the texts of the parameter dialogs (titles and captions held inside their
// descriptions) as marked source lines, so that lupdate finds them for the translators.
#include "edit/DialogDescription.h"
#include "edit/DialogDescriptions.h"

#include <QSet>
#include <QTextStream>

namespace {

bool IsText(const QString& caption) {
  return std::any_of(caption.begin(), caption.end(), [](QChar c) { return c.isLetter(); });
}

}  // namespace

int main() {
  QTextStream out(stdout);
  QSet<QString> printed;
  const auto print = [&](const QString& text) {
    if (!IsText(text) || printed.contains(text)) return;
    printed.insert(text);
    QString quoted = text;
    quoted.replace(u'\\', QStringLiteral("\\\\")).replace(u'"', QStringLiteral("\\\""));
    out << "QT_TRANSLATE_NOOP(\"edit::DialogDescriptions\", \"" << quoted << "\");\n";
  };
  for (const edit::CommandDescription& command : edit::DialogDescriptions()) {
    const edit::DialogLayout layout = edit::ParseDialogDescription(command.Description);
    if (layout.Title) print(*layout.Title);
    for (const edit::DialogControl& control : layout.Controls) print(control.Caption);
  }
  return 0;
}
