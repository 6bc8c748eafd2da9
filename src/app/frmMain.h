#pragma once
// `frmMain`: the start-up object and main window (Part 1.1). It owns the application
// state, the file list and the session, lays them out and turns user actions into calls.

#include "app/AppState.h"
#include "app/CommandRegistry.h"
#include "app/FileChooser.h"
#include "app/Session.h"
#include "app/SettingsFile.h"
#include "browse/FileListModel.h"
#include "edit/Catalogue.h"
#include "files/Prefetcher.h"

#include <QMainWindow>

#include <array>

class QLabel;
class QMenu;
class QSplitter;
class QToolBar;
class QTreeView;

namespace view {
class Viewport;
}

namespace edit {
class frmDiseno;
}

namespace app {

// Shows the parameter dialog modally: true for OK.
bool RunParameterDialog(edit::frmDiseno& dialog);

class frmMain : public QMainWindow, public SessionView {
  Q_OBJECT

 public:
  explicit frmMain(QString settingsPath, QWidget* parent = nullptr);

  // The load sequence of Part 1.1 with the program's command line; shows the window.
  void RunStartup(const QString& commandLine);

  AppState& State() { return state_; }
  Session& CurrentSession() { return session_; }
  browse::FileListModel& ListModel() { return list_; }
  const CommandRegistry& Commands() const { return commands_; }
  view::Viewport& ImageView() { return *picFondo_; }
  files::Prefetcher& Prefetcher() { return prefetcher_; }

  // SessionView
  void ShowExclamation(const QString& text) override;
  bool ConfirmSaveChanges() override;
  void LayOut() override;
  void ApplyViewChecks() override;
  void RefreshStatusBar(const QString& text) override;
  void SelectListRow(int row) override;
  void FitListColumn() override;
  void ShowImage(const imaging::Image* image) override;
  void RunOpenFolderCommand() override;
  void ShowEditedImage(const imaging::Image& image, bool removeSelection) override;
  void UpdateUndoCaptions() override;

  // Tests answer the open and save dialogs through this.
  void SetFileChooser(FileChooser chooser) { chooseFile_ = std::move(chooser); }
  // ... and the parameter dialog through this: true for OK, false for Cancel.
  using ParameterDialogRunner = std::function<bool(edit::frmDiseno& dialog)>;
  void SetParameterDialogRunner(ParameterDialogRunner runner) { runParameterDialog_ = std::move(runner); }

 protected:
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void BuildWidgets();
  void BuildCommands();
  void BuildViewCommands();
  void BuildMenuBarMenus();
  void BuildFileCommands();
  void BuildEditCommands();
  bool CanSave() const;
  bool CanSaveAs() const;
  void RunOpenFile();
  bool RunSave();
  void RunSaveAs();
  void ShowCantSave(const QString& path, const QString& title);
  void ConnectCatalogueCommands();
  bool CanRunImageCommand() const;
  QRect SelectionPixels() const;
  void RunCatalogueCommand(const edit::CatalogueCommand& command);
  std::optional<edit::Arguments> AskParameters(const edit::CatalogueCommand& command);
  void CopyToClipboard();
  void BuildToolbar();
  void BuildViewButton();
  void ZoomTo(int percentage, int pendingFlag);
  bool CanZoom() const;
  void BuildMenus();
  void BuildListView();
  void RefreshScreenMetrics();
  void PlaceWindow();
  void SetViewMode(int mode);
  void OnListRowActivated(int row);
  void OnSplitterMoved();
  void ShowListContextMenu(const QPoint& position);
  WindowPlacement CurrentPlacement() const;
  void RememberNormalRectangle();

  QString settingsPath_;
  AppState state_;
  browse::FileListModel list_;
  files::Prefetcher prefetcher_;
  Session session_;
  CommandRegistry commands_;
  QTreeView* lisLista_ = nullptr;
  QSplitter* splitter_ = nullptr;
  view::Viewport* picFondo_ = nullptr;
  QToolBar* ctlToolbar_ = nullptr;
  // picEstado's panes: name (or a message), position, size, zoom, file size
  std::array<QLabel*, 5> statusPanes_{};
  QMenu* mnuList_ = nullptr;
  FileChooser chooseFile_ = ShowFileDialog;
  ParameterDialogRunner runParameterDialog_ = RunParameterDialog;
  QRect normalRect_;  // the restored rectangle, kept while maximized (the placement record)
};

}  // namespace app
