// The image's own services: reductions for display (exact sizes, the same picture whether
// or not the levels were warmed, alpha onto white, no aliasing of fine detail) and packed undo
// states (lossless, smaller than the pixels for a photograph, alpha kept).
#include "imaging/Image.h"
#include "imaging/Loader.h"
#include "imaging/Operations.h"
#include "imaging/Saver.h"
#include "imaging/PackedImage.h"
#include "support/ImageCompare.h"
#include "support/TestFiles.h"

#include <QColor>
#include <QTemporaryDir>

#include <functional>

#include <gtest/gtest.h>

namespace {

using testing_support::Hopper;
using testing_support::MeanAbsoluteDifference;
using testing_support::CorpusPath;

// Alternate black and white columns: the worst case for a reduction that skips pixels.
imaging::Image Stripes(int width, int height) {
  QImage stripes(width, height, QImage::Format_RGB888);
  for (int x = 0; x < width; ++x) {
    for (int y = 0; y < height; ++y) stripes.setPixelColor(x, y, x % 2 ? Qt::white : Qt::black);
  }
  return imaging::Image::FromQImage(stripes);
}

// Exactly the size asked, never enlarged, and nearly the same picture whether or not the
// levels were warmed.
TEST(DisplayLevels, AReductionHasTheSizeAskedAndTheSamePictureFromWarmedLevels) {
  const imaging::Image cold = Hopper().ReducedForDisplay(37, 20);
  EXPECT_EQ(std::tuple(testing_support::SizeOf(cold), cold.Bands()), std::tuple(QSize(37, 20), 3));
  EXPECT_EQ(MeanAbsoluteDifference(Hopper().ReducedForDisplay(500, 500), Hopper()), 0);
  const imaging::Image warm = Hopper();
  warm.WarmDisplayLevels(16);
  EXPECT_LT(MeanAbsoluteDifference(warm.ReducedForDisplay(37, 20), cold), 4.0);
  const imaging::Image preview = warm.FitWithinForDisplay(112, 40);
  EXPECT_GT(testing_support::Psnr(preview, warm.FitWithin(112, 40)), 30);
  EXPECT_EQ(warm.FitWithinForDisplay(500, 500).Width(), 128);
}

// A reduction by a fifth at most is close to libvips' own Lanczos-3: on this detailed
// picture within a level and a half (a bilinear or an area average is over two away).
TEST(DisplayLevels, ASlightReductionIsCloseToLanczos) {
  testing_support::TempFolder folder;
  const QString reduced = folder.File(QStringLiteral("reduced.png"));
  ASSERT_EQ(testing_support::Run(QStringLiteral("vips"), {"reduce", CorpusPath(QStringLiteral("formats/hopper.png")), reduced,
                                                          QString::number(128.0 / 120), QString::number(128.0 / 105)}).ExitCode, 0);
  const imaging::Image fitted = Hopper().ReducedForDisplay(120, 105);
  EXPECT_EQ(testing_support::SizeOf(fitted), QSize(120, 105));
  EXPECT_LT(MeanAbsoluteDifference(fitted, imaging::LoadFile(reduced).value()), 1.5);
}

TEST(DisplayLevels, FineDetailAveragesToGreyRatherThanAliasing) {
  const imaging::Image reduced = Stripes(600, 40).ReducedForDisplay(55, 4);
  const QImage pixels = reduced.ToQImage();
  for (int x = 2; x < 53; ++x) EXPECT_NEAR(pixels.pixelColor(x, 2).red(), 128, 20) << x;
}

// A copy of `image` in pixels of its own, packed and let go, so that unpacking has only
// the packed bytes to go on (once the worker is done).
imaging::PackedImage PackedAlone(const imaging::Image& image) {
  const imaging::PackedImage packed = imaging::PackedImage::Pack(imaging::ops::Flip(imaging::ops::Flip(image)));
  (void)packed.Bytes();
  return packed;
}

TEST(PackedImage, UnpacksExactlyWithAlphaOddSizesASinglePixelAndTallPictures) {
  const imaging::Image photo = imaging::LoadFile(CorpusPath(QStringLiteral("formats/hopper.png"))).value();
  const imaging::PackedImage packed = PackedAlone(photo);
  EXPECT_EQ(MeanAbsoluteDifference(packed.Unpack(), photo), 0);
  EXPECT_LT(packed.Bytes(), qint64(photo.Width()) * photo.Height() * 3);
  QImage sprite(7, 3, QImage::Format_ARGB32);
  for (int x = 0; x < 7; ++x) {
    for (int y = 0; y < 3; ++y) sprite.setPixelColor(x, y, QColor(x * 30, y * 80, 200 - x * 20, x * 36));
  }
  const imaging::Image image = imaging::Image::FromQImage(sprite);
  const imaging::Image back = PackedAlone(image).Unpack();
  EXPECT_EQ(back.Bands(), 4);
  EXPECT_EQ(MeanAbsoluteDifference(back, image), 0);
  QImage dot(1, 1, QImage::Format_RGB888);  // a single pixel
  dot.setPixelColor(0, 0, QColor(1, 2, 3));
  const imaging::Image one = imaging::Image::FromQImage(dot);
  EXPECT_EQ(MeanAbsoluteDifference(PackedAlone(one).Unpack(), one), 0);
  // Tall enough for several bands of rows, the last one short.
  const imaging::Image tall = testing_support::Painted(5, 601, [](int x, int y) { return QColor(x * 50, y % 256, (x * y) % 256); });
  EXPECT_EQ(MeanAbsoluteDifference(PackedAlone(tall).Unpack(), tall), 0);
}

// A state shown before comes back from its kept frames at once while its rows are still
// unpacking: whatever reads the pixels then gets them whole.
TEST(PackedImage, EveryReaderOfAStateJustUndoneGetsItsRowsWhole) {
  const imaging::Image photo = testing_support::Painted(1600, 1200, [](int x, int y) { return QColor(x % 256, y % 256, (x ^ y) % 256); });
  const auto packedAfterShowing = [&photo] {
    const imaging::Image shown = imaging::ops::Flip(photo);
    (void)shown.ReducedForDisplay(400, 300);  // the frame it was shown at, kept with the state
    const imaging::PackedImage packed = imaging::PackedImage::Pack(shown);
    (void)packed.Bytes();
    return packed;
  };
  const imaging::Image flipped = imaging::ops::Flip(photo);
  const std::vector<std::pair<const char*, std::function<imaging::Image(const imaging::Image&)>>> readers = {
      {"an operation", [](const imaging::Image& image) { return imaging::ops::Flip(imaging::ops::Flip(image)); }},
      {"a copy for the clipboard", [](const imaging::Image& image) { return imaging::Image::FromQImage(image.ToQImage()); }},
      {"a zoom larger than the frame", [](const imaging::Image& image) { return image.ReducedForDisplay(1599, 1199); }},
  };
  for (const auto& [name, read] : readers) {
    const imaging::PackedImage packed = packedAfterShowing();
    const imaging::Image restored = packed.Unpack();
    EXPECT_EQ(MeanAbsoluteDifference(read(restored), read(flipped)), 0) << name;
  }
}

// A 16-bit file keeps its 16 bits through the edits that can keep them, an undo state and a
// save to PNG or TIFF; its values are not multiples of 257, so an 8-bit detour shows.
QRgba64 DeepPixel(const QString& png) { return QImage(png).pixelColor(1, 1).rgba64(); }

TEST(DeepImages, SixteenBitsSurviveEditsUndoStatesAndSaves) {
  QTemporaryDir folder;
  const QString source = folder.filePath(QStringLiteral("deep.png"));
  QImage deep(4, 3, QImage::Format_RGBX64);
  deep.fill(QColor::fromRgba64(1000, 30000, 65000));
  ASSERT_TRUE(deep.save(source));
  const imaging::Image image = imaging::LoadFile(source).value();
  ASSERT_EQ(image.BitsPerSample(), 16);
  EXPECT_EQ(image.ToQImage().pixelColor(0, 0), QColor(3, 117, 253));  // the screen gets the high byte

  struct Case {
    const char* Name;
    imaging::Image Edited;
    QString Saved;  // png or tif
    int Bits, Tolerance;
    quint16 Red, Green, Blue;
  };
  const Case cases[] = {
      {"unedited, tiff", image, "tif", 16, 1, 1000, 30000, 65000},
      {"negative", imaging::ops::Negative(image), "png", 16, 1, 64535, 35535, 535},
      {"rotated, from an undo state", PackedAlone(imaging::ops::RotateQuarter(image, 1)).Unpack(), "tif", 16, 1, 1000, 30000, 65000},
      {"brightness", imaging::ops::Brightness(image, 10), "png", 16, 1, 7554, 36554, 65535},
      {"blurred", imaging::ops::Blur(image), "png", 16, 1, 1000, 30000, 65000},
      {"a 256-colour palette is 8-bit", imaging::ops::ColorDepth(image, 8), "png", 8, 2 * 257, 3 * 257, 117 * 257, 253 * 257},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.Name);
    EXPECT_EQ(c.Edited.BitsPerSample(), c.Bits);
    const QString saved = folder.filePath(QStringLiteral("out.") + c.Saved);
    ASSERT_TRUE(imaging::SaveImage(c.Edited, saved));
    EXPECT_EQ(imaging::ReadSourceFacts(saved).BitsPerChannel, c.Bits);
    const QString png = folder.filePath(QStringLiteral("back.png"));  // TIFF read by our loader, checked as PNG
    ASSERT_TRUE(imaging::SaveImage(imaging::LoadFile(saved).value(), png));
    const QRgba64 pixel = DeepPixel(png);
    EXPECT_NEAR(pixel.red(), c.Red, c.Tolerance);
    EXPECT_NEAR(pixel.green(), c.Green, c.Tolerance);
    EXPECT_NEAR(pixel.blue(), c.Blue, c.Tolerance);
  }
  const QString jpeg = folder.filePath(QStringLiteral("out.jpg"));  // JPEG holds 8 bits: the high byte
  ASSERT_TRUE(imaging::SaveImage(image, jpeg));
  const QColor shown = QImage(jpeg).pixelColor(1, 1);
  EXPECT_NEAR(shown.green(), 117, 2);
  EXPECT_NEAR(shown.blue(), 253, 2);
}

}  // namespace

// Files of several pages, made by ImageMagick: each page opens by its number (an icon's
// images largest first), and an animation's frames are not pages to turn.
TEST(Pages, EachPageOpensByItsNumber) {
  testing_support::TempFolder folder;
  struct Case {
    const char* Name;
    QStringList Pictures;  // ImageMagick's arguments, one page each
    int Pages;
    std::vector<std::pair<QColor, int>> Shown;  // each page's colour and width, in order
  };
  const Case cases[] = {
      {"pages.tif", {"-size", "8x6", "xc:red", "xc:lime", "xc:blue"}, 3, {{Qt::red, 8}, {Qt::green, 8}, {Qt::blue, 8}}},
      {"pages.dcx", {"-size", "8x6", "xc:red", "xc:blue"}, 2, {{Qt::red, 8}, {Qt::blue, 8}}},
      {"icon.ico", {"-size", "16x16", "xc:red", "-size", "48x48", "xc:lime", "-size", "32x32", "xc:blue"}, 3,
       {{Qt::green, 48}, {Qt::blue, 32}, {Qt::red, 16}}},
      {"moving.gif", {"-delay", "10", "-size", "8x6", "xc:red", "xc:blue"}, 1, {{Qt::red, 8}}},
  };
  for (const Case& c : cases) {
    const QString path = folder.File(QLatin1String(c.Name));
    ASSERT_EQ(testing_support::Run(QStringLiteral("convert"), c.Pictures + QStringList{path}).ExitCode, 0) << c.Name;
    EXPECT_EQ(imaging::ReadSourceFacts(path).TurnablePages(), c.Pages) << c.Name;
    for (int page = 0; page < int(c.Shown.size()); ++page) {
      const auto image = imaging::LoadFile(path, page);
      ASSERT_TRUE(image.has_value()) << c.Name << " page " << page;
      EXPECT_EQ(image->ToQImage().pixelColor(1, 1), c.Shown[size_t(page)].first) << c.Name << " page " << page;
      EXPECT_EQ(image->Width(), c.Shown[size_t(page)].second) << c.Name << " page " << page;
    }
  }
}
