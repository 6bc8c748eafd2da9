#include "edit/DialogDescription.h"

#include "app/Vb.h"

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
  return vb::CLng((static_cast<double>(maximum) - minimum + 1) / 4).value_or(0);
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

// The parser's state: the integer fields keep their previous value when a field does
// not convert, as the original's module variables did.
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
  double Coordinate() { return vb::Val(Field()) * kGridTwips; }
  void Integer(int& target) {
    if (const auto value = vb::CLngText(Field())) target = *value;
  }

  DialogControl& Add(ControlKind kind) {
    DialogControl control;
    control.Kind = kind;
    control.Index = layout_.Count(kind) + 1;
    control.TabIndex = tabIndex_++;
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
  const double x = Coordinate();
  const double y = Coordinate();
  const double width = Coordinate();
  Integer(minimum_);
  Integer(maximum_);
  Integer(value_);
  Integer(link_);
  DialogControl& slider = Add(ControlKind::Slider);
  slider.X = x;
  slider.Y = y;
  slider.Width = width;
  slider.Minimum = minimum_;
  slider.Maximum = maximum_;
  slider.Link = link_;
  slider.TickFrequency = TickFrequency(minimum_, maximum_);
  slider.Value = value_;
}

void Parser::Clause(const QString& keyword) {
  if (keyword == QLatin1String("cla")) {
    layout_.DialogClass = Field();
  } else if (keyword == QLatin1String("ven")) {
    layout_.WindowWidth = Coordinate();
    layout_.WindowHeight = Coordinate();
    layout_.Title = Field();
  } else if (keyword == QLatin1String("let")) {
    const double x = Coordinate();
    const double y = Coordinate();
    const QString caption = Field();
    DialogControl& label = Add(ControlKind::Label);
    label.X = x;
    label.Y = y;
    label.Caption = caption;
  } else if (keyword == QLatin1String("tex")) {
    const double x = Coordinate();
    const double y = Coordinate();
    const double width = Coordinate();
    Integer(link_);
    DialogControl& box = Add(ControlKind::TextBox);
    box.X = x;
    box.Y = y;
    box.Width = width;
    box.Link = link_;
  } else if (keyword == QLatin1String("con")) {
    Slider();
  } else if (keyword == QLatin1String("pre")) {
    layout_.PreviewX = Coordinate();
    layout_.PreviewY = Coordinate();
  } else {
    static const std::array<std::pair<const char*, ControlKind>, 3> kCaptioned = {
        {{"che", ControlKind::Check}, {"opt", ControlKind::Option}, {"bot", ControlKind::Button}}};
    for (const auto& [name, kind] : kCaptioned) {
      if (keyword != QLatin1String(name)) continue;
      const double x = Coordinate();
      const double y = Coordinate();
      const double width = Coordinate();
      const QString caption = Field();
      DialogControl& control = Add(kind);
      control.X = x;
      control.Y = y;
      control.Width = width;
      control.Caption = caption;
    }
  }
}

}  // namespace

DialogLayout ParseDialogDescription(const QString& description) { return Parser(description).Run(); }

}  // namespace edit
