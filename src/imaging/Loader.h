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
// "gif", "ico", "rle", "wmf" composited onto white. `page` (0 the first) picks a page of a
// file of several (a TIFF, a DCX, a HEIF collection); an icon's images count largest first.
// nullopt when it cannot be read (the caller says "Can't open file").
// `cores` says whether the decode may spread over the machine's cores (a JPEG's over two).
enum class DecodeCores { All, One };
std::optional<Loaded> LoadImage(const QString& path, int page = 0, DecodeCores cores = DecodeCores::All);
std::optional<Image> LoadFile(const QString& path, int page = 0, DecodeCores cores = DecodeCores::All);

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
  bool Animated = false;  // the pages are an animation's frames (GIF, WebP)
  // The pages a user turns: 1 for an animation, which plays instead.
  int TurnablePages() const { return Animated ? 1 : Pages; }
};
SourceFacts ReadSourceFacts(const QString& path);
// Only the pages and frames, where opening a picture or drawing a thumbnail asks: a type
// the format table says holds one picture (JPEG, PNG, BMP...) is not read at all.
SourceFacts ReadPageFacts(const QString& path);

// Decodes at a reduced size, fitting within the box, using shrink-on-load where the
// format has it (JPEG by its DCT, WebP, HEIF), for thumbnails and fitted display.
struct FittingLoad {
  QSize Original;         // the upright size before fitting
  bool TimedOut = false;  // the decoder ran out of time: the machine was busy, the file may be fine
};
std::optional<Image> LoadFitting(const QString& path, int maxWidth, int maxHeight, FittingLoad* facts = nullptr);

// The first pixels of a large picture while the whole one is read, upright and in its
// colours: a JPEG decoded at an eighth of its size by its DCT (about a third of a whole
// decode), a HEIF file's own thumbnail. nullopt for any other file, or a HEIF without one.
std::optional<Image> LoadGlimpse(const QString& path);

// The small picture a camera keeps in a JPEG's EXIF, upright: a first glimpse while the
// photo itself is decoded. nullopt when there is none, or its proportions are not the photo's.
std::optional<Image> ReadEmbeddedPreview(const QString& path);

// True for the six extensions that are composited onto white.
bool ComesInOnWhite(const QString& lowerCaseExtension);

}  // namespace imaging
