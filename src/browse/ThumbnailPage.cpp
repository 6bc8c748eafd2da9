#include "browse/ThumbnailPage.h"
#include "base/Texts.h"

#include "base/NumberRules.h"

#include <algorithm>

namespace browse {

ThumbnailGeometry ThumbnailGeometryFor(float screenHeightTwips, float twipsPerPixelY) {
  const float height = std::max(600.0f, screenHeightTwips / twipsPerPixelY);
  ThumbnailGeometry g;
  g.Scale = (height - 117) / 651;
  const auto whole = [&g](int base) { return int(numbers::Floor(base * double(g.Scale))); };
  g.Cell = QSize(whole(230), whole(180));
  g.Box = QSize(whole(130), whole(130));
  return g;
}

int PageCount(int items) { return (std::max(0, items) + kThumbnailsPerPage - 1) / kThumbnailsPerPage; }

PageRows RowsOfPage(int page, int items) {
  const int first = std::clamp((page - 1) * kThumbnailsPerPage, 0, std::max(0, items));
  return {first, std::min(items, first + kThumbnailsPerPage)};
}

int PageOfRow(int row) { return std::max(0, row) / kThumbnailsPerPage + 1; }

QString PageLabel(int page, int pageCount) {
  return Texts::tr("Page ") + numbers::FormatThousands(page) + Texts::tr(" of ") +
         numbers::FormatThousands(pageCount);
}

DrawnSize DrawnSizeInBox(QSize image, QSize box, float twipsPerPixelX, float twipsPerPixelY) {
  if (image.isEmpty()) return {};
  const double factor = std::min(box.width() * double(twipsPerPixelX) / image.width(),
                                 box.height() * double(twipsPerPixelY) / image.height());
  const auto side = [factor](int pixels, float twipsPerPixel) {
    const auto twips = numbers::RoundToInt32(pixels * factor).value_or(0);
    return numbers::RoundedDiv(twips, twipsPerPixel).value_or(0);
  };
  const QSize drawn(side(image.width(), twipsPerPixelX), side(image.height(), twipsPerPixelY));
  const auto within = [](int v) { return v >= 10 && v <= 500; };
  return {drawn, within(drawn.width()) && within(drawn.height())};
}

QString SizeCaption(QSize image) {
  return numbers::FormatThousands(image.width()) + QStringLiteral(" x ") + numbers::FormatThousands(image.height());
}

}  // namespace browse
