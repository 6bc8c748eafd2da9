#include "widgets/frmTexto.h"

#include "widgets/DialogButtons.h"
#include "widgets/Fonts.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QVBoxLayout>

namespace widgets {

frmTexto::frmTexto(int pages, QWidget* parent) : QDialog(parent), pages_(pages) {
  setObjectName(QStringLiteral("frmTexto"));
  setWindowTitle(QStringLiteral("Go to Page"));
  ApplyTahomaFont(*this);
  txtTexto_ = new QLineEdit(this);
  txtTexto_->setObjectName(QStringLiteral("txtTexto"));
  txtTexto_->setValidator(new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9]*")), txtTexto_));
  auto* label = new QLabel(QStringLiteral("&Page:"), this);
  label->setBuddy(txtTexto_);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(label);
  layout->addWidget(txtTexto_);
  layout->addLayout(OkAndCloseButtons(*this, "cmdCancelar", QStringLiteral("Cancel"), [this] { Accept(); }));
}

void frmTexto::Accept() {
  const QString text = txtTexto_->text();
  if (text.isEmpty()) return;
  bool ok = false;
  const int page = text.toInt(&ok);
  if (!ok || page < 1 || page > pages_) {
    QMessageBox::warning(this, windowTitle(), QStringLiteral("Please enter a number between 1 and ") + QString::number(pages_));
    txtTexto_->setFocus();
    txtTexto_->selectAll();
    return;
  }
  page_ = page;
  accept();
}

}  // namespace widgets
