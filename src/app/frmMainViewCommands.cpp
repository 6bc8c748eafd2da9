// The zoom and selection commands on the image panel `picFondo`, and the panel's own
// requests (Ctrl+wheel, stepping through the folder).
#include "app/frmMain.h"

#include "view/Viewport.h"
#include "view/Zoom.h"
#include "view/frmFull.h"
#include "view/frmZoom.h"
#include "base/Colors.h"
#include "imaging/Operations.h"

#include <QMessageBox>
#include <QScreen>

namespace app {

bool frmMain::CanZoom() const { return document_.CanEdit(); }

// Above 100 % a RAW's preview would show its own pixels enlarged: the developed image
// takes its place first.
void frmMain::ZoomTo(int percentage, view::Pending pending) {
  if (percentage > 100) document_.DevelopPreview();
  picFondo_->ApplyZoom(percentage, pending);
}

// Zoom In adds 20 and stops at 1000; Zoom Out goes the other way and stops at 10.
void frmMain::StepZoom(int direction) {
  const int now = picFondo_->Percentage();
  if (const auto zoom = direction > 0 ? view::ZoomIn(now) : view::ZoomOut(now)) ZoomTo(*zoom, view::Pending::ZoomStep);
}

void frmMain::ToggleAlwaysFit() {
  state_.Settings.FitToWindow = !state_.Settings.FitToWindow;
  ZoomTo(state_.Settings.FitToWindow ? picFondo_->FitPercentage() : 100, view::Pending::None);
}

void frmMain::RunZoomDialog() {
  view::frmZoom dialog(picFondo_->Percentage(), this);
  if (dialog.exec() == QDialog::Accepted) ZoomTo(dialog.Value(), view::Pending::ZoomStep);
}

void frmMain::RunZoomToSelection() {
  if (!picFondo_->Selection().Exists()) {
    QMessageBox::information(this, tr("Zoom to Selection"), tr("Please select an area to zoom"));
    return;
  }
  ZoomTo(picFondo_->SelectionFitPercentage(), view::Pending::ZoomToSelection);
}

// Full Screen shows the image already decoded: from the menu, only the selection when one
// is shown; from a double-click, always the whole image.
constexpr int kSmallestFullScreenSelection = 8;

void frmMain::RunFullScreen(bool byDoubleClick) {
  // A double-click opens it from the Thumbnails view too, where the menu command does not.
  if (!document_.CurrentImage() || (!byDoubleClick && !CanZoom())) return;
  imaging::Image image = *document_.CurrentImage();
  base::NaturalSize natural = document_.Natural();
  // A click's one-pixel selection (or any under 8 x 8 pixels) is not worth a screen.
  const QRect selection = SelectionPixels();
  if (!byDoubleClick && selection.width() >= kSmallestFullScreenSelection &&
      selection.height() >= kSmallestFullScreenSelection) {
    image = imaging::ops::Crop(image, selection);
    natural = base::NaturalSize::FromPixels(image.Width(), image.Height(), state_.Metrics);
  }
  view::frmFull full(image, natural, state_.Metrics, base::ColorFromBgr(state_.Settings.ColorFullScreen), this);
  connect(&full, &view::frmFull::StepRequested, this, [this, &full](int delta) {
    document_.Step(delta);
    full.ShowImage(document_.CurrentImage(), document_.Natural());
  });
  if (const QScreen* screen = this->screen()) full.setGeometry(screen->geometry());  // the screen the window is on
  if (image.Width() == document_.CurrentImage()->Width() && image.Height() == document_.CurrentImage()->Height()) {
    PlayInFullScreen(full);  // not a selection's part
  }
  runFullScreen_(full);
  player_.SetScreenSize(picFondo_->FramePaintedSize());
  picFondo_->update();
}

void RunFullScreenView(view::frmFull& full) {
  full.showFullScreen();
  full.exec();
}

void frmMain::ConnectViewport() {
  using view::Viewport;
  connect(picFondo_, &Viewport::FullScreenRequested, this, [this] { RunFullScreen(true); });
  connect(picFondo_, &Viewport::DragOutRequested, this, [this] { DragPictureOut(); });
  connect(picFondo_, &Viewport::ZoomStepRequested, this, [this](int direction) {
    commands_.Get(QLatin1String(direction > 0 ? "mnuViewZoomIn" : "mnuViewZoomOut"))->trigger();
  });
  connect(picFondo_, &Viewport::StepRequested, this, [this](int delta) { document_.Step(delta); });
  connect(picFondo_, &Viewport::FirstRequested, this, [this] { document_.StepTo(0); });
  connect(picFondo_, &Viewport::LastRequested, this, [this] { document_.StepTo(list_.Count() - 1); });
  connect(picFondo_, &Viewport::ZoomChanged, this, [this] {
    RefreshStatusBar({});
    commands_.Refresh();
  });
  connect(picFondo_, &Viewport::SelectionChanged, this, [this] {
    commands_.Refresh();
    RefreshStatusBar({});
  });
}

// View > Sort By: the order is kept in the settings and the list read again in it, the entry
// shown staying shown.
void frmMain::SortListBy(int order, bool descending) {
  state_.Settings.SortOrder = order;
  state_.Settings.SortDescending = descending;
  document_.ListAgainKeepingShown();
  commands_.Refresh();
}

}  // namespace app
