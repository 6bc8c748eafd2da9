// frmMain's widgets, its status bar panes and title, and what the document's signals change in them.
#include "app/frmMain.h"
#include "base/Texts.h"

#include "base/FileNames.h"
#include "base/Paths.h"
#include "base/Colors.h"
#include "document/StatusText.h"
#include "browse/ThumbnailsView.h"
#include "imaging/Drawing.h"
#include "view/Viewport.h"
#include "widgets/Fonts.h"

#include <QFileInfo>
#include <QLabel>
#include <QMenu>
#include <QSplitter>
#include <QStackedWidget>
#include <QProgressBar>
#include <QStatusBar>
#include <QToolButton>
#include <QToolBar>
#include <QTreeView>

namespace app {

void frmMain::BuildWidgets() {
  setAcceptDrops(true);  // files and folders from a file manager (frmMainExchange.cpp)
  widgets::ApplyTahomaFont(*this);
  splitter_ = new QSplitter(Qt::Horizontal, this);
  splitter_->setChildrenCollapsible(false);
  BuildListView();
  imagePanels_ = new QStackedWidget(splitter_);
  picFondo_ = new view::Viewport(state_.Metrics, imagePanels_);
  picFondo_->SetFitRules([this] { return view::Viewport::FitRules{state_.Settings.FitToWindow, state_.Settings.EnlargeSmallImages}; });
  picFondo_->SetWheel([this] {
    const int action = state_.Settings.WheelAction;
    return action == 1 ? view::Viewport::Wheel::Zooms : action == 2 ? view::Viewport::Wheel::Steps : view::Viewport::Wheel::Scrolls;
  });
  picFondoThumbnails_ = new browse::ThumbnailsView(list_, state_.Metrics, imagePanels_);
  imagePanels_->addWidget(picFondo_);
  imagePanels_->addWidget(picFondoThumbnails_);
  splitter_->addWidget(lisLista_);
  splitter_->addWidget(imagePanels_);
  splitter_->setStretchFactor(1, 1);
  splitter_->handle(1)->setObjectName(QStringLiteral("picSepa"));
  connect(splitter_, &QSplitter::splitterMoved, this, [this] { OnSplitterMoved(); });
  setCentralWidget(splitter_);

  ctlToolbar_ = addToolBar(tr("Toolbar"));
  ctlToolbar_->setObjectName(QStringLiteral("ctlToolbar"));
  ctlToolbar_->setMovable(false);
  BuildStatusBar();
}

void frmMain::BuildStatusBar() {
  statusBar()->setObjectName(QStringLiteral("picEstado"));
  static const char* const kPaneNames[] = {"lblStatusName", "lblStatusPosition", "lblStatusPage", "lblStatusSize",
                                            "lblStatusZoom", "lblStatusFileSize"};
  for (size_t i = 0; i < statusPanes_.size(); ++i) {
    statusPanes_[i] = new QLabel(this);
    statusPanes_[i]->setObjectName(QLatin1String(kPaneNames[i]));
    if (i == 0) {
      statusBar()->addWidget(statusPanes_[i], 1);
      continue;
    }
    // The page turns from the status bar too, by small buttons on either side of "page 2/5".
    const bool page = statusPanes_[i]->objectName() == QLatin1String("lblStatusPage");
    if (page) statusBar()->addPermanentWidget(pageButtons_[0] = new QToolButton(this));
    statusBar()->addPermanentWidget(statusPanes_[i]);
    if (page) statusBar()->addPermanentWidget(pageButtons_[1] = new QToolButton(this));
    if (page) statusBar()->addPermanentWidget(pageButtons_[2] = new QToolButton(this));
  }
  editProgress_ = new QProgressBar(this);
  editProgress_->setObjectName(QStringLiteral("prgEdit"));
  editProgress_->setRange(0, 0);  // a busy bar: the operations do not tell how far they are
  editProgress_->setMaximumWidth(160);
  editProgress_->hide();
  statusBar()->addWidget(editProgress_);
  for (QToolButton* button : pageButtons_) {
    button->setAutoRaise(true);
    button->setToolButtonStyle(Qt::ToolButtonIconOnly);
    button->hide();
  }
}

void frmMain::ConnectDocument() {
  using document::Document;
  connect(&document_, &Document::StateChanged, this, [this] {
    commands_.Refresh();
    RefreshTitle();
  });
  connect(&document_, &Document::ImageShown, this, &frmMain::ShowImage);
  connect(picFondo_, &view::Viewport::Resized, this, [this](QSize size) { document_.SetQuickPictureBox(size); });
  connect(&document_, &Document::StandInShown, this, [this](const imaging::Image& picture, base::NaturalSize natural) {
    picFondo_->ShowStandIn(picture, natural, state_.Settings.FitToWindow);
    if (!isVisible()) {  // a large image opened at start-up: the window shows with it
      ArrangePanes();
      show();
    }
  });
  connect(&document_, &Document::ImageEdited, this, &frmMain::ShowEditedImage);
  connect(&document_, &Document::OpenFailed, picFondo_, &view::Viewport::ShowMessage);
  connect(&document_, &Document::StatusChanged, this, &frmMain::RefreshStatusBar);
  connect(&document_, &Document::ListRowSelected, this, &frmMain::SelectListRow);
  connect(&document_, &Document::ListFilled, this, [this] {
    FitListColumn();
    if (document_.View() == document::ViewMode::Thumbnails) ShowThumbnails();
  });
  connect(&document_, &Document::LayoutChanged, this, &frmMain::LayOut);
  connect(&document_, &Document::NeighboursAnnounced, this, [this](const QStringList& paths) {
    picFondo_->repaint();  // the new image first; then the worker may take the cores
    if (const auto& shown = document_.CurrentImage()) prefetcher_.Warm(*shown);
    prefetcher_.Prefetch(paths);
  });
}

// The Thumbnails view: a click (or a key that moves the current tile) opens the entry as a
// click in the list does, a double-click or Enter opens it full screen, the right button
// the list's menu for the tile under the pointer.
void frmMain::ConnectThumbnails() {
  using browse::ThumbnailsView;
  connect(picFondoThumbnails_, &ThumbnailsView::EntryClicked, this, [this](int row) {
    SelectListRow(row);
    document_.ClickEntry(row);
    commands_.Refresh();
    if (document_.ShownRow() != row && document_.ShownRow() >= 0) SelectListRow(document_.ShownRow());
  });
  connect(picFondoThumbnails_, &ThumbnailsView::EntryDoubleClicked, this, [this](int row) {
    SelectListRow(row);
    document_.ClickEntry(row);
    RunFullScreen(true);
  });
  connect(picFondoThumbnails_, &ThumbnailsView::ContextMenuRequested, this,
          [this](const QPoint& at) { mnuList_->popup(at); });
}

// The page that holds the entry shown, in the thumbnails colour.
void frmMain::ShowThumbnails() {
  picFondoThumbnails_->SetFolder(document_.Open().Folder);
  picFondoThumbnails_->SetBackground(base::ColorFromBgr(state_.Settings.ColorThumbnails));
  picFondoThumbnails_->ShowPage(browse::PageOfRow(document_.ShownRow()));
  picFondoThumbnails_->SetCurrentRow(document_.ShownRow());
  picFondoThumbnails_->setFocus();
}

void frmMain::ShowImage(const imaging::Image* image) {
  picFondo_->SetImage(image ? std::optional<imaging::Image>(*image) : std::nullopt, document_.Natural(),
                      state_.Settings.FitToWindow);
  if (const QString path = document_.CurrentFilePath(); image && imaging::IsScalableDrawing(path)) {
    picFondo_->SetRedraw([path](double scale, const QRect& area) { return imaging::DrawnArea(path, scale, area); });
  }
  PlayAnimationShown();
}

// "photo.jpg - Vistrel", with a "*" after the name while the image differs from its file.
void frmMain::RefreshTitle() {
  const QString name = !document_.CurrentImage() ? QString() : document_.IsPasted() ? document::PastedName() : base::DisplayName(document_.CurrentFilePath());
  if (name.isEmpty()) return setWindowTitle(QStringLiteral("Vistrel"));
  setWindowTitle(name + (document_.IsChanged() ? QStringLiteral("*") : QString()) + QStringLiteral(" - Vistrel"));
}

void frmMain::RefreshStatusBar(const QString& message) {
  document::StatusFacts facts;
  facts.Message = message;
  const auto& image = document_.CurrentImage();
  if (image) {
    const QString path = document_.CurrentFilePath();
    facts.DisplayName = base::DisplayName(path);
    facts.Row = document_.ShownRow();
    facts.Count = list_.Count();
    facts.Width = image->Width();
    facts.Height = image->Height();
    facts.Percentage = picFondo_->Percentage();
    facts.Page = document_.Page();
    facts.Pages = document_.PageCount();
    if (player_.Active()) {
      facts.Frames = player_.Frames();
      facts.Frame = player_.Current().Index;
    }
    if (const qint64 bytes = base::FileSizeOf(path); bytes >= 0) facts.FileBytes = bytes;
  }
  RefreshTitle();
  const document::StatusTexts texts = document::ComposeStatus(facts);
  const QString* panes[] = {&texts.Name, &texts.Position, &texts.Page, &texts.Size, &texts.Zoom, &texts.FileSize};
  for (size_t i = 0; i < statusPanes_.size(); ++i) {
    statusPanes_[i]->setText(*panes[i]);
    statusPanes_[i]->setVisible(!panes[i]->isEmpty());
  }
  ShowPageOrFrameButtons(!texts.Page.isEmpty());
}

}  // namespace app
