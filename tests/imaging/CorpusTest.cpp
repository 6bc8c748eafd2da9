// Every file of the corpus written by other encoders opens with the size ImageMagick
// reports (the manifest), and the same picture decodes to the same pixels in every format.
#include "imaging/Loader.h"
#include "support/ImageCompare.h"

#include <QFile>
#include <QTextStream>

#include <gtest/gtest.h>

namespace {

using testing_support::CorpusPath;
using testing_support::MeanAbsoluteDifference;

struct ManifestEntry {
  QString File;
  int Width;
  int Height;
};

std::vector<ManifestEntry> Manifest() {
  std::vector<ManifestEntry> entries;
  QFile file(QStringLiteral(VISTREL_SOURCE_DIR "/tests/imaging/corpus-manifest.tsv"));
  if (!file.open(QIODevice::ReadOnly)) return entries;
  QTextStream in(&file);
  while (!in.atEnd()) {
    const QStringList fields = in.readLine().split(u'\t');
    if (fields.size() == 3 && !fields[0].startsWith(u'#')) entries.push_back({fields[0], fields[1].toInt(), fields[2].toInt()});
  }
  return entries;
}

imaging::Image Load(const QString& relative) {
  const auto image = imaging::LoadFile(CorpusPath(relative));
  EXPECT_TRUE(image.has_value()) << relative.toStdString();
  return image ? *image : imaging::Image::FromQImage(QImage(1, 1, QImage::Format_RGB32));
}

TEST(Corpus, EveryFileOpensWithTheSizeImageMagickReports) {
  const auto manifest = Manifest();
  ASSERT_GE(manifest.size(), 70u);
  for (const ManifestEntry& entry : manifest) {
    const auto image = imaging::LoadFile(CorpusPath(entry.File));
    ASSERT_TRUE(image.has_value()) << entry.File.toStdString();
    EXPECT_EQ(QSize(image->Width(), image->Height()), QSize(entry.Width, entry.Height)) << entry.File.toStdString();
  }
}

TEST(Corpus, LosslessEncodingsOfHopperDecodeToTheSamePixels) {
  // The PNG and TIFF hold one rendering of hopper, the PPM and DCX another, close to it
  // (ImageMagick's compare agrees).
  const imaging::Image png = Load("formats/hopper.png");
  const imaging::Image ppm = Load("formats/hopper.ppm");
  EXPECT_EQ(MeanAbsoluteDifference(Load("formats/hopper.tif"), png), 0);
  EXPECT_EQ(MeanAbsoluteDifference(Load("formats/hopper.dcx"), ppm), 0);
  EXPECT_GT(MeanAbsoluteDifference(ppm, png), 0);
  EXPECT_LT(MeanAbsoluteDifference(ppm, png), 2);
  EXPECT_GT(testing_support::Psnr(Load("formats/hopper.jpg"), png), 30);
}

TEST(Corpus, EveryTargaOriginAndCompressionGivesTheSamePicture) {
  for (const char* kind : {"l", "p", "rgb", "rgba"}) {
    const imaging::Image reference = Load(QStringLiteral("formats/tga-200x32_%1_tl_raw.tga").arg(QLatin1String(kind)));
    for (const char* variant : {"tl_rle", "bl_raw", "bl_rle"}) {
      const QString other = QStringLiteral("formats/tga-200x32_%1_%2.tga").arg(QLatin1String(kind), QLatin1String(variant));
      EXPECT_EQ(MeanAbsoluteDifference(Load(other), reference), 0) << other.toStdString();
    }
  }
}

TEST(Corpus, EveryBitmapEncodingShowsTheSamePicture) {
  const imaging::Image reference = Load("bmpsuite-good/rgb24.bmp");
  for (const char* file : {"bmpsuite-good/rgb32.bmp", "bmpsuite-good/rgb32bf.bmp", "bmpsuite-good/rgb24pal.bmp"}) {
    EXPECT_EQ(MeanAbsoluteDifference(Load(file), reference), 0) << file;
  }
  // The palette and 16-bit versions hold fewer colours (ImageMagick measures pal8 at 13.2, pal4 at 63.6).
  const imaging::Image pal8 = Load("bmpsuite-good/pal8.bmp");
  for (const char* file : {"bmpsuite-good/pal8rle.bmp", "bmpsuite-good/pal8topdown.bmp", "bmpsuite-good/pal8os2.bmp",
                           "bmpsuite-good/pal8v4.bmp", "bmpsuite-good/pal8v5.bmp"}) {
    EXPECT_EQ(MeanAbsoluteDifference(Load(file), pal8), 0) << file;
  }
  EXPECT_EQ(MeanAbsoluteDifference(Load("bmpsuite-good/pal4rle.bmp"), Load("bmpsuite-good/pal4.bmp")), 0);
  for (const char* file : {"bmpsuite-good/pal8.bmp", "bmpsuite-good/rgb16-565.bmp"}) {
    const double difference = MeanAbsoluteDifference(Load(file), reference);
    EXPECT_GE(difference, 0) << file;
    EXPECT_LT(difference, 20) << file;
  }
}

TEST(Corpus, JpegsShowUprightWhateverTheirExifOrientation) {
  const imaging::Image upright = Load("exif-orientation/Landscape_1.jpg").FitWithin(90, 60);
  for (int orientation = 0; orientation <= 8; ++orientation) {
    const imaging::Image image = Load(QStringLiteral("exif-orientation/Landscape_%1.jpg").arg(orientation));
    ASSERT_EQ(image.Width(), 1800) << orientation;
    // The big digit in the middle differs from file to file; the rest is the same photo.
    EXPECT_LT(MeanAbsoluteDifference(image.FitWithin(90, 60), upright), 12) << orientation;
  }
  // A picture that was not turned upright differs far more.
  const auto mirrored = imaging::Image::FromQImage(upright.ToQImage().mirrored(true, false));
  EXPECT_GT(MeanAbsoluteDifference(mirrored, upright), 12);
}

TEST(Corpus, HeaderOnlySizesAndDecodingToFitAreUpright) {
  EXPECT_EQ(imaging::ReadImageSize(CorpusPath(QStringLiteral("exif-orientation/Landscape_6.jpg"))), QSize(1800, 1200));
  EXPECT_EQ(imaging::ReadImageSize(CorpusPath(QStringLiteral("bmpsuite-good/pal8.bmp"))), QSize(127, 64));
  EXPECT_EQ(imaging::ReadImageSize(CorpusPath(QStringLiteral("formats/pil184.pcx"))), QSize(447, 144));
  EXPECT_FALSE(imaging::ReadImageSize(CorpusPath(QStringLiteral("missing.png"))).has_value());
  const auto fitted = imaging::LoadFitting(CorpusPath(QStringLiteral("exif-orientation/Landscape_8.jpg")), 300, 300);
  ASSERT_TRUE(fitted.has_value());
  EXPECT_EQ(QSize(fitted->Width(), fitted->Height()), QSize(300, 200));
}

}  // namespace
