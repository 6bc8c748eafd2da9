#include "files/frmSaveOptions.h"

#include "widgets/DialogButtons.h"
#include "widgets/Fonts.h"

#include <QComboBox>
#include <QFormLayout>
#include <QSpinBox>
#include <QVBoxLayout>

namespace files {

namespace {

bool HasQuality(const QString& ext) {
  static const QStringList kTypes = {"webp", "avif", "heic", "heif", "jxl"};
  return kTypes.contains(ext);
}

bool IsTiff(const QString& ext) { return ext == QLatin1String("tif") || ext == QLatin1String("tiff"); }

}  // namespace

bool HasSaveOptions(const QString& ext) { return HasQuality(ext) || IsTiff(ext); }

frmSaveOptions::frmSaveOptions(const QString& ext, const settings::SettingsStore& settings, QWidget* parent) : QDialog(parent) {
  setObjectName(QStringLiteral("frmSaveOptions"));
  setWindowTitle(tr("Save Options"));
  widgets::ApplyTahomaFont(*this);
  auto* form = new QFormLayout;
  if (HasQuality(ext)) {
    quality_ = new QSpinBox(this);
    quality_->setObjectName(QStringLiteral("txtQuality"));
    quality_->setRange(1, 100);
    quality_->setValue(std::clamp(int(settings.SaveQuality), 1, 100));
    form->addRow(tr("&Quality (100 is lossless):"), quality_);
  } else {
    compression_ = new QComboBox(this);
    compression_->setObjectName(QStringLiteral("cboCompression"));
    compression_->addItems({tr("LZW"), tr("Deflate"), QStringLiteral("JPEG"), tr("None")});
    compression_->setCurrentIndex(std::clamp(int(settings.TiffCompression), 0, 3));
    form->addRow(tr("&Compression:"), compression_);
  }
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(form);
  layout->addLayout(widgets::OkAndCloseButtons(*this, "cmdCancelar", tr("Cancel"), [this] { accept(); }));
}

void frmSaveOptions::Store(settings::SettingsStore& settings) const {
  if (quality_) settings.SaveQuality = quality_->value();
  if (compression_) settings.TiffCompression = compression_->currentIndex();
}

bool AskSaveOptions(QWidget* parent, const QString& ext, settings::SettingsStore& settings) {
  if (!HasSaveOptions(ext)) return true;
  frmSaveOptions dialog(ext, settings, parent);
  if (dialog.exec() != QDialog::Accepted) return false;
  dialog.Store(settings);
  return true;
}

}  // namespace files
