#pragma once
// frmImprimir, "Print": the printer (the system's queues, or a PDF file), copies, the
// current image or every image of the folder (one a page, in list order), orientation,
// fitted to the page or at its own size, centring, Margins... and the printer's page
// setup, with a preview that draws the page, the margins and the picture as they print.

#include "print/Printing.h"
#include "settings/SettingsStore.h"

#include <QDialog>
#include <QPrinter>

#include <array>
#include <memory>

class QCheckBox;
class QComboBox;
class QRadioButton;
class QSpinBox;

namespace print {

class frmImprimir : public QDialog {
  Q_OBJECT

 public:
  static QString PdfEntry() { return tr("Print to PDF"); }  // the printer entry that writes a PDF file

  // `folderPages` is empty when no folder is open.
  frmImprimir(settings::SettingsStore& settings, PageSource current, std::vector<PageSource> folderPages,
              QWidget* parent = nullptr);
  ~frmImprimir() override;

  QPrinter& Printer() { return printer_; }
  bool ToPdf() const;
  int Copies() const;
  PrintOptions Options() const;
  // The pages chosen: the current image, or the folder's.
  std::vector<PageSource> Pages() const;

 private:
  QWidget* BuildChoices();
  void ApplyPrinterChoice();
  void OpenMargins();
  void OpenPageSetup();
  void RefreshPreview();

  class Preview;
  settings::SettingsStore& settings_;
  PageSource current_;
  std::vector<PageSource> folderPages_;
  QPrinter printer_;
  QComboBox* cboPrinter_ = nullptr;
  QSpinBox* spnCopies_ = nullptr;
  std::array<QRadioButton*, 2> optWhich_{};
  std::array<QRadioButton*, 2> optOrientation_{};
  std::array<QRadioButton*, 2> optSize_{};
  std::array<QCheckBox*, 2> chkCenter_{};
  Preview* picPreview_ = nullptr;
  bool ready_ = false;
};

}  // namespace print
