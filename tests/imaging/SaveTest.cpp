// Round trips through every writable format, checked by our reader and by ImageMagick's;
// saving never destroys the original.
#include "imaging/Loader.h"
#include "imaging/Saver.h"
#include "support/ImageCompare.h"
#include "support/TestFiles.h"

#include <QDir>

#include <gtest/gtest.h>

namespace {

using testing_support::CorpusPath;
using testing_support::Hopper;
using testing_support::MeanAbsoluteDifference;
using testing_support::TempFolder;

// What ImageMagick, an independent reader, says of a file: "WIDTH HEIGHT".
QString IdentifiedSize(const QString& path) {
  return testing_support::Run(QStringLiteral("identify"), {"-format", "%w %h", path + QStringLiteral("[0]")}).Output.trimmed();
}

class LosslessRoundTrip : public ::testing::TestWithParam<const char*> {};

TEST_P(LosslessRoundTrip, GivesBackTheSamePixels) {
  TempFolder folder;
  const QString path = folder.File(QStringLiteral("out.") + QLatin1String(GetParam()));
  ASSERT_TRUE(imaging::SaveImage(Hopper(), path));
  const auto back = imaging::LoadFile(path);
  ASSERT_TRUE(back.has_value());
  EXPECT_EQ(MeanAbsoluteDifference(*back, Hopper()), 0);
  EXPECT_EQ(IdentifiedSize(path), QStringLiteral("128 128"));
}

INSTANTIATE_TEST_SUITE_P(Formats, LosslessRoundTrip,
                         ::testing::Values("bmp", "dib", "dcx", "pcx", "png", "ppm", "tga", "tif"));

// JPEG stays close to the photo; grey and bitmap formats keep their own depth.
TEST(SaveImage, LossyAndReducedFormatsKeepWhatTheyCan) {
  TempFolder folder;
  for (const char* extension : {"jpg", "pgm", "pbm"}) {
    const QString path = folder.File(QStringLiteral("out.") + QLatin1String(extension));
    ASSERT_TRUE(imaging::SaveImage(Hopper(), path));
    const imaging::Image back = imaging::LoadFile(path).value();
    EXPECT_EQ(IdentifiedSize(path), QStringLiteral("128 128"));
    const QColor pixel = testing_support::PixelAt(back, 40, 40);
    const QString kind = QLatin1String(extension);
    EXPECT_TRUE(kind != u"jpg" || testing_support::Psnr(back, Hopper()) > 35);
    EXPECT_TRUE(kind != u"pgm" || (pixel.red() == pixel.green() && pixel.green() == pixel.blue()));
    EXPECT_TRUE(kind != u"pbm" || testing_support::ColourCount(back) == 2);
  }
}

TEST(SaveImage, AJpegSavedAsJpegKeepsItsExifWithOrientationOne) {
  TempFolder folder;
  const QString path = folder.File(QStringLiteral("turned.jpg"));
  ASSERT_TRUE(imaging::SaveImage(imaging::LoadFile(CorpusPath(QStringLiteral("exif-orientation/Landscape_6.jpg"))).value(), path));
  EXPECT_EQ(testing_support::Run(QStringLiteral("identify"), {"-format", "%w %h %[EXIF:Orientation] %[EXIF:YResolution]", path}).Output,
            QStringLiteral("1800 1200 1 72/1"));
}

// Written through the helper, a large image opens again (the pixel cache needs more than
// the helper's memory limit and spills to its bounded disk cache).
TEST(SaveImage, ALargePcxWeWroteOpensAgain) {
  testing_support::TempFolder folder;
  QImage big(5000, 3500, QImage::Format_RGB888);
  big.fill(QColor(10, 200, 30));
  const QString pcx = folder.File(QStringLiteral("big.pcx"));
  ASSERT_TRUE(imaging::SaveImage(imaging::Image::FromQImage(big), pcx));
  const auto back = imaging::LoadFile(pcx);
  ASSERT_TRUE(back.has_value());
  EXPECT_EQ(back->Width(), 5000);
  EXPECT_EQ(testing_support::PixelAt(*back, 4999, 3499), QColor(10, 200, 30));
}

TEST(SaveImage, AFailedSaveLeavesTheTargetAsItWas) {
  TempFolder folder;
  const QString unknown = folder.WriteBytes(QStringLiteral("keep.xyz"), "original");
  EXPECT_FALSE(imaging::SaveImage(Hopper(), unknown));
  EXPECT_EQ(testing_support::ReadAll(unknown), QByteArray("original"));
  const QString blocked = folder.WriteBytes(QStringLiteral("file"), "x") + QStringLiteral("/inside.png");
  EXPECT_FALSE(imaging::SaveImage(Hopper(), blocked));
  EXPECT_EQ(QDir(folder.Path()).entryList(QDir::Files), QStringList({"file", "keep.xyz"}));
}

}  // namespace
