#pragma once
// Plays an Enhanced Metafile onto an image at its frame size at 96 dpi, as Windows shows
// it at 100 %. The subset covers what drawings use: mapping modes, world transforms,
// pens, brushes, paths, lines, polygons, Béziers, rectangles, ellipses, text and DIBs.
// Runs in the `vistrel-emf` helper process, never in the viewer.

#include "imaging/emf/EmfReader.h"

#include <QImage>

#include <cstdint>
#include <optional>

namespace imaging::emf {

// The output size for a header: the frame (0.01 mm) at 96 dpi, else the bounds.
QSize OutputSize(const Header& header);

// nullopt for what is not an EMF, or whose size exceeds `maxPixels`; drawn on white, as
// the viewer shows metafiles (one buffer of 32-bit pixels, no alpha).
std::optional<QImage> Render(const QByteArray& file, std::int64_t maxPixels);

}  // namespace imaging::emf
