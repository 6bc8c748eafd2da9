// The picture a camera keeps in a JPEG's EXIF (160 x 120 or so): read in a millisecond or
// two, it is the first glimpse of a photo whose own decode takes a tenth of a second.
#include "base/FileNames.h"
#include "imaging/ImageInternal.h"
#include "imaging/Loader.h"

#include <exiv2/exiv2.hpp>

#include <cmath>
#include <memory>

namespace imaging {

namespace {

// A thumbnail larger than this is no glimpse: the photo's own decode is as quick.
constexpr qsizetype kLargestThumbnail = 256 * 1024;

struct ThumbnailData {
  QByteArray Jpeg;
  int Orientation = 1;
};

std::optional<ThumbnailData> ReadThumbnailData(const QString& path) {
  try {
    std::unique_ptr<Exiv2::Image> file(Exiv2::ImageFactory::open(base::EncodeFileName(path).toStdString()).release());
    if (!file || file->imageType() != Exiv2::ImageType::jpeg) return std::nullopt;
    file->readMetadata();
    const Exiv2::ExifData& exif = file->exifData();
    const Exiv2::DataBuf stored = Exiv2::ExifThumbC(exif).copy();
    if (stored.size_ <= 0 || stored.size_ > kLargestThumbnail) return std::nullopt;
    ThumbnailData data{QByteArray(reinterpret_cast<const char*>(stored.pData_), qsizetype(stored.size_))};
    const auto orientation = exif.findKey(Exiv2::ExifKey("Exif.Image.Orientation"));
    if (orientation != exif.end() && orientation->count() > 0) data.Orientation = int(orientation->toLong());
    return data;
  } catch (const Exiv2::AnyError&) {
    return std::nullopt;
  }
}

}  // namespace

std::optional<Image> ReadEmbeddedPreview(const QString& path) {
  Initialize();
  const auto data = ReadThumbnailData(path);
  const auto photo = data ? ReadImageSizeCheaply(path) : std::nullopt;
  if (!photo || photo->isEmpty() || !data->Jpeg.startsWith("\xFF\xD8")) return std::nullopt;
  try {
    vips::VImage pixels = vips::VImage::new_from_buffer(data->Jpeg.constData(), size_t(data->Jpeg.size()), "",
                                                        vips::VImage::option()->set("fail", true))
                              .copy_memory();
    // Stored as the sensor lies, like the photo; the photo's orientation turns both.
    pixels.set(VIPS_META_ORIENTATION, data->Orientation >= 1 && data->Orientation <= 8 ? data->Orientation : 1);
    Image picture = Wrap(pixels.autorot());
    // Many cameras pad a 3:2 photo's thumbnail to 4:3 with black bars: such a one is left out.
    const double photoAspect = double(photo->width()) / photo->height();
    const double pictureAspect = double(picture.Width()) / picture.Height();
    if (std::abs(pictureAspect / photoAspect - 1) > 0.03) return std::nullopt;
    return picture;
  } catch (const vips::VError&) {
    vips_error_clear();
    return std::nullopt;
  }
}

}  // namespace imaging
