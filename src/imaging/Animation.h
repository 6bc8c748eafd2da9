#pragma once
// Animations (GIF, WebP): each frame's delay and the loop count as the file states them,
// and the frames themselves read once, in order, so that playing one holds only the frames
// near the one shown.

#include "imaging/Image.h"
#include "imaging/Saver.h"

#include <QString>

#include <memory>
#include <optional>
#include <vector>

namespace imaging {

// A delay of 10 ms or less is played as 100 ms, as the browsers play it: such files were
// made for viewers that did so.
inline constexpr int kTinyDelayMs = 10;
inline constexpr int kTinyDelayPlayedMs = 100;

struct FrameTiming {
  std::vector<int> DelaysMs;  // as played
  int Loops = 0;              // times the whole animation plays; 0 for ever
  int Frames() const { return int(DelaysMs.size()); }
  qint64 TotalMs() const;
};

// The timing of an animation of two frames or more (a GIF or a WebP); nullopt for anything
// else: a still picture, a file of pages, a GIF of over kMaxGifFrames frames.
std::optional<FrameTiming> ReadFrameTiming(const QString& path);
// Whether it is one, knowing no more than that: a GIF is read only up to its second frame.
bool IsAnimation(const QString& path);

// Every frame of the animation `source` with its delay and the loop count, written as the
// WebP `target` (whole or not at all) at the options' quality; false when either cannot be done.
bool SaveAnimation(const QString& source, const QString& target, const SaveOptions& options = {});

// "12 frames, 3.5 s": what Properties and the command line say of an animation.
QString DescribeAnimation(const FrameTiming& timing);

// The frames of an animation, decoded one after another from the first. A GIF's come in on
// white as its still picture does; a WebP's keep their alpha. Not for use from two threads
// at once.
class FrameReader {
 public:
  explicit FrameReader(QString path);
  ~FrameReader();
  FrameReader(FrameReader&&) noexcept;
  FrameReader& operator=(FrameReader&&) noexcept;

  // The next frame; nullopt after the last one, or from a frame that cannot be decoded
  // (then Failed() is true and no frame follows). Failed() is also true after the last
  // frame of a file that ends early: the frames shown are what it holds.
  std::optional<Image> Next();
  // The index the next call to Next() reads.
  int NextIndex() const { return next_; }
  bool Failed() const { return failed_; }

  struct Open;  // the file open for reading its frames

 private:
  QString path_;
  std::unique_ptr<Open> open_;
  int next_ = 0;
  bool failed_ = false;
};

}  // namespace imaging
