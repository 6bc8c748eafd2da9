// A GIF's timing comes from our scan of its blocks and its frames from Qt's reader, which
// reads the file as it goes (libvips keeps a whole GIF in memory); a WebP's come from
// libvips, as its still picture does; an APNG's from our sorting of its chunks.
#include "imaging/Animation.h"
#include "base/Texts.h"
#include "imaging/SaverInternal.h"

#include "base/FileNames.h"
#include "base/NumberRules.h"
#include "imaging/Apng.h"
#include "imaging/Decoders.h"
#include "imaging/GifScan.h"
#include "imaging/ImageInternal.h"
#include "imaging/Loader.h"
#include "imaging/RowAssembler.h"

#include <QFile>
#include <QImageReader>
#include <QSaveFile>

#include <numeric>

namespace imaging {

namespace {

enum class Kind { Other, Gif, WebP, Apng };

Kind KindOf(QFile& file) {
  const QByteArray head = file.peek(12);
  if (head.startsWith("GIF8")) return Kind::Gif;
  if (head.startsWith("RIFF") && head.mid(8, 4) == "WEBP") return Kind::WebP;
  if (head.startsWith("\x89PNG") && LooksLikeApng(file.peek(kApngHeadBytes))) return Kind::Apng;
  return Kind::Other;
}

// An APNG is read whole: its frames' data lie between its chunks.
constexpr qint64 kLargestApng = qint64(256) << 20;

int Played(int delayMs) { return delayMs <= kTinyDelayMs ? kTinyDelayPlayedMs : delayMs; }

std::optional<FrameTiming> GifTiming(QFile& file, int enoughFrames = kMaxGifFrames + 1) {
  const auto scan = ScanGif(file, enoughFrames);
  if (!scan || scan->Frames() < 2) return std::nullopt;
  FrameTiming timing;
  for (const int centiseconds : scan->DelaysCentiseconds) timing.DelaysMs.push_back(Played(centiseconds * 10));
  // The loop block counts the repeats after the first play, 0 for ever, as browsers read it;
  // without one a GIF plays once.
  timing.Loops = scan->LoopCount < 0 ? 1 : scan->LoopCount == 0 ? 0 : scan->LoopCount + 1;
  return timing;
}

std::optional<FrameTiming> WebPTiming(const QString& path) {
  Initialize();
  try {
    const vips::VImage header = vips::VImage::new_from_source(SourceOf(path), "");
    const int frames = vips_image_get_n_pages(header.get_image());
    int* delays = nullptr;
    int count = 0;
    if (frames < 2 || vips_image_get_array_int(header.get_image(), "delay", &delays, &count) != 0) {
      vips_error_clear();
      return std::nullopt;
    }
    FrameTiming timing;
    for (int i = 0; i < frames; ++i) timing.DelaysMs.push_back(Played(i < count ? delays[i] : 0));
    timing.Loops = header.get_typeof("loop") != 0 ? std::max(0, header.get_int("loop")) : 0;
    return timing;
  } catch (const vips::VError&) {
    vips_error_clear();
    return std::nullopt;
  }
}

std::optional<FrameTiming> ApngFileTiming(QFile& file) {
  const auto stored = ReadApngTiming(base::ReadWhole(file, kLargestApng));
  if (!stored) return std::nullopt;
  FrameTiming timing;
  for (const int delay : stored->DelaysMs) timing.DelaysMs.push_back(Played(delay));
  timing.Loops = stored->Plays;
  return timing;
}

}  // namespace

qint64 FrameTiming::TotalMs() const { return std::accumulate(DelaysMs.begin(), DelaysMs.end(), qint64(0)); }

std::optional<FrameTiming> ReadFrameTiming(const QString& path) {
  QFile file;
  if (!base::OpenForReading(file, path)) return std::nullopt;
  switch (KindOf(file)) {
    case Kind::Gif: return GifTiming(file);
    case Kind::WebP: return WebPTiming(path);
    case Kind::Apng: return ApngFileTiming(file);
    case Kind::Other: return std::nullopt;
  }
  return std::nullopt;
}

bool IsAnimation(const QString& path) {
  QFile file;
  if (!base::OpenForReading(file, path)) return false;
  switch (KindOf(file)) {
    case Kind::Gif: return GifTiming(file, 2).has_value();
    case Kind::WebP: return WebPTiming(path).has_value();
    case Kind::Apng: return true;
    case Kind::Other: return false;
  }
  return false;
}

bool SaveAnimation(const QString& source, const QString& target, const SaveOptions& options) {
  Initialize();
  try {
    const vips::VSource from = SourceOf(source);  // first: the options are freed only by the call
    const vips::VImage frames = vips::VImage::new_from_source(from, "", vips::VImage::option()->set("n", -1));
    if (std::int64_t(frames.width()) * vips_image_get_page_height(frames.get_image()) > kMaxPixels) return false;
    void* bytes = nullptr;
    size_t size = 0;
    frames.write_to_buffer(".webp", &bytes, &size, VipsSaveSpecFor(QStringLiteral("webp"), options)->Options());
    const QByteArray encoded(static_cast<const char*>(bytes), qsizetype(size));
    g_free(bytes);
    QSaveFile file(target);
    return file.open(QIODevice::WriteOnly) && file.write(encoded) == encoded.size() && file.commit();
  } catch (const vips::VError&) {
    vips_error_clear();
    return false;
  }
}

QString DescribeAnimation(const FrameTiming& timing) {
  return Texts::tr("%1 frames, %2 s").arg(timing.Frames()).arg(numbers::FormatThousandsOneDecimal(timing.TotalMs() / 1000.0));
}

// A GIF read by Qt frame after frame, or every frame of a WebP stacked in one tall image
// read from the top once.
struct FrameReader::Open {
  QFile file;
  std::unique_ptr<QImageReader> gif;
  std::unique_ptr<ApngFrames> apng;
  bool cutShort = false;  // a GIF that ends early: the decoder gave what it could
  vips::VImage frames;
  int frameHeight = 0, count = 0;
};

namespace {

// libvips draws a GIF cut short as far as it goes; only the missing end mark tells.
bool GifCutShort(QFile& file) {
  const qint64 at = file.pos();
  const bool cut = file.size() > 0 && file.seek(file.size() - 1) && file.read(1) != ";";
  file.seek(at);
  return cut;
}

void OpenFrames(FrameReader::Open& open, const QString& path) {
  if (!base::OpenForReading(open.file, path)) throw vips::VError("cannot open");
  if (KindOf(open.file) == Kind::Apng) {
    open.apng = std::make_unique<ApngFrames>(base::ReadWhole(open.file, kLargestApng));
    return;
  }
  if (KindOf(open.file) == Kind::Gif) {
    open.cutShort = GifCutShort(open.file);
    const QSize size = GifScreenSize(open.file).value_or(QSize());
    open.gif = std::make_unique<QImageReader>(&open.file);
    if (!size.isValid() || std::int64_t(size.width()) * size.height() > kMaxPixels) throw vips::VError("frame over the pixel limit");
    open.gif->setAllocationLimit(static_cast<int>(kMaxPixels * 4 / (1024 * 1024)) + 1);
    return;
  }
  Initialize();
  const vips::VSource source = SourceOf(path);  // first: the options are freed only by the call
  open.frames = vips::VImage::new_from_source(source, "", vips::VImage::option()->set("n", -1)->set("access", "sequential"));
  open.frameHeight = vips_image_get_page_height(open.frames.get_image());
  if (std::int64_t(open.frames.width()) * open.frameHeight > kMaxPixels) throw vips::VError("frame over the pixel limit");
  open.count = open.frames.height() / open.frameHeight;
}

}  // namespace

FrameReader::FrameReader(QString path) : path_(std::move(path)) {}
FrameReader::~FrameReader() = default;
FrameReader::FrameReader(FrameReader&&) noexcept = default;
FrameReader& FrameReader::operator=(FrameReader&&) noexcept = default;

std::optional<Image> FrameReader::Next() {
  if (failed_) return std::nullopt;
  try {
    if (!open_) {
      open_ = std::make_unique<Open>();
      OpenFrames(*open_, path_);
    }
    std::optional<Image> picture;
    if (open_->apng) {
      if (const auto frame = open_->apng->Next()) picture = FromQImageInBands(*frame, false);
      failed_ = !picture && open_->apng->Failed();
    } else if (open_->gif) {
      // A frame is composited on white, as the GIF's still picture is.
      if (open_->gif->canRead()) picture = FromQImageInBands(open_->gif->read(), true);
      if (!picture) failed_ = open_->cutShort || open_->gif->error() != QImageReader::UnknownError;
    } else if (next_ < open_->count) {
      picture = Wrap(open_->frames.crop(0, next_ * open_->frameHeight, open_->frames.width(), open_->frameHeight));
    }
    if (picture) ++next_;
    return picture;
  } catch (const vips::VError&) {
    vips_error_clear();
    failed_ = true;
    open_.reset();
    return std::nullopt;
  }
}

}  // namespace imaging
