#include "imaging/Sniff.h"
#include "base/FileFormats.h"

#include "imaging/emf/EmfReader.h"

#include <QHash>

#include <algorithm>

namespace imaging {

namespace {

bool Starts(const QByteArray& head, const char* magic, qsizetype length) {
  return head.size() >= length && std::equal(magic, magic + length, head.constData());
}

}  // namespace

QString HelperCoderForExtension(const QString& ext) {
  const base::FileFormat* format = base::FindFileFormat(ext);
  return format ? QLatin1String(format->HelperCoder) : QString();
}

Decision ChooseDecoder(const QByteArray& head, const QString& ext) {
  // Most RAW files are TIFF inside: the extension says which reader makes sense of them.
  if (HelperCoderForExtension(ext) == QLatin1String(base::kCameraRaw)) return {Route::Raw, "RAW"};
  if (Starts(head, "\xFF\xD8\xFF", 3)) return {Route::Vips, "JPEG"};
  if (Starts(head, "%PDF-", 5)) return {Route::Pdf, "PDF"};
  if (Starts(head, "\x89PNG", 4)) return {Route::Vips, "PNG"};
  // Qt's GIF reader: its 32-bit frame becomes the picture in its own buffer, where libvips'
  // loader would hold a canvas of its own beside ours.
  if (Starts(head, "GIF8", 4)) return {Route::Qt, "GIF"};
  if (Starts(head, "II*\0", 4) || Starts(head, "MM\0*", 4)) return {Route::Vips, "TIFF"};
  if (Starts(head, "RIFF", 4) && head.mid(8, 4) == "WEBP") return {Route::Vips, "WEBP"};
  if (head.mid(4, 4) == "ftyp") return {Route::Vips, "HEIF"};
  if (Starts(head, "\xFF\x0A", 2) || Starts(head, "\0\0\0\x0CJXL ", 8)) return {Route::Vips, "JXL"};
  if (Starts(head, "\0\0\0\x0CjP  ", 8) || Starts(head, "\xFF\x4F\xFF\x51", 4)) return {Route::Vips, "JP2"};
  if (ext == QLatin1String("svg") && head.trimmed().startsWith('<')) return {Route::Vips, "SVG"};  // libvips checks the rest
  if (Starts(head, "BM", 2)) return {Route::Qt, "BMP"};
  // Icons and cursors: reserved 0, type 1 or 2, then a non-zero image count (a raw
  // true-colour TGA also starts 00 00 02 00, but its count field is 0).
  const bool hasImages = head.size() >= 6 && (head[4] != 0 || head[5] != 0);
  if (Starts(head, "\0\0\1\0", 4) && hasImages) return {Route::Qt, "ICO"};
  if (Starts(head, "\0\0\2\0", 4) && hasImages) return {Route::Qt, "CUR"};
  if (head.size() >= 2 && head[0] == 'P' && head[1] >= '1' && head[1] <= '6') {
    static const char* const kNames[] = {"PBM", "PGM", "PPM"};
    return {Route::Qt, kNames[(head[1] - '1') % 3]};
  }
  if (Starts(head, "\xFFWPC", 4)) return {Route::Helper, "WPG"};
  if (emf::LooksLikeEmf(head)) return {Route::Helper, "EMF"};
  const QString coder = HelperCoderForExtension(ext);
  if (!coder.isEmpty()) return {Route::Helper, coder};
  return {};
}

int DcxPageCount(const QByteArray& header) {
  const auto word = [&header](qsizetype at) {
    const auto* bytes = reinterpret_cast<const unsigned char*>(header.constData() + at);
    return quint32(bytes[0]) | quint32(bytes[1]) << 8 | quint32(bytes[2]) << 16 | quint32(bytes[3]) << 24;
  };
  if (header.size() < 8 || word(0) != 0x3ADE68B1) return 1;
  int pages = 0;
  for (qsizetype at = 4; at + 4 <= std::min<qsizetype>(header.size(), kDcxHeaderBytes) && word(at) != 0; at += 4) ++pages;
  return std::max(1, pages);
}

}  // namespace imaging
