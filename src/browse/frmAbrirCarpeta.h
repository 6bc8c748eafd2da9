#pragma once
// `frmAbrirCarpeta`, "Open Folder": a folder named on the "Existing" tab (the folder tree
// `folCarpeta` and the box `txtCarpeta`, kept in step) or picked on the "Recent" tab
// (`lisRecientes`, with "Remove" and "Remove All"). OK accepts only a folder that exists
// and holds an image; the chosen folder goes to the top of the recent folders.

#include "settings/SettingsStore.h"

#include <QDialog>

class QFileSystemModel;
class QLineEdit;
class QListWidget;
class QTabWidget;
class QTreeView;

namespace browse {

// Asks "Are you sure you want to clear the list of recent folders?" and clears it on Yes;
// true when it was cleared.
bool ConfirmAndClearRecentFolders(QWidget* parent, settings::SettingsStore& settings);

class frmAbrirCarpeta : public QDialog {
  Q_OBJECT

 public:
  // The tree starts at `startFolder` (the folder open), or at home.
  explicit frmAbrirCarpeta(settings::SettingsStore& settings, const QString& startFolder = {}, QWidget* parent = nullptr);

  // The folder accepted by OK; empty when the dialog was closed without a choice.
  const QString& ChosenFolder() const { return chosen_; }

 private:
  QWidget* BuildExistingPage();
  QWidget* BuildRecentPage();
  void FillRecentList();
  void ShowInTree(const QString& folder);
  void AcceptChoice();
  void RemoveSelectedRecent();
  int SelectedRecentRow() const;
  void RemoveAllRecent();
  QWidget* ControlOfTab() const;

  settings::SettingsStore& settings_;
  QString chosen_;
  QTabWidget* tabPestana_ = nullptr;
  QFileSystemModel* folders_ = nullptr;
  QTreeView* folCarpeta_ = nullptr;
  QLineEdit* txtCarpeta_ = nullptr;
  QListWidget* lisRecientes_ = nullptr;
};

}  // namespace browse
