// The Filters operations, Noise and Diffuse.
#include "imaging/Operations.h"
#include "imaging/Loader.h"
#include "support/ImageCompare.h"
#include "support/TestFiles.h"

#include <gtest/gtest.h>

namespace {

namespace ops = imaging::ops;
using namespace testing_support;

// Grey noise from a fixed linear congruential sequence.
imaging::Image NoisyGrey() {
  unsigned state = 12345;
  return Painted(64, 64, [&state](int, int) {
    state = state * 1103515245u + 12345u;
    const int v = int((state >> 16) % 256);
    return QColor(v, v, v);
  });
}

// A white dot on black.
imaging::Image Dot() { return Painted(9, 9, [](int x, int y) { return x == 4 && y == 4 ? Qt::white : Qt::black; }); }

int CountChanged(const imaging::Image& a, const imaging::Image& b) {
  int changed = 0;
  const QImage x = a.ToQImage(), y = b.ToQImage();
  for (int row = 0; row < x.height(); ++row) {
    for (int col = 0; col < x.width(); ++col) changed += x.pixel(col, row) != y.pixel(col, row);
  }
  return changed;
}

TEST(FilterOperations, BlurSoftenAndBlendLowerTheVarianceOfNoise) {
  const imaging::Image noise = NoisyGrey();
  const double before = Statistics(noise).Variance;
  EXPECT_LT(Statistics(ops::Blur(noise)).Variance, before / 3);
  EXPECT_LT(Statistics(ops::Blend(noise, 100)).Variance, before / 3);
  EXPECT_LT(Statistics(ops::Blend(noise, 50)).Variance, before);
  EXPECT_LT(Statistics(ops::Soften(noise, 9)).Variance, Statistics(ops::Soften(noise, 1)).Variance);
  EXPECT_NEAR(Statistics(ops::Blur(noise)).Mean, Statistics(noise).Mean, 3);
}

// Sharpen gives what libvips' own steps give, (1 + a) x photo - a x its Gaussian blur of
// sigma 1, within a third of a level on average: OpenCV rounds the blur on its own fixed
// point, and the difference grows with a (2.25 at level 9). More at higher levels.
TEST(FilterOperations, SharpenIsThePhotoPushedAwayFromItsBlur) {
  TempFolder folder;
  const QString photo = CorpusPath(QStringLiteral("formats/hopper.png"));
  const auto vips = [&folder](QStringList words) {
    for (QString& word : words) word.replace(u'@', folder.Path() + u'/');
    return testing_support::Run(QStringLiteral("vips"), words).ExitCode;
  };
  ASSERT_EQ(vips({"gaussblur", photo, "@blurred.v", "1"}), 0);
  const imaging::Image original = imaging::LoadFile(photo).value();
  double previous = Statistics(original).Variance;
  for (const int level : {1, 9}) {
    const QString a = QString::number(level / 4.0), b = QString::number(1 + level / 4.0);
    for (const QStringList& step : {QStringList{"linear", photo, "@a.v", b, "0"}, {"linear", "@blurred.v", "@b.v", a, "0"},
                                    {"subtract", "@a.v", "@b.v", "@d.v"}, {"round", "@d.v", "@r.v", "rint"},
                                    {"cast", "@r.v", "@steps.png", "uchar"}}) {
      ASSERT_EQ(vips(step), 0) << step.join(u' ').toStdString();
    }
    const imaging::Image sharpened = ops::Sharpen(original, level);
    EXPECT_LT(MeanAbsoluteDifference(sharpened, imaging::LoadFile(folder.File(QStringLiteral("steps.png"))).value()), 0.35) << level;
    EXPECT_GT(Statistics(sharpened).Variance, previous) << level;
    previous = Statistics(sharpened).Variance;
  }
}

// Erode, Median and Dilate give libvips' own 3 x 3 rank filter to the last pixel, edges
// included, at 8 and 16 bits; a lone speck goes under the median.
TEST(FilterOperations, RankFiltersGiveLibvipsRankPixels) {
  TempFolder folder;
  const QString photo = CorpusPath(QStringLiteral("formats/hopper.png")), deep = folder.File(QStringLiteral("deep.png"));
  ASSERT_EQ(testing_support::Run(QStringLiteral("convert"), {photo, "-evaluate", "multiply", "0.9", "-depth", "16", deep}).ExitCode, 0);
  const struct {
    imaging::Image (*operation)(const imaging::Image&);
    const char* index;
  } filters[] = {{ops::Erode, "0"}, {ops::Median, "4"}, {ops::Dilate, "8"}};
  for (const QString& source : {photo, deep}) {
    for (const auto& f : filters) {
      const QString ranked = folder.File(QStringLiteral("ranked.png"));
      ASSERT_EQ(testing_support::Run(QStringLiteral("vips"), {"rank", source, ranked, "3", "3", f.index}).ExitCode, 0);
      const imaging::Image ours = f.operation(imaging::LoadFile(source).value());
      EXPECT_EQ(ours.BitsPerSample(), source == deep ? 16 : 8);
      EXPECT_EQ(MeanAbsoluteDifference(ours, imaging::LoadFile(ranked).value()), 0) << f.index << " " << source.toStdString();
    }
  }
  EXPECT_EQ(PixelAt(ops::Median(Dot()), 4, 4), QColor(Qt::black));
}

TEST(FilterOperations, MosaicMakesConstantBlocksOfTheBlockSize) {
  const imaging::Image photo = Hopper();  // 128 x 128
  const imaging::Image tiles = ops::Mosaic(photo, 5);
  ASSERT_EQ(SizeOf(tiles), QSize(128, 128));
  const QImage picture = tiles.ToQImage();
  for (int y = 0; y < 128; ++y) {
    for (int x = 0; x < 128; ++x) {
      ASSERT_EQ(picture.pixel(x, y), picture.pixel(x / 5 * 5, y / 5 * 5)) << x << "," << y;
    }
  }
  EXPECT_NE(picture.pixel(0, 0), picture.pixel(5, 0));
}

// Motion Blur is the mean along its trail, rounded half up, the edges repeated outward, at
// 8 and 16 bits (libvips' convolution in floating point judges): five pixels back along a
// row either way (six cells, a count no shift divides by), and the diagonal up and left,
// whose eight steps round onto six cells.
TEST(FilterOperations, MotionBlurIsTheMeanAlongItsTrail) {
  TempFolder folder;
  const auto vips = [&folder](QStringList words) {
    for (QString& word : words) word.replace(u'@', folder.Path() + u'/');
    return testing_support::Run(QStringLiteral("vips"), words).ExitCode;
  };
  const QString photo = CorpusPath(QStringLiteral("formats/hopper.png"));
  ASSERT_EQ(vips({"cast", photo, "@deep.tif", "ushort", "--shift"}), 0);
  folder.WriteBytes(QStringLiteral("left.mat"), "11 1 6 0\n1 1 1 1 1 1 0 0 0 0 0\n");
  folder.WriteBytes(QStringLiteral("right.mat"), "11 1 6 0\n0 0 0 0 0 1 1 1 1 1 1\n");
  QByteArray diagonal = "15 15 6 0\n";
  for (int y = 0; y < 15; ++y) {
    for (int x = 0; x < 15; ++x) diagonal += x == y && x >= 2 && x <= 7 ? "1 " : "0 ";
    diagonal += '\n';
  }
  folder.WriteBytes(QStringLiteral("diagonal.mat"), diagonal);
  for (const auto& [picture, format] : {std::pair(photo, "uchar"), std::pair(folder.File(QStringLiteral("deep.tif")), "ushort")}) {
    for (const auto& [mask, h, v, i] : {std::tuple("@left.mat", 10, 0, 5), std::tuple("@right.mat", -10, 0, 5),
                                     std::tuple("@diagonal.mat", 5, 5, 10)}) {
      for (const QStringList& step : {QStringList{"conv", picture, "@mean.v", mask, "--precision", "float"},
                                      {"linear", "@mean.v", "@up.v", "1", "0.5"}, {"round", "@up.v", "@down.v", "floor"},
                                      {"cast", "@down.v", "@expected.tif", format}}) {
        ASSERT_EQ(vips(step), 0) << step.join(u' ').toStdString();
      }
      const imaging::Image blurred = ops::MotionBlur(imaging::LoadFile(picture).value(), h, v, i);
      EXPECT_EQ(MeanAbsoluteDifference(blurred, imaging::LoadFile(folder.File(QStringLiteral("expected.tif"))).value()), 0)
          << format << " " << h;
      EXPECT_EQ(blurred.BitsPerSample(), QLatin1String(format) == QLatin1String("ushort") ? 16 : 8);
    }
  }
}

TEST(FilterOperations, NoiseTouchesAboutItsFrequencyOfPixelsAndRepeats) {
  const imaging::Image grey = Painted(100, 100, [](int, int) { return QColor(128, 128, 128); });
  const int few = CountChanged(ops::Noise(grey, 2, 100), grey);    // 10 %
  const int all = CountChanged(ops::Noise(grey, 20, 100), grey);   // every pixel, bar a zero draw
  EXPECT_NEAR(few, 1000, 250);
  EXPECT_GT(all, 9800);
  EXPECT_EQ(MeanAbsoluteDifference(ops::Noise(grey, 5, 50), ops::Noise(grey, 5, 50)), 0);
  const QColor touched = PixelAt(ops::Noise(grey, 20, 1), 50, 50);
  EXPECT_LE(std::abs(touched.red() - 128), 1);
  EXPECT_EQ(touched.red(), touched.green());  // the same noise in the three bands
}

TEST(FilterOperations, DiffuseMovesPixelsTwoAtMost) {
  const imaging::Image spread = ops::Diffuse(Dot());
  const QImage picture = spread.ToQImage();
  int whites = 0;
  for (int y = 0; y < 9; ++y) {
    for (int x = 0; x < 9; ++x) {
      if (picture.pixelColor(x, y) != QColor(Qt::white)) continue;
      ++whites;
      EXPECT_LE(std::abs(x - 4), 2);
      EXPECT_LE(std::abs(y - 4), 2);
    }
  }
  EXPECT_LE(whites, 25);
  EXPECT_GT(MeanAbsoluteDifference(ops::Diffuse(Hopper()), Hopper()), 1);
}

}  // namespace
