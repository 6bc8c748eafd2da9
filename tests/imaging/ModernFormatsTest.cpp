// What users of a modern viewer expect besides the legacy formats: HEIF, AVIF, JPEG XL,
// JPEG 2000 and WebP written here by their libraries through the vips command, Photoshop by
// ImageMagick, and an SVG drawing.
#include "imaging/Loader.h"
#include "imaging/Saver.h"
#include "support/ImageCompare.h"
#include "support/TestFiles.h"


#include <QFileInfo>

#include <cmath>
#include <map>

#include <gtest/gtest.h>

namespace {

using testing_support::CorpusPath;

class TodaysFormats : public ::testing::TestWithParam<std::pair<const char*, const char*>> {};

TEST_P(TodaysFormats, OpenWhatTheirOwnEncodersWrote) {
  const auto [extension, format] = GetParam();
  testing_support::TempFolder folder;
  const QString hopper = CorpusPath(QStringLiteral("formats/hopper.png"));
  const QString path = folder.File(QStringLiteral("hopper.") + QLatin1String(extension));
  const bool magick = QLatin1String(format) == QLatin1String("PSD") || QLatin1String(format) == QLatin1String("EXR");
  const auto made = testing_support::Run(QLatin1String(magick ? "convert" : "vips"), magick ? QStringList{hopper, path} : QStringList{"copy", hopper, path});
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
                                           std::pair("jp2", "JP2"), std::pair("webp", "WEBP"), std::pair("psd", "PSD"),
                                           std::pair("exr", "EXR")));

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

// A PDF written by Qt's PDF engine (through our print command): its pages count and each
// opens on its own; a cut one or one that only says it is a PDF is refused.
TEST(TodaysFormats, APdfsPagesOpenEachByItsNumber) {
  testing_support::TempFolder folder;
  const QString pdf = folder.File(QStringLiteral("two.pdf")), red = folder.File(QStringLiteral("red.png"));
  ASSERT_TRUE(testing_support::Painted(60, 40, [](int, int) { return QColor(Qt::red); }).ToQImage().save(red));
  const QString hopper = CorpusPath(QStringLiteral("formats/hopper.png"));
  ASSERT_EQ(testing_support::Run(QStringLiteral(VISTREL_CLI_PATH), {"print", red, hopper, "--pdf", pdf, "--fit", "--center"}).ExitCode, 0);
  EXPECT_EQ(imaging::ReadSourceFacts(pdf).Pages, 2);
  const auto first = imaging::LoadImage(pdf), second = imaging::LoadImage(pdf, 1);
  ASSERT_TRUE(first && second);
  EXPECT_EQ(first->Format, QStringLiteral("PDF"));
  EXPECT_EQ(std::max(first->Picture.Width(), first->Picture.Height()), 2000);
  const QPoint middle(first->Picture.Width() / 2, first->Picture.Height() / 2);
  const auto reddish = [&middle](const imaging::Image& page) {
    const QColor colour = testing_support::PixelAt(page, middle.x(), middle.y());
    return colour.red() > 240 && colour.green() < 16;
  };
  EXPECT_TRUE(reddish(first->Picture));
  EXPECT_FALSE(reddish(second->Picture));
  const QByteArray bytes = testing_support::ReadAll(pdf);
  EXPECT_FALSE(imaging::LoadFile(folder.WriteBytes(QStringLiteral("cut.pdf"), bytes.left(bytes.size() / 3))));
  EXPECT_FALSE(imaging::LoadFile(folder.WriteBytes(QStringLiteral("fake.pdf"), "%PDF-1.4 and nothing else")));
}

// Written by us, read back by other decoders (djxl for JPEG XL, which ImageMagick 6 lacks):
// the picture, the quality's effect on the size, and 100 as lossless.
class TodaysWriters : public ::testing::TestWithParam<std::pair<const char*, bool>> {};

TEST_P(TodaysWriters, WriteWhatOtherDecodersReadAtTheQualityAsked) {
  const auto [extension, exactWhenLossless] = GetParam();
  testing_support::TempFolder folder;
  const imaging::Image hopper = testing_support::Hopper();
  std::map<int, qint64> sizes;
  for (const int quality : {30, 90, 100}) {
    imaging::SaveOptions options;
    options.Quality = quality;
    const QString path = folder.File(QStringLiteral("q%1.").arg(quality) + QLatin1String(extension));
    ASSERT_TRUE(imaging::SaveImage(hopper, path, options)) << quality;
    sizes[quality] = QFileInfo(path).size();
    const QString png = folder.File(QStringLiteral("q%1.png").arg(quality));
    const bool jxl = QLatin1String(extension) == QLatin1String("jxl");
    ASSERT_EQ(testing_support::Run(QLatin1String(jxl ? "djxl" : "convert"), {path, png}).ExitCode, 0) << quality;
    const double psnr = testing_support::Psnr(imaging::LoadFile(png).value(), hopper);
    EXPECT_GT(psnr, 25) << quality;
    if (quality == 100) {  // ImageMagick turns HEIF's lossless YCbCr back a little off; ours is exact
      EXPECT_GT(testing_support::Psnr(imaging::LoadFile(path).value(), hopper), 60);
      EXPECT_TRUE(!exactWhenLossless || std::isinf(psnr));
    }
  }
  EXPECT_LT(sizes[30], sizes[90]);
}

INSTANTIATE_TEST_SUITE_P(Formats, TodaysWriters,
                         ::testing::Values(std::pair("webp", true), std::pair("avif", false), std::pair("heic", false),
                                           std::pair("jxl", true)));

TEST(TodaysWriters, TiffIsWrittenWithTheCompressionAsked) {
  testing_support::TempFolder folder;
  const imaging::Image hopper = testing_support::Hopper();
  const std::pair<imaging::TiffCompression, const char*> compressions[] = {
      {imaging::TiffCompression::Lzw, "LZW"}, {imaging::TiffCompression::Deflate, "Zip"},
      {imaging::TiffCompression::Jpeg, "JPEG"}, {imaging::TiffCompression::None, "None"}};
  for (const auto& [compression, name] : compressions) {
    imaging::SaveOptions options;
    options.Tiff = compression;
    const QString path = folder.File(QLatin1String(name) + QStringLiteral(".tif"));
    ASSERT_TRUE(imaging::SaveImage(hopper, path, options)) << name;
    EXPECT_EQ(testing_support::Run(QStringLiteral("identify"), {"-format", "%C", path}).Output, QLatin1String(name));
    const double psnr = testing_support::Psnr(imaging::LoadFile(path).value(), hopper);
    EXPECT_TRUE(compression == imaging::TiffCompression::Jpeg ? psnr > 30 : std::isinf(psnr)) << name << " " << psnr;
  }
}

// EXIF, XMP and the ICC profile of a photo, written in by exiftool and libvips: exiftool reads
// the facts back from every format that holds them, and our reader the profile (but a lossy
// JPEG XL's, which this libvips hands back as linear sRGB, the pixels converted).
TEST(TodaysWriters, KeepTheCameraFactsTheXmpAndTheProfile) {
  testing_support::TempFolder folder;
  const QString photo = folder.File(QStringLiteral("photo.jpg"));
  ASSERT_EQ(testing_support::Run(QStringLiteral("vips"), {"icc_transform", CorpusPath(QStringLiteral("formats/hopper.png")), photo,
                                                          "/usr/share/color/icc/ghostscript/a98.icc"}).ExitCode, 0);
  ASSERT_EQ(testing_support::Run(QStringLiteral("exiftool"), {"-q", "-overwrite_original", "-Make=Vistrel", "-DateTimeOriginal=2024:05:06 07:08:09",
                                                              "-XMP-dc:Title=Hopper", photo}).ExitCode, 0);
  const auto facts = [](const QString& path) {
    const QString profile = path.endsWith(QLatin1String(".jxl")) ? QString() : imaging::DescribeProfile(imaging::LoadFile(path).value().IccProfile());
    return testing_support::Run(QStringLiteral("exiftool"), {"-s3", "-Make", "-DateTimeOriginal", "-Title", path}).Output + profile;
  };
  const QString expected = facts(photo);
  ASSERT_EQ(expected.count(u'\n'), 3);
  ASSERT_FALSE(expected.endsWith(u'\n'));  // the profile's description follows
  const imaging::Image picture = imaging::LoadFile(photo).value();
  for (const char* extension : {"jpg", "png", "webp", "avif", "heic", "tif", "jxl"}) {
    const QString saved = folder.File(QStringLiteral("saved.") + QLatin1String(extension));
    ASSERT_TRUE(imaging::SaveImage(picture, saved)) << extension;
    const bool jxl = QLatin1String(extension) == QLatin1String("jxl");
    EXPECT_EQ(facts(saved), jxl ? expected.section(u'\n', 0, 2) + u'\n' : expected) << extension;
  }
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
