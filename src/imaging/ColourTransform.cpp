// From an image's own profile (or sRGB) to sRGB or the screen's, with lcms2 directly: one
// 8- or 16-bit to 8-bit transform (no float Lab stage in between), made once per pair of
// profiles and kept, run on a band of rows per core. The screen's frames and thumbnails are
// small, so this is the one per-image cost colour management adds.
#include "imaging/ImageInternal.h"

#include <QThread>
#include <QThreadPool>
#include <QtConcurrent/QtConcurrentMap>

#include <lcms2.h>

#include <memory>
#include <mutex>
#include <numeric>
#include <vector>

namespace imaging {

namespace {

using Transform = std::shared_ptr<void>;  // a cmsHTRANSFORM

struct Cached {
  QByteArray Key;
  Transform Made;
};

// An empty profile is sRGB.
cmsHPROFILE Opened(QByteArrayView profile) {
  return profile.isEmpty() ? cmsCreate_sRGBProfile() : cmsOpenProfileFromMem(profile.data(), cmsUInt32Number(profile.size()));
}

Transform Make(const Conversion& conversion, cmsUInt32Number inputFormat, cmsUInt32Number outputFormat) {
  cmsHPROFILE source = Opened(conversion.From);
  cmsHPROFILE target = Opened(conversion.To);
  cmsHTRANSFORM made = nullptr;
  if (source && target) {
    // NOCACHE: one transform is run from several threads at once.
    const cmsUInt32Number flags = cmsFLAGS_BLACKPOINTCOMPENSATION | cmsFLAGS_COPY_ALPHA | cmsFLAGS_NOCACHE;
    const cmsUInt32Number intent = conversion.Perceptual ? INTENT_PERCEPTUAL : INTENT_RELATIVE_COLORIMETRIC;
    made = cmsCreateTransform(source, inputFormat, target, outputFormat, intent, flags);
  }
  if (source) cmsCloseProfile(source);
  if (target) cmsCloseProfile(target);
  if (!made) return nullptr;
  return Transform(made, [](void* transform) { cmsDeleteTransform(transform); });
}

// The transform for this pair of profiles and pixel layout, made on first use; a few are
// kept (the images of one folder usually share their profile).
Transform TransformFor(const Conversion& conversion, bool deep, bool alpha) {
  static std::mutex lock;
  static std::vector<Cached> cache;
  const QByteArray key = conversion.From.toByteArray() + '\0' + conversion.To.toByteArray() + '\0' +
                         char(conversion.Perceptual) + char(deep) + char(alpha);
  const std::lock_guard guard(lock);
  for (const Cached& entry : cache) {
    if (entry.Key == key) return entry.Made;
  }
  const cmsUInt32Number input = alpha ? (deep ? TYPE_RGBA_16 : TYPE_RGBA_8) : (deep ? TYPE_RGB_16 : TYPE_RGB_8);
  Transform made = Make(conversion, input, alpha ? TYPE_RGBA_8 : TYPE_RGB_8);
  if (cache.size() == 8) cache.erase(cache.begin());
  cache.push_back({key, made});
  return made;
}

// The transforms' own threads: a thumbnail worker of the global pool that converts its
// picture waits here without taking the global pool's threads from the others (all of them
// waiting on the global pool would wait for ever).
QThreadPool& TransformPool() {
  static QThreadPool* pool = [] {
    auto* made = new QThreadPool;
    made->setMaxThreadCount(QThread::idealThreadCount());
    return made;
  }();
  return *pool;
}

}  // namespace

std::optional<vips::VImage> Transformed(const vips::VImage& image, const Conversion& conversion) {
  const bool deep = IsDeep(image), alpha = image.bands() == 4;
  const Transform transform = TransformFor(conversion, deep, alpha);
  if (!transform) return std::nullopt;
  const vips::VImage source = InMemory(image);
  const int width = source.width(), height = source.height(), bands = source.bands();
  const size_t inRow = size_t(width) * size_t(bands) * (deep ? 2 : 1), outRow = size_t(width) * size_t(bands);
  auto* out = static_cast<unsigned char*>(AllocatePixels(outRow * size_t(height)));
  if (!out) return std::nullopt;
  const auto* in = static_cast<const unsigned char*>(source.data());
  constexpr int kRows = 64;
  std::vector<int> tops((height + kRows - 1) / kRows);
  std::iota(tops.begin(), tops.end(), 0);
  QtConcurrent::blockingMap(&TransformPool(), tops, [&](int band) {
    const int top = band * kRows, rows = std::min(kRows, height - top);
    cmsDoTransformLineStride(transform.get(), in + inRow * size_t(top), out + outRow * size_t(top), cmsUInt32Number(width),
                             cmsUInt32Number(rows), cmsUInt32Number(inRow), cmsUInt32Number(outRow), 0, 0);
  });
  const vips::VImage result = vips::VImage::new_from_memory_steal(out, outRow * size_t(height), width, height, bands,
                                                                  VIPS_FORMAT_UCHAR);
  return AsSamples(result, VIPS_FORMAT_UCHAR);
}

}  // namespace imaging
