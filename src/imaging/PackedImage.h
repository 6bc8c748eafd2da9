#pragma once
// An image held compressed without loss, for the undo history (it keeps eight whole
// states in memory; packed, they cost a fraction of that). Each row is stored as the
// difference of every sample from the one to its left, red and blue then from green, and
// compressed with Zstandard:
// smooth photographs shrink to a third or less, and unpacking a 24-megapixel state takes
// well under the 150 ms an undo may spend.

#include "imaging/Image.h"

#include <QByteArray>

#include <memory>

namespace imaging {

// Packing runs on a worker: Pack returns at once, and until the worker is done the state
// holds the image itself, so Unpack gives the same pixels at any moment. While the image
// packed is still held elsewhere (the document keeps the last one it showed), Unpack
// gives it back as it is, with its display levels. Copies share one state.
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
