#include "imaging/Streaming.h"

#include "imaging/ImageInternal.h"
#include "imaging/Loader.h"
#include "imaging/SaverInternal.h"
#include "imaging/Sniff.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>

#include <cstdio>

namespace imaging {

namespace {

thread_local int streamingScopes = 0;

}  // namespace

StreamingScope::StreamingScope() { ++streamingScopes; }
StreamingScope::~StreamingScope() { --streamingScopes; }
bool StreamingScope::Active() { return streamingScopes > 0; }

std::optional<Image> OpenForStreaming(const QString& path) {
  Initialize();
  QFile file(path);
  const QString extension = QFileInfo(path).suffix().toLower();
  if (!file.open(QIODevice::ReadOnly) || ComesInOnWhite(extension)) return std::nullopt;
  if (ChooseDecoder(file.read(32), extension).Via != Route::Vips) return std::nullopt;
  try {
    const vips::VImage image = vips::VImage::new_from_file(QFile::encodeName(path).constData(),
                                                           vips::VImage::option()->set("access", "sequential"));
    if (std::int64_t(image.width()) * image.height() > kMaxPixels) return std::nullopt;
    if (vips_image_get_orientation(image.get_image()) > 1) return std::nullopt;
    return Image::FromInternal(Image::Pixels{Normalized(image)});
  } catch (const vips::VError&) {
    vips_error_clear();
    return std::nullopt;
  }
}

bool SaveStreaming(const Image& image, const QString& path) {
  const auto spec = VipsSaveSpecFor(QFileInfo(path).suffix().toLower(), {});
  if (!spec) return false;
  QTemporaryFile temporary(path + QStringLiteral(".XXXXXX") + spec->Suffix);
  if (!temporary.open()) return false;
  temporary.close();
  try {
    PreparedForVipsSave(image, *spec).write_to_file(QFile::encodeName(temporary.fileName()).constData(), spec->Options());
  } catch (const vips::VError&) {
    vips_error_clear();
    return false;
  }
  if (QFile::exists(path)) temporary.setPermissions(QFile::permissions(path));
  // rename(2) replaces the target in one step: it is never missing or half written.
  if (std::rename(QFile::encodeName(temporary.fileName()).constData(), QFile::encodeName(path).constData()) != 0) {
    return false;
  }
  temporary.setAutoRemove(false);
  return true;
}

}  // namespace imaging
