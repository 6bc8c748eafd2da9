#pragma once
// frmSlideShow, "Slide Show": the images of the open folder as a checkable list in show
// order, a preview of the selected one, the options, a list file to save and open, and
// Start. It stays open while the player runs.

#include "slideshow/PlayerSettings.h"
#include "widgets/FileChooser.h"

#include <QDialog>

#include <array>
#include <functional>

class QCheckBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QRadioButton;
class QVBoxLayout;

namespace slideshow {

class frmSlideShow : public QDialog {
  Q_OBJECT

 public:
  // Runs the player over this dialog, which stays open and modal beneath it.
  using PlayerRunner = std::function<void(const PlayerSettings& settings, QWidget* setup)>;

  // `folder` is empty when no folder is open; `selectedRow` is the main list's (-1 for none).
  frmSlideShow(const QString& folder, const QStringList& names, int selectedRow, QColor background,
               widgets::FileChooser chooseFile, PlayerRunner runPlayer, QWidget* parent = nullptr);

  // The dialog's state as a list file holds it.
  SlideShowList State() const;
  void ReadSlideShowFile(const QString& path);
  void WriteSlideShowFile(const QString& path) const;

 private:
  static QStringList ListFilters() { return {tr("Slide Show files (*.txt)"), tr("All files (*)")}; }
  void BuildControls();
  QVBoxLayout* ListButtons();
  QVBoxLayout* PreviewAndOptions();
  void SetFolder(const QString& folder);
  void AddRow(const SlideShowRow& row);
  void ShowSelectedPreview();
  void SetManual(bool manual);
  void CheckAll(bool checked);
  void MoveSelected(int by);
  void Open();
  void Save();
  void Start();
  void Apply(const SlideShowList& list);

  QString folder_;
  QColor background_;
  widgets::FileChooser chooseFile_;
  PlayerRunner runPlayer_;
  bool suppressEvents_ = true;
  QLabel* lblCarpeta_ = nullptr;
  QListWidget* lisLista_ = nullptr;
  QLabel* imaPreview_ = nullptr;
  std::array<QCheckBox*, 4> chkOpcion_{};
  std::array<QRadioButton*, 2> optModo_{};
  QLineEdit* txtVelocidad_ = nullptr;
};

}  // namespace slideshow
