#include "browse/frmAbrirCarpeta.h"
#include "base/Texts.h"

#include "browse/FolderChoice.h"
#include "settings/RecentFolders.h"
#include "widgets/BusyPointer.h"
#include "widgets/DialogButtons.h"
#include "widgets/Fonts.h"

#include <QDir>
#include <QFileSystemModel>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTabWidget>
#include <QTreeView>
#include <QVBoxLayout>

namespace browse {

bool ConfirmAndClearRecentFolders(QWidget* parent, settings::SettingsStore& settings) {
  widgets::NormalPointerGuard normal;
  const auto answer = QMessageBox::warning(parent, QStringLiteral("Vistrel"),
                                           Texts::tr("Are you sure you want to clear the list of recent folders?"),
                                           QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
  if (answer != QMessageBox::Yes) return false;
  settings::ClearRecentFolders(settings);
  return true;
}

frmAbrirCarpeta::frmAbrirCarpeta(settings::SettingsStore& settings, const QString& startFolder, QWidget* parent)
    : QDialog(parent), settings_(settings) {
  setObjectName(QStringLiteral("frmAbrirCarpeta"));
  setWindowTitle(tr("Open Folder"));
  widgets::ApplyTahomaFont(*this);
  tabPestana_ = new QTabWidget(this);
  tabPestana_->setObjectName(QStringLiteral("tabPestana"));
  tabPestana_->addTab(BuildExistingPage(), tr("Existing"));
  tabPestana_->addTab(BuildRecentPage(), tr("Recent"));
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(tabPestana_);
  layout->addLayout(widgets::OkAndCloseButtons(*this, "cmdCerrar", tr("Close"), [this] { AcceptChoice(); }));
  resize(420, 440);
  FillRecentList();
  ShowInTree(startFolder.isEmpty() ? QDir::homePath() : startFolder);
}

// The tree shows folders as a file manager does by default: hidden ones left out, links
// to folders followed, unreadable ones listed but never opened.
QWidget* frmAbrirCarpeta::BuildExistingPage() {
  auto* page = new QWidget(this);
  folders_ = new QFileSystemModel(this);
  folders_->setFilter(QDir::AllDirs | QDir::NoDotAndDotDot);
  folders_->setRootPath(QDir::rootPath());
  folCarpeta_ = new QTreeView(page);
  folCarpeta_->setObjectName(QStringLiteral("folCarpeta"));
  folCarpeta_->setModel(folders_);
  for (int column = 1; column < folders_->columnCount(); ++column) folCarpeta_->hideColumn(column);
  folCarpeta_->header()->hide();
  txtCarpeta_ = new QLineEdit(page);
  txtCarpeta_->setObjectName(QStringLiteral("txtCarpeta"));
  auto* label = new QLabel(tr("&Folder:"), page);
  label->setBuddy(txtCarpeta_);
  connect(folCarpeta_->selectionModel(), &QItemSelectionModel::currentChanged, this,
          [this](const QModelIndex& current) { txtCarpeta_->setText(folders_->filePath(current)); });
  connect(txtCarpeta_, &QLineEdit::textEdited, this, [this](const QString& text) { ShowInTree(text); });
  // The tree fills in as folders are read; the folder shown stays in view.
  connect(folders_, &QFileSystemModel::directoryLoaded, this, [this] { folCarpeta_->scrollTo(folCarpeta_->currentIndex()); });
  auto* layout = new QVBoxLayout(page);
  layout->addWidget(folCarpeta_);
  layout->addWidget(label);
  layout->addWidget(txtCarpeta_);
  return page;
}

QWidget* frmAbrirCarpeta::BuildRecentPage() {
  auto* page = new QWidget(this);
  lisRecientes_ = new QListWidget(page);
  lisRecientes_->setObjectName(QStringLiteral("lisRecientes"));
  auto* remove = new QPushButton(tr("Remove"), page);
  remove->setObjectName(QStringLiteral("cmdBorrar"));
  auto* removeAll = new QPushButton(tr("Remove All"), page);
  removeAll->setObjectName(QStringLiteral("cmdBorrarTodo"));
  connect(remove, &QPushButton::clicked, this, &frmAbrirCarpeta::RemoveSelectedRecent);
  connect(removeAll, &QPushButton::clicked, this, &frmAbrirCarpeta::RemoveAllRecent);
  connect(lisRecientes_, &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* item) {
    lisRecientes_->setCurrentItem(item, QItemSelectionModel::ClearAndSelect);
    AcceptChoice();
  });
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(remove);
  buttons->addWidget(removeAll);
  buttons->addStretch();
  auto* layout = new QVBoxLayout(page);
  layout->addWidget(lisRecientes_);
  layout->addLayout(buttons);
  return page;
}

void frmAbrirCarpeta::FillRecentList() {
  lisRecientes_->clear();
  lisRecientes_->addItems(settings::RecentFolderList(settings_));
}

// The tree follows a typed folder, without the text following the tree back.
void frmAbrirCarpeta::ShowInTree(const QString& folder) {
  const QModelIndex index = folders_->index(QDir::cleanPath(folder));
  if (!index.isValid()) return;
  const QSignalBlocker blocker(folCarpeta_->selectionModel());
  folCarpeta_->setCurrentIndex(index);
  folCarpeta_->scrollTo(index);
  if (txtCarpeta_->text().isEmpty()) txtCarpeta_->setText(folders_->filePath(index));
}

QWidget* frmAbrirCarpeta::ControlOfTab() const {
  return tabPestana_->currentIndex() == 0 ? static_cast<QWidget*>(txtCarpeta_) : lisRecientes_;
}

// OK: the candidate of the tab shown; a folder that is not named, not there or without
// images is refused and the user goes on where they were.
// The row the user selected, which need not be the current one; -1 when none is.
int frmAbrirCarpeta::SelectedRecentRow() const {
  const QList<QListWidgetItem*> selected = lisRecientes_->selectedItems();
  return selected.isEmpty() ? -1 : lisRecientes_->row(selected.first());
}

void frmAbrirCarpeta::AcceptChoice() {
  const int row = SelectedRecentRow();
  const QString candidate =
      tabPestana_->currentIndex() == 0 ? txtCarpeta_->text() : row >= 0 ? lisRecientes_->item(row)->text() : QString();
  widgets::BusyPointerGuard busy;
  const FolderChoice choice = CheckFolderChoice(candidate);
  if (choice.Problem != FolderProblem::None) {
    widgets::NormalPointerGuard normal;
    if (choice.Problem == FolderProblem::NothingChosen) {
      QMessageBox::information(this, windowTitle(), FolderProblemMessage(choice.Problem));
    } else {
      QMessageBox::warning(this, windowTitle(), FolderProblemMessage(choice.Problem));
    }
    ControlOfTab()->setFocus();
    return;
  }
  settings::AddRecentFolder(settings_, choice.Folder);
  chosen_ = choice.Folder;
  FillRecentList();
  accept();
}

// The selected row is the n-th folder of the list, which is the n-th filled slot.
void frmAbrirCarpeta::RemoveSelectedRecent() {
  const int row = SelectedRecentRow();
  if (row < 0) return;
  int filled = -1;
  for (int slot = 0; slot < int(settings_.RecentFolders.size()); ++slot) {
    if (!settings_.RecentFolders[size_t(slot)].isEmpty() && ++filled == row) {
      settings::RemoveRecentFolder(settings_, slot);
      break;
    }
  }
  delete lisRecientes_->takeItem(row);
}

void frmAbrirCarpeta::RemoveAllRecent() {
  if (ConfirmAndClearRecentFolders(this, settings_)) FillRecentList();
}

}  // namespace browse
