#include "slideshow/frmSlideShow.h"
#include "base/FileNames.h"

#include "base/Paths.h"
#include "files/LoadImageFile.h"
#include "widgets/BusyPointer.h"
#include "widgets/Fonts.h"
#include "widgets/NumberBox.h"
#include "widgets/TextFit.h"

#include <QCheckBox>
#include <QFile>
#include <QBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QSaveFile>

namespace slideshow {

namespace {


QPushButton* Button(QWidget* parent, const char* name, const QString& caption) {
  auto* button = new QPushButton(caption, parent);
  button->setObjectName(QLatin1String(name));
  button->setAutoDefault(false);
  return button;
}

void Exclaim(QWidget* parent, const QString& text) {
  QMessageBox::warning(parent, QStringLiteral("Vistrel"), text);
}

}  // namespace

frmSlideShow::frmSlideShow(const QString& folder, const QStringList& names, int selectedRow, QColor background,
                           widgets::FileChooser chooseFile, PlayerRunner runPlayer, QWidget* parent)
    : QDialog(parent), background_(background), chooseFile_(std::move(chooseFile)), runPlayer_(std::move(runPlayer)) {
  setObjectName(QStringLiteral("frmSlideShow"));
  setWindowTitle(tr("Slide Show"));
  widgets::ApplyTahomaFont(*this);
  BuildControls();
  SetFolder(folder);
  if (!folder.isEmpty()) {
    for (const QString& name : names) AddRow({name, true});
    if (selectedRow >= 0 && selectedRow < lisLista_->count()) {
      lisLista_->setCurrentRow(selectedRow);
      lisLista_->scrollToItem(lisLista_->item(selectedRow));
    }
  }
  SetManual(true);
  txtVelocidad_->setText(QStringLiteral("3"));
  suppressEvents_ = false;
  ShowSelectedPreview();
}

// Three columns under the folder: the list, its buttons, and the preview with the options.
void frmSlideShow::BuildControls() {
  auto* page = new QVBoxLayout(this);
  lblCarpeta_ = new QLabel(tr("Folder"), this);
  lblCarpeta_->setObjectName(QStringLiteral("lblCarpeta"));
  page->addWidget(lblCarpeta_);
  auto* columns = new QHBoxLayout;
  page->addLayout(columns);
  auto* images = new QVBoxLayout;
  images->addWidget(new QLabel(tr("Images  "), this));
  lisLista_ = new QListWidget(this);
  lisLista_->setObjectName(QStringLiteral("lisLista"));
  lisLista_->setMinimumSize(220, 300);
  connect(lisLista_, &QListWidget::itemSelectionChanged, this, [this] { ShowSelectedPreview(); });
  images->addWidget(lisLista_);
  columns->addLayout(images);
  columns->addLayout(ListButtons());
  columns->addLayout(PreviewAndOptions());
}

QVBoxLayout* frmSlideShow::ListButtons() {
  auto* buttons = new QVBoxLayout;
  buttons->addSpacing(lisLista_->fontMetrics().height() + 6);
  const std::pair<const char*, QString> captions[] = {
      {"cmdTodos", tr("Select All")}, {"cmdNinguno", tr("Select None")}, {"cmdArriba", tr("Up")}, {"cmdAbajo", tr("Down")},
      {"cmdAbrir", tr("Open...")},    {"cmdGuardar", tr("Save...")}};
  const std::function<void()> actions[] = {[this] { CheckAll(true); }, [this] { CheckAll(false); },
                                           [this] { MoveSelected(-1); }, [this] { MoveSelected(1); },
                                           [this] { Open(); },           [this] { Save(); }};
  for (int i = 0; i < 6; ++i) {
    if (i == 2 || i == 4) buttons->addSpacing(12);
    QPushButton* button = Button(this, captions[i].first, captions[i].second);
    connect(button, &QPushButton::clicked, this, actions[i]);
    buttons->addWidget(button);
  }
  buttons->addStretch();
  return buttons;
}

QVBoxLayout* frmSlideShow::PreviewAndOptions() {
  auto* column = new QVBoxLayout;
  column->addSpacing(lisLista_->fontMetrics().height() + 6);
  auto* picPreview = new QWidget(this);
  picPreview->setObjectName(QStringLiteral("picPreview"));
  imaPreview_ = new QLabel(picPreview);
  imaPreview_->setObjectName(QStringLiteral("imaPreview"));
  imaPreview_->setAlignment(Qt::AlignCenter);
  imaPreview_->setStyleSheet(QStringLiteral("background: white"));
  imaPreview_->setFixedSize(240, 180);
  picPreview->setFixedSize(imaPreview_->size());
  column->addWidget(picPreview);
  column->addSpacing(8);
  column->addWidget(new QLabel(tr("Options  "), this));
  const QString options[] = {tr("&Random"), tr("R&epeat"), tr("&Fit to window"),
                             tr("&Show file name")};
  for (int i = 0; i < 4; ++i) {
    chkOpcion_[i] = new QCheckBox(options[i], this);
    chkOpcion_[i]->setObjectName(QStringLiteral("chkOpcion(%1)").arg(i));
    column->addWidget(chkOpcion_[i]);
  }
  const QString modes[] = {tr("&Manual advance"), tr("&Automatic advance")};
  for (int i = 0; i < 2; ++i) {
    optModo_[i] = new QRadioButton(modes[i], this);
    optModo_[i]->setObjectName(QStringLiteral("optModo(%1)").arg(i));
    connect(optModo_[i], &QRadioButton::clicked, this, [this, i] {
      if (!suppressEvents_) SetManual(i == 0);
    });
    column->addWidget(optModo_[i]);
  }
  auto* secondsRow = new QHBoxLayout;
  txtVelocidad_ = new QLineEdit(this);
  txtVelocidad_->setObjectName(QStringLiteral("txtVelocidad"));
  txtVelocidad_->setMaximumWidth(70);
  widgets::MakeNumberBox(txtVelocidad_);
  secondsRow->addSpacing(20);
  secondsRow->addWidget(txtVelocidad_);
  secondsRow->addWidget(new QLabel(tr("seconds"), this));
  secondsRow->addStretch();
  column->addLayout(secondsRow);
  column->addStretch();
  auto* endRow = new QHBoxLayout;
  QPushButton* start = Button(this, "cmdStart", tr("Start"));
  QPushButton* close = Button(this, "cmdCerrar", tr("Close"));
  connect(start, &QPushButton::clicked, this, &frmSlideShow::Start);
  connect(close, &QPushButton::clicked, this, &QDialog::reject);
  endRow->addStretch();
  endRow->addWidget(start);
  endRow->addWidget(close);
  column->addLayout(endRow);
  return column;
}

void frmSlideShow::SetFolder(const QString& folder) {
  folder_ = folder;
  lisLista_->clear();
  const QString caption = tr("Folder: ") + (folder.isEmpty() ? tr("(None)") : folder);
  lblCarpeta_->setText(widgets::FitTextToWidth(caption, std::max(200, width() - 30), lblCarpeta_->fontMetrics()));
  lblCarpeta_->setToolTip(folder);
}

void frmSlideShow::AddRow(const SlideShowRow& row) {
  auto* item = new QListWidgetItem(row.Name, lisLista_);
  item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
  item->setCheckState(row.Checked ? Qt::Checked : Qt::Unchecked);
}

void frmSlideShow::ShowSelectedPreview() {
  if (suppressEvents_) return;
  imaPreview_->clear();
  const QList<QListWidgetItem*> selected = lisLista_->selectedItems();
  if (selected.isEmpty() || folder_.isEmpty()) return;
  const QListWidgetItem* item = selected.front();
  widgets::BusyPointerGuard busy;
  if (const auto loaded = files::LoadImageFile(base::JoinPath(folder_, item->text()), {})) {
    imaPreview_->setPixmap(QPixmap::fromImage(loaded->Picture.FitWithin(imaPreview_->width(), imaPreview_->height()).ForScreen()));
  }
}

void frmSlideShow::SetManual(bool manual) {
  optModo_[manual ? 0 : 1]->setChecked(true);
  txtVelocidad_->setEnabled(!manual);
}

void frmSlideShow::CheckAll(bool checked) {
  suppressEvents_ = true;
  for (int i = 0; i < lisLista_->count(); ++i) lisLista_->item(i)->setCheckState(checked ? Qt::Checked : Qt::Unchecked);
  lisLista_->setCurrentRow(-1);
  imaPreview_->clear();
  suppressEvents_ = false;
}

void frmSlideShow::MoveSelected(int by) {
  const int row = lisLista_->currentRow();
  const int target = row + by;
  if (row < 0 || !lisLista_->currentItem()->isSelected() || target < 0 || target >= lisLista_->count()) return;
  suppressEvents_ = true;
  QListWidgetItem* moved = lisLista_->takeItem(row);
  lisLista_->insertItem(target, moved);
  lisLista_->setCurrentRow(target);
  lisLista_->scrollToItem(moved);
  suppressEvents_ = false;
}

void frmSlideShow::Open() {
  const widgets::FileDialogAnswer answer = chooseFile_(this, {tr("Open"), ListFilters(), 1, {}, false});
  if (answer.Path.isEmpty()) return;
  widgets::BusyPointerGuard busy;
  ReadSlideShowFile(answer.Path);
}

void frmSlideShow::Save() {
  if (folder_.isEmpty()) return;
  const widgets::FileDialogAnswer answer = chooseFile_(this, {tr("Save"), ListFilters(), 1, {}, true});
  if (answer.Path.isEmpty()) return;
  widgets::BusyPointerGuard busy;
  WriteSlideShowFile(answer.Path);
}

SlideShowList frmSlideShow::State() const {
  SlideShowList list;
  list.Folder = folder_;
  for (int i = 0; i < lisLista_->count(); ++i) {
    list.Rows.push_back({lisLista_->item(i)->text(), lisLista_->item(i)->checkState() == Qt::Checked});
  }
  list.Random = chkOpcion_[0]->isChecked();
  list.Repeat = chkOpcion_[1]->isChecked();
  list.FitToWindow = chkOpcion_[2]->isChecked();
  list.ShowFileName = chkOpcion_[3]->isChecked();
  list.ManualAdvance = optModo_[0]->isChecked();
  list.Seconds = txtVelocidad_->text();
  return list;
}

void frmSlideShow::ReadSlideShowFile(const QString& path) {
  QFile file;
  if (!base::OpenForReading(file, path)) return;
  if (const auto list = ReadSlideShowText(file.read(kLargestListFile + 1), locale())) Apply(*list);
}

void frmSlideShow::Apply(const SlideShowList& list) {
  suppressEvents_ = true;
  SetFolder(list.Folder);
  imaPreview_->clear();
  for (const SlideShowRow& row : list.Rows) AddRow(row);
  lisLista_->setCurrentRow(-1);
  const std::array<std::optional<bool>, 4> options = {list.Random, list.Repeat, list.FitToWindow, list.ShowFileName};
  for (size_t i = 0; i < options.size(); ++i) {
    if (options[i]) chkOpcion_[i]->setChecked(*options[i]);
  }
  if (list.ManualAdvance) SetManual(*list.ManualAdvance);
  if (list.Seconds) txtVelocidad_->setText(*list.Seconds);
  suppressEvents_ = false;
}

// A user's file is replaced only once the new one is written whole.
void frmSlideShow::WriteSlideShowFile(const QString& path) const {
  const auto text = WriteSlideShowText(State(), locale());
  if (!text) {
    return Exclaim(const_cast<frmSlideShow*>(this),
                   tr("Can't save file. A file name holds a line break or bytes that are not text, "
                      "which a slide show list cannot hold"));
  }
  QSaveFile file(path);
  if (!file.open(QIODevice::WriteOnly)) return;
  file.write(*text);
  file.commit();
}

void frmSlideShow::Start() {
  const SlideShowList list = State();
  if (folder_.isEmpty()) {
    return Exclaim(this, tr("No images. You may:\r\n1. Close this dialog and click 'File | Open Folder' menu\r\n"
                            "or\r\n2. Click 'Open...' to open a slideshow file"));
  }
  if (std::none_of(list.Rows.begin(), list.Rows.end(), [](const SlideShowRow& row) { return row.Checked; })) {
    return Exclaim(this, tr("No image selected"));
  }
  PlayerSettings settings{folder_, list.Rows, lisLista_->currentItem() && lisLista_->currentItem()->isSelected() ? lisLista_->currentRow() : -1,
                          *list.Random, *list.Repeat, *list.FitToWindow, *list.ShowFileName, -1, background_};
  if (!*list.ManualAdvance) {
    const auto seconds = SecondsFromText(txtVelocidad_->text(), locale());
    if (!seconds || *seconds < 0.1 || *seconds > 9999.9) {
      Exclaim(this, tr("Please enter a number between 0.1 and 9999.9 seconds"));
      txtVelocidad_->setFocus();
      return;
    }
    settings.Seconds = *seconds;
  }
  runPlayer_(settings, this);
}

}  // namespace slideshow
