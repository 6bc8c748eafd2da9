#pragma once
// Where an image lands on a printed page, in points (1/72 inch) from the page's top-left
// corner: within the margins, fitted to them or at its own size (by its resolution, 96
// dots per inch when it records none, reduced when larger than the space), left and top
// or centred either way.

#include <QRectF>
#include <QSize>
#include <QSizeF>

#include <array>

namespace print {

struct PrintOptions {
  std::array<float, 4> Margins = {0.7f, 0.7f, 0.7f, 0.7f};  // left, right, top, bottom, in `Units`
  int Units = 0;                                            // 0 inches, 1 centimetres
  bool FitToPage = true;
  bool CenterHorizontally = true;
  bool CenterVertically = true;
};

// The space inside the margins; empty when the margins leave none.
QRectF PrintableArea(QSizeF pagePoints, const PrintOptions& options);

QRectF ImagePlacement(QSizeF pagePoints, QSize imagePixels, double dotsPerInch, const PrintOptions& options);

}  // namespace print
