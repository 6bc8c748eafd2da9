// frmMain's widgets, commands, menus, toolbar and status bar.
#include "app/Fonts.h"
#include "app/StatusBar.h"
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

  statusBar()->setObjectName(QStringLiteral("picEstado"));
  static const char* const kPaneNames[] = {"lblStatusName", "lblStatusPosition", "lblStatusSize", "lblStatusZoom",
                                            "lblStatusFileSize"};
  for (size_t i = 0; i < statusPanes_.size(); ++i) {
    statusPanes_[i] = new QLabel(this);
    statusPanes_[i]->setObjectName(QLatin1String(kPaneNames[i]));
    if (i == 0) {
      statusBar()->addWidget(statusPanes_[i], 1);
    } else {
      statusBar()->addPermanentWidget(statusPanes_[i]);
    }
  }
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
  BuildFileCommands();
  BuildEditCommands();
  c.Add(QStringLiteral("mnuListFullScreen"), QStringLiteral("&Full Screen"));
  c.Add(QStringLiteral("mnuListProperties"), QStringLiteral("Pr&operties..."));
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

  BuildMenuBarMenus();
  ConnectCatalogueCommands();
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

  BuildToolbar();
}

void frmMain::ApplyViewChecks() { commands_.Refresh(); }

void frmMain::RefreshStatusBar(const QString& text) {
  StatusFacts facts;
  facts.Message = text;
  const auto& image = session_.CurrentImage();
  if (state_.ImageLoaded && image) {
    const QString path = session_.CurrentFilePath();
    facts.DisplayName = browse::DisplayName(path);
    if (state_.Settings.LastOpenKind == kOpenFolder) facts.Row = session_.ShownRow();
    facts.Count = list_.Count();
    facts.Width = image->Width();
    facts.Height = image->Height();
    facts.Percentage = picFondo_->Percentage();
    const QFileInfo file(path);
    if (file.isFile()) facts.FileBytes = file.size();
  }
  const StatusTexts texts = ComposeStatus(facts);
  const QString* panes[] = {&texts.Name, &texts.Position, &texts.Size, &texts.Zoom, &texts.FileSize};
  for (size_t i = 0; i < statusPanes_.size(); ++i) {
    statusPanes_[i]->setText(*panes[i]);
    statusPanes_[i]->setVisible(!panes[i]->isEmpty());
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
