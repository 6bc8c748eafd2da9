#include "imaging/Raw.h"

#include "imaging/Decoders.h"
#include "imaging/ImageInternal.h"
#include "imaging/Loader.h"
#include "imaging/Pam.h"
#include "imaging/Sniff.h"
#include "base/FileFormats.h"

#include <QFileInfo>

namespace imaging {

namespace {

// An embedded preview is a JPEG of a few megabytes, or a small bitmap.
constexpr qint64 kLargestPreview = qint64(64) << 20;

struct PreviewHeader {
  QSize Developed;
  int Orientation = 1;
  qsizetype DataOffset = 0;
};

// "RAW <width> <height> <orientation>\n"
std::optional<PreviewHeader> ParseHeader(const QByteArray& output) {
  const qsizetype end = output.indexOf('\n');
  const QList<QByteArray> words = output.left(std::max<qsizetype>(end, 0)).split(' ');
  if (end < 0 || words.size() != 4 || words[0] != "RAW") return std::nullopt;
  PreviewHeader header{QSize(words[1].toInt(), words[2].toInt()), words[3].toInt(), end + 1};
  if (header.Developed.isEmpty() || header.Orientation < 1 || header.Orientation > 8) return std::nullopt;
  return header;
}

// The preview's own pixels: a JPEG decoded here (at 1/2 to 1/8 scale when it is much larger
// than the box), a bitmap as the PAM it came as.
std::optional<vips::VImage> DecodePreview(const QByteArray& data, int maxWidth, int maxHeight) {
  if (data.startsWith("P7")) {
    PamReceiver receiver(kMaxPixels, false);
    auto picture = receiver.Take(data) ? receiver.Finish() : std::nullopt;
    if (!picture) return std::nullopt;
    return picture->Internal().image;
  }
  if (!data.startsWith("\xFF\xD8")) return std::nullopt;
  vips::VImage header = vips::VImage::new_from_buffer(data.constData(), size_t(data.size()), "");
  if (std::int64_t(header.width()) * header.height() > kMaxPixels) return std::nullopt;
  int shrink = 1;
  while (maxWidth > 0 && maxHeight > 0 && shrink < 8 && header.width() / (shrink * 2) >= maxWidth &&
         header.height() / (shrink * 2) >= maxHeight) {
    shrink *= 2;
  }
  return vips::VImage::new_from_buffer(data.constData(), size_t(data.size()), "",
                                       vips::VImage::option()->set("shrink", shrink)->set("fail", true))
      .copy_memory();
}

}  // namespace

bool IsCameraRaw(const QString& path) {
  return HelperCoderForExtension(QFileInfo(path).suffix().toLower()) == QLatin1String(base::kCameraRaw);
}

std::optional<RawPreview> ReadRawPreview(const QString& path, int maxWidth, int maxHeight) {
  Initialize();
  const QString file = QFileInfo(path).absoluteFilePath();
  const auto output = HelperDecoder::ForRaw().Output({QStringLiteral("preview"), file}, kLargestPreview);
  const auto header = output ? ParseHeader(*output) : std::nullopt;
  if (!header) return std::nullopt;
  try {
    auto pixels = DecodePreview(output->mid(header->DataOffset), maxWidth, maxHeight);
    if (!pixels) return std::nullopt;
    // The camera stored the preview as the sensor lies; the file's orientation turns it.
    pixels->set(VIPS_META_ORIENTATION, header->Orientation);
    Image picture = Wrap(pixels->autorot());
    if (maxWidth > 0 && maxHeight > 0) picture = picture.FitWithin(maxWidth, maxHeight);
    return RawPreview{std::move(picture), header->Developed};
  } catch (const vips::VError&) {
    vips_error_clear();
    return std::nullopt;
  }
}

QHash<QString, QString> ReadRawFacts(const QString& path) {
  QHash<QString, QString> facts;
  const auto output = HelperDecoder::ForRaw().Output({QStringLiteral("facts"), QFileInfo(path).absoluteFilePath()}, 64 * 1024);
  for (const QByteArray& line : output.value_or(QByteArray()).split('\n')) {
    const qsizetype tab = line.indexOf('\t');
    if (tab > 0) facts.insert(QString::fromUtf8(line.left(tab)), QString::fromUtf8(line.mid(tab + 1)).trimmed());
  }
  return facts;
}

std::optional<Image> DevelopRaw(const QString& path, bool half) {
  Initialize();
  QStringList arguments{QStringLiteral("develop"), QFileInfo(path).absoluteFilePath()};
  if (half) arguments << QStringLiteral("half");
  return HelperDecoder::ForRaw().DecodeOutput(arguments);
}

}  // namespace imaging
