#include "widgets/frmTexto.h"

#include "widgets/DialogButtons.h"
#include "widgets/Fonts.h"

#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QRegularExpressionValidator>
#include <QVBoxLayout>

namespace widgets {

frmTexto::frmTexto(const QString& caption, const QString& label, const QString& text, Acceptor acceptor, QWidget* parent)
    : QDialog(parent), acceptor_(std::move(acceptor)) {
  setObjectName(QStringLiteral("frmTexto"));
  setWindowTitle(caption);
  ApplyTahomaFont(*this);
  txtTexto_ = new QLineEdit(text, this);
  txtTexto_->setObjectName(QStringLiteral("txtTexto"));
  auto* prompt = new QLabel(label, this);
  prompt->setBuddy(txtTexto_);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(prompt);
  layout->addWidget(txtTexto_);
  layout->addLayout(OkAndCloseButtons(*this, "cmdCancelar", tr("Cancel"), [this] { Accept(); }));
  setMinimumWidth(320);
}

void frmTexto::SetDigitsOnly() {
  txtTexto_->setValidator(new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9]*")), txtTexto_));
}

void frmTexto::SelectFirst(int characters) { txtTexto_->setSelection(0, characters); }

QString frmTexto::Text() const { return txtTexto_->text().trimmed(); }

void frmTexto::Accept() {
  if (Text().isEmpty()) return;
  if (acceptor_ && !acceptor_(Text())) {
    txtTexto_->setFocus();
    txtTexto_->selectAll();
    return;
  }
  accept();
}

std::unique_ptr<frmTexto> GoToPageDialog(int pages, QWidget* parent) {
  auto dialog = std::make_unique<frmTexto>(frmTexto::tr("Go to Page"), frmTexto::tr("&Page:"), QString(), nullptr, parent);
  frmTexto* self = dialog.get();
  dialog->SetAcceptor([self, pages](const QString& text) {
    bool ok = false;
    const int page = text.toInt(&ok);
    if (ok && page >= 1 && page <= pages) return true;
    QMessageBox::warning(self, self->windowTitle(), frmTexto::tr("Please enter a number between 1 and ") + QString::number(pages));
    return false;
  });
  dialog->SetDigitsOnly();
  return dialog;
}

}  // namespace widgets
