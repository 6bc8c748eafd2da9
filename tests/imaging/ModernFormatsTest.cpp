// What users of a modern viewer expect besides the legacy formats: HEIF and AVIF, written
// here by libheif through the vips command (WebP is in the corpus).
#include "imaging/Loader.h"
#include "support/ImageCompare.h"
#include "support/TestFiles.h"


#include <gtest/gtest.h>

namespace {

using testing_support::CorpusPath;

class HeifFamily : public ::testing::TestWithParam<const char*> {};

TEST_P(HeifFamily, OpensWhatLibheifWrote) {
  testing_support::TempFolder folder;
  const QString path = folder.File(QStringLiteral("hopper.") + QLatin1String(GetParam()));
  const auto vips = testing_support::Run(QStringLiteral("vips"), {"copy", CorpusPath(QStringLiteral("formats/hopper.png")), path});
  ASSERT_EQ(vips.ExitCode, 0) << vips.Errors.toStdString();
  const auto loaded = imaging::LoadImage(path);
  ASSERT_TRUE(loaded.has_value());
  EXPECT_EQ(loaded->Format, QStringLiteral("HEIF"));
  EXPECT_EQ(loaded->Picture.Width(), 128);
  EXPECT_GT(testing_support::Psnr(loaded->Picture, imaging::LoadFile(CorpusPath(QStringLiteral("formats/hopper.png"))).value()), 25);
}

INSTANTIATE_TEST_SUITE_P(Formats, HeifFamily, ::testing::Values("avif", "heic"));

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
