#include "edit/frmBatch.h"

#include "base/FileFormats.h"
#include "base/Paths.h"

#include <QCheckBox>
#include <QCollator>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QDirIterator>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSpinBox>
#include <QtConcurrent/QtConcurrentRun>

#include <algorithm>

namespace edit {

QStringList BatchInputs(const QString& folder, bool subfolders) {
  QStringList files;
  QDirIterator walk(folder, QDir::Files | QDir::Hidden, subfolders ? QDirIterator::Subdirectories : QDirIterator::NoIteratorFlags);
  while (walk.hasNext()) {
    const QString path = walk.next();
    if (base::FindFileFormat(QFileInfo(path).suffix().toLower())) files << path;
  }
  QCollator collator;
  collator.setNumericMode(true);
  std::sort(files.begin(), files.end(), [&collator](const QString& a, const QString& b) { return collator.compare(a, b) < 0; });
  return files;
}

namespace {

template <typename W>
W* Named(W* widget, const char* name) {
  widget->setObjectName(QLatin1String(name));
  return widget;
}

}  // namespace

frmBatch::frmBatch(const QString& folder, QWidget* parent) : QDialog(parent), folder_(folder) {
  setObjectName(QStringLiteral("frmBatch"));
  setWindowTitle(tr("Batch Convert"));
  BuildForm();
  ListInputs();
}

frmBatch::~frmBatch() {
  stop_ = true;
  running_.waitForFinished();
}

void frmBatch::BuildForm() {
  auto* form = new QFormLayout;
  lblFiles_ = Named(new QLabel, "lblFiles");
  chkSubfolders_ = Named(new QCheckBox(QStringLiteral("Include &subfolders")), "chkSubfolders");
  connect(chkSubfolders_, &QCheckBox::toggled, this, &frmBatch::ListInputs);
  form->addRow(tr("Files:"), lblFiles_);
  form->addRow(QString(), chkSubfolders_);
  txtOutput_ = Named(new QLineEdit(base::JoinPath(folder_, QStringLiteral("converted"))), "txtOutput");
  form->addRow(tr("&Into the folder:"), txtOutput_);
  cboFormat_ = Named(new QComboBox, "cboFormat");
  for (const base::FileFormat* format : base::SaveAsFormats()) cboFormat_->addItem(QLatin1String(format->SaveAs), QLatin1String(format->Extension));
  cboFormat_->addItem(tr("Each file's own type"), QString());
  cboFormat_->setCurrentIndex(std::max(0, cboFormat_->findData(QStringLiteral("webp"))));  // today's usual choice for sharing
  form->addRow(tr("&Format:"), cboFormat_);
  spnQuality_ = Named(new QSpinBox, "spnQuality");
  spnQuality_->setRange(1, 100);
  spnQuality_->setValue(90);
  form->addRow(tr("&Quality (WebP, HEIF, AVIF, JPEG XL):"), spnQuality_);
  auto* box = new QHBoxLayout;
  chkFit_ = Named(new QCheckBox(QStringLiteral("F&it within")), "chkFit");
  spnWidth_ = Named(new QSpinBox, "spnWidth");
  spnHeight_ = Named(new QSpinBox, "spnHeight");
  for (QSpinBox* side : {spnWidth_, spnHeight_}) side->setRange(1, 16384);
  spnWidth_->setValue(1920);
  spnHeight_->setValue(1920);
  box->addWidget(chkFit_);
  box->addWidget(spnWidth_);
  box->addWidget(new QLabel(QStringLiteral("x")));
  box->addWidget(spnHeight_);
  form->addRow(tr("Size:"), box);
  txtName_ = Named(new QLineEdit(QStringLiteral("{name}.{ext}")), "txtName");
  txtName_->setToolTip(QStringLiteral("{name}, {ext}, {n} or {n:03}"));
  form->addRow(tr("&Names:"), txtName_);
  cboExisting_ = Named(new QComboBox, "cboExisting");
  cboExisting_->addItems({tr("Skip it"), tr("Replace it"), tr("Keep both")});
  form->addRow(tr("When a &name is taken:"), cboExisting_);
  txtOperations_ = Named(new QLineEdit, "txtOperations");
  txtOperations_->setPlaceholderText(tr("for example: Brightness 10 Sharpen 3"));
  form->addRow(tr("&Operations:"), txtOperations_);
  prgProgress_ = Named(new QProgressBar, "prgProgress");
  lblCurrent_ = Named(new QLabel, "lblCurrent");
  txtReport_ = Named(new QPlainTextEdit, "txtReport");
  txtReport_->setReadOnly(true);
  for (QWidget* hidden : std::initializer_list<QWidget*>{prgProgress_, lblCurrent_, txtReport_}) hidden->hide();
  cmdStart_ = Named(new QPushButton(QStringLiteral("Con&vert")), "cmdStart");
  cmdCancel_ = Named(new QPushButton(QStringLiteral("Cancel")), "cmdCancel");
  auto* buttons = new QDialogButtonBox;
  buttons->addButton(cmdStart_, QDialogButtonBox::AcceptRole);
  buttons->addButton(cmdCancel_, QDialogButtonBox::RejectRole);
  connect(cmdStart_, &QPushButton::clicked, this, &frmBatch::Start);
  connect(cmdCancel_, &QPushButton::clicked, this, &frmBatch::reject);
  auto* layout = new QVBoxLayout(this);
  for (QWidget* widget : std::initializer_list<QWidget*>{prgProgress_, lblCurrent_, txtReport_}) form->addRow(widget);
  layout->addLayout(form);
  layout->addWidget(buttons);
}

void frmBatch::ListInputs() {
  inputs_ = BatchInputs(folder_, chkSubfolders_->isChecked());
  lblFiles_->setText(tr("%1 images in %2").arg(inputs_.size()).arg(QDir::toNativeSeparators(folder_)));
  cmdStart_->setEnabled(!inputs_.isEmpty());
}

// The order the form asks for, or nothing after telling what is wrong.
std::optional<BatchOrder> frmBatch::OrderFromForm() {
  BatchOrder order;
  order.OutputFolder = txtOutput_->text().trimmed();
  // Files already in the output folder (converted last time, inside the folder open) are not converted again.
  const QString outputPrefix = QDir(order.OutputFolder).absolutePath() + u'/';
  for (const QString& input : inputs_) {
    if (!QFileInfo(input).absoluteFilePath().startsWith(outputPrefix)) order.Inputs << input;
  }
  order.Format = cboFormat_->currentData().toString();
  order.Options.Quality = spnQuality_->value();
  if (chkFit_->isChecked()) order.Fit = QSize(spnWidth_->value(), spnHeight_->value());
  order.NamePattern = txtName_->text();
  order.Existing = WhenExists(cboExisting_->currentIndex());
  QString problem = PatternProblem(order.NamePattern);
  if (const QStringList words = txtOperations_->text().split(u' ', Qt::SkipEmptyParts); problem.isEmpty() && !words.isEmpty()) {
    const OperationChain chain = ParseOperationChain(words);
    problem = chain.Error;
    order.Steps = chain.Steps;
  }
  if (problem.isEmpty() && (order.OutputFolder.isEmpty() || !QDir().mkpath(order.OutputFolder))) problem = tr("The folder cannot be made");
  if (problem.isEmpty()) return order;
  QMessageBox::warning(this, windowTitle(), problem);
  return std::nullopt;
}

void frmBatch::Start() {
  const std::optional<BatchOrder> order = OrderFromForm();
  if (!order) return;
  const std::vector<PlannedFile> plan = PlanBatch(*order);
  cmdStart_->setEnabled(false);
  prgProgress_->setRange(0, int(plan.size()));
  prgProgress_->setValue(0);
  prgProgress_->show();
  lblCurrent_->show();
  stop_ = false;
  clock_.start();
  running_ = QtConcurrent::run([this, order = *order, plan] {
    const BatchReport report = RunBatch(order, plan, [this](const BatchProgress& progress) {
      QMetaObject::invokeMethod(this, [this, progress] { ShowProgress(progress); }, Qt::QueuedConnection);
    }, stop_);
    QMetaObject::invokeMethod(this, [this, plan, report] { Finish(plan, report); }, Qt::QueuedConnection);
  });
}

void frmBatch::ShowProgress(const BatchProgress& progress) {
  prgProgress_->setValue(progress.Done);
  lblCurrent_->setText(ProgressLine(progress, clock_.elapsed()));
}

void frmBatch::Finish(const std::vector<PlannedFile>& plan, const BatchReport& report) {
  const QStringList lines = ReportLines(plan, report);
  lblCurrent_->setText(lines.back());
  txtReport_->setPlainText(lines.join(u'\n'));
  txtReport_->show();
  cmdCancel_->setText(tr("Close"));
  cmdStart_->setEnabled(true);
}

// Cancel while it runs stops the work between files; once it is done, Close closes.
void frmBatch::reject() {
  if (running_.isRunning()) {
    stop_ = true;
    return;
  }
  QDialog::reject();
}

}  // namespace edit
