#pragma once
// frmOptions, "Options": the user settings not set elsewhere, on five tabs (Start, Open
// Folder, View, Background Colors, General); colour management sits on the View tab. OK stores them in memory (the settings file
// is written at exit); Cancel, Esc and the close box change nothing; Restore resets the
// controls only.

#include "settings/SettingsStore.h"

#include <QColor>
#include <QDialog>

#include <array>
#include <functional>
#include <optional>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QFrame;
class QRadioButton;

namespace app {

// The file manager's "Open with Vistrel" entry on folders, as the platform offers it.
struct FolderEntrySwitch {
  std::function<bool()> IsPresent;
  std::function<void(bool present)> Set;
  QString Unavailable;  // why the platform cannot offer it; empty when it can
};

// The colour dialog: the chosen colour, nothing on Cancel.
using ColourChooser = std::function<std::optional<QColor>(QWidget* parent, const QColor& initial)>;
std::optional<QColor> ChooseColourWithDialog(QWidget* parent, const QColor& initial);

class frmOptions : public QDialog {
  Q_OBJECT

 public:
  frmOptions(settings::SettingsStore& settings, FolderEntrySwitch folderEntry, ColourChooser chooseColour,
             QWidget* parent = nullptr);

  // "Adobe RGB (1998), from colord": the screen profile the pictures are shown through.
  void SetScreenProfileInUse(const QString& text);

  bool ThumbColorChanged() const { return thumbColorChanged_; }
  bool ViewBarsChanged() const { return viewBarsChanged_; }

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QWidget* StartPage();
  QWidget* OpenFolderPage();
  QWidget* ViewPage();
  QWidget* ColourGroup();
  QWidget* SortRow();
  QWidget* ColoursPage();
  QWidget* GeneralPage();
  void Load();
  void SetSwatch(int index, const QColor& colour);
  void Select(int index);
  void Restore();
  void Accept();

  settings::SettingsStore& settings_;
  FolderEntrySwitch folderEntry_;
  ColourChooser chooseColour_;
  bool thumbColorChanged_ = false;
  bool viewBarsChanged_ = false;
  std::array<QRadioButton*, 3> optInicio_{};
  std::array<QRadioButton*, 2> optArchivosImagen_{};
  QCheckBox* chkViewToolbar_ = nullptr;
  QCheckBox* chkViewStatusBar_ = nullptr;
  QCheckBox* chkEnlarge_ = nullptr;
  QComboBox* cboWheel_ = nullptr;
  QComboBox* cboSort_ = nullptr;
  QCheckBox* chkSortDescending_ = nullptr;
  QCheckBox* chkClassicTypes_ = nullptr;
  QCheckBox* chkColourManaged_ = nullptr;
  QComboBox* cboIntent_ = nullptr;
  QLabel* lblScreenProfile_ = nullptr;
  QLineEdit* txtScreenProfile_ = nullptr;
  std::array<QFrame*, 3> picColor_{};
  std::array<QColor, 3> colours_;
  QCheckBox* chkExplorer_ = nullptr;
  QCheckBox* chkConfirma_ = nullptr;
  QCheckBox* chkReciente_ = nullptr;
};

}  // namespace app
