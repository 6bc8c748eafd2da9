#pragma once
// The copy of an image the canvas paints: at its own size for 100 % and above, reduced for
// the zooms below (a picture with alpha keeps it, to be drawn over a checkerboard).

#include "imaging/Image.h"

#include <QImage>
#include <QSize>

namespace view {

QImage ScreenCopy(const imaging::Image& image, QSize size);

}  // namespace view
