#include "app/frmMain.h"
#include "files/LoadImageFile.h"

#include "app/BusyPointer.h"
#include "app/Colors.h"
#include "app/SettingsFile.h"
#include "app/Vb.h"
#include "view/Viewport.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHeaderView>
#include <QMessageBox>
#include <QScreen>
#include <QSplitter>
#include <QStatusBar>
#include <QToolBar>
#include <QTreeView>

namespace app {

namespace {
constexpr qint64 kPrefetchBudget = qint64(512) << 20;  // decoded neighbours kept ahead
}  // namespace

frmMain::frmMain(QString settingsPath, QWidget* parent)
    : QMainWindow(parent),
      settingsPath_(std::move(settingsPath)),
      prefetcher_([this](const QString& path) { return files::LoadImageFile(path, state_.Metrics); }, kPrefetchBudget,
                  [](const imaging::Image& picture) { picture.WarmDisplayLevels(); }),
      session_(state_, list_, *this, [this](const QString& path) { return prefetcher_.Take(path); }),
      commands_(this) {
  setObjectName(QStringLiteral("frmMain"));
  setWindowTitle(QStringLiteral("Vistrel"));
  BuildWidgets();
  BuildCommands();
  BuildMenus();
  session_.SetNeighboursHook([this](const QStringList& paths) {
    picFondo_->repaint();  // the new image first; then the worker may take the cores
    if (const auto& shown = session_.CurrentImage()) prefetcher_.Warm(*shown);
    prefetcher_.Prefetch(paths);
  });
}

void frmMain::RunStartup(const QString& commandLine) {
  state_.StartingUp = true;
  ShowBusyPointer();
  RefreshScreenMetrics();
  state_.LoadDefaultSettings();
  ReadSettingsFile(settingsPath_, state_.Metrics, state_.Settings);
  state_.ImageLoaded = false;
  ShowImage(nullptr);
  RefreshStatusBar({});
  PlaceWindow();
  picFondo_->SetBackground(ColorFromLong(state_.Settings.ColorImage));
  if (session_.OpenAtStartup(commandLine) == StartupEnd::OpenFolderDialogRan) return;
  ApplyViewChecks();
  state_.StartingUp = false;
  LayOut();
  show();
  RestorePointer();
}

void frmMain::RefreshScreenMetrics() {
  const QScreen* screen = this->screen() ? this->screen() : QGuiApplication::primaryScreen();
  if (!screen) return;
  state_.Metrics.TwipsPerPixelX = static_cast<float>(1440.0 / screen->logicalDotsPerInchX());
  state_.Metrics.TwipsPerPixelY = static_cast<float>(1440.0 / screen->logicalDotsPerInchY());
  state_.Metrics.ScreenWidthTwips = static_cast<float>(screen->size().width()) * state_.Metrics.TwipsPerPixelX;
  state_.Metrics.ScreenHeightTwips = static_cast<float>(screen->size().height()) * state_.Metrics.TwipsPerPixelY;
}

void frmMain::PlaceWindow() {
  const WindowPlacement p = PlacementFromSettings(state_.Settings, state_.Metrics);
  setGeometry(p.Left, p.Top, std::max(p.Width, 200), std::max(p.Height, 150));
  normalRect_ = geometry();
  if (state_.Settings.WindowMaximized) setWindowState(windowState() | Qt::WindowMaximized);
}

WindowPlacement frmMain::CurrentPlacement() const {
  const QRect normal = normalRect_.isValid() ? normalRect_ : geometry();
  return {normal.left(), normal.top(), normal.width(), normal.height(), isMaximized()};
}

void frmMain::closeEvent(QCloseEvent* event) {
  if (!ConfirmSaveChanges()) {
    event->ignore();
    return;
  }
  ShowBusyPointer();
  prefetcher_.Prefetch({});
  prefetcher_.WaitForIdle();
  const WindowPlacement placement = CurrentPlacement();
  hide();
  RefreshScreenMetrics();
  WriteSettingsFile(settingsPath_, WriteSettingsText(state_.Settings, state_.Metrics, placement));
  RestorePointer();
  event->accept();
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
  RestorePointer();
  if (state_.ViewMode == kViewListAndImage) lisLista_->setFocus();
}

void frmMain::ShowExclamation(const QString& text) {
  QMessageBox::warning(isVisible() ? this : nullptr, QStringLiteral("Vistrel"), text);
}

void frmMain::LayOut() {
  if (state_.StartingUp) return;
  ctlToolbar_->setVisible(state_.Settings.ShowToolbar);
  statusBar()->setVisible(state_.Settings.ShowStatusBar);
  lisLista_->setVisible(state_.ViewMode == kViewListAndImage);
  const int listWidth = vb::IntDiv(state_.Settings.SplitterPos, state_.Metrics.TwipsPerPixelX).value_or(130);
  splitter_->setSizes({listWidth, std::max(1, splitter_->width() - listWidth)});
}

void frmMain::OnSplitterMoved() {
  if (state_.StartingUp || !lisLista_->isVisible()) return;
  state_.Settings.SplitterPos = static_cast<float>(lisLista_->width()) * state_.Metrics.TwipsPerPixelX;
}

void frmMain::ShowImage(const imaging::Image* image) {
  picFondo_->SetAlwaysFit(state_.Settings.FitToWindow);
  picFondo_->SetImage(image ? std::optional<imaging::Image>(*image) : std::nullopt, session_.NaturalSizeTag(),
                      state_.Settings.FitToWindow);
  commands_.Refresh();
}

void frmMain::SetViewMode(int mode) {
  state_.ViewMode = mode;
  ApplyViewChecks();
  LayOut();
}

}  // namespace app
