// The file list `lisLista`: the view, its events, its column and its context menu.
#include "app/frmMain.h"

#include "base/Paths.h"
#include "browse/ListBadges.h"
#include "browse/ListColumn.h"
#include "browse/ThumbnailsView.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <QTreeView>

namespace app {

namespace {

// The list's own editor offers the base name for typing, as the Rename dialog does. The
// view selects the whole text after this, so the selection is made once it has. A file of
// several pages or frames is marked at the row's right end.
class ListDelegate : public QStyledItemDelegate {
 public:
  ListDelegate(browse::ListBadges& badges, std::function<QString(int row)> pathOf, QObject* parent)
      : QStyledItemDelegate(parent), badges_(badges), pathOf_(std::move(pathOf)) {}

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    QStyledItemDelegate::paint(painter, option, index);
    const auto badge = badges_.Find(pathOf_(index.row()));
    if (!badge || badge->isEmpty()) return;
    const int room = option.rect.width() - option.fontMetrics.horizontalAdvance(index.data().toString()) - 16;
    if (option.fontMetrics.horizontalAdvance(*badge) > room) return;  // the name comes first
    painter->save();
    painter->setPen(option.palette.color(option.state & QStyle::State_Selected ? QPalette::HighlightedText : QPalette::PlaceholderText));
    painter->drawText(option.rect.adjusted(0, 0, -4, 0), Qt::AlignRight | Qt::AlignVCenter, *badge);
    painter->restore();
  }

  void setEditorData(QWidget* editor, const QModelIndex& index) const override {
    QStyledItemDelegate::setEditorData(editor, index);
    if (auto* line = qobject_cast<QLineEdit*>(editor)) {
      QMetaObject::invokeMethod(line, [line] { line->setSelection(0, base::BaseNameLength(line->text())); },
                                Qt::QueuedConnection);
    }
  }

 private:
  browse::ListBadges& badges_;
  std::function<QString(int row)> pathOf_;
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
  lisLista_->setDragEnabled(true);  // an entry dragged out is its file, for a file manager or another program
  lisLista_->setDragDropMode(QAbstractItemView::DragOnly);
  list_.SetPathOf([this](int row) { return document_.EntryPath(row); });
  lisLista_->setEditTriggers(QAbstractItemView::EditKeyPressed | QAbstractItemView::SelectedClicked);
  lisLista_->setContextMenuPolicy(Qt::CustomContextMenu);
  lisLista_->setItemDelegate(new ListDelegate(listBadges_, [this](int row) { return document_.EntryPath(row); }, lisLista_));
  connect(&listBadges_, &browse::ListBadges::Ready, lisLista_->viewport(), qOverload<>(&QWidget::update));
  connect(&document_, &document::Document::ListFilled, &listBadges_, &browse::ListBadges::Clear);
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
