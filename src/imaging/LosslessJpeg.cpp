#include "imaging/LosslessJpeg.h"
#include "base/Texts.h"
#include "imaging/ExivInMemory.h"

#include <QBuffer>
#include <QImage>

#include <turbojpeg.h>

#include <algorithm>
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

BlockEdit BlockEdit::Then(const BlockStep& step) const {
  BlockEdit next = *this;
  if (const auto* area = std::get_if<QRect>(&step)) {
    next.crop_ = area->translated(crop_.topLeft()) & crop_;
    return next;
  }
  const RightAngles move = std::get<RightAngles>(step);
  const QTransform turn = move.AsTransform();
  const QRectF whole = turn.mapRect(QRectF(QPointF(0, 0), QSizeF(whole_)));
  next.move_ = move_.Then(move);
  next.whole_ = whole.size().toSize();
  next.crop_ = turn.mapRect(QRectF(crop_)).translated(-whole.topLeft()).toRect();
  return next;
}

BlockEdit BlockEdit::After(RightAngles first) const {
  BlockEdit edit = *this;
  edit.move_ = first.Then(move_);
  return edit;
}

namespace {

struct TurboHandle {
  void operator()(void* handle) const { tjDestroy(handle); }
};

using Bytes = const unsigned char*;

// Moves the blocks and crops to `crop` when it is not empty; nullopt when libjpeg-turbo refuses.
std::optional<QByteArray> Transform(const QByteArray& jpeg, int operation, int options, const QRect& crop = {}) {
  const std::unique_ptr<void, TurboHandle> handle(tjInitTransform());
  if (!handle) return std::nullopt;
  tjtransform transform{};
  transform.op = operation;
  transform.options = options | (crop.isEmpty() ? 0 : TJXOPT_CROP);
  transform.r = {crop.x(), crop.y(), crop.width(), crop.height()};
  unsigned char* moved = nullptr;
  unsigned long size = 0;
  const int failed = tjTransform(handle.get(), reinterpret_cast<Bytes>(jpeg.constData()), static_cast<unsigned long>(jpeg.size()), 1,
                                 &moved, &size, &transform, 0);
  std::optional<QByteArray> result;
  if (failed == 0 && moved) result = QByteArray(reinterpret_cast<const char*>(moved), qsizetype(size));
  tjFree(moved);
  return result;
}

struct Header {
  QSize Size;
  QSize Block;  // the block grid the chroma subsampling gives
};

std::optional<Header> ReadHeader(const QByteArray& jpeg) {
  const std::unique_ptr<void, TurboHandle> handle(tjInitDecompress());
  int width = 0, height = 0, subsampling = 0, colourspace = 0;
  if (!handle || tjDecompressHeader3(handle.get(), reinterpret_cast<Bytes>(jpeg.constData()), static_cast<unsigned long>(jpeg.size()),
                                     &width, &height, &subsampling, &colourspace) != 0 || subsampling < 0 || subsampling >= TJ_NUMSAMP) {
    return std::nullopt;
  }
  return Header{QSize(width, height), QSize(tjMCUWidth[subsampling], tjMCUHeight[subsampling])};
}

// A thumbnail's blocks are moved too where it is not cropped and its sides are whole blocks;
// otherwise it is decoded, moved, cut to `keep` (a fraction of it) and encoded again: it is
// small, and a preview only.
QByteArray MovedThumbnail(const QByteArray& jpeg, RightAngles move, const QRectF& keep) {
  const bool whole = keep == QRectF(0, 0, 1, 1);
  if (whole) {
    if (const auto moved = Transform(jpeg, move.TurboOperation(), TJXOPT_PERFECT)) return *moved;
  }
  QImage picture = QImage::fromData(jpeg, "JPEG");
  if (picture.isNull()) return {};
  picture = picture.transformed(move.AsTransform());
  if (!whole) {
    const QSizeF size(picture.size());
    picture = picture.copy(QRectF(keep.x() * size.width(), keep.y() * size.height(), keep.width() * size.width(), keep.height() * size.height()).toRect());
  }
  QByteArray encoded;
  QBuffer buffer(&encoded);
  return buffer.open(QIODevice::WriteOnly) && picture.save(&buffer, "JPEG", 90) ? encoded : QByteArray();
}

// The EXIF of the moved file told of its new geometry: upright, its size, a thumbnail moved
// (and cut to `keep`, the fraction of the moved picture kept) too.
QByteArray Retold(const QByteArray& jpeg, RightAngles move, const QRectF& keep = {0, 0, 1, 1}) {
  try {
    const auto image = OpenInMemory(jpeg);
    Exiv2::ExifData& exif = image->exifData();
    if (exif.empty()) return jpeg;
    if (exif.findKey(Exiv2::ExifKey("Exif.Image.Orientation")) != exif.end()) exif["Exif.Image.Orientation"] = uint16_t(1);
    const auto width = exif.findKey(Exiv2::ExifKey("Exif.Photo.PixelXDimension"));
    const auto height = exif.findKey(Exiv2::ExifKey("Exif.Photo.PixelYDimension"));
    const std::optional<Header> header = ReadHeader(jpeg);
    if (header && width != exif.end() && height != exif.end()) {
      exif["Exif.Photo.PixelXDimension"] = uint32_t(header->Size.width());
      exif["Exif.Photo.PixelYDimension"] = uint32_t(header->Size.height());
    }
    Exiv2::ExifThumb thumbnail(exif);
    const Exiv2::DataBuf stored = thumbnail.copy();
    if (stored.size_ > 0) {
      const QByteArray moved = MovedThumbnail(QByteArray(reinterpret_cast<const char*>(stored.pData_), stored.size_), move, keep);
      if (moved.isEmpty()) thumbnail.erase();
      else thumbnail.setJpegThumbnail(reinterpret_cast<Bytes>(moved.constData()), long(moved.size()));
    }
    return WrittenInMemory(*image, jpeg);
  } catch (const Exiv2::AnyError&) {
    return jpeg;
  }
}

QString NotMovable() { return Texts::tr("the file is not a JPEG this program can move"); }

QString NotWholeBlocks(const Header& header) {
  return Texts::tr("the image is not a multiple of %1 pixels").arg(std::max(header.Block.width(), header.Block.height()));
}

}  // namespace

LosslessResult MoveJpegBlocks(const QByteArray& jpeg, RightAngles move) {
  if (move.IsNone()) return {Retold(jpeg, move), {}};
  const auto moved = Transform(jpeg, move.TurboOperation(), TJXOPT_PERFECT);
  if (!moved) {
    const std::optional<Header> header = ReadHeader(jpeg);
    return {std::nullopt, header ? NotWholeBlocks(*header) : NotMovable()};
  }
  return {Retold(*moved, move), {}};
}

LosslessResult MoveJpegBlocks(const QByteArray& jpeg, const BlockEdit& edit) {
  if (!edit.Crops()) return MoveJpegBlocks(jpeg, edit.Move());
  const std::optional<Header> header = ReadHeader(jpeg);
  if (!header) return {std::nullopt, NotMovable()};
  const QSize block = edit.Move().SwapsSides() ? header->Block.transposed() : header->Block;
  const QRect crop = edit.Crop();
  if (crop.x() % block.width() != 0 || crop.y() % block.height() != 0) {
    return {std::nullopt, Texts::tr("the crop does not start on the %1-pixel block grid").arg(std::max(block.width(), block.height()))};
  }
  const auto moved = Transform(jpeg, edit.Move().TurboOperation(), TJXOPT_PERFECT, crop);
  if (!moved) return {std::nullopt, NotWholeBlocks(*header)};
  const QSizeF whole(edit.Move().SwapsSides() ? header->Size.transposed() : header->Size);
  const QRectF keep(crop.x() / whole.width(), crop.y() / whole.height(), crop.width() / whole.width(), crop.height() / whole.height());
  return {Retold(*moved, edit.Move(), keep), {}};
}

QSize JpegSize(const QByteArray& jpeg) {
  const std::optional<Header> header = ReadHeader(jpeg);
  return header ? header->Size : QSize();
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
