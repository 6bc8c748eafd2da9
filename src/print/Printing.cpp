#include "print/Printing.h"
#include "base/Texts.h"

#include <QPageSize>
#include <QPainter>
#include <QPrinter>

#ifdef __GLIBC__
#include <langinfo.h>
#endif

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

QString NoRoomReason() { return Texts::tr("the margins leave no room on the page"); }

// The C library keeps the paper of LC_PAPER as two numbers of millimetres returned in
// place of the text pointer.
QPageSize LocalePaper() {
#ifdef __GLIBC__
  const auto millimetres = [](nl_item item) {
    union {
      const char* text;
      unsigned int number;
    } value{nl_langinfo(item)};
    return value.number;
  };
  const unsigned width = millimetres(_NL_PAPER_WIDTH), height = millimetres(_NL_PAPER_HEIGHT);
  if (width > 0 && height > 0 && width < 10000 && height < 10000) {
    return QPageSize(QSizeF(width, height), QPageSize::Millimeter, {}, QPageSize::FuzzyMatch);
  }
#endif
  return QPageSize(QPageSize::A4);
}

}  // namespace print
