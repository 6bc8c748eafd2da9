#pragma once
// The Thumbnails view, `picFondoThumbnails`: the folder's list entries as pages of 12
// pictures with captions on `picThumbnails`, under the navigation strip `picPagina`
// ("<< First", "< Previous", "Next >", "Last >>", "Go to Page..." and `lblPagina`). The
// strip and the empty cells show at once; the pictures come from the desktop's thumbnail
// cache or are decoded reduced on worker threads at the screen's device pixels, and fill
// in cell order; a page left behind stops being decoded. The list's current entry is the
// highlighted tile: the keys move it and its page follows, and a change to the list
// redraws the page.

#include "base/Twips.h"
#include "browse/FileListModel.h"
#include "browse/ThumbnailCache.h"
#include "browse/ThumbnailPage.h"

#include <QFuture>
#include <QImage>
#include <QScrollArea>

#include <atomic>
#include <memory>
#include <vector>

class QLabel;
class QPushButton;

namespace browse {

class ThumbnailsView : public QScrollArea {
  Q_OBJECT

 public:
  ThumbnailsView(const FileListModel& list, const base::ScreenMetrics& metrics, QWidget* parent = nullptr);
  ~ThumbnailsView() override;

  void SetFolder(const QString& folder) { folder_ = folder; }
  void SetBackground(const QColor& color);
  // Draws a page (1-based, clamped to the pages there are).
  void ShowPage(int page);
  int Page() const { return page_; }
  int Pages() const { return PageCount(list_.Count()); }
  // True when every cell of the page shown has its picture or its failure.
  bool PageComplete() const;
  // Highlights the tile of a list row (-1: none) and shows its page.
  void SetCurrentRow(int row);
  int CurrentRow() const { return current_; }

  struct Cell {
    QString Name;     // shortened to the box
    QSize ImageSize;  // empty while loading or when the file did not open
    QImage Picture;   // at the drawn size, in device pixels
    QString Badge;    // "3 pages", "12 frames": a file of several, marked on its picture
    bool Done = false;
  };
  const std::vector<Cell>& Cells() const { return cells_; }
  const ThumbnailGeometry& Geometry() const { return geometry_; }

 Q_SIGNALS:
  void EntryClicked(int row);
  void EntryDoubleClicked(int row);
  void ContextMenuRequested(const QPoint& globalPosition);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  class PageWidget;
  void ListChanged();
  void MoveCurrent(int by);
  QWidget* BuildStrip(QWidget* parent);
  void AskForPage();
  void StartDecoding();
  void StopDecoding();
  void Delivered(int generation, int index, Cell cell);
  int RowAt(QPoint pagePosition) const;

  const FileListModel& list_;
  const base::ScreenMetrics& metrics_;
  QString folder_;
  PageWidget* picThumbnails_ = nullptr;
  QWidget* picPagina_ = nullptr;
  QLabel* lblPagina_ = nullptr;
  std::vector<QPushButton*> picBoton_;
  ThumbnailGeometry geometry_;
  int page_ = 1;
  int current_ = -1;
  int wheelTurn_ = 0;  // wheel movement not yet turned into a page
  std::vector<Cell> cells_;
  std::shared_ptr<std::atomic_int> generation_ = std::make_shared<std::atomic_int>(0);
  std::vector<QFuture<void>> decoding_;
  ThumbnailCache cache_ = ThumbnailCache::ForUser();
};

}  // namespace browse
