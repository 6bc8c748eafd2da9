// Animations in the window: an animated file plays as soon as it is shown, in the image
// panel and full screen; P (or Pause) pauses and resumes it, comma and period step a
// frame back and forward while paused, and the status bar says "frame 3/12" beside the
// same controls. A paused frame becomes the document's image, so an edit, Copy or a save
// works on the frame on screen; an edit stops the playing, and undoing every edit lets it
// play again.
#include "app/frmMain.h"

#include "base/Paths.h"
#include "view/Viewport.h"
#include "view/frmFull.h"

#include <QToolButton>

namespace app {

void frmMain::DeclareAnimationCommands() {
  CommandTable& t = commands_;
  t.Declare({"mnuViewPlayAnimation", tr("&Pause Animation"), Qt::Key_P, "media-playback-pause", tr("Pause"), Qt::Key_Pause},
            {[this] { TogglePlaying(); }, [this] { return CanPlay(); }, [this] { return !player_.Active() || player_.Paused(); }});
  t.Declare({"mnuViewNextFrame", tr("Ne&xt Frame"), Qt::Key_Period, "go-next", tr("Next Frame")},
            {[this] { player_.Step(+1); }, [this] { return player_.CanStep(+1); }});
  t.Declare({"mnuViewPreviousFrame", tr("Previous Fra&me"), Qt::Key_Comma, "go-previous", tr("Previous Frame")},
            {[this] { player_.Step(-1); }, [this] { return player_.CanStep(-1); }});
}

// The keys act on the image panel only, so that typing a name in the list still finds it.
void frmMain::ConnectAnimation() {
  for (const char* name : {"mnuViewPlayAnimation", "mnuViewNextFrame", "mnuViewPreviousFrame"}) {
    QAction* action = commands_.Get(QLatin1String(name));
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    picFondo_->addAction(action);
  }
  connect(&player_, &view::AnimationPlayer::FrameShown, this, [this] {
    const view::AnimationFrame& frame = player_.Current();
    picFondo_->ShowFrame(frame.Picture, frame.Screen);
    if (player_.Paused()) {
      document_.AdoptFrame(frame.Index, frame.Picture);
      commands_.Refresh();
    }
    RefreshStatusBar({});
  });
  connect(&player_, &view::AnimationPlayer::StateChanged, this, [this] {
    if (player_.Active() && (player_.Paused() || player_.Ended())) {
      document_.AdoptFrame(player_.Current().Index, player_.Current().Picture);
    }
    commands_.Refresh();
    RefreshStatusBar(player_.Active() && player_.Damaged()
                         ? tr("%1: frame %2 is the last that could be read")
                               .arg(base::DisplayName(document_.CurrentFilePath()))
                               .arg(player_.Current().Index + 1)
                         : QString());
  });
  connect(&document_, &document::Document::StateChanged, this, [this] {
    if (document_.IsChanged()) player_.Stop();
  });
  connect(picFondo_, &view::Viewport::ZoomChanged, this, [this] { player_.SetScreenSize(picFondo_->FramePaintedSize()); });
}

bool frmMain::CanPlay() const {
  return player_.Active() || (document_.Animated() && document_.CurrentImage() && !document_.IsChanged() && CanZoom());
}

void frmMain::TogglePlaying() {
  if (!player_.Active()) return PlayAnimationShown();
  player_.SetPaused(!player_.Paused());
}

// The image the document shows now: an animation plays from the frame shown.
void frmMain::PlayAnimationShown() {
  player_.Stop();
  const auto& image = document_.CurrentImage();
  if (!image || !document_.Animated() || document_.IsChanged()) return;
  player_.SetScreenSize(picFondo_->FramePaintedSize());
  player_.Play(document_.CurrentFilePath(), *image, document_.Page());
}

// Before an edit or Copy: the frame on screen is the one they take, and a RAW's preview
// gives way to the developed image.
void frmMain::SettleImage() {
  player_.SetPaused(true);
  document_.DevelopPreview();
}

// Full screen plays the animation too, its frames made at the full screen's size.
void frmMain::PlayInFullScreen(view::frmFull& full) {
  if (!player_.Active()) return;
  full.SetAnimated(true);
  player_.SetScreenSize(full.FramePaintedSize());
  connect(&player_, &view::AnimationPlayer::FrameShown, &full, [this, &full] {
    full.ShowFrame(player_.Current().Picture, player_.Current().Screen);
  });
  connect(&full, &view::frmFull::AnimationKeyPressed, this, [this](int key) {
    if (key == Qt::Key_P || key == Qt::Key_Pause) commands_.Get(QStringLiteral("mnuViewPlayAnimation"))->trigger();
    if (key == Qt::Key_Comma || key == Qt::Key_Period) player_.Step(key == Qt::Key_Period ? +1 : -1);
  });
}

// The status bar's buttons beside "frame 3/12" or "page 2/5" act on frames or pages.
void frmMain::ShowPageOrFrameButtons(bool visible) {
  const bool frames = player_.Active();
  const char* names[] = {frames ? "mnuViewPreviousFrame" : "mnuViewPreviousPage", frames ? "mnuViewNextFrame" : "mnuViewNextPage",
                         "mnuViewPlayAnimation"};
  for (size_t i = 0; i < pageButtons_.size(); ++i) {
    QAction* action = commands_.Get(QLatin1String(names[i]));
    if (pageButtons_[i]->defaultAction() != action) {
      // The action it had goes too: a button with two actions offers them as a menu.
      if (QAction* had = pageButtons_[i]->defaultAction()) pageButtons_[i]->removeAction(had);
      pageButtons_[i]->setDefaultAction(action);
    }
    pageButtons_[i]->setVisible(visible && (i < 2 || frames));
  }
}

}  // namespace app
