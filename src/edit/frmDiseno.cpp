#include "edit/frmDiseno.h"

#include "widgets/Fonts.h"
#include "widgets/Help.h"
#include "edit/PreviewRenderer.h"

#include <QCheckBox>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QSignalBlocker>
#include <QSlider>

#include <cmath>
#include <map>

namespace edit {

namespace {

// A title or caption of a description, in the user's language (tools/dialog_texts lists
// them for the translators).
QString Shown(const QString& text) { return QCoreApplication::translate("edit::DialogDescriptions", text.toUtf8().constData()); }

// The window frame that the description's outer size includes: borders and caption.
constexpr double kFrameWidthTwips = 120;
constexpr double kFrameHeightTwips = 480;
constexpr double kDesignWidthTwips = 4800;
constexpr double kDesignHeightTwips = 3240;

QString ArrayName(const char* array, int index) { return QStringLiteral("%1(%2)").arg(QLatin1String(array)).arg(index); }

}  // namespace

frmDiseno::frmDiseno(const QString& description, const DialogContext& context,
                     const std::optional<imaging::Image>& image, Operation operation, QWidget* parent)
    : QDialog(parent), context_(context), model_(ParseDialogDescription(description), context) {
  setObjectName(QStringLiteral("frmDiseno"));
  widgets::ApplyTahomaFont(*this, kFontPointSize);
  const DialogLayout& layout = model_.Layout();
  BuildControls(layout);
  PlaceWindowAndButtons(layout);
  if (layout.HasPreview() && image) {
    const QRect panel = picPreview_->geometry();
    renderer_ = new PreviewRenderer(image->FitWithinForDisplay(panel.width(), panel.height()), std::move(operation), this);
    connect(renderer_, &PreviewRenderer::Rendered, this,
            [this](const QImage& preview) { picPreview_->setPixmap(QPixmap::fromImage(preview)); });
  }
  const bool firstPreview = model_.Initialize();
  ShowModel();
  RefreshPreview(firstPreview);
}

frmDiseno::~frmDiseno() = default;

bool frmDiseno::PreviewIdle() const { return !renderer_ || renderer_->IsIdle(); }

QRect frmDiseno::Pixels(double x, double y, double width, double height) const {
  const auto px = [](double twips, double perPixel) { return static_cast<int>(std::lround(twips / perPixel)); };
  return {px(x, context_.TwipsPerPixelX), px(y, context_.TwipsPerPixelY), px(width, context_.TwipsPerPixelX),
          px(height, context_.TwipsPerPixelY)};
}

void frmDiseno::BuildControls(const DialogLayout& layout) {
  std::map<int, QWidget*> byTabIndex;
  for (const DialogControl& control : layout.Controls) byTabIndex[control.TabIndex] = BuildControl(control);
  picPreview_ = new QLabel(this);
  picPreview_->setObjectName(QStringLiteral("picPreview"));
  picPreview_->setAlignment(Qt::AlignCenter);
  picPreview_->setStyleSheet(QStringLiteral("background: white; border: 1px solid gray;"));
  picPreview_->setGeometry(Pixels(layout.PreviewX.value_or(0), layout.PreviewY.value_or(0), kPreviewWidthTwips,
                                  kPreviewHeightTwips));
  picPreview_->setVisible(layout.HasPreview());
  cmdAceptar_ = new QPushButton(tr("OK"), this);
  cmdAceptar_->setObjectName(QStringLiteral("cmdAceptar"));
  cmdAceptar_->setDefault(true);
  cmdCancelar_ = new QPushButton(tr("Cancel"), this);
  cmdCancelar_->setObjectName(QStringLiteral("cmdCancelar"));
  connect(cmdAceptar_, &QPushButton::clicked, this, &frmDiseno::AcceptIfValid);
  connect(cmdCancelar_, &QPushButton::clicked, this, &QDialog::reject);

  QWidget* previous = nullptr;
  for (auto it = byTabIndex.begin(); it != byTabIndex.end(); ++it) {
    if (auto* label = qobject_cast<QLabel*>(it->second)) {
      const auto next = std::next(it);
      if (next != byTabIndex.end()) label->setBuddy(next->second);  // "&Value:" focuses the box after it
      continue;
    }
    if (previous) setTabOrder(previous, it->second);
    previous = it->second;
  }
  if (previous) setTabOrder(previous, cmdAceptar_);
  setTabOrder(cmdAceptar_, cmdCancelar_);
}

QWidget* frmDiseno::BuildControl(const DialogControl& c) {
  QWidget* widget = nullptr;
  switch (c.Kind) {
    case ControlKind::Label: {
      auto* label = new QLabel(Shown(c.Caption), this);
      label->setObjectName(ArrayName("lblLetras", c.Index));
      label->move(Pixels(c.X, c.Y, 0, 0).topLeft());
      label->adjustSize();
      return label;
    }
    case ControlKind::TextBox: {
      auto* box = new QLineEdit(this);
      box->setObjectName(ArrayName("txtTexto", c.Index));
      box->setGeometry(Pixels(c.X, c.Y, c.Width, kTextBoxHeightTwips));
      box->installEventFilter(this);
      texts_.insert(c.Index, box);
      widget = box;
      break;
    }
    case ControlKind::Slider: {
      auto* slider = new QSlider(Qt::Horizontal, this);
      slider->setObjectName(ArrayName("sliControl", c.Index));
      slider->setGeometry(Pixels(c.X, c.Y, c.Width, kSliderHeightTwips));
      slider->setRange(c.Minimum, c.Maximum);
      slider->setTickInterval(c.TickFrequency);
      slider->setTickPosition(QSlider::TicksBelow);
      sliders_.insert(c.Index, slider);
      widget = slider;
      break;
    }
    case ControlKind::Check:
    case ControlKind::Option:
    case ControlKind::Button: {
      QAbstractButton* button = nullptr;
      if (c.Kind == ControlKind::Check) button = checks_[c.Index] = new QCheckBox(Shown(c.Caption), this);
      if (c.Kind == ControlKind::Option) button = options_[c.Index] = new QRadioButton(Shown(c.Caption), this);
      if (c.Kind == ControlKind::Button) button = new QPushButton(Shown(c.Caption), this);
      const char* array = c.Kind == ControlKind::Check ? "cheCheck" : c.Kind == ControlKind::Option ? "optOption" : "cmdBoton";
      button->setObjectName(ArrayName(array, c.Index));
      const double height = c.Kind == ControlKind::Button ? kButtonHeightTwips : kCheckHeightTwips;
      button->setGeometry(Pixels(c.X, c.Y, c.Width, height));
      if (auto* push = qobject_cast<QPushButton*>(button)) push->setAutoDefault(false);
      widget = button;
      break;
    }
  }
  ConnectControl(c, widget);
  return widget;
}

void frmDiseno::ConnectControl(const DialogControl& c, QWidget* widget) {
  const int i = c.Index;
  if (auto* box = qobject_cast<QLineEdit*>(widget)) {
    connect(box, &QLineEdit::textEdited, this, [this, i](const QString& text) {
      const bool refresh = model_.TextChanged(i, text);
      ShowModel();
      RefreshPreview(refresh);
    });
  } else if (auto* slider = qobject_cast<QSlider*>(widget)) {
    connect(slider, &QSlider::valueChanged, this, [this, i](int value) {
      const bool refresh = model_.SliderChanged(i, value);
      ShowModel();
      RefreshPreview(refresh);
    });
  } else if (c.Kind == ControlKind::Check) {
    connect(checks_[i], &QCheckBox::toggled, this, [this, i](bool on) {
      model_.CheckClicked(i, on);
      ShowModel();
    });
  } else if (c.Kind == ControlKind::Option) {
    connect(options_[i], &QRadioButton::toggled, this, [this, i](bool on) {
      if (!on) return;
      model_.OptionSelected(i);
      RefreshPreview(true);  // users expect the preview to follow the chosen direction
    });
  } else if (auto* button = qobject_cast<QPushButton*>(widget)) {
    connect(button, &QPushButton::clicked, this, [this, i] {
      const bool refresh = model_.ButtonClicked(i);
      ShowModel();
      RefreshPreview(refresh);
    });
  }
}

// Writes the model into the widgets without their change events reacting (StartingUp).
void frmDiseno::ShowModel() {
  for (auto it = texts_.begin(); it != texts_.end(); ++it) {
    const QSignalBlocker blocker(it.value());
    if (it.value()->text() != model_.Text(it.key())) it.value()->setText(model_.Text(it.key()));
    it.value()->setEnabled(model_.TextEnabled(it.key()));
  }
  for (auto it = sliders_.begin(); it != sliders_.end(); ++it) {
    const QSignalBlocker blocker(it.value());
    it.value()->setValue(model_.SliderValue(it.key()));
  }
  for (auto it = checks_.begin(); it != checks_.end(); ++it) {
    const QSignalBlocker blocker(it.value());
    it.value()->setChecked(model_.Checked(it.key()));
  }
  for (auto it = options_.begin(); it != options_.end(); ++it) {
    const QSignalBlocker blocker(it.value());
    it.value()->setChecked(model_.SelectedOption() == it.key());
  }
}

void frmDiseno::RefreshPreview(bool refresh) {
  if (refresh && renderer_) renderer_->Request(model_.Values());
}

void frmDiseno::PlaceWindowAndButtons(const DialogLayout& layout) {
  const double outerWidth = layout.WindowWidth.value_or(kDesignWidthTwips);
  const double outerHeight = layout.WindowHeight.value_or(kDesignHeightTwips);
  const QRect client = Pixels(0, 0, outerWidth - kFrameWidthTwips, outerHeight - kFrameHeightTwips);
  setFixedSize(client.size());
  setWindowTitle(layout.Title ? Shown(*layout.Title) : tr("Parameters"));
  const QRect button = Pixels(0, 0, kOkWidthTwips, kButtonHeightTwips);
  const QRect margin = Pixels(0, 0, 120, 120);
  const int top = client.height() - button.height() - margin.height();
  cmdCancelar_->setGeometry(client.width() - button.width() - margin.width(), top, button.width(), button.height());
  cmdAceptar_->setGeometry(cmdCancelar_->x() - button.width() - margin.width(), top, button.width(), button.height());
  if (const QScreen* screen = QGuiApplication::primaryScreen()) {
    const QRect outer = Pixels(0, 0, outerWidth, outerHeight);
    move((screen->size().width() - outer.width()) / 2, (screen->size().height() - outer.height()) / 2);
  }
}

bool frmDiseno::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress && qobject_cast<QLineEdit*>(watched)) {
    const QString text = static_cast<QKeyEvent*>(event)->text();
    if (!text.isEmpty() && !DialogModel::AcceptsCharacter(text.front())) return true;  // discarded
  }
  return QDialog::eventFilter(watched, event);
}

void frmDiseno::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_F1) {
    widgets::ShowHelpTopic(model_.HelpTopic());
    return;
  }
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (enter && !(event->modifiers() & Qt::ShiftModifier)) {
    AcceptIfValid();
    return;
  }
  QDialog::keyPressEvent(event);
}

void frmDiseno::AcceptIfValid() {
  const auto failure = model_.Validate();
  if (!failure) {
    accept();
    return;
  }
  QMessageBox::warning(this, windowTitle(), failure->Message);
  if (QLineEdit* box = texts_.value(failure->TextBox)) {
    box->setFocus();
    if (failure->SelectText) box->selectAll();
  }
}

}  // namespace edit
