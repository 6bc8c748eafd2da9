#include "imaging/ops/OpsInternal.h"

#include "imaging/Streaming.h"

#include <QStringList>

namespace imaging::ops::detail {

Image Finish(const vips::VImage& result, VipsBandFormat inputFormat) {
  const vips::VImage out = AsSamples(result, result.format() == VIPS_FORMAT_UCHAR ? VIPS_FORMAT_UCHAR : inputFormat);
  return Image::FromInternal(Image::Pixels{StreamingScope::Active() ? out : InMemory(out)});
}

Image OnWholeImage(const Image& image, const std::function<vips::VImage(const vips::VImage&)>& pipeline) {
  try {
    const vips::VImage& in = image.Internal().image;
    return Finish(pipeline(in), in.format());
  } catch (const vips::VError& error) {
    vips_error_clear();
    // libvips says which step failed and why, one line each; the last says why.
    const QStringList lines = QString::fromUtf8(error.what()).split(u'\n', Qt::SkipEmptyParts);
    throw OperationFailed(lines.isEmpty() ? std::string("libvips failed") : lines.constLast().trimmed().toStdString());
  } catch (const std::bad_alloc&) {
    throw OperationFailed("not enough memory");
  }
}

Image OnColourBands(const Image& image, const std::function<vips::VImage(const vips::VImage&)>& pipeline) {
  return OnWholeImage(image, [&pipeline](const vips::VImage& in) {
    if (in.bands() != 4) return pipeline(in);
    const vips::VImage colour = pipeline(in.extract_band(0, vips::VImage::option()->set("n", 3)));
    return colour.cast(in.format()).bandjoin(in.extract_band(3));
  });
}

// One band when the three curves agree: libvips then maps every sample of a row in one
// pass instead of a strided pass per band, three times faster.
vips::VImage CurveLut(const ToneCurve& curve, VipsBandFormat format) {
  constexpr int kColours = 3;
  const int entries = format == VIPS_FORMAT_USHORT ? 65536 : 256;
  const double step = (entries - 1) / 255.0;  // 1, or 257 for 16 bits
  std::vector<double> table(static_cast<size_t>(entries * kColours));
  bool alike = true;
  for (int value = 0; value < entries; ++value) {
    for (int band = 0; band < kColours; ++band) {
      const double mapped = std::round(curve(band, value / step) * step);
      table[static_cast<size_t>(value * kColours + band)] = Clamp(mapped, 0.0, double(entries - 1));
      alike = alike && table[static_cast<size_t>(value * kColours + band)] == table[static_cast<size_t>(value * kColours)];
    }
  }
  const int bands = alike ? 1 : kColours;
  if (alike) {
    for (int value = 0; value < entries; ++value) table[static_cast<size_t>(value)] = table[static_cast<size_t>(value * kColours)];
  }
  vips::VImage lut = vips::VImage::new_from_memory(table.data(), size_t(entries * bands) * sizeof(double), entries, 1, bands,
                                                   VIPS_FORMAT_DOUBLE);
  return lut.cast(format).copy_memory();
}

Image ThroughCurve(const Image& image, const ToneCurve& curve) {
  return OnColourBands(image, [&curve](const vips::VImage& rgb) { return rgb.maplut(CurveLut(curve, rgb.format())); });
}

}  // namespace imaging::ops::detail
