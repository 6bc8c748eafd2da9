// What users of a modern viewer expect besides the legacy formats: HEIF, AVIF, JPEG XL,
// JPEG 2000 and WebP written here by their libraries through the vips command, Photoshop by
// ImageMagick, and an SVG drawing.
#include "imaging/Loader.h"
#include "support/ImageCompare.h"
#include "support/TestFiles.h"


#include <gtest/gtest.h>

namespace {

using testing_support::CorpusPath;

class TodaysFormats : public ::testing::TestWithParam<std::pair<const char*, const char*>> {};

TEST_P(TodaysFormats, OpenWhatTheirOwnEncodersWrote) {
  const auto [extension, format] = GetParam();
  testing_support::TempFolder folder;
  const QString hopper = CorpusPath(QStringLiteral("formats/hopper.png"));
  const QString path = folder.File(QStringLiteral("hopper.") + QLatin1String(extension));
  const bool psd = QLatin1String(extension) == QLatin1String("psd");
  const auto made = testing_support::Run(QLatin1String(psd ? "convert" : "vips"), psd ? QStringList{hopper, path} : QStringList{"copy", hopper, path});
  ASSERT_EQ(made.ExitCode, 0) << made.Errors.toStdString();
  const auto loaded = imaging::LoadImage(path);
  ASSERT_TRUE(loaded.has_value());
  EXPECT_EQ(loaded->Format, QLatin1String(format));
  EXPECT_EQ(loaded->Picture.Width(), 128);
  EXPECT_GT(testing_support::Psnr(loaded->Picture, imaging::LoadFile(hopper).value()), 25);
  // Cut short, it is refused or gives a picture of its size; never a crash (the ASan build runs this).
  const QByteArray bytes = testing_support::ReadAll(path);
  for (const qsizetype kept : {qsizetype(16), bytes.size() / 2, bytes.size() - 1}) {
    const auto cut = imaging::LoadFile(folder.WriteBytes(QStringLiteral("cut.") + QLatin1String(extension), bytes.left(kept)));
    EXPECT_TRUE(!cut || cut->Width() == 128) << kept;
  }
}

INSTANTIATE_TEST_SUITE_P(Formats, TodaysFormats,
                         ::testing::Values(std::pair("avif", "HEIF"), std::pair("heic", "HEIF"), std::pair("jxl", "JXL"),
                                           std::pair("jp2", "JP2"), std::pair("webp", "WEBP"), std::pair("psd", "PSD")));

TEST(TodaysFormats, AnSvgDrawingOpensAtItsOwnSize) {
  testing_support::TempFolder folder;
  const QString svg = folder.WriteBytes(QStringLiteral("logo.svg"),
                                        "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"64\" height=\"32\">"
                                        "<rect width=\"64\" height=\"32\" fill=\"red\"/></svg>");
  const auto loaded = imaging::LoadFile(svg);
  ASSERT_TRUE(loaded.has_value());
  EXPECT_EQ(std::tuple(loaded->Width(), loaded->Height()), std::tuple(64, 32));
  EXPECT_EQ(loaded->ToQImage().pixelColor(10, 10), QColor(Qt::red));
}

// Legacy types the corpus lacks or names differently.
TEST(LegacyFormats, CalsWrittenByImageMagickOpens) {
  testing_support::TempFolder folder;
  const QString path = folder.File(QStringLiteral("scan.cal"));
  ASSERT_EQ(testing_support::Run(QStringLiteral("convert"), {CorpusPath(QStringLiteral("formats/hopper.png")), "-monochrome", path}).ExitCode, 0);
  const auto loaded = imaging::LoadImage(path);
  ASSERT_TRUE(loaded.has_value());
  EXPECT_EQ(loaded->Format, QStringLiteral("CALS"));
  EXPECT_EQ(std::tuple(loaded->Picture.Width(), testing_support::ColourCount(loaded->Picture)), std::tuple(128, 2));
}

TEST(LegacyFormats, OtherExtensionsOfTheSameFormatsOpen) {
  testing_support::TempFolder folder;
  const struct {
    const char* source;
    const char* name;
  } copies[] = {{"bmpsuite-good/pal8rle.bmp", "run.rle"}, {"bmpsuite-good/pal4rle.bmp", "RUN4.RLE"},
                {"formats/hopper.jpg", "a.jpe"},          {"formats/hopper.jpg", "a.jif"},
                {"formats/hopper.tif", "a.tiff"},         {"formats/clipboard.dib", "b.dib"}};
  for (const auto& copy : copies) {
    const QString path = folder.WriteBytes(QLatin1String(copy.name), testing_support::ReadAll(CorpusPath(QLatin1String(copy.source))));
    const auto loaded = imaging::LoadFile(path);
    ASSERT_TRUE(loaded.has_value()) << copy.name;
    EXPECT_EQ(loaded->Width(), imaging::LoadFile(CorpusPath(QLatin1String(copy.source))).value().Width()) << copy.name;
    if (QLatin1String(copy.name).endsWith(QLatin1String("rle"), Qt::CaseInsensitive)) {
      EXPECT_FALSE(loaded->HasAlpha()) << copy.name;  // a second-route type: on white
    }
  }
}

}  // namespace
