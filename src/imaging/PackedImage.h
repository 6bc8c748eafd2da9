#pragma once
// An image held compressed without loss, for the undo history (it keeps eight whole
// states in memory; packed, they cost a fraction of that). Each row is stored as the
// difference of every sample from the one to its left, red and blue then from green, and
// compressed with Zstandard in bands of rows: smooth photographs shrink to a third or less.
// A state unpacked is shown at once from the small frames it was shown at, kept beside it,
// while its bands are unpacked on two workers; whatever reads its pixels first waits for
// them (unpacking a 24-megapixel state takes about 100 ms).

#include "imaging/Image.h"

#include <QByteArray>

#include <memory>

namespace imaging {

// Packing runs on a worker: Pack returns at once, and until the worker is done the state
// holds the image itself, so Unpack gives the same pixels at any moment. While the image
// packed is still held elsewhere (the document keeps the last one it showed), Unpack
// gives it back as it is, with its display levels. Unpacking keeps the image's metadata
// (its profile, EXIF and resolution). Copies share one state.
class PackedImage {
 public:
  static PackedImage Pack(const Image& image);
  Image Unpack() const;
  // The bytes held once packed (waits for the worker).
  qint64 Bytes() const;
  int Width() const { return width_; }
  int Height() const { return height_; }

  struct State;

 private:
  std::shared_ptr<State> state_;
  int width_ = 0, height_ = 0;
};

}  // namespace imaging
