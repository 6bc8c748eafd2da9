#include "shell/frmTiposArchivo.h"

#include "browse/FileTypes.h"
#include "shell/FreedesktopShell.h"
#include "widgets/BusyPointer.h"
#include "widgets/Fonts.h"
#include "widgets/Help.h"

#include <QBoxLayout>
#include <QButtonGroup>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QToolButton>

#include <algorithm>

namespace shell {

namespace {

QString Caption(const QStringList& extensions) {
  return browse::FileTypeDescription(extensions.front()) + QStringLiteral(" (") + extensions.join(QStringLiteral(", ")) +
         u')';
}

QPushButton* Button(QWidget* parent, const char* name, const QString& caption) {
  auto* button = new QPushButton(caption, parent);
  button->setObjectName(QLatin1String(name));
  return button;
}

}  // namespace

constexpr int kDocumentIcons = 3;

frmTiposArchivo::frmTiposArchivo(FileTypeOwner owner, int& fileTypeIcon, QWidget* parent)
    : QDialog(parent), owner_(std::move(owner)), fileTypeIcon_(fileTypeIcon) {
  setObjectName(QStringLiteral("frmTiposArchivo"));
  setWindowTitle(tr("Associate File Types with Vistrel"));
  auto* page = new QVBoxLayout(this);
  page->addWidget(new QLabel(tr("Select the file types for which you want Vistrel to be the default viewer."), this));
  auto* label = new QLabel(tr("&File types:"), this);
  lisLista_ = new QListWidget(this);
  lisLista_->setObjectName(QStringLiteral("lisLista"));
  label->setBuddy(lisLista_);
  page->addWidget(label);
  page->addWidget(lisLista_);
  for (const QString& row : FileTypeRows()) {
    const QStringList extensions = row.split(u';');
    auto* item = new QListWidgetItem(Caption(extensions), lisLista_);
    item->setData(Qt::UserRole, row);
    item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
    item->setCheckState(owner_.IsAssociated(extensions.front()) ? Qt::Checked : Qt::Unchecked);
  }
  connect(lisLista_, &QListWidget::itemChanged, this, [this](QListWidgetItem* item) { TickInStep(lisLista_->row(item)); });
  auto* icons = new QHBoxLayout;
  icons->addWidget(new QLabel(tr("Icon:"), this));
  picIcono_ = new QButtonGroup(this);
  for (int i = 0; i < kDocumentIcons; ++i) {
    auto* choice = new QToolButton(this);
    choice->setObjectName(QStringLiteral("picIcono(%1)").arg(i));
    choice->setIcon(QIcon(QStringLiteral(":/document-icons/vistrel-document-%1.svg").arg(i, 3, 10, QChar(u'0'))));
    choice->setIconSize(QSize(32, 32));
    choice->setCheckable(true);
    choice->setChecked(i == std::clamp(fileTypeIcon, 0, kDocumentIcons - 1));
    picIcono_->addButton(choice, i);
    icons->addWidget(choice);
  }
  icons->addStretch();
  page->addLayout(icons);
  auto* buttons = new QHBoxLayout;
  QPushButton* all = Button(this, "cmdTodos", tr("Select All"));
  QPushButton* none = Button(this, "cmdNinguno", tr("Select None"));
  QPushButton* ok = Button(this, "cmdAceptar", tr("OK"));
  QPushButton* cancel = Button(this, "cmdCancelar", tr("Cancel"));
  ok->setDefault(true);
  connect(all, &QPushButton::clicked, this, [this] { CheckAll(true); });
  connect(none, &QPushButton::clicked, this, [this] { CheckAll(false); });
  connect(ok, &QPushButton::clicked, this, &frmTiposArchivo::Accept);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  buttons->addWidget(all);
  buttons->addWidget(none);
  buttons->addStretch();
  buttons->addWidget(ok);
  buttons->addWidget(cancel);
  page->addLayout(buttons);
  widgets::ApplyTahomaFont(*this);
  resize(460, 480);
}

void frmTiposArchivo::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_F1 && event->modifiers() == Qt::NoModifier) return widgets::ShowHelpTopic(QStringLiteral("File Types"));
  QDialog::keyPressEvent(event);
}

void frmTiposArchivo::CheckAll(bool checked) {
  for (int i = 0; i < lisLista_->count(); ++i) lisLista_->item(i)->setCheckState(checked ? Qt::Checked : Qt::Unchecked);
}

// Where the platform records each extension on its own, the extension is the name.
QStringList frmTiposArchivo::NamesOf(const QString& extension) const {
  return owner_.RecordedAs ? owner_.RecordedAs(extension) : QStringList{extension};
}

QStringList frmTiposArchivo::RecordedAs(int row) const {
  QStringList names;
  for (const QString& extension : lisLista_->item(row)->data(Qt::UserRole).toString().split(u';')) {
    names << NamesOf(extension);
  }
  return names;
}

// A row ticked or unticked takes every row recorded under the same name with it.
void frmTiposArchivo::TickInStep(int row) {
  if (inStep_) return;
  inStep_ = true;
  const QStringList names = RecordedAs(row);
  const Qt::CheckState state = lisLista_->item(row)->checkState();
  for (int other = 0; other < lisLista_->count(); ++other) {
    const QStringList theirs = RecordedAs(other);
    if (std::any_of(theirs.begin(), theirs.end(), [&names](const QString& name) { return names.contains(name); })) {
      lisLista_->item(other)->setCheckState(state);
    }
  }
  inStep_ = false;
}

// Every extension of a ticked row becomes Vistrel's; every one of an unticked row goes back;
// a name already applied is not applied again.
void frmTiposArchivo::Accept() {
  widgets::BusyPointerGuard busy;
  fileTypeIcon_ = picIcono_->checkedId();
  QStringList applied;
  for (int i = 0; i < lisLista_->count(); ++i) {
    const QListWidgetItem* item = lisLista_->item(i);
    const QStringList extensions = item->data(Qt::UserRole).toString().split(u';');
    const QString description = browse::FileTypeDescription(extensions.front());
    for (const QString& extension : extensions) {
      const QStringList names = NamesOf(extension);
      if (!names.isEmpty() && std::all_of(names.begin(), names.end(), [&applied](const QString& n) { return applied.contains(n); })) {
        continue;
      }
      applied << names;
      item->checkState() == Qt::Checked ? owner_.Associate(extension, fileTypeIcon_, description) : owner_.Unassociate(extension);
    }
  }
  accept();
}

}  // namespace shell
