// frmMain's widgets, commands, menus, toolbar and status bar.
#include "app/Fonts.h"
#include "app/Vb.h"
#include "app/frmMain.h"
#include "browse/Paths.h"
#include "browse/RecentFolders.h"
#include "view/Viewport.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QMenuBar>
#include <QSplitter>
#include <QStatusBar>
#include <QToolBar>
#include <QTreeView>

namespace app {

void frmMain::BuildWidgets() {
  ApplyTahomaFont(*this);

  splitter_ = new QSplitter(Qt::Horizontal, this);
  splitter_->setChildrenCollapsible(false);
  BuildListView();
  picFondo_ = new view::Viewport(splitter_);
  splitter_->addWidget(lisLista_);
  splitter_->addWidget(picFondo_);
  splitter_->setStretchFactor(1, 1);
  splitter_->handle(1)->setObjectName(QStringLiteral("picSepa"));
  connect(splitter_, &QSplitter::splitterMoved, this, [this] { OnSplitterMoved(); });
  setCentralWidget(splitter_);

  ctlToolbar_ = addToolBar(QStringLiteral("Toolbar"));
  ctlToolbar_->setObjectName(QStringLiteral("ctlToolbar"));
  ctlToolbar_->setMovable(false);
  ctlToolbar_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);

  statusBar()->setObjectName(QStringLiteral("picEstado"));
  statusText_ = new QLabel(this);
  statusPosition_ = new QLabel(this);
  statusSize_ = new QLabel(this);
  statusBar()->addWidget(statusText_, 1);
  statusBar()->addPermanentWidget(statusPosition_);
  statusBar()->addPermanentWidget(statusSize_);
}

void frmMain::BuildCommands() {
  CommandRegistry& c = commands_;
  connect(c.Add(QStringLiteral("mnuFileOpenFolder"), QStringLiteral("Open &Folder..."),
                QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_O)),
          &QAction::triggered, this, [this] { RunOpenFolderCommand(); });
  connect(c.Add(QStringLiteral("mnuFileExit"), QStringLiteral("E&xit"), QKeySequence::Quit), &QAction::triggered,
          this, &QWidget::close);
  connect(c.Add(QStringLiteral("mnuViewImage"), QStringLiteral("&Image")), &QAction::triggered, this,
          [this] { SetViewMode(kViewImage); });
  connect(c.Add(QStringLiteral("mnuViewListAndImage"), QStringLiteral("&List and Image")), &QAction::triggered,
          this, [this] { SetViewMode(kViewListAndImage); });
  c.Add(QStringLiteral("mnuViewThumbnails"), QStringLiteral("&Thumbnails"));
  connect(c.Add(QStringLiteral("mnuViewToolbar"), QStringLiteral("&Toolbar")), &QAction::triggered, this, [this] {
    state_.Settings.ShowToolbar = !state_.Settings.ShowToolbar;
    SetViewMode(state_.ViewMode);
  });
  connect(c.Add(QStringLiteral("mnuViewStatusBar"), QStringLiteral("&Status bar")), &QAction::triggered, this,
          [this] {
            state_.Settings.ShowStatusBar = !state_.Settings.ShowStatusBar;
            SetViewMode(state_.ViewMode);
          });
  connect(c.Add(QStringLiteral("mnuFileRename"), QStringLiteral("Re&name"), QKeySequence(Qt::Key_F2)),
          &QAction::triggered, this, [this] { lisLista_->edit(lisLista_->currentIndex()); });
  BuildViewCommands();
  c.Add(QStringLiteral("mnuListFullScreen"), QStringLiteral("&Full Screen"));
  c.Add(QStringLiteral("mnuListProperties"), QStringLiteral("P&roperties"));
  c.Add(QStringLiteral("mnuListSetWallpaper"), QStringLiteral("&Set Wallpaper"));

  c.NotBuiltYet(QStringLiteral("mnuViewThumbnails"));
  c.NotBuiltYet(QStringLiteral("mnuListFullScreen"));
  c.NotBuiltYet(QStringLiteral("mnuListProperties"));
  c.NotBuiltYet(QStringLiteral("mnuListSetWallpaper"));
  c.EnableWhen(QStringLiteral("mnuFileRename"), [this] {
    return state_.ViewMode == kViewListAndImage && lisLista_->currentIndex().isValid();
  });
  c.CheckWhen(QStringLiteral("mnuViewImage"), [this] { return state_.ViewMode == kViewImage; });
  c.CheckWhen(QStringLiteral("mnuViewListAndImage"), [this] { return state_.ViewMode == kViewListAndImage; });
  c.CheckWhen(QStringLiteral("mnuViewThumbnails"), [this] { return state_.ViewMode == kViewThumbnails; });
  c.CheckWhen(QStringLiteral("mnuViewToolbar"), [this] { return state_.Settings.ShowToolbar; });
  c.CheckWhen(QStringLiteral("mnuViewStatusBar"), [this] { return state_.Settings.ShowStatusBar; });
}

void frmMain::BuildMenus() {
  const auto add = [this](QMenu* menu, const char* name) { menu->addAction(commands_.Get(QLatin1String(name))); };
  QMenu* file = menuBar()->addMenu(QStringLiteral("&File"));
  file->setObjectName(QStringLiteral("mnuFile"));
  add(file, "mnuFileOpenFolder");
  add(file, "mnuFileRename");
  QMenu* edit = menuBar()->addMenu(QStringLiteral("&Edit"));
  edit->setObjectName(QStringLiteral("mnuEdit"));
  add(edit, "mnuEditSelectNone");
  QMenu* viewMenu = menuBar()->addMenu(QStringLiteral("&View"));
  viewMenu->setObjectName(QStringLiteral("mnuView"));
  add(viewMenu, "mnuViewImage");
  add(viewMenu, "mnuViewListAndImage");
  add(viewMenu, "mnuViewThumbnails");
  viewMenu->addSeparator();
  for (const char* zoom : {"mnuViewOriginalSize", "mnuViewFit", "mnuViewAlwaysFit", "mnuViewZoomIn", "mnuViewZoomOut",
                           "mnuViewZoom", "mnuViewZoomToSelection"}) {
    add(viewMenu, zoom);
  }
  viewMenu->addSeparator();
  add(viewMenu, "mnuViewToolbar");
  add(viewMenu, "mnuViewStatusBar");

  BuildPendingMenus();
  file->addSeparator();
  add(file, "mnuFileExit");

  mnuList_ = new QMenu(this);
  mnuList_->setObjectName(QStringLiteral("mnuList"));
  add(mnuList_, "mnuListFullScreen");
  add(mnuList_, "mnuFileRename");
  add(mnuList_, "mnuListSetWallpaper");
  mnuList_->addSeparator();
  add(mnuList_, "mnuListProperties");
  connect(mnuList_, &QMenu::aboutToShow, this, [this] { commands_.Refresh(); });

  ctlToolbar_->addAction(commands_.Get(QStringLiteral("mnuFileOpenFolder")));
  ctlToolbar_->addSeparator();
  ctlToolbar_->addAction(commands_.Get(QStringLiteral("mnuViewImage")));
  ctlToolbar_->addAction(commands_.Get(QStringLiteral("mnuViewListAndImage")));
  commands_.Get(QStringLiteral("mnuFileOpenFolder"))->setIcon(QIcon::fromTheme(QStringLiteral("folder-open")));
}

void frmMain::ApplyViewChecks() { commands_.Refresh(); }

void frmMain::RefreshStatusBar(const QString& text) {
  statusPosition_->clear();
  statusSize_->clear();
  if (!text.isEmpty() || !state_.ImageLoaded) {
    statusText_->setText(text);
    return;
  }
  const QString path = session_.CurrentFilePath();
  statusText_->setText(browse::DisplayName(path));
  if (state_.Settings.LastOpenKind == kOpenFolder && session_.ShownRow() >= 0) {
    statusPosition_->setText(QStringLiteral("%1 / %2").arg(vb::FormatThousands(session_.ShownRow() + 1),
                                                           vb::FormatThousands(list_.Count())));
  }
  if (const auto& image = session_.CurrentImage()) {
    statusSize_->setText(QStringLiteral("%1 x %2    %3%    %4 KB")
                             .arg(image->Width())
                             .arg(image->Height())
                             .arg(picFondo_->Percentage())
                             .arg(vb::FormatThousands(double(QFileInfo(path).size()) / 1024.0)));
  }
}

// Stand-in for frmAbrirCarpeta (Part 2.2): the platform's folder chooser, then the
// command's own steps.
void frmMain::RunOpenFolderCommand() {
  if (!ConfirmSaveChanges()) return;
  if (!isVisible()) {
    LayOut();
    show();
  }
  const QString chosen = browse::StripTrailingBackslashes(
      QFileDialog::getExistingDirectory(this, QStringLiteral("Open Folder"), state_.Settings.LastFolder));
  picFondo_->update();
  if (chosen.isEmpty()) {
    state_.DialogCancelled = true;
    return;
  }
  state_.DialogCancelled = false;
  browse::AddRecentFolder(state_.Settings, chosen);
  session_.OpenChosenFolder(chosen);
  lisLista_->setFocus();
}

}  // namespace app
