#pragma once
// Pixel comparisons for the imaging tests.

#include "imaging/Image.h"

#include <QImage>

namespace testing_support {

// Mean absolute difference per channel sample (0..255); -1 when the sizes differ.
double MeanAbsoluteDifference(const imaging::Image& a, const imaging::Image& b);

// Peak signal-to-noise ratio in dB (infinity when identical); 0 when the sizes differ.
double Psnr(const imaging::Image& a, const imaging::Image& b);

// The number of distinct colours.
int ColourCount(const imaging::Image& image);

QString CorpusPath(const QString& relative);

}  // namespace testing_support
