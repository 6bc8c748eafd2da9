#pragma once
// `frmMain`: the main window. It owns the shared state, the file list, the document and
// the command table, builds its widgets, and turns the document's signals into what the
// widgets show. Each of its files holds one part:
//   frmMain.cpp                 construction, start-up, placement and closing, layout
//   frmMainWidgets.cpp          the widgets, the status bar panes and the document's signals
//   frmMainCommandTable.cpp     every command declared once, the menus and the toolbar
//   frmMainFileCommands.cpp     Open Folder, Open File, Save, Save As, the file commands
//                               (Copy To, Move To, Rename, Delete, Properties), the document's
//                               prompts and Print
//   frmMainToolsCommands.cpp    Options, file types, the slide show and the wallpaper
//   frmMainViewCommands.cpp     view modes, zoom and selection
//   frmMainAnimation.cpp        playing animations: the player, its commands and status
//   frmMainImageCommands.cpp    the editing operations (from edit::Catalogue) and Copy
//   frmMainList.cpp             the file list `lisLista` and its context menu
//   frmOptions.cpp              the Options dialog

#include "app/CommandTable.h"
#include "app/ScreenColourTracker.h"
#include "browse/FileListModel.h"
#include "browse/ListBadges.h"
#include "document/AppState.h"
#include "document/Document.h"
#include "widgets/BusyPointer.h"
#include "edit/Catalogue.h"
#include "files/Prefetcher.h"
#include "files/frmSaveOptions.h"
#include "settings/SettingsFile.h"
#include "print/frmImprimir.h"
#include "shell/DesktopWallpaper.h"
#include "shell/frmTiposArchivo.h"
#include "slideshow/frmSlideShow.h"
#include "slideshow/frmSlideShow2.h"
#include "shell/Wallpaper.h"
#include "view/AnimationPlayer.h"
#include "view/Placing.h"
#include "widgets/FileChooser.h"
#include "app/frmOptions.h"

#include <QMainWindow>

#include <array>
#include <deque>

class QLabel;
class QProgressBar;
class QMimeData;
class QToolButton;
class QMenu;
class QSplitter;
class QStackedWidget;
class QToolBar;
class QTreeView;

namespace view {
class Viewport;
class frmFull;
}

namespace edit {
class frmDiseno;
}

namespace browse {
class ThumbnailsView;
struct DroppedOpen;
}

namespace app {

// Shows the parameter dialog modally: true for OK.
bool RunParameterDialog(edit::frmDiseno& dialog);
// Shows the full-screen view modally over the whole screen.
void RunFullScreenView(view::frmFull& full);
// Shows the Open Folder dialog modally: the chosen folder, empty when closed.
QString RunOpenFolderDialog(QWidget* parent, settings::SettingsStore& settings, const QString& startFolder);

class frmMain : public QMainWindow, private document::DocumentPrompts {
  Q_OBJECT

 public:
  explicit frmMain(QString settingsPath, QWidget* parent = nullptr);

  // The start-up sequence with the program's command line; shows the window.
  void RunStartup(const QString& commandLine);

  document::AppState& State() { return state_; }
  document::Document& CurrentDocument() { return document_; }
  browse::FileListModel& ListModel() { return list_; }
  view::Viewport& ImageView() { return *picFondo_; }
  view::AnimationPlayer& Player() { return player_; }
  files::Prefetcher& Prefetcher() { return prefetcher_; }

  // Tests answer the open and save dialogs through this.
  void SetFileChooser(widgets::FileChooser chooser) { chooseFile_ = std::move(chooser); }
  void SetSaveOptionsAsker(files::SaveOptionsAsker asker) { askSaveOptions_ = std::move(asker); }
  // ... the Open Folder dialog through this: the chosen folder, empty when closed ...
  using FolderChooser = std::function<QString(QWidget* parent, settings::SettingsStore& settings, const QString& startFolder)>;
  void SetFolderChooser(FolderChooser chooser) { chooseFolder_ = std::move(chooser); }
  // ... the full-screen view through this ...
  using FullScreenRunner = std::function<void(view::frmFull& full)>;
  void SetFullScreenRunner(FullScreenRunner runner) { runFullScreen_ = std::move(runner); }
  // ... the slide show's setup dialog and its player through these ...
  using SlideShowRunner = std::function<void(slideshow::frmSlideShow& setup)>;
  void SetSlideShowRunner(SlideShowRunner runner) { runSlideShow_ = std::move(runner); }
  using PlayerRunner = std::function<void(slideshow::frmSlideShow2& player)>;
  void SetPlayerRunner(PlayerRunner runner) { runPlayer_ = std::move(runner); }
  // ... Options and its colour dialog through these ...
  using OptionsRunner = std::function<int(app::frmOptions& options)>;
  void SetOptionsRunner(OptionsRunner runner) { runOptions_ = std::move(runner); }
  void SetColourChooser(app::ColourChooser chooser) { chooseColour_ = std::move(chooser); }
  // ... the print dialog through this ...
  using PrintDialogRunner = std::function<int(print::frmImprimir& dialog)>;
  void SetPrintDialogRunner(PrintDialogRunner runner) { runPrintDialog_ = std::move(runner); }
  // ... the file types dialog through this ...
  using FileTypesRunner = std::function<int(shell::frmTiposArchivo& dialog)>;
  void SetFileTypesRunner(FileTypesRunner runner) { runFileTypes_ = std::move(runner); }
  // ... the desktop's wallpaper through this ...
  void SetWallpaperSetter(shell::WallpaperSetter setter) { setWallpaper_ = std::move(setter); }
  // ... and the parameter dialog through this: true for OK, false for Cancel.
  using ParameterDialogRunner = std::function<bool(edit::frmDiseno& dialog)>;
  void SetParameterDialogRunner(ParameterDialogRunner runner) { runParameterDialog_ = std::move(runner); }
  // ... and the operations through this, on a worker thread.
  using EditRunner = std::function<edit::Applied(const edit::CatalogueCommand&, const imaging::Image&, const edit::Arguments&)>;
  void SetEditRunner(EditRunner runner) { runEdit_ = std::move(runner); }

 protected:
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void changeEvent(QEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  // frmMain.cpp
  document::StartupEnd StartUp(const QString& commandLine);
  void RefreshScreenMetrics();
  void PlaceWindow();
  settings::WindowPlacement CurrentPlacement() const;
  void RememberNormalRectangle();
  void LayOut();
  void ArrangePanes();
  void OnSplitterMoved();

  // frmMainWidgets.cpp
  void BuildWidgets();
  void BuildStatusBar();
  void ConnectDocument();
  void ConnectThumbnails();
  void ShowThumbnails();
  void ShowImage(const imaging::Image* image);
  void RefreshStatusBar(const QString& message);
  void RefreshTitle();

  // frmMainCommandTable.cpp
  void DeclareCommands();
  void DeclareFileCommands();
  void DeclareEditCommands();
  void DeclareViewCommands();
  void DeclareImageCommands();
  void DeclareToolsAndHelpCommands();
  void BuildMenus();
  void BuildToolbar();

  // frmMainFileCommands.cpp
  QString CommandFile(int* row = nullptr) const;
  void RunDelete();
  void RunRename();
  void RunCopyOrMove(bool move);
  void RunProperties();
  bool TryRename(const QString& file, int row, const QString& name);
  bool CanSave() const;
  bool CanSaveAs() const;
  bool RunOpenFolder();

  // frmMainToolsCommands.cpp
  void RunOptions();
  void RunFileTypes();
  void RunBatchConvert();
  void RunSlideShow();
  void PlaySlideShow(const slideshow::PlayerSettings& settings, QWidget* setup);
  bool CanSetWallpaper() const;
  void RunSetWallpaper();
  void RunRemoveWallpaper();
  void RunOpenFile();
  bool RunSave();
  void RunPrint();
  bool RunSaveAs();
  bool ConfirmReplace(const QString& path, const QString& title);
  void ShowCantSave(const QString& path, const QString& title);
  bool SaveUnderBusyPointer(const QString& target);
  int AskAboutWhatSavingDrops(const QString& path);
  static void ShowWarning(QWidget* parent, const QString& title, const QString& text, const QString& detail);
  void ShowExclamation(const QString& text, const QString& detail = {}) override;
  document::SaveChangesAnswer AskSaveChanges(const QString& question) override;
  bool AskToReload(const QString& question) override;
  bool SaveForPrompt() override;
  void BeginBusy() override;
  void EndBusy() override;
  bool WaitFor(const QFuture<void>& work, std::atomic_bool& cancel) override;

  // frmMainViewCommands.cpp
  bool CanZoom() const;
  void ZoomTo(int percentage, view::Pending pending);
  void StepZoom(int direction);
  void ToggleAlwaysFit();
  void RunZoomDialog();
  void RunZoomToSelection();
  void ConnectViewport();
  void RunFullScreen(bool byDoubleClick);
  void SortListBy(int order, bool descending);

  // frmMainAnimation.cpp
  void DeclareAnimationCommands();
  void ConnectAnimation();
  bool CanPlay() const;
  void TogglePlaying();
  void PlayAnimationShown();
  void SettleImage();
  void PlayInFullScreen(view::frmFull& full);
  void ShowPageOrFrameButtons(bool visible);

  // frmMainImageCommands.cpp
  bool CanRunImageCommand() const;
  QRect SelectionPixels() const;
  void RunCatalogueCommand(const edit::CatalogueCommand& command);
  std::optional<edit::Arguments> AskParameters(const edit::CatalogueCommand& command);
  std::optional<edit::Applied> ApplyOnWorker(const edit::CatalogueCommand& command, const edit::Arguments& arguments);
  void ShowEditedImage(const imaging::Image& image, bool removeSelection);
  static QImage InterimFrame(const edit::CatalogueCommand& command, const QImage& shown, const edit::Arguments& arguments);

  // frmMainExchange.cpp
  void OpenDropped(const browse::DroppedOpen& dropped);
  void Paste();
  void CopyToClipboard();
  void DragPictureOut();
  QMimeData* PictureToHandOut();  // the picture or its selection, and the file when unedited
  void CopyPath();

  // frmMainList.cpp
  void BuildListView();
  void OnListRowActivated(int row);
  void SelectListRow(int row);
  void FitListColumn();
  void RenameCurrentEntry();

  QString settingsPath_;
  document::AppState state_;
  browse::FileListModel list_;
  files::Prefetcher prefetcher_;
  std::deque<widgets::BusyPointerGuard> documentBusy_;  // the document's busy scopes, innermost last
  QImage interimFrame_;  // while an edit is recorded: the frame to show until the exact one is made
  document::Document document_;
  CommandTable commands_;
  view::AnimationPlayer player_;
  ScreenColourTracker screenColour_;
  QTreeView* lisLista_ = nullptr;
  browse::ListBadges listBadges_;
  QSplitter* splitter_ = nullptr;
  view::Viewport* picFondo_ = nullptr;
  browse::ThumbnailsView* picFondoThumbnails_ = nullptr;
  QStackedWidget* imagePanels_ = nullptr;  // picFondo, or the thumbnails in the Thumbnails view
  QToolBar* ctlToolbar_ = nullptr;
  // picEstado's panes: name (or a message), position, size, zoom, file size
  std::array<QLabel*, 6> statusPanes_{};
  // Beside "page 2/5" or "frame 3/12": previous and next page or frame, and pause.
  std::array<QToolButton*, 3> pageButtons_{};
  QProgressBar* editProgress_ = nullptr;  // shown while an edit takes its time
  QMenu* mnuList_ = nullptr;
  widgets::FileChooser chooseFile_ = widgets::ShowFileDialog;
  files::SaveOptionsAsker askSaveOptions_ = files::AskSaveOptions;
  FolderChooser chooseFolder_ = RunOpenFolderDialog;
  ParameterDialogRunner runParameterDialog_ = RunParameterDialog;
  EditRunner runEdit_ = edit::TryApply;
  FullScreenRunner runFullScreen_ = RunFullScreenView;
  shell::WallpaperSetter setWallpaper_ = shell::SetDesktopWallpaper;
  app::ColourChooser chooseColour_ = ChooseColourWithDialog;
  FileTypesRunner runFileTypes_ = [](shell::frmTiposArchivo& dialog) { return dialog.exec(); };
  PrintDialogRunner runPrintDialog_ = [](print::frmImprimir& dialog) { return dialog.exec(); };
  OptionsRunner runOptions_ = [](app::frmOptions& options) { return options.exec(); };
  SlideShowRunner runSlideShow_ = [](slideshow::frmSlideShow& setup) { setup.exec(); };
  PlayerRunner runPlayer_ = [](slideshow::frmSlideShow2& player) {
    player.showFullScreen();
    player.exec();
  };
  QRect normalRect_;  // the restored rectangle, kept while maximized
  bool screenWatched_ = false;
};

}  // namespace app
