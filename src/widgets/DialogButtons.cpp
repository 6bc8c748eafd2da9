#include "widgets/DialogButtons.h"
#include "base/Texts.h"

#include <QDialog>
#include <QHBoxLayout>
#include <QPushButton>

namespace widgets {

QHBoxLayout* OkAndCloseButtons(QDialog& dialog, const char* closeName, const QString& closeCaption,
                               std::function<void()> onOk) {
  auto* ok = new QPushButton(Texts::tr("OK"), &dialog);
  ok->setObjectName(QStringLiteral("cmdAceptar"));
  ok->setDefault(true);
  auto* close = new QPushButton(closeCaption, &dialog);
  close->setObjectName(QLatin1String(closeName));
  QObject::connect(ok, &QPushButton::clicked, &dialog, std::move(onOk));
  QObject::connect(close, &QPushButton::clicked, &dialog, &QDialog::reject);
  auto* row = new QHBoxLayout;
  row->addStretch();
  row->addWidget(ok);
  row->addWidget(close);
  return row;
}

}  // namespace widgets
