// The file list `lisLista`: the view, its events, its column and its context menu.
#include "app/frmMain.h"

#include "base/Paths.h"
#include "browse/ListColumn.h"
#include "browse/ThumbnailsView.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <QTreeView>

namespace app {

namespace {

// The list's own editor offers the base name for typing, as the Rename dialog does. The
// view selects the whole text after this, so the selection is made once it has.
class RenameDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  void setEditorData(QWidget* editor, const QModelIndex& index) const override {
    QStyledItemDelegate::setEditorData(editor, index);
    if (auto* line = qobject_cast<QLineEdit*>(editor)) {
      QMetaObject::invokeMethod(line, [line] { line->setSelection(0, base::BaseNameLength(line->text())); },
                                Qt::QueuedConnection);
    }
  }
};

}  // namespace

void frmMain::BuildListView() {
  lisLista_ = new QTreeView(this);
  lisLista_->setObjectName(QStringLiteral("lisLista"));
  lisLista_->setModel(&list_);
  lisLista_->setRootIsDecorated(false);
  lisLista_->setItemsExpandable(false);
  lisLista_->setUniformRowHeights(true);  // keeps a list of 100,000 entries instant
  lisLista_->setSelectionMode(QAbstractItemView::SingleSelection);
  lisLista_->setEditTriggers(QAbstractItemView::EditKeyPressed | QAbstractItemView::SelectedClicked);
  lisLista_->setContextMenuPolicy(Qt::CustomContextMenu);
  lisLista_->setItemDelegate(new RenameDelegate(lisLista_));
  lisLista_->setMinimumWidth(settings::kSplitterMinPixels);
  lisLista_->setMaximumWidth(settings::kSplitterMaxPixels);
  lisLista_->header()->setStretchLastSection(false);
  lisLista_->header()->setSectionsClickable(false);
  connect(lisLista_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
          [this](const QModelIndex& current) { OnListRowActivated(current.row()); });
  connect(lisLista_, &QAbstractItemView::clicked, this, [this](const QModelIndex& index) {
    if (index.row() == document_.ShownRow()) OnListRowActivated(index.row());
  });
  connect(lisLista_, &QWidget::customContextMenuRequested, this,
          [this](const QPoint& position) { mnuList_->popup(lisLista_->viewport()->mapToGlobal(position)); });
  list_.SetRenameHandler([this](int row, const QString& name) {
    return TryRename(document_.EntryPath(row), row, name);
  });
  lisLista_->installEventFilter(this);
}

// Right and Space step to the next image, Left and Backspace to the previous one, as they
// do on the image; the list's own keys (Up, Down, Home, End, F2) stay the list's.
bool frmMain::eventFilter(QObject* watched, QEvent* event) {
  if (watched != lisLista_ || event->type() != QEvent::KeyPress) {
    return QMainWindow::eventFilter(watched, event);
  }
  const auto* key = static_cast<QKeyEvent*>(event);
  if (key->modifiers() != Qt::NoModifier) return QMainWindow::eventFilter(watched, event);
  switch (key->key()) {
    case Qt::Key_Right: case Qt::Key_Space: document_.Step(1); return true;
    case Qt::Key_Left: case Qt::Key_Backspace: document_.Step(-1); return true;
    default: return QMainWindow::eventFilter(watched, event);
  }
}

void frmMain::OnListRowActivated(int row) {
  if (row < 0) return;
  document_.ClickEntry(row);
  commands_.Refresh();  // the list's current entry decides Rename
  // When the entry did not open (Cancel to the save question) the highlight goes back to
  // the entry shown, once the list has finished handling the click that moved it.
  if (document_.ShownRow() != row && document_.ShownRow() >= 0) {
    QMetaObject::invokeMethod(this, [this] { SelectListRow(document_.ShownRow()); }, Qt::QueuedConnection);
  }
}

void frmMain::SelectListRow(int row) {
  const QSignalBlocker blocker(lisLista_->selectionModel());
  if (row < 0) {
    lisLista_->selectionModel()->clear();
  } else {
    const QModelIndex index = list_.index(row, 0);
    lisLista_->selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
    lisLista_->scrollTo(index);
  }
  lisLista_->viewport()->update();
  picFondoThumbnails_->SetCurrentRow(row);
}

void frmMain::FitListColumn() {
  const QFontMetrics metrics(lisLista_->font());
  const browse::TextMeasure measure{[&metrics](const QString& text) { return metrics.horizontalAdvance(text); },
                                    [&metrics](QChar c) { return metrics.horizontalAdvance(c); }};
  const int width = browse::FitListColumnWidth(list_.Entries(), measure);
  lisLista_->header()->resizeSection(0, width);
}

void frmMain::RenameCurrentEntry() { lisLista_->edit(lisLista_->currentIndex()); }

}  // namespace app
