#include "browse/ThumbnailsView.h"
#include "browse/ListBadges.h"

#include "base/Colors.h"
#include "base/Paths.h"
#include "imaging/Loader.h"
#include "widgets/TextFit.h"
#include "widgets/frmTexto.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QScrollBar>
#include <QWheelEvent>
#include <QtConcurrent/QtConcurrentRun>

namespace browse {

// `picThumbnails`: the strip on top, then 3 rows of 4 cells, each a centred picture box
// with two caption lines under it.
class ThumbnailsView::PageWidget : public QWidget {
 public:
  explicit PageWidget(ThumbnailsView& view) : QWidget(&view), view_(view) {
    setObjectName(QStringLiteral("picThumbnails"));
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    for (int i = 0; i < int(view_.cells_.size()); ++i) PaintCell(painter, i);
  }
  // Either button makes the tile under the pointer current first, so the menu acts on it.
  void mousePressEvent(QMouseEvent* event) override {
    view_.setFocus();
    const int row = view_.RowAt(event->position().toPoint());
    if ((event->button() == Qt::LeftButton || event->button() == Qt::RightButton) && row >= 0) {
      Q_EMIT view_.EntryClicked(row);
    }
    if (event->button() == Qt::RightButton) Q_EMIT view_.ContextMenuRequested(event->globalPosition().toPoint());
  }
  void mouseDoubleClickEvent(QMouseEvent* event) override {
    const int row = view_.RowAt(event->position().toPoint());
    if (event->button() == Qt::LeftButton && row >= 0) Q_EMIT view_.EntryDoubleClicked(row);
  }

 private:
  void PaintCell(QPainter& painter, int index) {
    const ThumbnailGeometry& g = view_.geometry_;
    const Cell& cell = view_.cells_[size_t(index)];
    const int textHeight = fontMetrics().height();
    const int block = g.Box.height() + 3 + 2 * textHeight + 1;
    const QPoint cellTopLeft((index % kThumbnailColumns) * g.Cell.width(),
                             kPageStripPixels + (index / kThumbnailColumns) * g.Cell.height());
    const QRect box(cellTopLeft + QPoint((g.Cell.width() - g.Box.width()) / 2, (g.Cell.height() - block) / 2), g.Box);
    if (RowsOfPage(view_.page_, view_.list_.Count()).First + index == view_.current_) {
      const QRect tile = QRect(cellTopLeft, g.Cell).adjusted(3, 3, -3, -3);
      QColor fill = palette().color(QPalette::Highlight);
      painter.setPen(QPen(fill, 2));
      fill.setAlpha(80);
      painter.setBrush(fill);
      painter.drawRoundedRect(tile, 6, 6);
      painter.setBrush(Qt::NoBrush);
    }
    if (!cell.Picture.isNull()) {
      const QSize drawn = cell.Picture.deviceIndependentSize().toSize();
      const QRect picture(QPoint(box.left() + (box.width() - drawn.width()) / 2, box.top() + (box.height() - drawn.height()) / 2), drawn);
      painter.drawImage(picture.topLeft(), cell.Picture);
      if (!cell.Badge.isEmpty()) PaintBadge(painter, picture, cell.Badge);
    }
    const QRect firstLine(box.left() - 20, box.bottom() + 4, box.width() + 40, textHeight);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(firstLine, Qt::AlignHCenter, cell.Name);
    QString second;
    if (cell.Done) second = cell.ImageSize.isEmpty() ? tr("Can't open file") : SizeCaption(cell.ImageSize);
    painter.drawText(firstLine.translated(0, textHeight), Qt::AlignHCenter, second);
  }

  // A small dark label in the picture's top right corner.
  void PaintBadge(QPainter& painter, const QRect& picture, const QString& text) {
    QFont small = font();
    small.setPointSizeF(small.pointSizeF() * 0.8);
    const QFontMetrics metrics(small);
    const QRect label = QRect(0, 0, metrics.horizontalAdvance(text) + 8, metrics.height() + 2)
                            .translated(picture.right() - metrics.horizontalAdvance(text) - 10, picture.top() + 2);
    painter.save();
    painter.setFont(small);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0, 0, 0, 170));
    painter.drawRoundedRect(label, 4, 4);
    painter.setPen(Qt::white);
    painter.drawText(label, Qt::AlignCenter, text);
    painter.restore();
  }

  ThumbnailsView& view_;
};

namespace {

// A stored thumbnail is sRGB: the screen's profile is applied as it is shown.
QImage OnScreen(const QImage& srgb) {
  if (imaging::CurrentScreenColour() == imaging::ScreenColour{}) return srgb;
  return imaging::Image::FromQImage(srgb).ForScreen().copy();
}

// The file's thumbnail and its size: from the desktop's cache when it has a fresh one,
// otherwise decoded reduced (shrink-on-load) and given to the cache; a file that cannot
// be read is remembered there too.
std::pair<QImage, QSize> Thumbnail(const ThumbnailCache& cache, const QString& path, int side) {
  if (auto found = cache.Find(path, side)) {
    const QSize size = found->ImageSize.isEmpty() ? imaging::ReadImageSize(path).value_or(QSize()) : found->ImageSize;
    return {OnScreen(found->Picture), size};
  }
  if (cache.IsKnownFailure(path)) return {};
  imaging::FittingLoad facts;
  const auto decoded = imaging::LoadFitting(path, side, side, &facts);
  if (!decoded || facts.Original.isEmpty()) {
    if (!facts.TimedOut) cache.StoreFailure(path);  // a busy machine's failure is tried again next time
    return {};
  }
  cache.Store(path, decoded->ToQImage(), facts.Original, side);  // sRGB, as the desktop's thumbnails are
  return {decoded->ForScreen(), facts.Original};
}

}  // namespace

ThumbnailsView::ThumbnailsView(const FileListModel& list, const base::ScreenMetrics& metrics, QWidget* parent)
    : QScrollArea(parent), list_(list), metrics_(metrics) {
  setObjectName(QStringLiteral("picFondoThumbnails"));
  horizontalScrollBar()->setObjectName(QStringLiteral("hscThumbnails"));
  verticalScrollBar()->setObjectName(QStringLiteral("vscThumbnails"));
  setAlignment(Qt::AlignCenter);
  setWidgetResizable(false);
  picThumbnails_ = new PageWidget(*this);
  picThumbnails_->setAutoFillBackground(false);
  picPagina_ = BuildStrip(picThumbnails_);
  setWidget(picThumbnails_);
  setFocusPolicy(Qt::StrongFocus);
  connect(&list_, &FileListModel::modelReset, this, &ThumbnailsView::ListChanged);
  connect(&list_, &FileListModel::layoutChanged, this, &ThumbnailsView::ListChanged);
  connect(&list_, &FileListModel::dataChanged, this, &ThumbnailsView::ListChanged);
}

// The tasks still running hold `this` for posting their result: they finish first.
ThumbnailsView::~ThumbnailsView() {
  StopDecoding();
  for (QFuture<void>& task : decoding_) task.waitForFinished();
}

QWidget* ThumbnailsView::BuildStrip(QWidget* parent) {
  auto* strip = new QWidget(parent);
  strip->setObjectName(QStringLiteral("picPagina"));
  auto* layout = new QHBoxLayout(strip);
  const QString captions[] = {tr("<< First"), tr("< Previous"), tr("Next >"), tr("Last >>"), tr("Go to Page...")};
  for (int i = 0; i < 5; ++i) {
    auto* button = new QPushButton(captions[i], strip);
    button->setObjectName(QStringLiteral("picBoton(%1)").arg(i));
    button->setFocusPolicy(Qt::NoFocus);
    layout->addWidget(button);
    picBoton_.push_back(button);
    if (i == 3) {
      lblPagina_ = new QLabel(strip);
      lblPagina_->setObjectName(QStringLiteral("lblPagina"));
      layout->addWidget(lblPagina_, 1, Qt::AlignCenter);
    }
  }
  connect(picBoton_[0], &QPushButton::clicked, this, [this] { ShowPage(1); });
  connect(picBoton_[1], &QPushButton::clicked, this, [this] { ShowPage(page_ - 1); });
  connect(picBoton_[2], &QPushButton::clicked, this, [this] { ShowPage(page_ + 1); });
  connect(picBoton_[3], &QPushButton::clicked, this, [this] { ShowPage(Pages()); });
  connect(picBoton_[4], &QPushButton::clicked, this, &ThumbnailsView::AskForPage);
  return strip;
}

void ThumbnailsView::SetBackground(const QColor& color) {
  QPalette p = viewport()->palette();
  p.setColor(QPalette::Window, color);
  viewport()->setPalette(p);
  viewport()->setAutoFillBackground(true);
  QPalette text = picThumbnails_->palette();
  text.setColor(QPalette::WindowText, base::TextColorOn(color));
  picThumbnails_->setPalette(text);
}

void ThumbnailsView::AskForPage() {
  const auto dialog = widgets::GoToPageDialog(Pages(), this);
  if (dialog->exec() == QDialog::Accepted) ShowPage(dialog->Text().toInt());
}

// The strip and the empty cells at once, then the pictures as they are decoded.
void ThumbnailsView::ShowPage(int page) {
  StopDecoding();
  geometry_ = ThumbnailGeometryFor(metrics_.ScreenHeightTwips, metrics_.TwipsPerPixelY);
  page_ = std::clamp(page, std::min(1, Pages()), Pages());
  picThumbnails_->resize(kThumbnailColumns * geometry_.Cell.width(), kPageStripPixels + 3 * geometry_.Cell.height());
  picPagina_->setGeometry(0, 0, picThumbnails_->width(), kPageStripPixels);
  lblPagina_->setText(PageLabel(page_, Pages()));
  picBoton_[0]->setEnabled(page_ > 1);
  picBoton_[1]->setEnabled(page_ > 1);
  picBoton_[2]->setEnabled(page_ < Pages());
  picBoton_[3]->setEnabled(page_ < Pages());
  picBoton_[4]->setEnabled(Pages() > 1);
  const PageRows rows = RowsOfPage(page_, list_.Count());
  cells_.assign(size_t(rows.Last - rows.First), {});
  // Captions are shortened to the box once here, not at every paint.
  for (int row = rows.First; row < rows.Last; ++row) {
    cells_[size_t(row - rows.First)].Name =
        widgets::FitTextToWidth(list_.Entry(row).DisplayName, geometry_.Box.width(), picThumbnails_->fontMetrics());
  }
  picThumbnails_->update();
  StartDecoding();
}

// Renamed, deleted or added entries: the page shown is drawn again from the list.
void ThumbnailsView::ListChanged() {
  if (current_ >= list_.Count()) current_ = -1;
  if (isVisible()) ShowPage(page_);
}

// Hidden, the view only notes the row: stepping in the other views decodes no thumbnails.
void ThumbnailsView::SetCurrentRow(int row) {
  current_ = row >= 0 && row < list_.Count() ? row : -1;
  if (!isVisible()) return;
  if (current_ >= 0 && PageOfRow(current_) != page_) {
    ShowPage(PageOfRow(current_));
  } else {
    picThumbnails_->update();
  }
}

// The arrows move the current tile by one cell, Page Up and Page Down by a page, Home and
// End to the ends; the move opens the entry as a click does. Enter opens it full screen.
void ThumbnailsView::keyPressEvent(QKeyEvent* event) {
  if (event->modifiers() & ~Qt::KeypadModifier) return QScrollArea::keyPressEvent(event);
  const int last = list_.Count() - 1;
  switch (event->key()) {
    case Qt::Key_Left: MoveCurrent(-1); break;
    case Qt::Key_Right: MoveCurrent(1); break;
    case Qt::Key_Up: MoveCurrent(-kThumbnailColumns); break;
    case Qt::Key_Down: MoveCurrent(kThumbnailColumns); break;
    case Qt::Key_PageUp: MoveCurrent(-kThumbnailsPerPage); break;
    case Qt::Key_PageDown: MoveCurrent(kThumbnailsPerPage); break;
    case Qt::Key_Home: MoveCurrent(-std::max(0, current_)); break;
    case Qt::Key_End: MoveCurrent(last - std::max(0, current_)); break;
    case Qt::Key_Return: case Qt::Key_Enter:
      if (current_ >= 0) Q_EMIT EntryDoubleClicked(current_);
      break;
    default: return QScrollArea::keyPressEvent(event);
  }
}

void ThumbnailsView::MoveCurrent(int by) {
  if (list_.Count() == 0) return;
  const int target = current_ < 0 ? 0 : std::clamp(current_ + by, 0, list_.Count() - 1);
  if (target != current_) Q_EMIT EntryClicked(target);
}

// The wheel scrolls a page taller than the window first, then turns pages, one a notch.
void ThumbnailsView::wheelEvent(QWheelEvent* event) {
  const int delta = event->angleDelta().y();
  QScrollBar* bar = verticalScrollBar();
  const bool canScroll = delta < 0 ? bar->value() < bar->maximum() : bar->value() > bar->minimum();
  if (delta == 0 || canScroll) return QScrollArea::wheelEvent(event);
  wheelTurn_ += delta;
  const int notches = wheelTurn_ / 120;
  wheelTurn_ -= notches * 120;
  if (notches != 0) ShowPage(std::clamp(page_ - notches, 1, std::max(1, Pages())));
  event->accept();
}

bool ThumbnailsView::PageComplete() const {
  return std::all_of(cells_.begin(), cells_.end(), [](const Cell& cell) { return cell.Done; });
}

// One task a cell on the shared pool (both cores), queued in cell order; each stops at
// once when the page it belongs to is no longer shown.
void ThumbnailsView::StartDecoding() {
  const int generation = ++*generation_;
  const PageRows rows = RowsOfPage(page_, list_.Count());
  for (int row = rows.First; row < rows.Last; ++row) {
    const QString path = base::JoinPath(folder_, list_.Entry(row).FileName);
    const qreal ratio = devicePixelRatioF();
    const QSize box = geometry_.Box;
    const base::ScreenMetrics metrics = metrics_;
    decoding_.push_back(QtConcurrent::run([this, generation, index = row - rows.First, path, box, ratio, metrics,
                                           current = generation_, cache = cache_] {
      if (current->load() != generation) return;
      const auto [picture, size] = Thumbnail(cache, path, ThumbnailCache::SideFor(box * ratio));
      Cell cell;
      const DrawnSize drawn = DrawnSizeInBox(size, box, metrics.TwipsPerPixelX, metrics.TwipsPerPixelY);
      if (!picture.isNull() && !drawn.Size.isEmpty()) {
        cell.ImageSize = size;
        cell.Picture = picture.scaled(drawn.Size * ratio, Qt::IgnoreAspectRatio,
                                      drawn.Resample ? Qt::SmoothTransformation : Qt::FastTransformation);
        cell.Picture.setDevicePixelRatio(ratio);
      }
      cell.Badge = PageBadge(path);
      cell.Done = true;
      QMetaObject::invokeMethod(this, [this, generation, index, cell] { Delivered(generation, index, cell); },
                                Qt::QueuedConnection);
    }));
  }
}

// The page left behind: its tasks not started return at once, and a result still coming is
// dropped, so paging never waits for a decode.
void ThumbnailsView::StopDecoding() {
  ++*generation_;
  std::erase_if(decoding_, [](const QFuture<void>& task) { return task.isFinished(); });
}

void ThumbnailsView::Delivered(int generation, int index, Cell cell) {
  if (generation != generation_->load() || index >= int(cells_.size())) return;
  cell.Name = cells_[size_t(index)].Name;
  cells_[size_t(index)] = std::move(cell);
  picThumbnails_->update();
}

int ThumbnailsView::RowAt(QPoint position) const {
  if (position.y() < kPageStripPixels || geometry_.Cell.isEmpty()) return -1;
  const int column = position.x() / geometry_.Cell.width();
  const int line = (position.y() - kPageStripPixels) / geometry_.Cell.height();
  const int index = line * kThumbnailColumns + column;
  if (column >= kThumbnailColumns || index >= int(cells_.size())) return -1;
  return RowsOfPage(page_, list_.Count()).First + index;
}

}  // namespace browse
