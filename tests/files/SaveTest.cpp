// Round trips through every writable format, checked by our reader and by ImageMagick's;
// saving never destroys the original.
#include "imaging/Loader.h"
#include "imaging/Saver.h"
#include "imaging/Decoders.h"
#include "files/FailureReasons.h"
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

// At the cap of the formats the helper reads back, what we write opens again (PCX has the
// tightest reader, WPG our own writer); one row more is refused before any work.
TEST(SaveImage, AtTheHelpersCapEveryFileWeWroteOpensAgain) {
  testing_support::TempFolder folder;
  const int width = 8000, height = int(imaging::kHelperMaxPixels / width);
  QImage big(width, height, QImage::Format_RGB888);
  big.fill(QColor(10, 200, 30));
  const imaging::Image atCap = imaging::Image::FromQImage(big);
  for (const QString& name : {QStringLiteral("big.pcx"), QStringLiteral("big.wpg")}) {
    ASSERT_TRUE(imaging::SaveImage(atCap, folder.File(name))) << name.toStdString();
    const auto back = imaging::LoadFile(folder.File(name));
    ASSERT_TRUE(back.has_value()) << name.toStdString();
    EXPECT_EQ(QSize(back->Width(), back->Height()), QSize(width, height));
    EXPECT_EQ(testing_support::PixelAt(*back, width - 1, height - 1), QColor(10, 200, 30));
  }
  const imaging::Image over = imaging::Image::FromQImage(QImage(width, height + 1, QImage::Format_RGB888));
  EXPECT_FALSE(imaging::SaveImage(over, folder.File(QStringLiteral("over.tga"))));
  EXPECT_EQ(files::SaveFailureReason(folder.File(QStringLiteral("over.tga")), QSize(width, height + 1)),
            QStringLiteral("the image is too large for this format"));
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
