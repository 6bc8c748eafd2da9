#include "imaging/Animation.h"

#include "base/NumberRules.h"
#include "base/FileNames.h"
#include "base/Paths.h"
#include "imaging/ImageInternal.h"
#include "imaging/Loader.h"

#include <QFile>

#include <numeric>

namespace imaging {

namespace {

// Only these loaders make frames of an animation; a TIFF's pages are turned, not played.
bool PlaysFrames(const vips::VImage& image) {
  const char* loader = nullptr;
  const bool known = vips_image_get_string(image.get_image(), "vips-loader", &loader) == 0 && loader;
  vips_error_clear();
  if (!known) return false;
  const std::string_view name(loader);
  return name.starts_with("gifload") || name.starts_with("webpload");
}

std::vector<int> DelaysOf(const vips::VImage& image, int frames) {
  int* delays = nullptr;
  int count = 0;
  std::vector<int> played(size_t(frames), kTinyDelayPlayedMs);
  if (vips_image_get_array_int(image.get_image(), "delay", &delays, &count) == 0) {
    for (int i = 0; i < std::min(count, frames); ++i) played[size_t(i)] = delays[i] <= kTinyDelayMs ? kTinyDelayPlayedMs : delays[i];
  }
  vips_error_clear();
  return played;
}

}  // namespace

qint64 FrameTiming::TotalMs() const { return std::accumulate(DelaysMs.begin(), DelaysMs.end(), qint64(0)); }

std::optional<FrameTiming> ReadFrameTiming(const QString& path) {
  Initialize();
  try {
    const vips::VImage header = vips::VImage::new_from_source(SourceOf(path), "");
    const int frames = vips_image_get_n_pages(header.get_image());
    if (frames < 2 || !PlaysFrames(header)) return std::nullopt;
    const int loops = header.get_typeof("loop") != 0 ? std::max(0, header.get_int("loop")) : 0;
    return FrameTiming{DelaysOf(header, frames), loops};
  } catch (const vips::VError&) {
    vips_error_clear();
    return std::nullopt;
  }
}

QString DescribeAnimation(const FrameTiming& timing) {
  return QStringLiteral("%1 frames, %2 s").arg(timing.Frames()).arg(numbers::FormatThousandsOneDecimal(timing.TotalMs() / 1000.0));
}

// Every frame stacked in one tall image, read from the top once.
struct FrameReader::Open {
  vips::VImage frames;
  int frameHeight = 0;
  int count = 0;
  bool onWhite = false;
  bool cutShort = false;  // the decoder gave what it could of a file that ends early
};

namespace {

// libvips draws a GIF cut short as far as it goes; only the missing end mark tells.
bool GifCutShort(const QString& path) {
  QFile file;
  if (!base::OpenForReading(file, path) || file.size() < 1 || !file.read(6).startsWith("GIF")) return false;
  return file.seek(file.size() - 1) && file.read(1) != ";";
}

}  // namespace

FrameReader::FrameReader(QString path) : path_(std::move(path)) {}
FrameReader::~FrameReader() = default;
FrameReader::FrameReader(FrameReader&&) noexcept = default;
FrameReader& FrameReader::operator=(FrameReader&&) noexcept = default;

std::optional<Image> FrameReader::Next() {
  if (failed_) return std::nullopt;
  Initialize();
  try {
    if (!open_) {
      const vips::VSource source = SourceOf(path_);  // first: the options are freed only by the call
      vips::VImage all = vips::VImage::new_from_source(source, "", vips::VImage::option()->set("n", -1)->set("access", "sequential")->set("fail_on", VIPS_FAIL_ON_TRUNCATED));
      const int height = vips_image_get_page_height(all.get_image());
      if (std::int64_t(all.width()) * height > kMaxPixels) throw vips::VError("frame over the pixel limit");
      open_ = std::make_unique<Open>(Open{all, height, all.height() / height, ComesInOnWhite(base::FileExtension(path_)), GifCutShort(path_)});
    }
    if (next_ >= open_->count) {
      failed_ = open_->cutShort;
      return std::nullopt;
    }
    const vips::VImage frame = open_->frames.crop(0, next_ * open_->frameHeight, open_->frames.width(), open_->frameHeight);
    Image picture = Wrap(frame, open_->onWhite);
    ++next_;
    return picture;
  } catch (const vips::VError&) {
    vips_error_clear();
    failed_ = true;
    open_.reset();
    return std::nullopt;
  }
}

}  // namespace imaging
