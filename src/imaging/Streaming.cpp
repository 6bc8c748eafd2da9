#include "imaging/Streaming.h"

#include "imaging/SaverInternal.h"

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
