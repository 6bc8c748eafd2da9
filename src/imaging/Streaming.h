#pragma once
// vistrel-cli's fast path for chains of operations that read their source once, top to
// bottom: the file is decoded, changed and written in one libvips pipeline, so decoding,
// the operations and the writing overlap instead of following each other. The pixels are
// those of the in-memory path (a test compares them); anything this path cannot do, it
// declines, and the caller takes the in-memory path. The source comes from
// imaging::OpenForStreaming (Loader.h).

#include "imaging/Image.h"

#include <QString>

namespace imaging {

// While one lives (on this thread), the operations of imaging::ops give back unevaluated
// pipelines instead of images in memory.
class StreamingScope {
 public:
  StreamingScope();
  ~StreamingScope();
  StreamingScope(const StreamingScope&) = delete;
  StreamingScope& operator=(const StreamingScope&) = delete;

  static bool Active();
};

// Evaluates the pipeline into a temporary file beside `path` and renames it over `path`;
// false (and `path` untouched) when the format is not libvips' own or anything failed.
bool SaveStreaming(const Image& image, const QString& path);

}  // namespace imaging
