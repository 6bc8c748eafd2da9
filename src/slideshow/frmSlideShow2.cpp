#include "slideshow/frmSlideShow2.h"

#include "base/Colors.h"
#include "base/Paths.h"
#include "files/LoadImageFile.h"
#include "imaging/Animation.h"
#include "widgets/BusyPointer.h"
#include "widgets/Fonts.h"

#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QtConcurrent/QtConcurrentRun>

#include <chrono>

namespace slideshow {

namespace {

constexpr int kHintTop = 8;  // 120 twips

std::mt19937 SeededFromTheClock() {
  return std::mt19937(static_cast<std::mt19937::result_type>(std::chrono::steady_clock::now().time_since_epoch().count()));
}

QImage ScaledForScreen(const QString& path, QSize area, bool fitAlways) {
  const auto loaded = files::LoadImageFile(path, {});
  if (!loaded) return {};
  const QImage picture = loaded->Picture.ForScreen();
  const double zoom = PlayerZoom(picture.size(), area, fitAlways);
  const QSize size(std::max(1, int(picture.width() * zoom)), std::max(1, int(picture.height() * zoom)));
  return size == picture.size() ? picture : picture.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

}  // namespace

frmSlideShow2::frmSlideShow2(const PlayerSettings& settings, QWidget* parent)
    : QDialog(parent, Qt::FramelessWindowHint),
      settings_(settings),
      generator_(SeededFromTheClock()),
      order_(BuildSequence(settings.Rows, settings.SelectedRow, settings.Random, generator_), settings.Random,
             settings.Repeat, generator_) {
  setObjectName(QStringLiteral("frmSlideShow2"));
  connect(&player_, &view::AnimationPlayer::FrameShown, this, [this] {
    QPixmap pixmap = QPixmap::fromImage(player_.Current().Screen);
    pixmap.setDevicePixelRatio(devicePixelRatioF());
    slots_[slot_]->setPixmap(pixmap);
  });
  widgets::ApplyTahomaFont(*this);
  setAutoFillBackground(true);
  QPalette palette = this->palette();
  palette.setColor(QPalette::Window, settings.Background);
  setPalette(palette);
  for (int i = 0; i < 2; ++i) {
    auto* panel = new QWidget(this);
    panel->setObjectName(QStringLiteral("picFondo(%1)").arg(i));
    slots_[i] = new QLabel(panel);
    slots_[i]->setObjectName(QStringLiteral("imaImagen(%1)").arg(i));
    slots_[i]->hide();
  }
  picInfo_ = new QWidget(this);
  picInfo_->setObjectName(QStringLiteral("picInfo"));
  picInfo_->setStyleSheet(QStringLiteral("background: rgb(51, 51, 51); color: white"));
  auto* lblInfo = new QLabel(tr("Press [Esc] to exit"), picInfo_);
  lblInfo->setObjectName(QStringLiteral("lblInfo"));
  lblInfo->setMargin(8);
  lblInfo->adjustSize();
  picInfo_->resize(lblInfo->size());
  picInfo_->hide();
  lblEstado_ = new QLabel(this);
  lblEstado_->setObjectName(QStringLiteral("lblEstado"));
  lblEstado_->setAlignment(Qt::AlignCenter);
  lblEstado_->setStyleSheet(QStringLiteral("color: ") + base::TextColorOn(settings.Background).name());
  lblEstado_->setVisible(settings.ShowFileName);
  BuildMenus();
  tmrInfo_.setInterval(4000);
  tmrInfo_.setSingleShot(true);
  connect(&tmrInfo_, &QTimer::timeout, picInfo_, &QWidget::hide);
  tmrPlay_.setInterval(100);
  connect(&tmrPlay_, &QTimer::timeout, this, &frmSlideShow2::Tick);
  tmrPlay_.start();
}

frmSlideShow2::~frmSlideShow2() { next_.waitForFinished(); }

void frmSlideShow2::BuildMenus() {
  mnuSlideShowManual_ = new QMenu(tr("Slide Show Manual"), this);
  mnuSlideShowManual_->setObjectName(QStringLiteral("mnuSlideShowManual"));
  mnuSlideShowAuto_ = new QMenu(tr("Slide Show Auto"), this);
  mnuSlideShowAuto_->setObjectName(QStringLiteral("mnuSlideShowAuto"));
  const auto add = [this](QMenu* menu, const char* name, const QString& caption, const QString& word) {
    QAction* action = menu->addAction(caption, this, [this, word] { RunCommand(word); });
    action->setObjectName(QLatin1String(name));
    return action;
  };
  add(mnuSlideShowManual_, "mnuSlideShowManualPrevious", tr("&Previous   [Page Up]"), QStringLiteral("Previous"));
  add(mnuSlideShowManual_, "mnuSlideShowManualNext", tr("&Next   [Page Down]"), QStringLiteral("Next"));
  add(mnuSlideShowManual_, "mnuSlideShowManualExit", tr("&Exit   [Esc]"), QStringLiteral("Exit"));
  pause_ = add(mnuSlideShowAuto_, "mnuSlideShowAutoPause", tr("&Pause"), QStringLiteral("Pause"));
  add(mnuSlideShowAuto_, "mnuSlideShowAutoExit", tr("&Exit   [Esc]"), QStringLiteral("Exit"));
}

// Every 100 ms. The first tick shows the first image; later ones count the time it has
// been shown. Ticks that come while an image loads are dropped, so loading never counts.
void frmSlideShow2::Tick() {
  if (busy_) return;
  busy_ = true;
  if (firstTick_) {
    firstTick_ = false;
    tmrPlay_.stop();
    ShowHint();
    ShowCurrent();
    elapsed_ = 0;
    if (settings_.Seconds >= 0) tmrPlay_.start();
  } else {
    elapsed_ += 0.1;
    if (elapsed_ + 1e-9 >= settings_.Seconds) {
      elapsed_ = 0;
      Step(true);
    }
  }
  busy_ = false;
}

void frmSlideShow2::Step(bool forward) {
  switch (forward ? order_.Forward() : order_.Back()) {
    case PlayOrder::Step::Show:
      return ShowCurrent();
    case PlayOrder::Step::End:
      tmrPlay_.stop();
      return accept();
    case PlayOrder::Step::Nothing:
      return;
  }
}

frmSlideShow2::Prepared frmSlideShow2::PreparedFor(const QString& name) {
  if (next_.isValid()) {
    Prepared prepared = next_.result();
    next_ = {};
    if (prepared.Name == name) return prepared;
  }
  return {name, ScaledForScreen(base::JoinPath(settings_.Folder, name), Area(), settings_.FitToWindow)};
}

// An image that does not load leaves the one before it on screen.
void frmSlideShow2::ShowCurrent() {
  const Prepared prepared = PreparedFor(order_.Current());
  if (!prepared.Picture.isNull()) {
    const int other = 1 - slot_;
    QPixmap pixmap = QPixmap::fromImage(prepared.Picture);
    pixmap.setDevicePixelRatio(devicePixelRatioF());
    slots_[other]->setPixmap(pixmap);
    slots_[other]->resize(pixmap.deviceIndependentSize().toSize());
    LayOutSlots();
    slots_[other]->show();
    slots_[other]->parentWidget()->show();
    slots_[other]->parentWidget()->raise();
    slots_[slot_]->parentWidget()->hide();
    slot_ = other;
    shownName_ = prepared.Name;
    lblEstado_->setText(prepared.Name);
    picInfo_->raise();
    PlayIfAnimated(prepared.Picture);
  }
  PrepareNext();
}

// Its frames are made at the size the first is shown at.
void frmSlideShow2::PlayIfAnimated(const QImage& shown) {
  player_.Stop();
  const QString path = base::JoinPath(settings_.Folder, shownName_);
  if (!imaging::IsAnimation(path)) return;
  player_.SetScreenSize(shown.size());
  player_.Play(path, imaging::Image::FromQImage(shown));
}

void frmSlideShow2::PrepareNext() {
  const auto name = order_.NextInLine();
  if (!name) return;
  const QString path = base::JoinPath(settings_.Folder, *name);
  const QSize area = Area();
  const bool fit = settings_.FitToWindow;
  next_ = QtConcurrent::run([name = *name, path, area, fit] { return Prepared{name, ScaledForScreen(path, area, fit)}; });
}

// The screen in device pixels, less the file name strip: at 100 % an image pixel is one
// device pixel.
QSize frmSlideShow2::Area() const { return QSize(width(), height() - StripHeight()) * devicePixelRatioF(); }

int frmSlideShow2::StripHeight() const { return settings_.ShowFileName ? lblEstado_->sizeHint().height() : 0; }

void frmSlideShow2::LayOutSlots() {
  const int strip = StripHeight();
  const QRect area(0, 0, width(), height() - strip);
  for (QLabel* slot : slots_) {
    slot->parentWidget()->setGeometry(area);
    slot->move(std::max(0, (area.width() - slot->width()) / 2), std::max(0, (area.height() - slot->height()) / 2));
  }
  lblEstado_->setGeometry(0, area.height(), width(), strip);
  picInfo_->move((width() - picInfo_->width()) / 2, kHintTop);
}

void frmSlideShow2::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  LayOutSlots();
}

void frmSlideShow2::ShowHint() {
  picInfo_->show();
  picInfo_->raise();
  tmrInfo_.start();
}

void frmSlideShow2::keyPressEvent(QKeyEvent* event) {
  if (event->modifiers() & (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier)) return;
  if (busy_) return;
  busy_ = true;
  if (event->key() == Qt::Key_Escape) {
    tmrPlay_.stop();
    reject();
  } else if (settings_.Seconds >= 0) {
    ShowHint();
  } else {
    widgets::BusyPointerGuard pointer;
    Step(event->key() != Qt::Key_PageUp);
  }
  busy_ = false;
}

void frmSlideShow2::mousePressEvent(QMouseEvent* event) {
  if (busy_) return;
  if (event->button() == Qt::RightButton) return PopUpMenu(event->globalPosition().toPoint());
  if (event->button() != Qt::LeftButton || settings_.Seconds >= 0) return;
  busy_ = true;
  widgets::BusyPointerGuard pointer;
  Step(true);
  busy_ = false;
}

void frmSlideShow2::PopUpMenu(QPoint at) {
  const bool manual = settings_.Seconds < 0;
  pause_->setText(tmrPlay_.isActive() ? tr("&Pause") : tr("&Continue"));
  (manual ? mnuSlideShowManual_ : mnuSlideShowAuto_)->popup(at);
}

void frmSlideShow2::RunCommand(const QString& word) {
  if (busy_) return;
  busy_ = true;
  const bool manual = settings_.Seconds < 0;
  if (word == QLatin1String("Exit")) {
    tmrPlay_.stop();
    reject();
  } else if (word == QLatin1String("Pause")) {
    tmrPlay_.isActive() ? tmrPlay_.stop() : tmrPlay_.start();
  } else if (manual) {
    Step(word == QLatin1String("Next"));
  }
  busy_ = false;
}

}  // namespace slideshow
