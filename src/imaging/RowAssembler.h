#pragma once
// Builds an Image a band of rows at a time, straight into the one buffer the image keeps:
// each band is normalised (and put on white when asked) as it arrives, so a decoder's own
// pixels and the finished picture are the only full-size copies ever held, and a decoder's
// 32-bit pixels can even become the picture in their own buffer.

#include "imaging/ImageInternal.h"

#include <QImage>

#include <functional>
#include <memory>

namespace imaging {

class RowAssembler {
 public:
  using Buffer = std::unique_ptr<uchar, std::function<void(uchar*)>>;

  // `alpha`: whether the source has an alpha band; on white the result never does.
  RowAssembler(int width, int height, bool alpha, bool onWhite);
  // Writes into `into`, which the rows added may also come from: each band is read whole
  // before it is written, and never written beyond where the next band begins.
  RowAssembler(int width, int height, bool alpha, bool onWhite, Buffer into);

  // The next rows, top to bottom, in any form Normalized() accepts. False when they do not
  // fit (a wrong width or more rows than the image has).
  bool Add(const vips::VImage& rows);
  bool Complete() const { return filled_ == height_; }
  // The picture, once complete; it owns the buffer from then on.
  std::optional<Image> Finish();

  // Rows per band: about four megabytes of them.
  static int BandRows(int width);

 private:
  int width_, height_, bands_;
  bool onWhite_;
  int filled_ = 0;
  Buffer buffer_;
};

// Qt's pixels as an Image, converted a band of rows at a time (32-bit pixels within their
// own buffer); nullopt when memory runs out.
std::optional<Image> FromQImageInBands(QImage source, bool onWhite);

}  // namespace imaging
