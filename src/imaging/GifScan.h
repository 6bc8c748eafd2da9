#pragma once
// A GIF's frames counted without decoding them: each frame's delay and the loop count
// read from the blocks between the pictures, whose compressed data is skipped. The file
// is read in chunks from start to end, so a GIF of any size costs a few kilobytes.

#include <QIODevice>

#include <optional>
#include <vector>

namespace imaging {

// Beyond this many frames a GIF is shown as a still picture.
inline constexpr int kMaxGifFrames = 100000;

struct GifScan {
  std::vector<int> DelaysCentiseconds;  // one per frame, as stored
  int LoopCount = -1;                   // the NETSCAPE block's count; -1 when there is none
  int Frames() const { return int(DelaysCentiseconds.size()); }
};

// nullopt for what is not a GIF or holds over kMaxGifFrames frames; the scan stops after
// `enoughFrames` frames when fewer are enough to know (whether there are two, say).
std::optional<GifScan> ScanGif(QIODevice& device, int enoughFrames = kMaxGifFrames + 1);

}  // namespace imaging
