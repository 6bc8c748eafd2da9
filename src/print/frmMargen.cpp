#include "print/frmMargen.h"

#include "widgets/DialogButtons.h"
#include "widgets/Fonts.h"
#include "widgets/NumberBox.h"

#include <QFormLayout>
#include <QLineEdit>
#include <QLocale>
#include <QMessageBox>
#include <QRadioButton>

#include <cmath>

namespace print {

frmMargen::frmMargen(settings::SettingsStore& settings, QWidget* parent) : QDialog(parent), settings_(settings) {
  setObjectName(QStringLiteral("frmMargen"));
  setWindowTitle(tr("Margins"));
  auto* form = new QFormLayout(this);
  const std::pair<const char*, QString> boxes[] = {{"txtIzquierda", tr("&Left:")},
                                                   {"txtDerecha", tr("&Right:")},
                                                   {"txtArriba", tr("&Top:")},
                                                   {"txtAbajo", tr("&Bottom:")}};
  const bool centimetres = settings.PrintUnits == 1;
  for (int i = 0; i < 4; ++i) {
    boxes_[i] = new QLineEdit(this);
    boxes_[i]->setObjectName(QLatin1String(boxes[i].first));
    widgets::MakeNumberBox(boxes_[i]);
    values_[i] = MarginValue::From(settings.PrintMargins[i], centimetres);
    boxes_[i]->setText(locale().toString(settings.PrintMargins[i]));
    connect(boxes_[i], &QLineEdit::textChanged, this, [this, i] { Typed(i); });
    form->addRow(boxes[i].second, boxes_[i]);
  }
  const QString units[] = {tr("&Inches"), tr("&Centimeters")};
  for (int i = 0; i < 2; ++i) {
    optUnidad_[i] = new QRadioButton(units[i], this);
    optUnidad_[i]->setObjectName(QStringLiteral("optUnidad(%1)").arg(i));
    connect(optUnidad_[i], &QRadioButton::clicked, this, [this, i] { ShowUnit(i == 1); });
    form->addRow(optUnidad_[i]);
  }
  optUnidad_[centimetres ? 1 : 0]->setChecked(true);
  form->addRow(widgets::OkAndCloseButtons(*this, "cmdCancelar", tr("Cancel"), [this] { Accept(); }));
  widgets::ApplyTahomaFont(*this);
  suppressEvents_ = false;
}

// Valid: not empty once trimmed, a number in the user's locale, and 0 or more.
std::optional<float> frmMargen::ValueIn(int box) const {
  bool ok = false;
  const float value = locale().toFloat(boxes_[box]->text().trimmed(), &ok);
  if (!ok || !std::isfinite(value) || value < 0) return std::nullopt;  // "inf" and "nan" are no margins
  return value;
}

void frmMargen::Typed(int box) {
  if (suppressEvents_) return;
  const auto value = ValueIn(box);
  values_[box] = value ? MarginValue::From(*value, optUnidad_[1]->isChecked()) : MarginValue{};
}

void frmMargen::ShowUnit(bool centimetres) {
  suppressEvents_ = true;
  for (int i = 0; i < 4; ++i) boxes_[i]->setText(locale().toString(centimetres ? values_[i].Centimetres : values_[i].Inches));
  suppressEvents_ = false;
}

void frmMargen::Accept() {
  std::array<float, 4> margins{};
  for (int i = 0; i < 4; ++i) {
    const auto value = ValueIn(i);
    if (!value) {
      QMessageBox::warning(this, QStringLiteral("Vistrel"), tr("Bad value"));
      boxes_[i]->setFocus();
      return;
    }
    margins[i] = *value;
  }
  settings_.PrintMargins = margins;
  settings_.PrintUnits = optUnidad_[1]->isChecked() ? 1 : 0;
  accept();
}

}  // namespace print
