#pragma once
// A drawing (an SVG) drawn afresh for a zoom above 100 %: only the part asked for, at the
// zoom's scale, so its lines stay sharp without an enlarged copy of the whole picture.

#include "imaging/Image.h"

#include <QRect>
#include <QString>

#include <optional>

namespace imaging {

// The file is a drawing that can be drawn at any scale.
bool IsScalableDrawing(const QString& path);

// `area` (in pixels at `scale`) of the drawing drawn at `scale` times its own size; nullopt
// when it cannot be drawn or the area lies outside it.
std::optional<Image> DrawnArea(const QString& path, double scale, const QRect& area);

}  // namespace imaging
