#include "imaging/Streaming.h"
#include "base/FileNames.h"
#include "base/Leftovers.h"

#include "imaging/SaverInternal.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>

#include <cstdio>
#include <string>

#include <sys/stat.h>

namespace imaging {

namespace {

thread_local int streamingScopes = 0;

}  // namespace

StreamingScope::StreamingScope() { ++streamingScopes; }
StreamingScope::~StreamingScope() { --streamingScopes; }
bool StreamingScope::Active() { return streamingScopes > 0; }

namespace {

// A temporary file of ours is hidden and has no image extension, so no viewer lists it.
const QString kPartSuffix = QStringLiteral(".vistrel-part");

// New files get the mode the user's umask gives; a replaced file keeps its own.
void SetModeOfNewFile(const QString& temporary, const QString& target) {
  if (QFile::exists(target)) {
    QFile::setPermissions(temporary, QFile::permissions(target));
    return;
  }
  const mode_t mask = ::umask(0);
  ::umask(mask);
  ::chmod(base::EncodeFileName(temporary).constData(), 0666 & ~mask);
}

// libvips' saver for the format, chosen by the format's suffix, writing through our own
// descriptor of the fresh part file: opening the part again by name would truncate it, and
// ext4 then writes a truncated file back to disk before its close returns (tens of
// milliseconds for a big picture).
bool WriteWithVips(const Image& image, const VipsSaveSpec& spec, QTemporaryFile& part) {
  const char* saver = vips_foreign_find_save_target(spec.Suffix.toLatin1().constData());
  if (!saver) {
    vips_error_clear();
    return false;
  }
  const std::string operation = saver;
  try {
    const vips::VImage prepared = PreparedForVipsSave(image, spec);  // first: the options are freed only by the call
    vips::VImage::call(operation.c_str(), spec.Options()->set("in", prepared)->set(
                                              "target", vips::VTarget::new_to_descriptor(part.handle())));
  } catch (const vips::VError&) {
    vips_error_clear();
    return false;
  }
  part.close();
  return true;
}

}  // namespace

bool SaveStreaming(const Image& image, const QString& requestedPath) {
  const auto spec = VipsSaveSpecFor(QFileInfo(requestedPath).suffix().toLower(), {});
  const auto resolved = base::WritableTarget(requestedPath);
  if (!spec || !resolved) return false;
  const QString& path = *resolved;
  const QFileInfo target(path);
  base::SweepLeftovers(target.dir(), QStringLiteral(".*") + kPartSuffix);  // what a killed save of ours left
  QTemporaryFile temporary(
      target.dir().filePath(u'.' + target.fileName() + base::OwnerTag() + QStringLiteral("XXXXXX") + kPartSuffix));
  if (!temporary.open()) return false;
  if (!WriteWithVips(image, *spec, temporary)) return false;  // the part is removed with `temporary`
  SetModeOfNewFile(temporary.fileName(), path);
  // rename(2) replaces the target in one step: it is never missing or half written.
  if (std::rename(base::EncodeFileName(temporary.fileName()).constData(), base::EncodeFileName(path).constData()) != 0) {
    return false;
  }
  temporary.setAutoRemove(false);
  return true;
}

}  // namespace imaging
