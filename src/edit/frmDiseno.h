#pragma once
// `frmDiseno`: the one parameter dialog, built from a dialog description.
// Its widgets show a DialogModel and forward the user's events to it; the preview is
// computed by a PreviewRenderer off the UI thread.

#include "edit/DialogModel.h"
#include "edit/Operation.h"

#include <QDialog>
#include <QHash>

#include <optional>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QSlider;

namespace edit {

class PreviewRenderer;

class frmDiseno : public QDialog {
  Q_OBJECT

 public:
  // `image` is the current image (the preview's source); `operation` the class's
  // operation (empty: the preview shows the image unchanged).
  frmDiseno(const QString& description, const DialogContext& context, const std::optional<imaging::Image>& image,
            Operation operation, QWidget* parent = nullptr);
  ~frmDiseno() override;

  const DialogModel& Model() const { return model_; }
  DialogValues Values() const { return model_.Values(); }
  // True once no preview is being computed or waiting.
  bool PreviewIdle() const;

  // The 8-point font that the descriptions' grid was laid out for.
  static constexpr int kFontPointSize = 8;
  // Design-time sizes of the template controls, in twips (left to the implementer).
  static constexpr int kTextBoxHeightTwips = 315;
  static constexpr int kSliderHeightTwips = 420;
  static constexpr int kCheckHeightTwips = 300;
  static constexpr int kButtonHeightTwips = 360;
  static constexpr int kOkWidthTwips = 1200;
  static constexpr int kPreviewWidthTwips = 1680;
  static constexpr int kPreviewHeightTwips = 1680;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void BuildControls(const DialogLayout& layout);
  QWidget* BuildControl(const DialogControl& control);
  void PlaceWindowAndButtons(const DialogLayout& layout);
  void ConnectControl(const DialogControl& control, QWidget* widget);
  void ShowModel();
  void RefreshPreview(bool refresh);
  void AcceptIfValid();
  QRect Pixels(double x, double y, double width, double height) const;

  DialogContext context_;
  DialogModel model_;
  QHash<int, QLineEdit*> texts_;
  QHash<int, QSlider*> sliders_;
  QHash<int, QCheckBox*> checks_;
  QHash<int, QRadioButton*> options_;
  QLabel* picPreview_ = nullptr;
  QPushButton* cmdAceptar_ = nullptr;
  QPushButton* cmdCancelar_ = nullptr;
  PreviewRenderer* renderer_ = nullptr;
};

}  // namespace edit
