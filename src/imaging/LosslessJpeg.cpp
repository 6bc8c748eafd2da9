#include "imaging/LosslessJpeg.h"
#include "imaging/ExivInMemory.h"

#include <QBuffer>
#include <QImage>

#include <turbojpeg.h>

#include <memory>

namespace imaging {

RightAngles RightAngles::Clockwise(int quarters) {
  RightAngles turn = None();
  for (int i = 0; i < ((quarters % 4) + 4) % 4; ++i) turn = turn.Then({0, -1, 1, 0});
  return turn;
}

RightAngles RightAngles::Upright(int orientation) {
  switch (orientation) {
    case 2: return Mirror();
    case 3: return Clockwise(2);
    case 4: return Flip();
    case 5: return {0, 1, 1, 0};    // transpose
    case 6: return Clockwise(1);
    case 7: return {0, -1, -1, 0};  // transverse
    case 8: return Clockwise(3);
    default: return None();
  }
}

RightAngles RightAngles::Then(RightAngles next) const {
  return {next.a_ * a_ + next.b_ * c_, next.a_ * b_ + next.b_ * d_, next.c_ * a_ + next.d_ * c_, next.c_ * b_ + next.d_ * d_};
}

int RightAngles::TurboOperation() const {
  const std::pair<RightAngles, int> operations[] = {
      {None(), TJXOP_NONE},        {Mirror(), TJXOP_HFLIP},          {Flip(), TJXOP_VFLIP},
      {Clockwise(1), TJXOP_ROT90}, {Clockwise(2), TJXOP_ROT180},     {Clockwise(3), TJXOP_ROT270},
      {{0, 1, 1, 0}, TJXOP_TRANSPOSE}, {{0, -1, -1, 0}, TJXOP_TRANSVERSE}};
  for (const auto& [turn, operation] : operations) {
    if (turn == *this) return operation;
  }
  return TJXOP_NONE;
}

namespace {

struct TurboHandle {
  void operator()(void* handle) const { tjDestroy(handle); }
};

using Bytes = const unsigned char*;

// Moves the blocks; the moved file, or nullopt with `error` set to libjpeg-turbo's reason.
std::optional<QByteArray> Transform(const QByteArray& jpeg, int operation, int options) {
  const std::unique_ptr<void, TurboHandle> handle(tjInitTransform());
  if (!handle) return std::nullopt;
  tjtransform transform{};
  transform.op = operation;
  transform.options = options;
  unsigned char* moved = nullptr;
  unsigned long size = 0;
  const int failed = tjTransform(handle.get(), reinterpret_cast<Bytes>(jpeg.constData()), static_cast<unsigned long>(jpeg.size()), 1,
                                 &moved, &size, &transform, 0);
  std::optional<QByteArray> result;
  if (failed == 0 && moved) result = QByteArray(reinterpret_cast<const char*>(moved), qsizetype(size));
  tjFree(moved);
  return result;
}

// The block size the file's subsampling gives, or 0 when its header cannot be read.
int BlockSize(const QByteArray& jpeg, bool swapped) {
  const std::unique_ptr<void, TurboHandle> handle(tjInitDecompress());
  int width = 0, height = 0, subsampling = 0, colourspace = 0;
  if (!handle || tjDecompressHeader3(handle.get(), reinterpret_cast<Bytes>(jpeg.constData()), static_cast<unsigned long>(jpeg.size()),
                                     &width, &height, &subsampling, &colourspace) != 0 || subsampling < 0 || subsampling >= TJ_NUMSAMP) {
    return 0;
  }
  return std::max(swapped ? tjMCUHeight[subsampling] : tjMCUWidth[subsampling], tjMCUHeight[subsampling]);
}

// A thumbnail's blocks are moved too, or, where its sides are not whole blocks, it is
// decoded, moved and encoded again: it is small, and a preview only.
QByteArray MovedThumbnail(const QByteArray& jpeg, RightAngles move) {
  if (const auto moved = Transform(jpeg, move.TurboOperation(), TJXOPT_PERFECT)) return *moved;
  const QImage picture = QImage::fromData(jpeg, "JPEG");
  if (picture.isNull()) return {};
  QByteArray encoded;
  QBuffer buffer(&encoded);
  return buffer.open(QIODevice::WriteOnly) && picture.transformed(move.AsTransform()).save(&buffer, "JPEG", 90) ? encoded : QByteArray();
}

// The EXIF of the moved file told of its new geometry: upright, its size, a thumbnail moved too.
QByteArray Retold(const QByteArray& jpeg, RightAngles move) {
  try {
    const auto image = OpenInMemory(jpeg);
    Exiv2::ExifData& exif = image->exifData();
    if (exif.empty()) return jpeg;
    if (exif.findKey(Exiv2::ExifKey("Exif.Image.Orientation")) != exif.end()) exif["Exif.Image.Orientation"] = uint16_t(1);
    const auto width = exif.findKey(Exiv2::ExifKey("Exif.Photo.PixelXDimension"));
    const auto height = exif.findKey(Exiv2::ExifKey("Exif.Photo.PixelYDimension"));
    if (move.SwapsSides() && width != exif.end() && height != exif.end()) {
      const long across = width->toLong(), down = height->toLong();
      exif["Exif.Photo.PixelXDimension"] = uint32_t(down);
      exif["Exif.Photo.PixelYDimension"] = uint32_t(across);
    }
    Exiv2::ExifThumb thumbnail(exif);
    const Exiv2::DataBuf stored = thumbnail.copy();
    if (stored.size_ > 0) {
      const QByteArray moved = MovedThumbnail(QByteArray(reinterpret_cast<const char*>(stored.pData_), stored.size_), move);
      if (moved.isEmpty()) thumbnail.erase();
      else thumbnail.setJpegThumbnail(reinterpret_cast<Bytes>(moved.constData()), long(moved.size()));
    }
    return WrittenInMemory(*image, jpeg);
  } catch (const Exiv2::AnyError&) {
    return jpeg;
  }
}

}  // namespace

LosslessResult MoveJpegBlocks(const QByteArray& jpeg, RightAngles move) {
  if (move.IsNone()) return {Retold(jpeg, move), {}};
  const auto moved = Transform(jpeg, move.TurboOperation(), TJXOPT_PERFECT);
  if (!moved) {
    const int block = BlockSize(jpeg, move.SwapsSides());
    return {std::nullopt, block > 0 ? QStringLiteral("the image is not a multiple of %1 pixels").arg(block)
                                    : QStringLiteral("the file is not a JPEG this program can move")};
  }
  return {Retold(*moved, move), {}};
}

int JpegOrientation(const QByteArray& jpeg) {
  try {
    const auto image = OpenInMemory(jpeg);
    const auto found = image->exifData().findKey(Exiv2::ExifKey("Exif.Image.Orientation"));
    const long orientation = found == image->exifData().end() ? 1 : found->toLong();
    return orientation >= 1 && orientation <= 8 ? int(orientation) : 1;
  } catch (const Exiv2::AnyError&) {
    return 1;
  }
}

}  // namespace imaging
