#pragma once
// Animated PNG: a PNG whose acTL chunk, before its pixels, announces frames. Each frame is an
// fcTL chunk (its place, size, delay and how it is laid over the canvas) and its data (IDAT
// for a first frame that is also the still picture, fdAT after). No library installed here
// plays them, so the chunks are sorted here: each frame's data is given its own IHDR and
// decoded by Qt's PNG reader as a picture of its own, then laid on the canvas.

#include <QByteArray>
#include <QByteArrayView>
#include <QImage>

#include <optional>
#include <vector>

namespace imaging {

// The bytes to look at for LooksLikeApng: acTL comes before the pixels, near the start.
inline constexpr qsizetype kApngHeadBytes = 64 * 1024;
// Whether the head of a file is an APNG of two frames or more.
bool LooksLikeApng(QByteArrayView head);

struct ApngTiming {
  std::vector<int> DelaysMs;  // as stored (a zero denominator counts as 100)
  int Plays = 0;              // 0 for ever
};
std::optional<ApngTiming> ReadApngTiming(const QByteArray& file);

// The frames in turn, each the whole canvas after that frame was laid on it.
class ApngFrames {
 public:
  explicit ApngFrames(QByteArray file);
  // nullopt after the last frame, or at a frame that cannot be decoded (Failed() then).
  std::optional<QImage> Next();
  bool Failed() const { return failed_; }

  struct Frame {
    quint32 Width = 0, Height = 0, X = 0, Y = 0;
    quint16 DelayNumerator = 0, DelayDenominator = 0;
    quint8 Dispose = 0, Blend = 0;
    std::vector<QByteArrayView> Data;  // the compressed pixels, without fdAT's sequence numbers
  };

 private:
  QByteArray file_;
  QByteArray header_;  // IHDR's body
  QByteArray shared_;  // the chunks every frame's picture needs (PLTE, tRNS, colour chunks), whole
  std::vector<Frame> frames_;
  size_t next_ = 0;
  QImage canvas_, saved_;
  bool failed_ = false;

  friend std::optional<ApngTiming> ReadApngTiming(const QByteArray& file);
  bool Parse();
  std::optional<QImage> Decode(const Frame& frame) const;
};

}  // namespace imaging
