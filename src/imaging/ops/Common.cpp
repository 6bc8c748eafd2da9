#include "imaging/ops/OpsInternal.h"

#include "imaging/Streaming.h"

#include <QStringList>

namespace imaging::ops::detail {

Image Finish(const vips::VImage& result) {
  vips::VImage out = result.format() == VIPS_FORMAT_UCHAR ? result : result.cast(VIPS_FORMAT_UCHAR);
  out = out.copy(vips::VImage::option()->set("interpretation", VIPS_INTERPRETATION_sRGB));
  return Image::FromInternal(Image::Pixels{StreamingScope::Active() ? out : out.copy_memory()});
}

Image OnWholeImage(const Image& image, const std::function<vips::VImage(const vips::VImage&)>& pipeline) {
  try {
    return Finish(pipeline(image.Internal().image));
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
    return colour.cast(VIPS_FORMAT_UCHAR).bandjoin(in.extract_band(3));
  });
}

vips::VImage CurveLut(const ToneCurve& curve) {
  constexpr int bands = 3;
  std::vector<double> table(static_cast<size_t>(256 * bands));
  for (int value = 0; value < 256; ++value) {
    for (int band = 0; band < bands; ++band) {
      table[static_cast<size_t>(value * bands + band)] = Clamp(std::round(curve(band, value)), 0.0, 255.0);
    }
  }
  vips::VImage lut = vips::VImage::new_from_memory(table.data(), table.size() * sizeof(double), 256, 1, bands,
                                                   VIPS_FORMAT_DOUBLE);
  return lut.cast(VIPS_FORMAT_UCHAR).copy_memory();
}

Image ThroughCurve(const Image& image, const ToneCurve& curve) {
  return OnColourBands(image, [&curve](const vips::VImage& rgb) { return rgb.maplut(CurveLut(curve)); });
}

Image Warp(const Image& image, const std::function<vips::VImage(const vips::VImage& x, const vips::VImage& y)>& source) {
  return OnWholeImage(image, [&source](const vips::VImage& in) {
    const vips::VImage xy = vips::VImage::xyz(in.width(), in.height()).cast(VIPS_FORMAT_FLOAT);
    const vips::VImage index = source(xy.extract_band(0), xy.extract_band(1)).cast(VIPS_FORMAT_FLOAT);
    const std::vector<double> white(static_cast<size_t>(in.bands()), 255.0);
    return in.mapim(index, vips::VImage::option()
                               ->set("interpolate", vips::VInterpolate::new_from_name("bilinear"))
                               ->set("extend", VIPS_EXTEND_BACKGROUND)
                               ->set("background", white));
  });
}

}  // namespace imaging::ops::detail
