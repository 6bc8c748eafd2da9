#include "app/frmMain.h"
#include "widgets/HelpWindow.h"

#include "base/Colors.h"
#include "browse/ThumbnailsView.h"
#include "base/NumberRules.h"
#include "files/LoadImageFile.h"
#include "view/Viewport.h"
#include "widgets/BusyPointer.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QSplitter>
#include <QStackedWidget>
#include <QStatusBar>
#include <QToolBar>
#include <QTreeView>
#include <QWindow>

#include <algorithm>
#include <limits>

namespace app {

namespace {
constexpr qint64 kPrefetchBudget = qint64(512) << 20;  // decoded neighbours kept ahead
}  // namespace

frmMain::frmMain(QString settingsPath, QWidget* parent)
    : QMainWindow(parent),
      settingsPath_(std::move(settingsPath)),
      prefetcher_([this](const QString& path) { return files::LoadImageFile(path, state_.Metrics); }, kPrefetchBudget,
                  [](const imaging::Image& picture) { picture.WarmDisplayLevels(); }),
      document_(state_, list_, *this, [this](const QString& path) { return prefetcher_.Take(path); }),
      commands_(this),
      screenColour_(*this, state_.Settings) {
  setObjectName(QStringLiteral("frmMain"));
  setWindowTitle(QStringLiteral("Vistrel"));
  document_.SetReadyCheck([this](const QString& path) { return prefetcher_.Holds(path); });
  widgets::InstallHelpWindow(this);
  BuildWidgets();
  DeclareCommands();
  BuildMenus();
  BuildToolbar();
  ConnectDocument();
  ConnectViewport();
  ConnectAnimation();
  ConnectThumbnails();
  connect(&screenColour_, &ScreenColourTracker::Changed, this, [this] {
    picFondo_->RemakeFrames();
    if (document_.FolderOpen() && document_.View() == document::ViewMode::Thumbnails) ShowThumbnails();
  });
}

void frmMain::RunStartup(const QString& commandLine) {
  if (StartUp(commandLine) == document::StartupEnd::OpenFolderDialogWanted) RunOpenFolder();
}

// Everything up to the first picture, under the busy pointer.
document::StartupEnd frmMain::StartUp(const QString& commandLine) {
  widgets::BusyPointerGuard busy;
  state_.StartingUp = true;
  RefreshScreenMetrics();
  state_.LoadDefaultSettings();
  settings::ReadSettingsFile(settingsPath_, state_.Metrics, state_.Settings);
  screenColour_.Refresh();
  ShowImage(nullptr);
  RefreshStatusBar({});
  PlaceWindow();
  picFondo_->SetBackground(base::ColorFromBgr(state_.Settings.ColorImage));
  const document::StartupEnd end = document_.OpenAtStartup(commandLine);
  if (end == document::StartupEnd::Normal) commands_.Refresh();
  state_.StartingUp = false;
  LayOut();
  if (end == document::StartupEnd::Normal) show();  // else the Open Folder command shows it
  return end;
}

// Twips per pixel follow the screen the window is on; every conversion reads them here.
void frmMain::RefreshScreenMetrics() {
  const QScreen* screen = this->screen() ? this->screen() : QGuiApplication::primaryScreen();
  if (!screen) return;
  base::ScreenMetrics& m = state_.Metrics;
  m.TwipsPerPixelX = static_cast<float>(1440.0 / screen->logicalDotsPerInchX());
  m.TwipsPerPixelY = static_cast<float>(1440.0 / screen->logicalDotsPerInchY());
  m.DevicePixelRatio = static_cast<float>(screen->devicePixelRatio());
  m.ScreenWidthTwips = static_cast<float>(screen->size().width()) * m.TwipsPerPixelX;
  m.ScreenHeightTwips = static_cast<float>(screen->size().height()) * m.TwipsPerPixelY;
}

namespace {

// A rectangle stored on a screen that is no longer there comes back onto the nearest
// screen, within its free area.
QRect OnAScreen(QRect rectangle) {
  const QList<QScreen*> screens = QGuiApplication::screens();
  QScreen* nearest = nullptr;
  qint64 nearestDistance = std::numeric_limits<qint64>::max();
  for (QScreen* screen : screens) {
    if (screen->availableGeometry().intersects(rectangle)) return rectangle;
    const QPoint d = screen->availableGeometry().center() - rectangle.center();
    const qint64 distance = qint64(d.x()) * d.x() + qint64(d.y()) * d.y();
    if (distance < nearestDistance) {
      nearest = screen;
      nearestDistance = distance;
    }
  }
  if (!nearest) return rectangle;
  const QRect area = nearest->availableGeometry();
  rectangle.setSize(rectangle.size().boundedTo(area.size()));
  rectangle.moveTo(std::clamp(rectangle.x(), area.left(), area.right() - rectangle.width() + 1),
                   std::clamp(rectangle.y(), area.top(), area.bottom() - rectangle.height() + 1));
  return rectangle;
}

}  // namespace

void frmMain::PlaceWindow() {
  const settings::WindowPlacement p = settings::PlacementFromSettings(state_.Settings, state_.Metrics);
  setGeometry(OnAScreen(QRect(p.Left, p.Top, std::max(p.Width, 200), std::max(p.Height, 150))));
  normalRect_ = geometry();
  if (state_.Settings.WindowMaximized) setWindowState(windowState() | Qt::WindowMaximized);
}

settings::WindowPlacement frmMain::CurrentPlacement() const {
  const QRect normal = normalRect_.isValid() ? normalRect_ : geometry();
  return {normal.left(), normal.top(), normal.width(), normal.height(), isMaximized()};
}

void frmMain::closeEvent(QCloseEvent* event) {
  if (!document_.ConfirmSaveChanges()) {
    event->ignore();
    return;
  }
  widgets::BusyPointerGuard busy;
  prefetcher_.Prefetch({});
  prefetcher_.WaitForIdle();
  const settings::WindowPlacement placement = CurrentPlacement();
  hide();
  RefreshScreenMetrics();
  document_.RememberWhatIsOpen(state_.Settings);
  settings::WriteSettingsFile(settingsPath_, settings::WriteSettingsText(state_.Settings, state_.Metrics, placement));
  event->accept();
}

void frmMain::showEvent(QShowEvent* event) {
  QMainWindow::showEvent(event);
  if (screenWatched_ || !windowHandle()) return;
  screenWatched_ = true;
  connect(windowHandle(), &QWindow::screenChanged, this, [this] {
    RefreshScreenMetrics();
    LayOut();
    picFondo_->ApplyZoom(picFondo_->Percentage());
  });
}

void frmMain::RememberNormalRectangle() {
  if (!(windowState() & (Qt::WindowMaximized | Qt::WindowMinimized | Qt::WindowFullScreen))) {
    normalRect_ = geometry();
  }
}

void frmMain::moveEvent(QMoveEvent* event) {
  QMainWindow::moveEvent(event);
  RememberNormalRectangle();
}

void frmMain::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  RememberNormalRectangle();
  if (!state_.StartingUp && !isMinimized()) LayOut();
}

void frmMain::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() != QEvent::ActivationChange || !isActiveWindow()) return;
  widgets::RestorePointer();
  if (document_.View() == document::ViewMode::ListAndImage) lisLista_->setFocus();
}

void frmMain::LayOut() {
  if (!state_.StartingUp) ArrangePanes();
}

void frmMain::ArrangePanes() {
  ctlToolbar_->setVisible(state_.Settings.ShowToolbar);
  statusBar()->setVisible(state_.Settings.ShowStatusBar);
  lisLista_->setVisible(document_.View() == document::ViewMode::ListAndImage);
  const bool thumbnails = document_.View() == document::ViewMode::Thumbnails;
  imagePanels_->setCurrentWidget(thumbnails ? static_cast<QWidget*>(picFondoThumbnails_) : picFondo_);
  const int listWidth = numbers::RoundedDiv(state_.Settings.SplitterPos, state_.Metrics.TwipsPerPixelX).value_or(130);
  splitter_->setSizes({listWidth, std::max(1, splitter_->width() - listWidth)});
}

void frmMain::OnSplitterMoved() {
  if (state_.StartingUp || !lisLista_->isVisible()) return;
  state_.Settings.SplitterPos = static_cast<float>(lisLista_->width()) * state_.Metrics.TwipsPerPixelX;
}

}  // namespace app
