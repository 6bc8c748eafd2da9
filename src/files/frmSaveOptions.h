#pragma once
// `frmSaveOptions`, "Save Options": asked after Save As chose a type that has them: the
// quality of WebP, AVIF, HEIF and JPEG XL (`txtQuality`, 100 lossless), or TIFF's
// compression (`cboCompression`). The choice is remembered for the next save.

#include "settings/SettingsStore.h"

#include <QDialog>

#include <functional>

class QComboBox;
class QSpinBox;

namespace files {

// Whether saving as this extension asks for options.
bool HasSaveOptions(const QString& lowerCaseExtension);

class frmSaveOptions : public QDialog {
  Q_OBJECT

 public:
  frmSaveOptions(const QString& lowerCaseExtension, const settings::SettingsStore& settings, QWidget* parent = nullptr);
  // The dialog's values into the settings.
  void Store(settings::SettingsStore& settings) const;

 private:
  QSpinBox* quality_ = nullptr;
  QComboBox* compression_ = nullptr;
};

// Shows the dialog for a type that has options and stores the choice; false on Cancel.
// True at once for any other type.
using SaveOptionsAsker = std::function<bool(QWidget* parent, const QString& lowerCaseExtension, settings::SettingsStore&)>;
bool AskSaveOptions(QWidget* parent, const QString& lowerCaseExtension, settings::SettingsStore& settings);

}  // namespace files
