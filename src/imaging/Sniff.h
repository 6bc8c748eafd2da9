#pragma once
// Which decoder reads a file: from its first bytes, else from its extension.

#include <QByteArray>
#include <QString>

namespace imaging {

enum class Route {
  Vips,    // libvips' own, fuzzed loaders in this process: JPEG, PNG, GIF, TIFF, WebP, HEIF
  Qt,      // Qt's image readers in this process: BMP, ICO, CUR, PBM, PGM, PPM
  Helper,  // ImageMagick in a capped helper process: the legacy formats
  Raw,     // LibRaw in our capped helper process: camera RAW (imaging/Raw.h)
  Pdf,     // poppler's pdftoppm in a capped helper process (imaging/Pdf.h)
  None,
};

struct Decision {
  Route Via = Route::None;
  QString Format;  // display name, and ImageMagick's coder for Route::Helper
};

Decision ChooseDecoder(const QByteArray& head, const QString& lowerCaseExtension);
// The same for a file, from its first bytes and its name; Route::None when it does not open.
Decision DecisionFor(const QString& path);

// The coder the helper uses for an extension, when the in-process reader fails.
QString HelperCoderForExtension(const QString& lowerCaseExtension);

// The bytes of a DCX file's header: its magic number and a table of up to 1,023 page
// offsets that ends at a zero.
inline constexpr int kDcxHeaderBytes = 4 * 1024;
// The pages that table lists; 1 for anything else (a DCX lists at least one).
int DcxPageCount(const QByteArray& header);

}  // namespace imaging
