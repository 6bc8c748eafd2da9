#include "edit/DialogModel.h"
#include "base/Texts.h"

#include "base/NumberRules.h"

namespace edit {

int DialogValues::Number(int textBox) const {
  return textBox >= 1 && textBox <= static_cast<int>(Numbers.size()) ? Numbers[static_cast<size_t>(textBox - 1)] : 0;
}

DialogModel::DialogModel(DialogLayout layout, DialogContext context)
    : layout_(std::move(layout)), context_(context) {
  for (const DialogControl& c : layout_.Controls) {
    if (c.Kind == ControlKind::Slider) sliderValues_[c.Index] = c.Value;
  }
}

bool DialogModel::Initialize() {
  if (IsResize()) InitializeResize();
  const QString& cls = layout_.DialogClass;
  if (cls == QLatin1String("Perspective") || cls == QLatin1String("Ripple")) selectedOption_ = 1;
  const int sliders = layout_.Count(ControlKind::Slider);
  for (int i = 1; i <= sliders; ++i) WriteSliderIntoLinkedBox(i);
  return sliders > 0;
}

void DialogModel::InitializeResize() {
  const QString width = QString::number(numbers::RoundedDiv(context_.NaturalWidthTwips, context_.TwipsPerPixelX).value_or(0));
  const QString height = QString::number(numbers::RoundedDiv(context_.NaturalHeightTwips, context_.TwipsPerPixelY).value_or(0));
  texts_[1] = width;
  texts_[2] = height;
  disabledTexts_[1] = true;
  disabledTexts_[2] = true;
  texts_[3] = width;
  texts_[4] = height;
  checks_[1] = true;
}

void DialogModel::WriteSliderIntoLinkedBox(int slider) {
  const DialogControl* control = Slider(slider);
  if (!control || control->Link <= 0) return;
  if (layout_.Find(ControlKind::TextBox, control->Link)) texts_[control->Link] = QString::number(SliderValue(slider));
}

bool DialogModel::SliderChanged(int slider, int value) {
  sliderValues_[slider] = value;
  const DialogControl* control = Slider(slider);
  if (!control || control->Link <= 0) return false;
  WriteSliderIntoLinkedBox(slider);
  return true;
}

bool DialogModel::TextChanged(int textBox, const QString& text) {
  texts_[textBox] = text;
  if (IsResize() && (textBox == 3 || textBox == 4)) {
    KeepAspect(textBox);
    return false;
  }
  const DialogControl* box = layout_.Find(ControlKind::TextBox, textBox);
  if (!box || box->Link < 1) return false;
  const DialogControl* slider = Slider(box->Link);
  if (!slider) return true;
  int value = numbers::ParseInt32(text).value_or(slider->Minimum);
  if (value < slider->Minimum || value > slider->Maximum) {
    value = value < slider->Minimum ? slider->Minimum : slider->Maximum;
    texts_[textBox] = QString::number(value);
  }
  sliderValues_[box->Link] = value;
  return true;
}

void DialogModel::KeepAspect(int changedBox) {
  if (!Checked(1)) return;
  const int other = changedBox == 3 ? 4 : 3;
  const QString text = Text(changedBox);
  if (numbers::TrimBlanks(text).isEmpty()) {
    texts_[other].clear();
    return;
  }
  const auto value = numbers::ParseInt32(text);
  if (!value) {
    texts_[3].clear();
    texts_[4].clear();
    return;
  }
  const double divisor = changedBox == 3 ? context_.NaturalWidthTwips : context_.NaturalHeightTwips;
  if (divisor == 0) return;
  const double dividend = changedBox == 3 ? context_.NaturalHeightTwips : context_.NaturalWidthTwips;
  if (const auto result = numbers::RoundToInt32(*value * (dividend / divisor))) texts_[other] = QString::number(*result);
}

bool DialogModel::CheckClicked(int check, bool checked) {
  checks_[check] = checked;
  if (IsResize() && check == 1 && checked) KeepAspect(3);
  return false;
}

bool DialogModel::ButtonClicked(int button) {
  static const char* const kAngles[] = {"-90", "90", "180"};
  if (layout_.DialogClass != QLatin1String("Rotate") || button < 1 || button > 3) return false;
  return TextChanged(1, QLatin1String(kAngles[button - 1]));
}

bool DialogModel::AcceptsCharacter(QChar c) {
  return c.unicode() < 32 || QStringLiteral("0123456789+-").contains(c);
}

std::optional<ValidationFailure> DialogModel::Validate() const {
  const int boxes = layout_.Count(ControlKind::TextBox);
  for (int i = 1; i <= boxes; ++i) {
    if (numbers::TrimBlanks(Text(i)).isEmpty()) return ValidationFailure{Texts::tr("Please enter a value"), i, false};
  }
  if (!IsResize()) return std::nullopt;
  for (const int box : {3, 4}) {
    const int value = numbers::ParseInt32(Text(box)).value_or(0);
    if (value < 1) return ValidationFailure{Texts::tr("Please enter a value greater than zero"), box, true};
    if (value >= 2049) return ValidationFailure{Texts::tr("Please enter a value smaller than 2049"), box, true};
  }
  return std::nullopt;
}

DialogValues DialogModel::Values() const {
  DialogValues values;
  const int boxes = layout_.Count(ControlKind::TextBox);
  for (int i = 1; i <= boxes; ++i) {
    const auto number = numbers::ParseInt32(Text(i));
    values.Numbers.push_back(number.value_or(0));
    values.AllConverted = values.AllConverted && number.has_value();
  }
  values.SelectedOption = selectedOption_;
  const int checks = layout_.Count(ControlKind::Check);
  for (int i = 1; i <= checks; ++i) values.Checks.push_back(Checked(i));
  return values;
}

QString DialogModel::Text(int textBox) const {
  const auto found = texts_.find(textBox);
  return found == texts_.end() ? QString() : found->second;
}

bool DialogModel::TextEnabled(int textBox) const { return !disabledTexts_.contains(textBox); }

int DialogModel::SliderValue(int slider) const {
  const auto found = sliderValues_.find(slider);
  return found == sliderValues_.end() ? 0 : found->second;
}

bool DialogModel::Checked(int check) const {
  const auto found = checks_.find(check);
  return found != checks_.end() && found->second;
}

QString DialogModel::HelpTopic() const {
  static const std::map<QString, QString> kTopics = {
      {"Brightness", "Colors Menu"},   {"Contrast", "Colors Menu"},    {"Gamma", "Colors Menu"},
      {"Hsl", "Colors Menu"},          {"Rgb", "Colors Menu"},         {"Solarize", "Colors Menu"},
      {"Blend", "Image Filters"},      {"Mosaic", "Image Filters"},    {"MotionBlur", "Image Filters"},
      {"Noise", "Image Filters"},      {"Sharpen", "Image Filters"},   {"Soften", "Image Filters"},
      {"Perspective", "Image Menu"},   {"Pinch", "Image Menu"},        {"Resize", "Image Menu"},
      {"Ripple", "Image Menu"},        {"Rotate", "Image Menu"},       {"Swirl", "Image Menu"}};
  const auto found = kTopics.find(layout_.DialogClass);
  return found == kTopics.end() ? QString() : found->second;
}

}  // namespace edit
