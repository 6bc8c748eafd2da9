#include "imaging/Drawing.h"

#include "imaging/ImageInternal.h"
#include "imaging/Sniff.h"

namespace imaging {

bool IsScalableDrawing(const QString& path) {
  const Decision decision = DecisionFor(path);
  return decision.Via == Route::Vips && decision.Format == QLatin1String("SVG");
}

// libvips draws the drawing in tiles on demand, so the crop draws only the area's tiles.
std::optional<Image> DrawnArea(const QString& path, double scale, const QRect& area) {
  Initialize();
  try {
    const vips::VSource source = SourceOf(path);
    const vips::VImage drawing = vips::VImage::svgload_source(source, vips::VImage::option()->set("scale", scale));
    const QRect part = area & QRect(0, 0, drawing.width(), drawing.height());
    if (part.isEmpty()) return std::nullopt;
    return Wrap(drawing.crop(part.x(), part.y(), part.width(), part.height()));
  } catch (const vips::VError&) {
    vips_error_clear();
    return std::nullopt;
  }
}

}  // namespace imaging
