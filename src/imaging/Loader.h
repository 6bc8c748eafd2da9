#pragma once
// Loading image files: every format of the file type table and the ones users expect today, each by the safest decoder that
// reads it, with a pixel limit checked from the header before any decoding.

#include "imaging/Image.h"

#include <QSize>
#include <QString>

#include <cstdint>
#include <optional>

namespace imaging {

// Images larger than this many pixels are refused before they are decoded (as sharp does).
inline constexpr std::int64_t kMaxPixels = 0x3FFF * 0x3FFF;

struct Loaded {
  Image Picture;
  QString Format;  // "JPEG", "PNG", "BMP", "TGA" ...
};

// Decodes a whole file: upright by its EXIF orientation; the six types "cur", "emf",
// "gif", "ico", "rle", "wmf" composited onto white.
// nullopt when it cannot be read (the caller says "Can't open file").
std::optional<Loaded> LoadImage(const QString& path);
std::optional<Image> LoadFile(const QString& path);

// The file as an unevaluated pipeline read once from top to bottom (imaging/Streaming.h):
// only what libvips decodes in process, already upright, and not one of the six types
// brought in on white; nullopt otherwise.
std::optional<Image> OpenForStreaming(const QString& path);

// The upright size without decoding the pixels, where the format allows it.
std::optional<QSize> ReadImageSize(const QString& path);
// The same, but nullopt rather than a decode where the format has no cheap header read.
std::optional<QSize> ReadImageSizeCheaply(const QString& path);

// What the file holds beyond the one 8-bit picture the program shows and saves: its pages
// (or frames) and its bits per channel, as its header states them; one page of 8 bits
// where the header says nothing (or the file is read by the helper).
struct SourceFacts {
  int Pages = 1;
  int BitsPerChannel = 8;
};
SourceFacts ReadSourceFacts(const QString& path);

// Decodes at a reduced size, fitting within the box, using shrink-on-load where the
// format has it (JPEG, WebP, HEIF), for thumbnails and fitted display.
struct FittingLoad {
  QSize Original;         // the upright size before fitting
  bool TimedOut = false;  // the decoder ran out of time: the machine was busy, the file may be fine
};
std::optional<Image> LoadFitting(const QString& path, int maxWidth, int maxHeight, FittingLoad* facts = nullptr);

// True for the six extensions that are composited onto white.
bool ComesInOnWhite(const QString& lowerCaseExtension);

}  // namespace imaging
