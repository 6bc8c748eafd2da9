#pragma once
// Turning and flipping a JPEG without decoding it: libjpeg-turbo moves the compressed blocks
// (tjTransform), so no quality is lost and every marker (EXIF, XMP, ICC, comments) is kept.
// A perfect move needs whole blocks: a side that is not a multiple of the block size (8 or
// 16 pixels, by the file's chroma subsampling) cannot be turned that way, and nothing is
// trimmed instead.

#include <QByteArray>
#include <QRect>
#include <QString>
#include <QTransform>

#include <optional>
#include <variant>

namespace imaging {

// One of the eight right-angle turns and flips of a picture, as the matrix that moves a
// point about the centre (x to the right, y down).
class RightAngles {
 public:
  static RightAngles None() { return {1, 0, 0, 1}; }
  static RightAngles Clockwise(int quarters);
  static RightAngles Mirror() { return {-1, 0, 0, 1}; }  // left to right
  static RightAngles Flip() { return {1, 0, 0, -1}; }    // top to bottom
  // What turns a picture stored with this EXIF orientation upright (None for 1 or unknown).
  static RightAngles Upright(int exifOrientation);
  // This one, then `next`.
  RightAngles Then(RightAngles next) const;
  bool IsNone() const { return *this == None(); }
  bool SwapsSides() const { return a_ == 0; }
  // libjpeg-turbo's TJXOP for it.
  int TurboOperation() const;
  // The same move for Qt's painting.
  QTransform AsTransform() const { return QTransform(a_, c_, b_, d_, 0, 0); }
  bool operator==(const RightAngles&) const = default;

 private:
  RightAngles(int a, int b, int c, int d) : a_(a), b_(b), c_(c), d_(d) {}
  int a_, b_, c_, d_;
};

// One edit the blocks can follow: a right-angle move, or a crop to an area of the picture.
using BlockStep = std::variant<RightAngles, QRect>;

// Right-angle moves and crops in any order, as one move of the whole picture followed by
// one crop of it.
class BlockEdit {
 public:
  explicit BlockEdit(QSize picture) : whole_(picture), crop_(QPoint(0, 0), picture) {}
  BlockEdit Then(const BlockStep& step) const;
  // The same edits on a picture that `first` turns into the one they began on.
  BlockEdit After(RightAngles first) const;
  RightAngles Move() const { return move_; }
  // The area kept, within the moved whole picture.
  QRect Crop() const { return crop_; }
  bool Crops() const { return crop_ != QRect(QPoint(0, 0), whole_); }

 private:
  RightAngles move_ = RightAngles::None();
  QSize whole_;
  QRect crop_;
};

struct LosslessResult {
  std::optional<QByteArray> Jpeg;  // the moved file, its EXIF orientation upright
  QString WhyNot;                  // when there is none: "the image is not a multiple of 16 pixels"
};

// `jpeg` moved by `move`; the EXIF orientation, size and thumbnail follow the new picture.
LosslessResult MoveJpegBlocks(const QByteArray& jpeg, RightAngles move);
// The same with a crop, whose top left corner must lie on the block grid.
LosslessResult MoveJpegBlocks(const QByteArray& jpeg, const BlockEdit& edit);

// The size a JPEG's header states; empty when it is not a JPEG.
QSize JpegSize(const QByteArray& jpeg);

// The EXIF orientation a JPEG states (1 when none).
int JpegOrientation(const QByteArray& jpeg);

}  // namespace imaging
