#include "print/frmImprimir.h"

#include "print/frmMargen.h"
#include "widgets/Fonts.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QComboBox>
#include <QPageSize>
#include <QFormLayout>
#include <QLabel>
#include <QPageSetupDialog>
#include <QPainter>
#include <QPrinterInfo>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>

namespace print {


// The first page as it will print: the paper, the margins dashed, the picture.
class frmImprimir::Preview : public QWidget {
 public:
  explicit Preview(frmImprimir& dialog) : dialog_(dialog) {
    setObjectName(QStringLiteral("picPreview"));
    setFixedSize(260, 260);
  }
  void Refresh() {
    const auto pages = dialog_.Pages();
    picture_ = pages.empty() ? std::nullopt : pages.front()();
    update();
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Mid));
    const QSizeF page = PagePoints(dialog_.printer_);
    const double scale = std::min((width() - 20) / page.width(), (height() - 20) / page.height());
    const QRectF paper((width() - page.width() * scale) / 2, (height() - page.height() * scale) / 2, page.width() * scale,
                       page.height() * scale);
    painter.fillRect(paper, Qt::white);
    painter.translate(paper.topLeft());
    const PrintOptions options = dialog_.Options();
    if (picture_) DrawPage(painter, *picture_, page, scale, options);
    const QRectF area = PrintableArea(page, options);
    painter.setPen(QPen(Qt::gray, 0, Qt::DashLine));
    painter.drawRect(QRectF(area.topLeft() * scale, area.size() * scale));
  }

 private:
  frmImprimir& dialog_;
  std::optional<imaging::Image> picture_;
};

frmImprimir::frmImprimir(settings::SettingsStore& settings, PageSource current, std::vector<PageSource> folderPages,
                         QWidget* parent)
    : QDialog(parent), settings_(settings), current_(std::move(current)), folderPages_(std::move(folderPages)) {
  setObjectName(QStringLiteral("frmImprimir"));
  setWindowTitle(tr("Print"));
  picPreview_ = new Preview(*this);
  auto* columns = new QHBoxLayout;
  columns->addWidget(BuildChoices());
  columns->addWidget(picPreview_, 0, Qt::AlignTop);
  auto* buttons = new QHBoxLayout;
  auto* print = new QPushButton(tr("&Print"), this);
  print->setObjectName(QStringLiteral("cmdImprimir"));
  print->setDefault(true);
  auto* cancel = new QPushButton(tr("Cancel"), this);
  cancel->setObjectName(QStringLiteral("cmdCancelar"));
  connect(print, &QPushButton::clicked, this, &QDialog::accept);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  buttons->addStretch();
  buttons->addWidget(print);
  buttons->addWidget(cancel);
  auto* page = new QVBoxLayout(this);
  page->addLayout(columns);
  page->addLayout(buttons);
  widgets::ApplyTahomaFont(*this);
  ready_ = true;
  ApplyPrinterChoice();
}

frmImprimir::~frmImprimir() = default;

QWidget* frmImprimir::BuildChoices() {
  auto* box = new QWidget(this);
  auto* form = new QFormLayout(box);
  cboPrinter_ = new QComboBox(box);
  cboPrinter_->setObjectName(QStringLiteral("cboPrinter"));
  cboPrinter_->addItems(QPrinterInfo::availablePrinterNames());
  cboPrinter_->addItem(PdfEntry());
  const QString defaultPrinter = QPrinterInfo::defaultPrinterName();
  cboPrinter_->setCurrentText(defaultPrinter.isEmpty() ? PdfEntry() : defaultPrinter);
  connect(cboPrinter_, &QComboBox::currentTextChanged, this, &frmImprimir::ApplyPrinterChoice);
  form->addRow(tr("Printer:"), cboPrinter_);
  spnCopies_ = new QSpinBox(box);
  spnCopies_->setObjectName(QStringLiteral("spnCopies"));
  spnCopies_->setRange(1, 999);
  form->addRow(tr("Copies:"), spnCopies_);
  const auto pair = [&](std::array<QRadioButton*, 2>& buttons, const char* name, const QString& first, const QString& second) {
    auto* group = new QWidget(box);
    auto* row = new QHBoxLayout(group);
    row->setContentsMargins(0, 0, 0, 0);
    for (int i = 0; i < 2; ++i) {
      buttons[i] = new QRadioButton(i == 0 ? first : second, group);
      buttons[i]->setObjectName(QStringLiteral("%1(%2)").arg(QLatin1String(name)).arg(i));
      connect(buttons[i], &QRadioButton::toggled, this, &frmImprimir::RefreshPreview);
      row->addWidget(buttons[i]);
    }
    buttons[0]->setChecked(true);
    return group;
  };
  form->addRow(tr("Print:"), pair(optWhich_, "optWhich", tr("&Current image"),
                                              tr("&All images of the folder")));
  optWhich_[1]->setEnabled(!folderPages_.empty());
  form->addRow(tr("Orientation:"), pair(optOrientation_, "optOrientation", tr("P&ortrait"),
                                                    tr("&Landscape")));
  form->addRow(tr("Size:"), pair(optSize_, "optSize", tr("&Fit to page"), tr("O&riginal size")));
  const QString centring[] = {tr("Center &horizontally"), tr("Center &vertically")};
  for (int i = 0; i < 2; ++i) {
    chkCenter_[i] = new QCheckBox(centring[i], box);
    chkCenter_[i]->setObjectName(QStringLiteral("chkCenter(%1)").arg(i));
    chkCenter_[i]->setChecked(true);
    connect(chkCenter_[i], &QCheckBox::toggled, this, &frmImprimir::RefreshPreview);
    form->addRow(chkCenter_[i]);
  }
  auto* margins = new QPushButton(tr("&Margins..."), box);
  margins->setObjectName(QStringLiteral("cmdMargen"));
  connect(margins, &QPushButton::clicked, this, &frmImprimir::OpenMargins);
  auto* setup = new QPushButton(tr("Printer &setup..."), box);
  setup->setObjectName(QStringLiteral("cmdPageSetup"));
  connect(setup, &QPushButton::clicked, this, &frmImprimir::OpenPageSetup);
  auto* row = new QHBoxLayout;
  row->addWidget(margins);
  row->addWidget(setup);
  form->addRow(row);
  return box;
}

bool frmImprimir::ToPdf() const { return cboPrinter_->currentText() == PdfEntry(); }

int frmImprimir::Copies() const { return spnCopies_->value(); }

void frmImprimir::ApplyPrinterChoice() {
  if (ToPdf()) {
    printer_.setOutputFormat(QPrinter::PdfFormat);
    printer_.setPageSize(LocalePaper());
  } else {
    printer_.setOutputFormat(QPrinter::NativeFormat);
    printer_.setPrinterName(cboPrinter_->currentText());
  }
  RefreshPreview();
}

PrintOptions frmImprimir::Options() const {
  return {settings_.PrintMargins, settings_.PrintUnits, optSize_[0]->isChecked(), chkCenter_[0]->isChecked(),
          chkCenter_[1]->isChecked()};
}

std::vector<PageSource> frmImprimir::Pages() const {
  return optWhich_[1]->isChecked() ? folderPages_ : std::vector<PageSource>{current_};
}

void frmImprimir::OpenMargins() {
  frmMargen margins(settings_, this);
  if (margins.exec() == QDialog::Accepted) RefreshPreview();
}

// The setup dialog shows the margins printing uses, and what is changed there is kept.
void frmImprimir::OpenPageSetup() {
  const bool centimetres = settings_.PrintUnits == 1;
  const QPageLayout::Unit unit = centimetres ? QPageLayout::Millimeter : QPageLayout::Inch;
  const double perUnit = centimetres ? 10.0 : 1.0;
  const auto& m = settings_.PrintMargins;  // left, right, top, bottom
  printer_.setPageMargins(QMarginsF(m[0], m[2], m[1], m[3]) * perUnit, unit);
  QPageSetupDialog setup(&printer_, this);
  if (setup.exec() == QDialog::Accepted) {
    optOrientation_[printer_.pageLayout().orientation() == QPageLayout::Landscape ? 1 : 0]->setChecked(true);
    const QMarginsF chosen = printer_.pageLayout().margins(unit) / perUnit;
    settings_.PrintMargins = {float(chosen.left()), float(chosen.right()), float(chosen.top()), float(chosen.bottom())};
  }
  RefreshPreview();
}

void frmImprimir::RefreshPreview() {
  if (!ready_) return;
  printer_.setPageOrientation(optOrientation_[1]->isChecked() ? QPageLayout::Landscape : QPageLayout::Portrait);
  picPreview_->Refresh();
}

}  // namespace print
