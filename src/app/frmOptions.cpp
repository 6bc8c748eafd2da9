#include "app/frmOptions.h"

#include "base/Colors.h"
#include "settings/RecentFolders.h"
#include "widgets/Fonts.h"
#include "widgets/Help.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QFileDialog>
#include <QGroupBox>
#include <QLineEdit>
#include <QFrame>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>

namespace app {

namespace {

template <typename T>
T* Named(T* widget, const QString& name) {
  widget->setObjectName(name);
  return widget;
}

QWidget* Page(int index, const std::vector<QWidget*>& controls) {
  auto* page = Named(new QWidget, QStringLiteral("picPestana(%1)").arg(index));
  auto* column = new QVBoxLayout(page);
  for (QWidget* control : controls) column->addWidget(control);
  column->addStretch();
  return page;
}

const std::array<QColor, 3> kDefaultColours = {QColor(153, 153, 153), QColor(51, 51, 51), QColor(0, 0, 0)};

}  // namespace

std::optional<QColor> ChooseColourWithDialog(QWidget* parent, const QColor& initial) {
  const QColor chosen = QColorDialog::getColor(initial, parent);
  return chosen.isValid() ? std::optional(chosen) : std::nullopt;
}

frmOptions::frmOptions(settings::SettingsStore& settings, FolderEntrySwitch folderEntry, ColourChooser chooseColour,
                       QWidget* parent)
    : QDialog(parent), settings_(settings), folderEntry_(std::move(folderEntry)), chooseColour_(std::move(chooseColour)) {
  setObjectName(QStringLiteral("frmOptions"));
  setWindowTitle(tr("Options"));
  auto* tabs = Named(new QTabWidget(this), QStringLiteral("tabPestana"));
  tabs->addTab(StartPage(), tr("Start"));
  tabs->addTab(OpenFolderPage(), tr("Open Folder"));
  tabs->addTab(ViewPage(), tr("View"));
  tabs->addTab(ColoursPage(), tr("Background Colors"));
  tabs->addTab(GeneralPage(), tr("General"));
  auto* buttons = new QHBoxLayout;
  auto* ok = Named(new QPushButton(tr("OK"), this), QStringLiteral("cmdAceptar"));
  auto* cancel = Named(new QPushButton(tr("Cancel"), this), QStringLiteral("cmdCancelar"));
  auto* restore = Named(new QPushButton(tr("Restore"), this), QStringLiteral("cmdInicio"));
  ok->setDefault(true);
  connect(ok, &QPushButton::clicked, this, &frmOptions::Accept);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  connect(restore, &QPushButton::clicked, this, &frmOptions::Restore);
  buttons->addStretch();
  for (QPushButton* button : {ok, cancel, restore}) buttons->addWidget(button);
  auto* page = new QVBoxLayout(this);
  page->addWidget(tabs);
  page->addLayout(buttons);
  widgets::ApplyTahomaFont(*this);
  Load();
}

QWidget* frmOptions::StartPage() {
  const QString captions[] = {tr("&Don't show any image"),
                              tr("&Open last file or folder from previous session"),
                              tr("&Show the Open Folder dialog")};
  for (int i = 0; i < 3; ++i) optInicio_[i] = Named(new QRadioButton(captions[i]), QStringLiteral("optInicio(%1)").arg(i));
  return Page(0, {optInicio_[1], optInicio_[2], optInicio_[0]});
}

QWidget* frmOptions::OpenFolderPage() {
  optArchivosImagen_[0] = Named(new QRadioButton(tr("&Open files with image extensions (bmp, jpg...)")),
                                QStringLiteral("optArchivosImagen(0)"));
  optArchivosImagen_[1] = Named(new QRadioButton(tr("O&pen all files")), QStringLiteral("optArchivosImagen(1)"));
  // Today's types (HEIC, WebP, AVIF, JPEG XL, SVG...) are listed unless this asks for the old list.
  chkClassicTypes_ = Named(new QCheckBox(tr("C&lassic types only (no HEIC, WebP, AVIF, JPEG XL, SVG...)")),
                           QStringLiteral("chkClassicTypes"));
  return Page(1, {optArchivosImagen_[0], optArchivosImagen_[1], chkClassicTypes_});
}

QWidget* frmOptions::ViewPage() {
  chkViewToolbar_ = Named(new QCheckBox(tr("&Toolbar")), QStringLiteral("chkViewToolbar"));
  chkViewStatusBar_ = Named(new QCheckBox(tr("&Status bar")), QStringLiteral("chkViewStatusBar"));
  for (QCheckBox* box : {chkViewToolbar_, chkViewStatusBar_}) {
    connect(box, &QCheckBox::clicked, this, [this] { viewBarsChanged_ = true; });
  }
  chkEnlarge_ = Named(new QCheckBox(tr("&Enlarge small images to fit the window")), QStringLiteral("chkEnlarge"));
  auto* wheel = new QWidget;
  auto* row = new QHBoxLayout(wheel);
  row->setContentsMargins(0, 0, 0, 0);
  cboWheel_ = Named(new QComboBox, QStringLiteral("cboWheel"));
  cboWheel_->addItems({tr("scrolls the picture"), tr("zooms"), tr("goes to the next or previous image")});
  auto* label = new QLabel(tr("The mouse &wheel"));
  label->setBuddy(cboWheel_);
  row->addWidget(label);
  row->addWidget(cboWheel_, 1);
  return Page(2, {chkViewToolbar_, chkViewStatusBar_, chkEnlarge_, wheel, SortRow(), ColourGroup()});
}

// The list's order, as View > Sort By sets it.
QWidget* frmOptions::SortRow() {
  auto* sort = new QWidget;
  auto* row = new QHBoxLayout(sort);
  row->setContentsMargins(0, 0, 0, 0);
  cboSort_ = Named(new QComboBox, QStringLiteral("cboSort"));
  cboSort_->addItems({tr("name"), tr("date taken"), tr("date modified"), tr("size"), tr("type")});
  chkSortDescending_ = Named(new QCheckBox(tr("&descending")), QStringLiteral("chkSortDescending"));
  auto* label = new QLabel(tr("Sort the &list by"));
  label->setBuddy(cboSort_);
  row->addWidget(label);
  row->addWidget(cboSort_, 1);
  row->addWidget(chkSortDescending_);
  return sort;
}

// The pictures' colours: managed or not, the intent, the screen profile in use and the file
// used when the display publishes none.
QWidget* frmOptions::ColourGroup() {
  auto* group = Named(new QGroupBox(tr("Colours")), QStringLiteral("fraColours"));
  chkColourManaged_ = Named(new QCheckBox(tr("&Manage colours (the picture's profile and the screen's)")),
                            QStringLiteral("chkColourManaged"));
  cboIntent_ = Named(new QComboBox, QStringLiteral("cboIntent"));
  cboIntent_->addItems({tr("Relative colorimetric"), tr("Perceptual")});
  lblScreenProfile_ = Named(new QLabel, QStringLiteral("lblScreenProfile"));
  txtScreenProfile_ = Named(new QLineEdit, QStringLiteral("txtScreenProfile"));
  txtScreenProfile_->setPlaceholderText(tr("none: sRGB"));
  auto* browse = Named(new QPushButton(tr("&Browse...")), QStringLiteral("cmdScreenProfile"));
  connect(browse, &QPushButton::clicked, this, [this] {
    const QString chosen = QFileDialog::getOpenFileName(this, tr("Screen Profile"), txtScreenProfile_->text(),
                                                        tr("ICC profiles (*.icc *.icm)"));
    if (!chosen.isEmpty()) txtScreenProfile_->setText(chosen);
  });
  auto* grid = new QGridLayout(group);
  grid->addWidget(chkColourManaged_, 0, 0, 1, 3);
  grid->addWidget(new QLabel(tr("Intent:")), 1, 0);
  grid->addWidget(cboIntent_, 1, 1, 1, 2);
  grid->addWidget(new QLabel(tr("Screen profile:")), 2, 0);
  grid->addWidget(lblScreenProfile_, 2, 1, 1, 2);
  grid->addWidget(new QLabel(tr("Profile file:")), 3, 0);
  grid->addWidget(txtScreenProfile_, 3, 1);
  grid->addWidget(browse, 3, 2);
  return group;
}

void frmOptions::SetScreenProfileInUse(const QString& text) { lblScreenProfile_->setText(text); }

QWidget* frmOptions::ColoursPage() {
  auto* page = Named(new QWidget, QStringLiteral("picPestana(3)"));
  auto* grid = new QGridLayout(page);
  const QString labels[] = {tr("Image:"), tr("Thumbnails:"), tr("Full screen:")};
  for (int i = 0; i < 3; ++i) {
    picColor_[i] = Named(new QFrame, QStringLiteral("picColor(%1)").arg(i));
    picColor_[i]->setFixedSize(48, 22);
    auto* select = Named(new QPushButton(tr("Select...")), QStringLiteral("cmdSelect(%1)").arg(i));
    connect(select, &QPushButton::clicked, this, [this, i] { Select(i); });
    grid->addWidget(new QLabel(labels[i]), i, 0);
    grid->addWidget(picColor_[i], i, 1);
    grid->addWidget(select, i, 2);
  }
  grid->setRowStretch(3, 1);
  grid->setColumnStretch(3, 1);
  return page;
}

QWidget* frmOptions::GeneralPage() {
#ifdef Q_OS_WIN
  const QString folderMenu = tr("&Show 'Open with Vistrel' in the folder context menu of Windows Explorer");
#else
  const QString folderMenu = tr("&Show 'Open with Vistrel' in the file manager's menu for folders");
#endif
  chkExplorer_ = Named(new QCheckBox(folderMenu),
                       QStringLiteral("chkExplorer"));
  chkConfirma_ = Named(new QCheckBox(tr("D&on't ask for confirmation before deleting a file")),
                       QStringLiteral("chkConfirma"));
  chkReciente_ = Named(new QCheckBox(tr("&Disable list of recent folders")), QStringLiteral("chkReciente"));
  if (!folderEntry_.Unavailable.isEmpty()) {
    chkExplorer_->setEnabled(false);
    chkExplorer_->setToolTip(folderEntry_.Unavailable);
  }
  return Page(4, {chkExplorer_, chkConfirma_, chkReciente_});
}

void frmOptions::Load() {
  const settings::SettingsStore& s = settings_;
  optInicio_[std::clamp(s.StartOption, 0, 2)]->setChecked(true);
  optArchivosImagen_[s.ImageExtensionsOnly ? 0 : 1]->setChecked(true);
  chkClassicTypes_->setChecked(s.ClassicTypesOnly);
  chkViewToolbar_->setChecked(s.ShowToolbar);
  chkViewStatusBar_->setChecked(s.ShowStatusBar);
  chkEnlarge_->setChecked(s.EnlargeSmallImages);
  cboWheel_->setCurrentIndex(std::clamp(int(s.WheelAction), 0, 2));
  cboSort_->setCurrentIndex(std::clamp(int(s.SortOrder), 0, 4));
  chkSortDescending_->setChecked(s.SortDescending);
  chkColourManaged_->setChecked(s.ColourManaged);
  cboIntent_->setCurrentIndex(s.PerceptualIntent ? 1 : 0);
  txtScreenProfile_->setText(s.ScreenProfileFile);
  SetSwatch(0, base::ColorFromBgr(s.ColorImage));
  SetSwatch(1, base::ColorFromBgr(s.ColorThumbnails));
  SetSwatch(2, base::ColorFromBgr(s.ColorFullScreen));
  chkReciente_->setChecked(!s.RecentEnabled);
  chkConfirma_->setChecked(!s.ConfirmDelete);
  chkExplorer_->setChecked(folderEntry_.IsPresent && folderEntry_.IsPresent());
}

// The colour with a one-pixel frame just inside the border.
void frmOptions::SetSwatch(int index, const QColor& colour) {
  colours_[index] = colour;
  picColor_[index]->setStyleSheet(QStringLiteral("QFrame { background: %1; border: 1px solid palette(window-text); }")
                                      .arg(colour.name()));
}

void frmOptions::Select(int index) {
  const auto chosen = chooseColour_(this, colours_[index]);
  if (!chosen) return;
  SetSwatch(index, *chosen);
  if (index == 1) thumbColorChanged_ = true;
}

void frmOptions::Restore() {
  optInicio_[0]->setChecked(true);
  optArchivosImagen_[0]->setChecked(true);
  chkViewToolbar_->setChecked(true);
  chkViewStatusBar_->setChecked(true);
  cboWheel_->setCurrentIndex(0);
  cboSort_->setCurrentIndex(0);
  viewBarsChanged_ = true;
  for (int i = 0; i < 3; ++i) SetSwatch(i, kDefaultColours[i]);
  thumbColorChanged_ = true;
  for (QCheckBox* box : {chkReciente_, chkConfirma_, chkExplorer_, chkEnlarge_, chkClassicTypes_, chkSortDescending_}) box->setChecked(false);
  chkColourManaged_->setChecked(true);
  cboIntent_->setCurrentIndex(0);
  txtScreenProfile_->clear();
}

void frmOptions::Accept() {
  settings::SettingsStore& s = settings_;
  s.StartOption = optInicio_[0]->isChecked() ? 0 : optInicio_[1]->isChecked() ? 1 : 2;
  s.ImageExtensionsOnly = optArchivosImagen_[0]->isChecked();
  s.ClassicTypesOnly = chkClassicTypes_->isChecked();
  s.ShowToolbar = chkViewToolbar_->isChecked();
  s.ShowStatusBar = chkViewStatusBar_->isChecked();
  s.EnlargeSmallImages = chkEnlarge_->isChecked();
  s.WheelAction = cboWheel_->currentIndex();
  s.SortOrder = cboSort_->currentIndex();
  s.SortDescending = chkSortDescending_->isChecked();
  s.ColourManaged = chkColourManaged_->isChecked();
  s.PerceptualIntent = cboIntent_->currentIndex() == 1;
  s.ScreenProfileFile = txtScreenProfile_->text().trimmed();
  s.ColorImage = base::BgrFromColor(colours_[0]);
  s.ColorThumbnails = base::BgrFromColor(colours_[1]);
  s.ColorFullScreen = base::BgrFromColor(colours_[2]);
  s.RecentEnabled = !chkReciente_->isChecked();
  s.ConfirmDelete = !chkConfirma_->isChecked();
  if (folderEntry_.Set) folderEntry_.Set(chkExplorer_->isChecked());  // on every OK, changed or not
  if (!s.RecentEnabled) settings::ClearRecentFolders(s);
  accept();
}

// F1 asks for the tr("Options") topic; Enter (no shift key) is OK wherever the focus is.
void frmOptions::keyPressEvent(QKeyEvent* event) {
  const bool plain = !(event->modifiers() & (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier));
  if (plain && event->key() == Qt::Key_F1) return widgets::ShowHelpTopic(QStringLiteral("Options"));
  if (plain && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)) return Accept();
  QDialog::keyPressEvent(event);
}

}  // namespace app
