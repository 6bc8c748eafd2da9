#pragma once
// Pixel comparisons for the imaging tests.

#include "imaging/Image.h"

#include <QColor>

#include <functional>

namespace testing_support {

// Mean absolute difference per channel sample (0..255); -1 when the sizes differ.
double MeanAbsoluteDifference(const imaging::Image& a, const imaging::Image& b);

// Peak signal-to-noise ratio in dB (infinity when identical); 0 when the sizes differ.
double Psnr(const imaging::Image& a, const imaging::Image& b);

// The number of distinct colours.
int ColourCount(const imaging::Image& image);

// Mean and variance of all colour samples (alpha composited onto white).
struct SampleStatistics {
  double Mean = 0;
  double Variance = 0;
};
SampleStatistics Statistics(const imaging::Image& image);

inline QSize SizeOf(const imaging::Image& image) { return {image.Width(), image.Height()}; }

// One pixel's colour, alpha composited onto white.
QColor PixelAt(const imaging::Image& image, int x, int y);

// An image filled by `colour(x, y)`; with alpha when asked.
imaging::Image Painted(int width, int height, const std::function<QColor(int x, int y)>& colour, bool alpha = false);

QString CorpusPath(const QString& relative);

// The corpus's 128 x 128 colour photo (formats/hopper.png).
imaging::Image Hopper();

}  // namespace testing_support
