#include "support/ImageCompare.h"

#include "imaging/Loader.h"

#include <QSet>

#include <cmath>
#include <limits>

namespace testing_support {

namespace {

// Sum of squared and of absolute differences over all samples; false when sizes differ.
bool Differences(const imaging::Image& a, const imaging::Image& b, double& squared, double& absolute, double& count) {
  const QImage x = a.ToQImage();
  const QImage y = b.ToQImage();
  if (x.size() != y.size()) return false;
  squared = absolute = 0;
  for (int row = 0; row < x.height(); ++row) {
    const uchar* p = x.constScanLine(row);
    const uchar* q = y.constScanLine(row);
    for (int i = 0; i < x.width() * 3; ++i) {
      const double d = double(p[i]) - double(q[i]);
      squared += d * d;
      absolute += std::fabs(d);
    }
  }
  count = double(x.width()) * x.height() * 3;
  return true;
}

}  // namespace

double MeanAbsoluteDifference(const imaging::Image& a, const imaging::Image& b) {
  double squared = 0, absolute = 0, count = 0;
  if (!Differences(a, b, squared, absolute, count)) return -1;
  return absolute / count;
}

double Psnr(const imaging::Image& a, const imaging::Image& b) {
  double squared = 0, absolute = 0, count = 0;
  if (!Differences(a, b, squared, absolute, count)) return 0;
  if (squared == 0) return std::numeric_limits<double>::infinity();
  return 10 * std::log10(255.0 * 255.0 / (squared / count));
}

int ColourCount(const imaging::Image& image) {
  const QImage x = image.ToQImage().convertToFormat(QImage::Format_RGB32);
  QSet<QRgb> colours;
  for (int row = 0; row < x.height(); ++row) {
    const auto* line = reinterpret_cast<const QRgb*>(x.constScanLine(row));
    for (int col = 0; col < x.width(); ++col) colours.insert(line[col]);
  }
  return static_cast<int>(colours.size());
}

SampleStatistics Statistics(const imaging::Image& image) {
  const QImage x = image.ToQImage();
  double sum = 0, squares = 0;
  for (int row = 0; row < x.height(); ++row) {
    const uchar* p = x.constScanLine(row);
    for (int i = 0; i < x.width() * 3; ++i) {
      sum += p[i];
      squares += double(p[i]) * p[i];
    }
  }
  const double count = double(x.width()) * x.height() * 3;
  const double mean = sum / count;
  return {mean, squares / count - mean * mean};
}

QColor PixelAt(const imaging::Image& image, int x, int y) { return image.ToQImage().pixelColor(x, y); }

imaging::Image Painted(int width, int height, const std::function<QColor(int x, int y)>& colour, bool alpha) {
  QImage picture(width, height, alpha ? QImage::Format_ARGB32 : QImage::Format_RGB32);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) picture.setPixelColor(x, y, colour(x, y));
  }
  return imaging::Image::FromQImage(picture);
}

QString CorpusPath(const QString& relative) { return QStringLiteral(VISTREL_CORPUS_DIR "/") + relative; }

imaging::Image Hopper() { return imaging::LoadFile(CorpusPath(QStringLiteral("formats/hopper.png"))).value(); }

}  // namespace testing_support
