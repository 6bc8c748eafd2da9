#include "print/Printing.h"

#include <QPainter>
#include <QPrinter>

#include <algorithm>

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
PrintOutcome PrintPages(QPrinter& printer, const std::vector<PageSource>& pages, const PrintOptions& options) {
  printer.setFullPage(true);
  if (PrintableArea(PagePoints(printer), options).isEmpty()) return PrintOutcome::NoRoom;
  const int copies = printer.outputFormat() == QPrinter::PdfFormat ? std::max(1, printer.copyCount()) : 1;
  QPainter painter;
  bool started = false;
  for (int copy = 0; copy < copies; ++copy) {
    for (const PageSource& page : pages) {
      const auto picture = page();
      if (!picture) continue;
      if (!started) {
        if (!painter.begin(&printer)) return PrintOutcome::Failed;
        started = true;
      } else if (!printer.newPage()) {
        return PrintOutcome::Failed;
      }
      DrawPage(painter, *picture, PagePoints(printer), printer.resolution() / 72.0, options);
    }
  }
  return started && painter.end() ? PrintOutcome::Printed : PrintOutcome::Failed;
}

QString NoRoomReason() { return QStringLiteral("the margins leave no room on the page"); }

}  // namespace print
