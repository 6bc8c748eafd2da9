#include "imaging/Pdf.h"

#include "imaging/Decoders.h"
#include "imaging/ImageInternal.h"
#include "imaging/Loader.h"

#include <QFileInfo>
#include <QRegularExpression>

namespace imaging {

namespace {

constexpr int kLongerSide = 2000;
constexpr qint64 kLargestPng = qint64(64) << 20;

HelperDecoder Poppler(const char* program) { return HelperDecoder(QLatin1String(program), {}, HelperLimits{}); }

}  // namespace

std::optional<Image> RenderPdfPage(const QString& path, int page) {
  Initialize();
  const QString number = QString::number(page + 1);
  const auto png = Poppler("pdftoppm").Output({"-f", number, "-l", number, "-scale-to", QString::number(kLongerSide), "-singlefile",
                                               "-png", QFileInfo(path).absoluteFilePath()},
                                              kLargestPng);
  if (!png || !png->startsWith("\x89PNG")) return std::nullopt;
  try {
    const vips::VImage picture = vips::VImage::new_from_buffer(png->constData(), size_t(png->size()), "");
    if (std::int64_t(picture.width()) * picture.height() > kMaxPixels) return std::nullopt;
    return Wrap(picture.copy_memory());
  } catch (const vips::VError&) {
    vips_error_clear();
    return std::nullopt;
  }
}

int PdfPageCount(const QString& path) {
  const auto info = Poppler("pdfinfo").Output({QFileInfo(path).absoluteFilePath()}, 1 << 20);
  const QRegularExpressionMatch pages = QRegularExpression(QStringLiteral("^Pages:\\s+(\\d+)$"), QRegularExpression::MultilineOption)
                                            .match(QString::fromUtf8(info.value_or(QByteArray())));
  return pages.hasMatch() ? pages.captured(1).toInt() : 0;
}

}  // namespace imaging
