// The Colors operations: each has a property that fails if the operation is wrong.
#include "imaging/Loader.h"
#include "imaging/Operations.h"
#include "imaging/Saver.h"
#include "support/ImageCompare.h"
#include "support/TestFiles.h"

#include <QTemporaryDir>

#include <functional>

#include <gtest/gtest.h>

namespace {

namespace ops = imaging::ops;
using namespace testing_support;

imaging::Image Grey(int value) { return Painted(4, 3, [value](int, int) { return QColor(value, value, value); }); }

bool ChannelsEqual(const imaging::Image& image) {
  const QImage picture = image.ToQImage();
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      const QColor c = picture.pixelColor(x, y);
      if (c.red() != c.green() || c.green() != c.blue()) return false;
    }
  }
  return true;
}

// Every operation at its neutral value gives the photo back, sample for sample.
TEST(Operations, NeutralValuesLeaveThePhotoUnchanged) {
  const imaging::Image photo = Hopper();
  const std::pair<const char*, std::function<imaging::Image(const imaging::Image&)>> neutral[] = {
      {"Brightness", [](const auto& p) { return ops::Brightness(p, 0); }},
      {"Contrast", [](const auto& p) { return ops::Contrast(p, 0); }},
      {"Gamma", [](const auto& p) { return ops::Gamma(p, 1.0); }},
      {"RGB", [](const auto& p) { return ops::RedGreenBlue(p, 0, 0, 0); }},
      {"Solarize", [](const auto& p) { return ops::Solarize(p, 0); }},
      {"HSL", [](const auto& p) { return ops::HueSaturationLuminance(p, 0, 0, 0); }},
      {"24 bits", [](const auto& p) { return ops::ColorDepth(p, 24); }},
      {"Blend", [](const auto& p) { return ops::Blend(p, 0); }},
      {"Mosaic", [](const auto& p) { return ops::Mosaic(p, 1); }},
      {"Motion Blur", [](const auto& p) { return ops::MotionBlur(p, 0, 0, 25); }},
      {"Pinch", [](const auto& p) { return ops::Pinch(p, 0); }},
      {"Swirl", [](const auto& p) { return ops::Swirl(p, 0); }},
      {"Perspective", [](const auto& p) { return ops::Perspective(p, ops::PerspectiveDirection(2), 0); }},
  };
  for (const auto& [name, run] : neutral) EXPECT_EQ(MeanAbsoluteDifference(run(photo), photo), 0) << name;
}

TEST(ColourOperations, BrightnessRaisesEveryChannelAndClipsAtTheEnds) {
  const int brighter = PixelAt(ops::Brightness(Grey(100), 20), 1, 1).red();
  EXPECT_GT(brighter, 100);
  EXPECT_GT(PixelAt(ops::Brightness(Grey(100), 40), 1, 1).red(), brighter);
  EXPECT_TRUE(ChannelsEqual(ops::Brightness(Grey(100), 20)));
  EXPECT_EQ(PixelAt(ops::Brightness(Grey(100), -100), 1, 1), QColor(0, 0, 0));
  EXPECT_EQ(PixelAt(ops::Brightness(Grey(100), 100), 1, 1), QColor(255, 255, 255));
}

TEST(ColourOperations, ContrastFlattensToGreyAtMinusHundredAndSpreadsAbove) {
  const imaging::Image photo = Hopper();
  EXPECT_LT(Statistics(ops::Contrast(photo, -100)).Variance, 1.0);
  EXPECT_GT(Statistics(ops::Contrast(photo, 40)).Variance, Statistics(photo).Variance * 1.5);
  EXPECT_LT(Statistics(ops::Contrast(photo, -40)).Variance, Statistics(photo).Variance);
}

// Tone curves on a mid grey bend the middle the named way and keep black and white.
TEST(ColourOperations, ToneCurvesBendTheMiddleAndKeepTheEnds) {
  const std::tuple<const char*, std::function<imaging::Image(const imaging::Image&)>, bool> curves[] = {
      {"Gamma 2", [](const auto& p) { return ops::Gamma(p, 2.0); }, true},
      {"Gamma 10", [](const auto& p) { return ops::Gamma(p, 10.0); }, true},
      {"Gamma 0.01", [](const auto& p) { return ops::Gamma(p, 0.01); }, false},
      {"Concave", [](const auto& p) { return ops::Parabolic(p, true); }, true},
      {"Gamma 0.5", [](const auto& p) { return ops::Gamma(p, 0.5); }, false},
      {"Convex", [](const auto& p) { return ops::Parabolic(p, false); }, false}};
  for (const auto& [name, curve, lighter] : curves) {
    const int middle = PixelAt(curve(Grey(100)), 0, 0).red();
    EXPECT_TRUE(lighter ? middle > 120 : middle < 80) << name << " gives " << middle;
    EXPECT_EQ(PixelAt(curve(Grey(0)), 0, 0).red(), 0) << name;
    EXPECT_EQ(PixelAt(curve(Grey(255)), 0, 0).red(), 255) << name;
  }
}

TEST(ColourOperations, RedGreenBlueMovesEachChannelOnItsOwn) {
  const QColor moved = PixelAt(ops::RedGreenBlue(Grey(100), 20, -20, 0), 0, 0);
  EXPECT_TRUE(moved.red() > 140 && moved.green() < 60 && moved.blue() == 100) << moved.name().toStdString();
}

TEST(ColourOperations, SolarizeInvertsTheValuesAtAndAboveItsThreshold) {
  const imaging::Image ramp = Painted(256, 1, [](int x, int) { return QColor(x, x, x); });
  const imaging::Image solarized = ops::Solarize(ramp, 100);  // threshold 156
  EXPECT_EQ(std::tuple(PixelAt(solarized, 155, 0).red(), PixelAt(solarized, 156, 0).red(), PixelAt(solarized, 255, 0).red()),
            std::tuple(155, 99, 0));
}

TEST(ColourOperations, NegativeTwiceIsTheIdentityAndKeepsAlpha) {
  const imaging::Image photo = Hopper();
  EXPECT_EQ(PixelAt(ops::Negative(Grey(10)), 0, 0), QColor(245, 245, 245));
  EXPECT_EQ(MeanAbsoluteDifference(ops::Negative(ops::Negative(photo)), photo), 0);
  const imaging::Image clear = Painted(2, 2, [](int x, int) { return QColor(10, 20, 30, x * 200); }, true);
  const imaging::Image negated = ops::Negative(clear);
  ASSERT_EQ(negated.Bands(), 4);
  QTemporaryDir folder;
  ASSERT_TRUE(imaging::SaveImage(negated, folder.filePath(QStringLiteral("n.png"))));
  const QColor pixel = QImage(folder.filePath(QStringLiteral("n.png"))).pixelColor(1, 0);
  EXPECT_EQ(std::tuple(pixel.alpha(), pixel.red()), std::tuple(200, 245));
}

TEST(ColourOperations, GrayScaleHasEqualChannelsAndGreenLooksLighterThanRed) {
  EXPECT_TRUE(ChannelsEqual(ops::GrayScale(Hopper())));
  EXPECT_FALSE(ChannelsEqual(Hopper()));
  const auto grey = [](QColor colour) { return PixelAt(ops::GrayScale(Painted(1, 1, [colour](int, int) { return colour; })), 0, 0).red(); };
  EXPECT_GT(grey(QColor(0, 255, 0)), grey(QColor(255, 0, 0)));
  EXPECT_GT(grey(QColor(255, 0, 0)), grey(QColor(0, 0, 255)));
  EXPECT_EQ(grey(QColor(200, 100, 50)), 124);  // 0.299 x 200 + 0.587 x 100 + 0.114 x 50, rounded
}

TEST(ColourOperations, HueSaturationLuminanceMovesWhatItNames) {
  EXPECT_TRUE(ChannelsEqual(ops::HueSaturationLuminance(Hopper(), 0, -100, 0)));
  EXPECT_EQ(PixelAt(ops::HueSaturationLuminance(Hopper(), 0, 0, 100), 5, 5), QColor(255, 255, 255));
  EXPECT_EQ(PixelAt(ops::HueSaturationLuminance(Hopper(), 0, 0, -100), 5, 5), QColor(0, 0, 0));
  const QColor cyan = PixelAt(ops::HueSaturationLuminance(Painted(1, 1, [](int, int) { return QColor(255, 0, 0); }), 100, 0, 0), 0, 0);
  EXPECT_TRUE(cyan.red() < 10 && cyan.green() > 245 && cyan.blue() > 245) << cyan.name().toStdString();  // half a turn
}

// A hue turned a fifth of a half turn (26 of 256 steps) gives libvips' own HSV turn within
// six tenths of a level on average (two steps fewer are seven tenths away).
TEST(ColourOperations, HueTurnsAsInLibvipsHsv) {
  testing_support::TempFolder folder;
  const QString photo = CorpusPath(QStringLiteral("formats/hopper.png"));
  const auto vips = [&folder](QStringList words) {
    for (QString& word : words) word.replace(u'@', folder.Path() + u'/');
    return testing_support::Run(QStringLiteral("vips"), words).ExitCode;
  };
  for (const QStringList& step : {QStringList{"colourspace", photo, "@hsv.v", "hsv"}, {"linear", "@hsv.v", "@moved.v", "1", "26 0 0"},
                                  {"remainder_const", "@moved.v", "@wrapped.v", "256"}, {"cast", "@wrapped.v", "@turned.v", "uchar"},
                                  {"copy", "@turned.v", "@tagged.v", "--interpretation", "hsv"},
                                  {"colourspace", "@tagged.v", "@steps.png", "srgb"}}) {
    ASSERT_EQ(vips(step), 0) << step.join(u' ').toStdString();
  }
  const imaging::Image steps = imaging::LoadFile(folder.File(QStringLiteral("steps.png"))).value();
  EXPECT_LT(MeanAbsoluteDifference(ops::HueSaturationLuminance(Hopper(), 20, 0, 0), steps), 0.6);
}

TEST(ColourOperations, EqualizeSpreadsANarrowHistogram) {
  const imaging::Image narrow = Painted(64, 64, [](int x, int y) {
    const int v = 100 + (x + y) % 21;
    return QColor(v, v, v);
  });
  const imaging::Image equalized = ops::Equalize(narrow);
  int low = 255, high = 0;
  for (int x = 0; x < 64; ++x) {
    low = std::min(low, PixelAt(equalized, x, 0).red());
    high = std::max(high, PixelAt(equalized, x, 0).red());
  }
  EXPECT_LT(low, 30);
  EXPECT_EQ(high, 255);
}

TEST(ColourOperations, ColorDepthLeavesAtMostTheColoursOfItsBitsAndTwentyFourDropsAlpha) {
  const imaging::Image photo = Hopper();
  ASSERT_GT(ColourCount(photo), 256);
  const imaging::Image twoColours = ops::ColorDepth(photo, 1);
  EXPECT_EQ(ColourCount(twoColours), 2);
  for (const QPoint p : {QPoint(0, 0), QPoint(64, 64), QPoint(100, 30)}) {
    const QColor c = PixelAt(twoColours, p.x(), p.y());
    EXPECT_TRUE(c == QColor(Qt::black) || c == QColor(Qt::white));
  }
  EXPECT_NEAR(Statistics(twoColours).Mean, Statistics(ops::GrayScale(photo)).Mean, 8);  // dithered to the same tone
  EXPECT_LE(ColourCount(ops::ColorDepth(photo, 4)), 16);
  EXPECT_LE(ColourCount(ops::ColorDepth(photo, 8)), 256);
  EXPECT_GT(testing_support::Psnr(ops::ColorDepth(photo, 8), photo), 30);  // dithered, still the photo
  const imaging::Image clear = Painted(2, 1, [](int, int) { return QColor(0, 0, 0, 0); }, true);
  const imaging::Image flat = ops::ColorDepth(clear, 24);  // 24 bits drops alpha onto white
  EXPECT_EQ(flat.Bands(), 3);
  EXPECT_EQ(PixelAt(flat, 0, 0), QColor(255, 255, 255));
}

TEST(ColourOperations, RedEyeRemovalFixesRedPixelsInsideTheAreaOnly) {
  const imaging::Image eyes = Painted(10, 4, [](int, int) { return QColor(220, 40, 60); });
  const imaging::Image fixed = ops::RedEyeRemoval(eyes, QRect(0, 0, 5, 4));
  EXPECT_EQ(PixelAt(fixed, 2, 2), QColor(50, 40, 60));
  EXPECT_EQ(PixelAt(fixed, 7, 2), QColor(220, 40, 60));
  // A face: skin, a yellow highlight and a red pupil; only the pupil changes.
  const imaging::Image face = Painted(12, 4, [](int x, int) {
    return x < 4 ? QColor(224, 172, 105) : x < 8 ? QColor(255, 255, 0) : QColor(190, 40, 45);
  });
  const imaging::Image fixedFace = ops::RedEyeRemoval(face, QRect(0, 0, 12, 4));
  EXPECT_EQ(PixelAt(fixedFace, 1, 1), QColor(224, 172, 105));
  EXPECT_EQ(PixelAt(fixedFace, 5, 1), QColor(255, 255, 0));
  EXPECT_EQ(PixelAt(fixedFace, 10, 1), QColor(42, 40, 45));  // 42.5 rounds to even
  EXPECT_EQ(MeanAbsoluteDifference(ops::RedEyeRemoval(eyes, QRect(50, 50, 5, 5)), eyes), 0);  // outside the image
}

}  // namespace
