#pragma once
// A WordPerfect Graphics 1.0 bitmap writer (no library writes WPG). The file is the
// 16-byte header, then the records Start, Colormap (256 colours chosen by libimagequant),
// Bitmap type 1 (8 bits a pixel, run-length encoded rows, top row first) and End.

#include "imaging/Image.h"

#include <QByteArray>

#include <optional>

namespace imaging {

// nullopt when a side exceeds 65,535 pixels (the format's limit) or quantising failed.
std::optional<QByteArray> EncodeWpg(const Image& image);

// WPG 1 run-length coding of one row of bytes: 0x80|n then a byte repeats it n times;
// n (1..127) then n bytes copies them. Codes 0x00 and 0x80 are never written.
QByteArray WpgRunLength(const QByteArray& row);

}  // namespace imaging
