#include "files/frmProperties.h"

#include "files/Properties.h"
#include "widgets/BusyPointer.h"
#include "widgets/Fonts.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace files {

frmProperties::frmProperties(const QString& path, QWidget* parent) : QDialog(parent) {
  widgets::BusyPointerGuard busy;
  setObjectName(QStringLiteral("frmProperties"));
  setWindowTitle(tr("Properties"));
  widgets::ApplyTahomaFont(*this);
  auto* list = new QTreeWidget(this);
  list->setObjectName(QStringLiteral("lisLista"));
  list->setColumnCount(2);
  list->setHeaderHidden(true);
  list->setRootIsDecorated(false);
  for (const auto& [name, value] : PropertyRows(path)) list->addTopLevelItem(new QTreeWidgetItem({name, value}));
  list->resizeColumnToContents(0);
  auto* close = new QPushButton(tr("Close"), this);
  close->setObjectName(QStringLiteral("cmdCerrar"));
  close->setDefault(true);
  connect(close, &QPushButton::clicked, this, &QDialog::accept);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(close);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(list);
  layout->addLayout(buttons);
  resize(460, 360);
}

}  // namespace files
