#include "print/Printing.h"

#include <QPainter>
#include <QPrinter>

namespace print {

QSizeF PagePoints(const QPrinter& printer) { return printer.pageLayout().fullRect(QPageLayout::Point).size(); }

void DrawPage(QPainter& painter, const imaging::Image& picture, QSizeF pagePoints, double pixelsPerPoint,
              const PrintOptions& options) {
  const QRectF placed = ImagePlacement(pagePoints, QSize(picture.Width(), picture.Height()), picture.DotsPerInch(), options);
  if (placed.isEmpty()) return;
  const QRectF target(placed.topLeft() * pixelsPerPoint, placed.size() * pixelsPerPoint);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawImage(target, picture.ToQImage());
}

// The painter works in the printer's device pixels over the full page: point p of the
// page is at p times the resolution over 72.
bool PrintPages(QPrinter& printer, const std::vector<PageSource>& pages, const PrintOptions& options) {
  printer.setFullPage(true);
  QPainter painter;
  bool started = false;
  for (const PageSource& page : pages) {
    const auto picture = page();
    if (!picture) continue;
    if (!started) {
      if (!painter.begin(&printer)) return false;
      started = true;
    } else if (!printer.newPage()) {
      return false;
    }
    DrawPage(painter, *picture, PagePoints(printer), printer.resolution() / 72.0, options);
  }
  return started && painter.end();
}

}  // namespace print
