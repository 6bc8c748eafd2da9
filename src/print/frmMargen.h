#pragma once
// frmMargen, "Margins": the four print margins in inches or centimetres. OK stores them
// as typed, in the unit shown; the first box that holds no number of 0 or more is refused.

#include "print/Margins.h"
#include "settings/SettingsStore.h"

#include <QDialog>

#include <array>

class QLineEdit;
class QRadioButton;

namespace print {

class frmMargen : public QDialog {
  Q_OBJECT

 public:
  frmMargen(settings::SettingsStore& settings, QWidget* parent = nullptr);

 private:
  void Typed(int box);
  void ShowUnit(bool centimetres);
  std::optional<float> ValueIn(int box) const;
  void Accept();

  settings::SettingsStore& settings_;
  bool suppressEvents_ = true;
  std::array<MarginValue, 4> values_{};
  std::array<QLineEdit*, 4> boxes_{};
  std::array<QRadioButton*, 2> optUnidad_{};
};

}  // namespace print
