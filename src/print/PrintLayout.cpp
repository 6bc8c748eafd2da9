#include "print/PrintLayout.h"

#include "print/Margins.h"

#include <algorithm>

namespace print {

QRectF PrintableArea(QSizeF page, const PrintOptions& options) {
  const auto [left, right, top, bottom] = MarginsInPoints(options.Margins, options.Units);
  const QRectF area(left, top, page.width() - left - right, page.height() - top - bottom);
  return area.width() > 0 && area.height() > 0 ? area : QRectF();
}

QRectF ImagePlacement(QSizeF page, QSize image, double dotsPerInch, const PrintOptions& options) {
  const QRectF area = PrintableArea(page, options);
  if (area.isEmpty() || image.isEmpty()) return {};
  const double dpi = dotsPerInch > 0 ? dotsPerInch : 96.0;
  QSizeF size(image.width() * 72.0 / dpi, image.height() * 72.0 / dpi);
  if (options.FitToPage || size.width() > area.width() || size.height() > area.height()) {
    size.scale(area.size(), Qt::KeepAspectRatio);
  }
  const double x = options.CenterHorizontally ? area.left() + (area.width() - size.width()) / 2 : area.left();
  const double y = options.CenterVertically ? area.top() + (area.height() - size.height()) / 2 : area.top();
  return QRectF(QPointF(x, y), size);
}

}  // namespace print
