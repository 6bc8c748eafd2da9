// Every command of the main window, declared once; then the menus, the list's context
// menu `mnuList` and the toolbar `ctlToolbar`, built from the table by name. A command
// declared without a handler is shown and stays disabled: it is not available yet.
#include "app/frmMain.h"
#include "app/frmAbout.h"
#include "widgets/Help.h"

#include "browse/frmAbrirCarpeta.h"
#include "edit/Catalogue.h"
#include "view/Viewport.h"

#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <QToolButton>
#include <QTreeView>

namespace app {

namespace {

using document::ViewMode;

}  // namespace

void frmMain::DeclareCommands() {
  DeclareFileCommands();
  DeclareEditCommands();
  DeclareViewCommands();
  DeclareAnimationCommands();
  DeclareImageCommands();
  DeclareToolsAndHelpCommands();
}

void frmMain::DeclareFileCommands() {
  CommandTable& t = commands_;
  t.Declare({"mnuFileOpenFolder", tr("Open &Folder..."), Qt::CTRL | Qt::SHIFT | Qt::Key_O, "folder-open", tr("Open Folder")},
            {[this] { RunOpenFolder(); }});
  t.Declare({"mnuFileOpenFile", tr("&Open File..."), Qt::CTRL | Qt::Key_O, "document-open", tr("Open")}, {[this] { RunOpenFile(); }});
  t.Declare({"mnuFileClose", tr("&Close"), Qt::CTRL | Qt::Key_W},
            {[this] {
               if (document_.ConfirmSaveChanges()) document_.CloseFile();
             },
             [this] { return document_.SomethingOpen(); }});
  t.Declare({"mnuFileSave", tr("&Save"), Qt::CTRL | Qt::Key_S, "document-save", tr("Save")},
            {[this] { RunSave(); }, [this] { return CanSave(); }});
  t.Declare({"mnuFileSaveAs", tr("Save &As..."), Qt::CTRL | Qt::SHIFT | Qt::Key_S}, {[this] { RunSaveAs(); }, [this] { return CanSaveAs(); }});
  t.Declare({"mnuFileCopyTo", tr("Cop&y To...")}, {[this] { RunCopyOrMove(false); }, [this] { return !CommandFile().isEmpty(); }});
  t.Declare({"mnuFileMoveTo", tr("&Move To...")}, {[this] { RunCopyOrMove(true); }, [this] { return !CommandFile().isEmpty(); }});
  // F2 in the list edits the name in place; the command asks in its dialog, in every view.
  t.Declare({"mnuFileRename", tr("Re&name"), Qt::Key_F2}, {[this] {
                                                   if (lisLista_->hasFocus()) {
                                                     RenameCurrentEntry();
                                                   } else {
                                                     RunRename();
                                                   }
                                                 },
                                                 [this] { return !CommandFile().isEmpty(); }});
  t.Declare({"mnuFileDelete", tr("&Delete"), Qt::Key_Delete},
            {[this] { RunDelete(); }, [this] { return !CommandFile().isEmpty(); }});
  t.Declare({"mnuFileProperties", tr("Prop&erties..."), Qt::ALT | Qt::Key_Return},
            {[this] { RunProperties(); }, [this] { return !CommandFile().isEmpty(); }});
  t.Declare({"mnuFilePrint", tr("&Print..."), Qt::CTRL | Qt::Key_P, "document-print", tr("Print")},
            {[this] { RunPrint(); }, [this] { return document_.CanEdit(); }});
  t.Declare({"mnuFileExit", tr("E&xit"), Qt::CTRL | Qt::Key_Q}, {[this] { close(); }});
  t.Declare({"mnuListFullScreen", tr("&Full Screen")}, {[this] { RunFullScreen(false); }, [this] { return CanZoom(); }});
  t.Declare({"mnuListSetWallpaper", tr("&Set Wallpaper")}, {[this] { RunSetWallpaper(); }, [this] { return CanSetWallpaper(); }});
  t.Declare({"mnuListProperties", tr("Pr&operties...")}, {[this] { RunProperties(); }, [this] { return !CommandFile().isEmpty(); }});
}

void frmMain::DeclareEditCommands() {
  CommandTable& t = commands_;
  const document::Document::History& history = document_.UndoHistory();
  t.Declare({"mnuEditUndo", tr("&Undo"), Qt::CTRL | Qt::Key_Z, "edit-undo", tr("Undo")},
            {[this] { document_.Undo(); }, [this] { return document_.CanEdit() && document_.UndoHistory().CanUndo(); },
             {}, [&history] { return history.UndoCaption(); }, [&history] { return history.UndoTooltip(); }});
  t.Declare({"mnuEditRedo", tr("&Redo"), Qt::CTRL | Qt::Key_Y, "edit-redo", tr("Redo"), Qt::CTRL | Qt::SHIFT | Qt::Key_Z},
            {[this] { document_.Redo(); }, [this] { return document_.CanEdit() && document_.UndoHistory().CanRedo(); },
             {}, [&history] { return history.RedoCaption(); }, [&history] { return history.RedoTooltip(); }});
  t.Declare({"mnuEditCopy", tr("&Copy"), Qt::CTRL | Qt::Key_C}, {[this] { CopyToClipboard(); }, [this] { return document_.CanEdit(); }});
  t.Declare({"mnuEditPaste", tr("P&aste"), Qt::CTRL | Qt::Key_V}, {[this] { Paste(); }, [this] { return document_.View() != ViewMode::Thumbnails; }});
  t.Declare({"mnuEditCopyPath", tr("Copy &Path"), Qt::CTRL | Qt::SHIFT | Qt::Key_C},
            {[this] { CopyPath(); }, [this] { return !document_.CurrentFilePath().isEmpty(); }});
  t.Declare({"mnuEditSelectNone", tr("Select &None"), Qt::Key_Escape}, {[this] { picFondo_->SelectNone(); }, [this] { return CanZoom(); }});
}

void frmMain::DeclareViewCommands() {
  CommandTable& t = commands_;
  const auto viewMode = [this](ViewMode mode) -> CommandRules {
    return {[this, mode] { document_.SetViewMode(mode); }, {}, [this, mode] { return document_.View() == mode; }};
  };
  t.Declare({"mnuViewImage", tr("&Image", "the view mode")}, viewMode(ViewMode::Image));
  t.Declare({"mnuViewListAndImage", tr("&List and Image")}, viewMode(ViewMode::ListAndImage));
  t.Declare({"mnuViewThumbnails", tr("&Thumbnails")},
            {[this] {
               document_.SetViewMode(ViewMode::Thumbnails);
               ShowThumbnails();
             },
             [this] { return document_.FolderOpen(); },
             [this] { return document_.View() == ViewMode::Thumbnails; }});
  // The toolbar's View button: a click swaps Image and List and Image; its arrow drops the modes.
  t.Declare({"mnuViewBoton", tr("View"), {}, "view-list-icons", tr("View")}, {[this] {
              document_.SetViewMode(document_.View() == ViewMode::Image ? ViewMode::ListAndImage : ViewMode::Image);
            }});
  const auto zoom = [this](std::function<void()> run) -> CommandRules { return {std::move(run), [this] { return CanZoom(); }}; };
  t.Declare({"mnuViewOriginalSize", tr("&Original Size"), Qt::CTRL | Qt::Key_0}, zoom([this] { ZoomTo(100, view::Pending::None); }));
  t.Declare({"mnuViewFit", tr("&Fit"), Qt::CTRL | Qt::Key_F, "zoom-fit-best", tr("Fit")},
            zoom([this] { ZoomTo(picFondo_->FitPercentage(), view::Pending::None); }));
  CommandRules alwaysFit = zoom([this] { ToggleAlwaysFit(); });
  alwaysFit.Checked = [this] { return state_.Settings.FitToWindow; };
  t.Declare({"mnuViewAlwaysFit", tr("&Always Fit")}, alwaysFit);
  t.Declare({"mnuViewZoomIn", tr("Zoom I&n"), Qt::Key_Plus, "zoom-in", tr("Zoom In"), Qt::CTRL | Qt::Key_Equal}, zoom([this] { StepZoom(+1); }));
  t.Declare({"mnuViewZoomOut", tr("Zoom O&ut"), Qt::Key_Minus, "zoom-out", tr("Zoom Out"), Qt::CTRL | Qt::Key_Minus}, zoom([this] { StepZoom(-1); }));
  t.Declare({"mnuViewZoom", tr("&Zoom..."), Qt::CTRL | Qt::Key_M}, zoom([this] { RunZoomDialog(); }));
  t.Declare({"mnuViewZoomToSelection", tr("Zoom to Sele&ction")}, zoom([this] { RunZoomToSelection(); }));
  t.Declare({"mnuViewFullScreen", tr("Full Scr&een"), Qt::Key_F11, "view-fullscreen", tr("Full Screen")},
            zoom([this] { RunFullScreen(false); }));
  // The list's order, remembered: by name (the list's own), date taken, last change, size or type.
  const char* const orders[][2] = {{"mnuViewSortName", QT_TR_NOOP("&Name")}, {"mnuViewSortDateTaken", QT_TR_NOOP("Date &Taken")},
                                   {"mnuViewSortModified", QT_TR_NOOP("Date &Modified")}, {"mnuViewSortSize", QT_TR_NOOP("&Size")},
                                   {"mnuViewSortType", QT_TR_NOOP("T&ype")}};
  for (int order = 0; order < int(std::size(orders)); ++order) {
    t.Declare({orders[order][0], tr(orders[order][1])}, {[this, order] { SortListBy(order, state_.Settings.SortDescending); },
                                                     [this] { return document_.SomethingOpen(); },
                                                     [this, order] { return state_.Settings.SortOrder == order; }});
  }
  t.Declare({"mnuViewSortDescending", tr("&Descending")}, {[this] { SortListBy(state_.Settings.SortOrder, !state_.Settings.SortDescending); },
                                                      [this] { return document_.SomethingOpen(); },
                                                      [this] { return bool(state_.Settings.SortDescending); }});
  // Pages turn on Ctrl with Page Down and Page Up: the keys alone step through the folder.
  t.Declare({"mnuViewNextPage", tr("Next Pa&ge"), Qt::CTRL | Qt::Key_PageDown, "go-next", tr("Next Page")},
            {[this] { document_.TurnPage(+1); }, [this] { return document_.CanTurnPage(+1); }});
  t.Declare({"mnuViewPreviousPage", tr("Pre&vious Page"), Qt::CTRL | Qt::Key_PageUp, "go-previous", tr("Previous Page")},
            {[this] { document_.TurnPage(-1); }, [this] { return document_.CanTurnPage(-1); }});
  t.Declare({"mnuViewToolbar", tr("Tool&bar")}, {[this] {
                                               state_.Settings.ShowToolbar = !state_.Settings.ShowToolbar;
                                               LayOut();
                                             },
                                             {},
                                             [this] { return state_.Settings.ShowToolbar; }});
  t.Declare({"mnuViewStatusBar", tr("Status ba&r")}, {[this] {
                                                    state_.Settings.ShowStatusBar = !state_.Settings.ShowStatusBar;
                                                    LayOut();
                                                  },
                                                  {},
                                                  [this] { return state_.Settings.ShowStatusBar; }});
}

// The quick turns and flips have keys and buttons, as in other viewers: Ctrl+R and Ctrl+L
// turn, Ctrl+Shift+H and Ctrl+Shift+V flip.
void frmMain::DeclareImageCommands() {
  struct Quick {
    const char* Name;
    QKeyCombination Key;
    const char* Icon;
  };
  static const Quick kQuick[] = {{"mnuImageRotateLeft", Qt::CTRL | Qt::Key_L, "object-rotate-left"},
                                 {"mnuImageRotateRight", Qt::CTRL | Qt::Key_R, "object-rotate-right"},
                                 {"mnuImageFlipHorizontal", Qt::CTRL | Qt::SHIFT | Qt::Key_H, "object-flip-horizontal"},
                                 {"mnuImageFlipVertical", Qt::CTRL | Qt::SHIFT | Qt::Key_V, "object-flip-vertical"}};
  for (const edit::CatalogueCommand& operation : edit::Catalogue()) {
    Command command{operation.Command, operation.Menu()};
    for (const Quick& quick : kQuick) {
      if (qstrcmp(quick.Name, operation.Command) == 0) command = {operation.Command, operation.Menu(), quick.Key, quick.Icon, operation.Undo()};
    }
    commands_.Declare(command, {[this, &operation] { RunCatalogueCommand(operation); }, [this] { return CanRunImageCommand(); }});
  }
}

void frmMain::DeclareToolsAndHelpCommands() {
  CommandTable& t = commands_;
  t.Declare({"mnuToolsSlideShow", tr("&Slide Show..."), {}, "media-playback-start", tr("Slide Show")}, {[this] { RunSlideShow(); }});
  t.Declare({"mnuToolsBatchConvert", tr("&Batch Convert...")}, {[this] { RunBatchConvert(); }, [this] { return document_.SomethingOpen(); }});
  t.Declare({"mnuToolsSetWallpaper", tr("Se&t Wallpaper")}, {[this] { RunSetWallpaper(); }, [this] { return CanSetWallpaper(); }});
  t.Declare({"mnuToolsRemoveWallpaper", tr("&Remove Wallpaper")}, {[this] { RunRemoveWallpaper(); }});
  t.Declare({"mnuToolsTiposArchivo", tr("&Associate File Types with Vistrel...")}, {[this] { RunFileTypes(); }});
  t.Declare({"mnuToolsBorrarListaReciente", tr("&Clear List of Recent Folders")},
            {[this] { browse::ConfirmAndClearRecentFolders(this, state_.Settings); }});
  t.Declare({"mnuToolsOptions", tr("&Options...")}, {[this] { RunOptions(); }});
  t.Declare({"mnuHelpContents", tr("&Contents"), Qt::Key_F1}, {[] { widgets::ShowHelpTopic({}); }});
  t.Declare({"mnuHelpAbout", tr("&About Vistrel")}, {[this] {
              frmAbout about(this);
              about.exec();
            }});
}

void frmMain::BuildMenus() {
  commands_.DeclareSubmenu("mnuViewSortBy", tr("&Sort By"));
  commands_.DeclareSubmenu("mnuColorsColorDepth", tr("Color &Depth"));
  commands_.DeclareSubmenu("mnuImageFilters", tr("&Filters"));
  const auto menu = [this](const char* name, const QString& caption, const std::vector<const char*>& layout) {
    QMenu* added = menuBar()->addMenu(caption);
    added->setObjectName(QLatin1String(name));
    commands_.FillMenu(*added, layout);
  };
  menu("mnuFile", tr("&File"),
       {"mnuFileOpenFolder", "mnuFileOpenFile", "mnuFileClose", "-", "mnuFileSave", "mnuFileSaveAs", "-",
        "mnuFileCopyTo", "mnuFileMoveTo", "mnuFileRename", "mnuFileDelete", "-", "mnuFileProperties", "-",
        "mnuFilePrint", "-", "mnuFileExit"});
  menu("mnuEdit", tr("&Edit"), {"mnuEditUndo", "mnuEditRedo", "-", "mnuEditCopy", "mnuEditPaste", "mnuEditCopyPath", "-", "mnuEditSelectNone"});
  menu("mnuView", tr("&View"),
       {"mnuViewImage", "mnuViewListAndImage", "mnuViewThumbnails", "-", "mnuViewOriginalSize", "mnuViewFit",
        "mnuViewAlwaysFit", "mnuViewZoomIn", "mnuViewZoomOut", "mnuViewZoom", "mnuViewZoomToSelection", "-",
        "@mnuViewSortBy", "mnuViewSortName", "mnuViewSortDateTaken", "mnuViewSortModified", "mnuViewSortSize",
        "mnuViewSortType", "-", "mnuViewSortDescending", "@", "-",
        "mnuViewFullScreen", "-", "mnuViewPreviousPage", "mnuViewNextPage", "-", "mnuViewPlayAnimation",
        "mnuViewPreviousFrame", "mnuViewNextFrame", "-", "mnuViewToolbar", "mnuViewStatusBar"});
  menu("mnuColors", tr("&Colors"),
       {"mnuColorsBrightness", "mnuColorsContrast", "mnuColorsGamma", "mnuColorsHSL", "mnuColorsRGB",
        "mnuColorsSolarize", "mnuColorsEqualize", "mnuColorsNegative", "mnuColorsGrayScale",
        "@mnuColorsColorDepth", "mnuColorsColorDepth1Bit", "mnuColorsColorDepth4Bits",
        "mnuColorsColorDepth8Bits", "mnuColorsColorDepth24Bits", "@", "mnuColorsConcaveParabolic",
        "mnuColorsConvexParabolic", "mnuColorsRedEye"});
  menu("mnuImage", tr("&Image", "the menu"),
       {"@mnuImageFilters", "mnuImageFiltersBlend", "mnuImageFiltersBlur", "mnuImageFiltersDiffuse",
        "mnuImageFiltersDilate", "mnuImageFiltersErode", "mnuImageFiltersMedian", "mnuImageFiltersMosaic",
        "mnuImageFiltersMotionBlur", "mnuImageFiltersNoise", "mnuImageFiltersSharpen", "mnuImageFiltersSoften", "@",
        "-", "mnuImageRotateLeft", "mnuImageRotateRight", "mnuImageFlipHorizontal", "mnuImageFlipVertical",
        "-", "mnuImageFlip", "mnuImageMirror", "mnuImageRotate", "mnuImageResize", "mnuImageCrop",
        "mnuImagePerspective", "mnuImagePinch", "mnuImageRipple", "mnuImageSwirl"});
  menu("mnuTools", tr("&Tools"),
       {"mnuToolsSlideShow", "mnuToolsBatchConvert", "mnuToolsSetWallpaper", "mnuToolsRemoveWallpaper", "-", "mnuToolsTiposArchivo",
        "mnuToolsBorrarListaReciente", "-", "mnuToolsOptions"});
  menu("mnuHelp", tr("&Help"), {"mnuHelpContents", "-", "mnuHelpAbout"});

  mnuList_ = new QMenu(this);
  mnuList_->setObjectName(QStringLiteral("mnuList"));
  commands_.FillMenu(*mnuList_,
                     {"mnuListFullScreen", "mnuFileRename", "mnuListSetWallpaper", "-", "mnuListProperties"});
  connect(mnuList_, &QMenu::aboutToShow, this, [this] { commands_.Refresh(); });
}

void frmMain::BuildToolbar() {
  ctlToolbar_->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
  ctlToolbar_->setIconSize(QSize(24, 24));
  QAction* viewButton = commands_.Get(QStringLiteral("mnuViewBoton"));
  auto* popup = new QMenu(this);
  popup->setObjectName(QStringLiteral("frmMenuBotonView"));
  commands_.FillMenu(*popup, {"mnuViewImage", "mnuViewListAndImage", "mnuViewThumbnails"});
  viewButton->setMenu(popup);
  commands_.FillToolbar(*ctlToolbar_, {"mnuFileOpenFolder", "mnuFileOpenFile", "mnuFileSave", nullptr, "mnuEditUndo",
                                       "mnuEditRedo", nullptr, "mnuImageRotateLeft", "mnuImageRotateRight",
                                       "mnuImageFlipHorizontal", "mnuImageFlipVertical", nullptr, "mnuViewZoomIn", "mnuViewZoomOut", "mnuViewFit",
                                       "mnuViewBoton", "mnuViewFullScreen", nullptr, "mnuToolsSlideShow"});
  if (auto* button = qobject_cast<QToolButton*>(ctlToolbar_->widgetForAction(viewButton))) {
    button->setPopupMode(QToolButton::MenuButtonPopup);
  }
  ShowPageOrFrameButtons(false);
}

}  // namespace app
