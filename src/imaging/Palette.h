#pragma once
// Images stored through a palette (1-bit, 16- and 256-colour BMP, PCX, GIF and PNG) are
// saved through a palette again as long as their colours still fit in it, instead of
// growing to 24 bits.

#include "imaging/Image.h"

#include <QByteArray>
#include <QImage>
#include <QString>

namespace imaging {

// The palette depth a file's header declares: 1, 4 or 8 bits; 0 for a file that stores
// its colours directly or is not one of those formats.
int PaletteBitsOfHeader(const QByteArray& head);
int PaletteBitsOfFile(const QString& path);

// The picture with an exact palette of at most 2^bits colours (1-bit as Format_Mono, else
// Format_Indexed8); a null image when it has more colours, or transparency.
QImage ToExactPalette(const Image& image, int bits);

}  // namespace imaging
