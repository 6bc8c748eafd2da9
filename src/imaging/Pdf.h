#pragma once
// PDF documents, each page a picture: poppler's pdftoppm renders a page in the capped helper
// process, at most 2000 pixels on its longer side, as a PNG that libvips reads here;
// pdfinfo counts the pages.

#include "imaging/Image.h"

#include <QString>

#include <optional>

namespace imaging {

// Page `page` (0 the first); nullopt for what poppler cannot render.
std::optional<Image> RenderPdfPage(const QString& path, int page = 0);
// The document's pages; 0 when it cannot be read.
int PdfPageCount(const QString& path);

}  // namespace imaging
