#include "view/frmZoom.h"

#include "widgets/DialogButtons.h"
#include "widgets/Fonts.h"
#include "widgets/Help.h"
#include "view/Zoom.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QValidator>
#include <QVBoxLayout>

namespace view {

namespace {

const char* const kCaption = QT_TRANSLATE_NOOP("view::frmZoom", "Zoom Functions");  // and the help topic

// The box's key rule applied to whatever reaches its text (typed into the box or the
// combo, pasted), so no path goes around it.
class ZoomTextValidator : public QValidator {
 public:
  using QValidator::QValidator;
  State validate(QString& input, int&) const override {
    for (qsizetype i = 0; i < input.size(); ++i) {
      if (!ZoomDialogAcceptsCharacter(input[i], input.left(i), false)) return Invalid;
    }
    return Acceptable;
  }
};

}  // namespace

frmZoom::frmZoom(int percentage, QWidget* parent) : QDialog(parent), value_(percentage) {
  setObjectName(QStringLiteral("frmZoom"));
  setWindowTitle(tr(kCaption));
  widgets::ApplyTahomaFont(*this);
  cboZoom_ = new QComboBox(this);
  cboZoom_->setObjectName(QStringLiteral("cboZoom"));
  cboZoom_->setEditable(true);
  cboZoom_->setInsertPolicy(QComboBox::NoInsert);
  cboZoom_->addItems(ZoomDialogChoices());
  cboZoom_->setCompleter(nullptr);  // "5" stays "5", never completed to "50%"
  cboZoom_->setValidator(new ZoomTextValidator(cboZoom_));
  cboZoom_->setEditText(QString::number(percentage) + u'%');
  cboZoom_->lineEdit()->installEventFilter(this);
  setMinimumWidth(fontMetrics().horizontalAdvance(tr(kCaption)) + 120);  // room for the whole caption
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(cboZoom_);
  layout->addLayout(widgets::OkAndCloseButtons(*this, "cmdCancelar", tr("Cancel"), [this] { AcceptIfValid(); }));
  cboZoom_->setFocus();
}

bool frmZoom::eventFilter(QObject* watched, QEvent* event) {
  auto* edit = cboZoom_->lineEdit();
  if (watched == edit && event->type() == QEvent::FocusIn) {
    QTimer::singleShot(0, edit, &QLineEdit::selectAll);  // after the focus change settles
  }
  return QDialog::eventFilter(watched, event);
}

void frmZoom::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_F1) {
    widgets::ShowHelpTopic(QLatin1String(kCaption));
    return;
  }
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    AcceptIfValid();
    return;
  }
  QDialog::keyPressEvent(event);
}

void frmZoom::AcceptIfValid() {
  if (const auto value = ZoomDialogValue(cboZoom_->currentText())) {
    value_ = *value;
    accept();
    return;
  }
  QMessageBox::warning(this, tr(kCaption), ZoomDialogRangeMessage());
  cboZoom_->setFocus();
  cboZoom_->lineEdit()->selectAll();
}

}  // namespace view
