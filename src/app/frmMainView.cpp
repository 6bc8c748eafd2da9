// frmMain's zoom and selection commands (Parts 3.1 and 3.2), on the viewport `picFondo`.
#include "app/frmMain.h"
#include "view/Viewport.h"
#include "view/Zoom.h"
#include "view/frmZoom.h"

#include <QMessageBox>

namespace app {

bool frmMain::CanZoom() const { return state_.ImageLoaded && state_.ViewMode != kViewThumbnails; }

void frmMain::ZoomTo(int percentage, int pendingFlag) {
  picFondo_->ApplyZoom(percentage, static_cast<view::Pending>(pendingFlag));
  RefreshStatusBar({});
  commands_.Refresh();
}

void frmMain::BuildViewCommands() {
  CommandRegistry& c = commands_;
  const auto on = [this](const char* name, auto handler) {
    connect(commands_.Get(QLatin1String(name)), &QAction::triggered, this, [this, handler] {
      if (CanZoom()) handler();
    });
    commands_.EnableWhen(QLatin1String(name), [this] { return CanZoom(); });
  };
  c.Add(QStringLiteral("mnuViewOriginalSize"), QStringLiteral("&Original Size"), QKeySequence(Qt::CTRL | Qt::Key_0));
  c.Add(QStringLiteral("mnuViewFit"), QStringLiteral("&Fit"), QKeySequence(Qt::CTRL | Qt::Key_F));
  c.Add(QStringLiteral("mnuViewAlwaysFit"), QStringLiteral("&Always Fit"));
  c.Add(QStringLiteral("mnuViewZoomIn"), QStringLiteral("Zoom &In"), QKeySequence(Qt::Key_Plus));
  c.Add(QStringLiteral("mnuViewZoomOut"), QStringLiteral("Zoom O&ut"), QKeySequence(Qt::Key_Minus));
  c.Add(QStringLiteral("mnuViewZoom"), QStringLiteral("&Zoom..."), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z));
  c.Add(QStringLiteral("mnuViewZoomToSelection"), QStringLiteral("Zoom to &Selection"));
  c.Add(QStringLiteral("mnuEditSelectNone"), QStringLiteral("Select &None"), QKeySequence(Qt::Key_Escape));

  on("mnuViewOriginalSize", [this] { ZoomTo(100, int(view::Pending::None)); });
  on("mnuViewFit", [this] { ZoomTo(picFondo_->FitPercentage(), int(view::Pending::None)); });
  on("mnuViewAlwaysFit", [this] {
    state_.Settings.FitToWindow = !state_.Settings.FitToWindow;
    picFondo_->SetAlwaysFit(state_.Settings.FitToWindow);
    commands_.Refresh();
    ZoomTo(state_.Settings.FitToWindow ? picFondo_->FitPercentage() : 100, int(view::Pending::None));
  });
  on("mnuViewZoomIn", [this] {
    if (const auto zoom = view::ZoomIn(picFondo_->Percentage())) ZoomTo(*zoom, int(view::Pending::ZoomStep));
  });
  on("mnuViewZoomOut", [this] {
    if (const auto zoom = view::ZoomOut(picFondo_->Percentage())) ZoomTo(*zoom, int(view::Pending::ZoomStep));
  });
  on("mnuViewZoom", [this] {
    view::frmZoom dialog(picFondo_->Percentage(), this);
    state_.DialogCancelled = dialog.exec() != QDialog::Accepted;
    if (!state_.DialogCancelled) ZoomTo(dialog.Value(), int(view::Pending::ZoomStep));
  });
  on("mnuViewZoomToSelection", [this] {
    if (!picFondo_->Selection().Exists()) {
      QMessageBox::information(this, QStringLiteral("Zoom to Selection"), QStringLiteral("Please select an area to zoom"));
      return;
    }
    ZoomTo(picFondo_->SelectionFitPercentage(), int(view::Pending::ZoomToSelection));
  });
  on("mnuEditSelectNone", [this] { picFondo_->SelectNone(); });
  c.CheckWhen(QStringLiteral("mnuViewAlwaysFit"), [this] { return state_.Settings.FitToWindow; });
  connect(picFondo_, &view::Viewport::ZoomStepRequested, this, [this](int direction) {
    commands_.Get(QLatin1String(direction > 0 ? "mnuViewZoomIn" : "mnuViewZoomOut"))->trigger();
  });
  connect(picFondo_, &view::Viewport::StepRequested, this, [this](int delta) { session_.Step(delta); });
  connect(picFondo_, &view::Viewport::FirstRequested, this, [this] { session_.StepTo(0); });
  connect(picFondo_, &view::Viewport::LastRequested, this, [this] { session_.StepTo(list_.Count() - 1); });
  connect(picFondo_, &view::Viewport::ZoomChanged, this, [this] { RefreshStatusBar({}); });
  connect(picFondo_, &view::Viewport::SelectionChanged, this, [this] {
    commands_.Refresh();
    RefreshStatusBar({});
  });
}

}  // namespace app
