#pragma once
// The copy of an image the canvas paints: at its own size for 100 % and above, reduced for
// the zooms below (a picture with alpha keeps it, to be drawn over a checkerboard).

#include "imaging/Image.h"

#include <QImage>
#include <QSize>

namespace view {

// `quickly`: reduced the quicker way (imaging::Image::ReducedQuickly), for an animation's frames.
QImage ScreenCopy(const imaging::Image& image, QSize size, bool quickly = false);

}  // namespace view
