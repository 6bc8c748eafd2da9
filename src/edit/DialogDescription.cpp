#include "edit/DialogDescription.h"

#include "base/NumberRules.h"

#include <array>

namespace edit {

bool NextToken(const QString& text, int& position, QString& token, QChar delimiter) {
  const qsizetype start = std::max(position, 1) - 1;
  const qsizetype found = start < text.size() ? text.indexOf(delimiter, start) : -1;
  if (found >= 0) {
    token = text.mid(start, found - start);
    position = static_cast<int>(found) + 2;
    return false;
  }
  token = start < text.size() ? text.mid(start) : QString();
  position = static_cast<int>(text.size()) + 1;
  return true;
}

int TickFrequency(int minimum, int maximum) {
  return numbers::RoundToInt32((static_cast<double>(maximum) - minimum + 1) / 4).value_or(0);
}

int DialogLayout::Count(ControlKind kind) const {
  int count = 0;
  for (const DialogControl& c : Controls) count += c.Kind == kind ? 1 : 0;
  return count;
}

const DialogControl* DialogLayout::Find(ControlKind kind, int index) const {
  for (const DialogControl& c : Controls) {
    if (c.Kind == kind && c.Index == index) return &c;
  }
  return nullptr;
}

namespace {

// Where a clause puts its control: x, y and, for most kinds, a width (twips).
struct Placement {
  double X = 0;
  double Y = 0;
  double Width = 0;
};

// The parser's state: the integer fields keep their previous value when a field does
// not convert, so a bad field never resets a good earlier one.
class Parser {
 public:
  explicit Parser(const QString& text) : text_(text) {}

  DialogLayout Run() {
    QString keyword;
    while (!NextToken(text_, position_, keyword)) Clause(keyword.toLower());
    layout_.OkTabIndex = tabIndex_;
    layout_.CancelTabIndex = tabIndex_ + 1;
    return std::move(layout_);
  }

 private:
  QString Field() {
    QString token;
    NextToken(text_, position_, token);
    return token;
  }
  double Coordinate() { return numbers::LeadingNumber(Field()) * kGridTwips; }
  Placement ReadPlacement(bool withWidth) {
    Placement at;
    at.X = Coordinate();
    at.Y = Coordinate();
    if (withWidth) at.Width = Coordinate();
    return at;
  }
  void Integer(int& target) {
    if (const auto value = numbers::ParseInt32(Field())) target = *value;
  }

  DialogControl& Add(ControlKind kind, const Placement& at) {
    DialogControl control;
    control.Kind = kind;
    control.Index = layout_.Count(kind) + 1;
    control.TabIndex = tabIndex_++;
    control.X = at.X;
    control.Y = at.Y;
    control.Width = at.Width;
    layout_.Controls.push_back(control);
    return layout_.Controls.back();
  }

  void Clause(const QString& keyword);
  void Slider();

  const QString& text_;
  int position_ = 1;
  int tabIndex_ = 0;
  int link_ = 0;
  int minimum_ = 0;
  int maximum_ = 0;
  int value_ = 0;
  DialogLayout layout_;
};

void Parser::Slider() {
  const Placement at = ReadPlacement(true);
  Integer(minimum_);
  Integer(maximum_);
  Integer(value_);
  Integer(link_);
  DialogControl& slider = Add(ControlKind::Slider, at);
  slider.Minimum = minimum_;
  slider.Maximum = maximum_;
  slider.Link = link_;
  slider.TickFrequency = TickFrequency(minimum_, maximum_);
  slider.Value = value_;
}

void Parser::Clause(const QString& keyword) {
  static const std::array<std::pair<const char*, ControlKind>, 3> kCaptioned = {
      {{"che", ControlKind::Check}, {"opt", ControlKind::Option}, {"bot", ControlKind::Button}}};
  if (keyword == QLatin1String("cla")) {
    layout_.DialogClass = Field();
  } else if (keyword == QLatin1String("ven")) {
    const Placement size = ReadPlacement(false);
    layout_.WindowWidth = size.X;
    layout_.WindowHeight = size.Y;
    layout_.Title = Field();
  } else if (keyword == QLatin1String("let")) {
    const Placement at = ReadPlacement(false);
    const QString caption = Field();
    Add(ControlKind::Label, at).Caption = caption;
  } else if (keyword == QLatin1String("tex")) {
    const Placement at = ReadPlacement(true);
    Integer(link_);
    Add(ControlKind::TextBox, at).Link = link_;
  } else if (keyword == QLatin1String("con")) {
    Slider();
  } else if (keyword == QLatin1String("pre")) {
    const Placement at = ReadPlacement(false);
    layout_.PreviewX = at.X;
    layout_.PreviewY = at.Y;
  } else {
    for (const auto& [name, kind] : kCaptioned) {
      if (keyword != QLatin1String(name)) continue;
      const Placement at = ReadPlacement(true);
      const QString caption = Field();
      Add(kind, at).Caption = caption;
    }
  }
}

}  // namespace

DialogLayout ParseDialogDescription(const QString& description) { return Parser(description).Run(); }

}  // namespace edit
