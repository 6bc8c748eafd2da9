// `ctlToolbar`: the common commands as buttons with captions and tooltips, icons from the
// desktop's theme with bundled fallbacks, and the View button's pop-up `frmMenuBotonView`.
// The buttons are the menu commands' own actions, so they follow the command-state refresh.
#include "app/frmMain.h"

#include <QMenu>
#include <QToolBar>
#include <QToolButton>

namespace app {

namespace {

struct ToolbarButton {
  const char* Command;
  const char* Caption;
  const char* Icon;  // a freedesktop icon name; the fallback is resources/icons/<name>.svg
};

constexpr ToolbarButton kButtons[] = {
    {"mnuFileOpenFolder", "Open Folder", "folder-open"},
    {"mnuFileOpenFile", "Open", "document-open"},
    {"mnuFileSave", "Save", "document-save"},
    {nullptr, nullptr, nullptr},
    {"mnuEditUndo", "Undo", "edit-undo"},
    {"mnuEditRedo", "Redo", "edit-redo"},
    {nullptr, nullptr, nullptr},
    {"mnuViewZoomIn", "Zoom In", "zoom-in"},
    {"mnuViewZoomOut", "Zoom Out", "zoom-out"},
    {"mnuViewFit", "Fit", "zoom-fit-best"},
    {"mnuViewBoton", "View", "view-list-icons"},
    {"mnuViewFullScreen", "Full Screen", "view-fullscreen"},
    {nullptr, nullptr, nullptr},
    {"mnuToolsSlideShow", "Slide Show", "media-playback-start"},
};

QIcon ThemedIcon(const char* name) {
  const QString themeName = QLatin1String(name);
  return QIcon::fromTheme(themeName, QIcon(QStringLiteral(":/icons/") + themeName + QStringLiteral(".svg")));
}

}  // namespace

// The View button: a click cycles Image and List and Image; its arrow drops the pop-up.
void frmMain::BuildViewButton() {
  QAction* view = commands_.Add(QStringLiteral("mnuViewBoton"), QStringLiteral("View"));
  connect(view, &QAction::triggered, this,
          [this] { SetViewMode(state_.ViewMode == kViewImage ? kViewListAndImage : kViewImage); });
  auto* popup = new QMenu(this);
  popup->setObjectName(QStringLiteral("frmMenuBotonView"));
  for (const char* mode : {"mnuViewImage", "mnuViewListAndImage", "mnuViewThumbnails"}) {
    popup->addAction(commands_.Get(QLatin1String(mode)));
  }
  view->setMenu(popup);
}

void frmMain::BuildToolbar() {
  ctlToolbar_->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
  ctlToolbar_->setIconSize(QSize(24, 24));
  BuildViewButton();
  for (const ToolbarButton& button : kButtons) {
    if (!button.Command) {
      ctlToolbar_->addSeparator();
      continue;
    }
    QAction* action = commands_.Get(QLatin1String(button.Command));
    action->setIcon(ThemedIcon(button.Icon));
    action->setIconText(QLatin1String(button.Caption));
    action->setToolTip(QLatin1String(button.Caption));
    ctlToolbar_->addAction(action);
  }
  auto* viewButton = qobject_cast<QToolButton*>(ctlToolbar_->widgetForAction(commands_.Get(QStringLiteral("mnuViewBoton"))));
  if (viewButton) viewButton->setPopupMode(QToolButton::MenuButtonPopup);
}

}  // namespace app
