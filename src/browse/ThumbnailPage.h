#pragma once
// The arithmetic of the Thumbnails view, without widgets: the scale taken from the
// screen's height, the cell and picture box sizes, which list items a page holds, the
// page label, and the size a picture is drawn at in its box.

#include <QSize>
#include <QString>

namespace browse {

inline constexpr int kThumbnailsPerPage = 12;  // 3 rows of 4
inline constexpr int kThumbnailColumns = 4;
inline constexpr int kPageStripPixels = 60;

struct ThumbnailGeometry {
  float Scale = 1;
  QSize Cell;  // pixels
  QSize Box;   // the picture box, pixels
};

// A screen 768 pixels high gives scale 1; below 600 pixels it counts as 600.
ThumbnailGeometry ThumbnailGeometryFor(float screenHeightTwips, float twipsPerPixelY);

// 0 for an empty list.
int PageCount(int items);
// The 0-based list rows of a page (1-based), in cell order: [first, last).
struct PageRows {
  int First = 0;
  int Last = 0;
};
PageRows RowsOfPage(int page, int items);
// The page (1-based) that holds a list row.
int PageOfRow(int row);

// "Page 3 of 1,204".
QString PageLabel(int page, int pageCount);

// The picture scaled into its box keeping its proportions (small ones enlarged), by way of
// twips as the box is measured; Resample when both sides lie within 10..500 pixels.
struct DrawnSize {
  QSize Size;
  bool Resample = false;
};
DrawnSize DrawnSizeInBox(QSize imagePixels, QSize boxPixels, float twipsPerPixelX, float twipsPerPixelY);

// The second caption line: "1,024 x 768".
QString SizeCaption(QSize imagePixels);

}  // namespace browse
