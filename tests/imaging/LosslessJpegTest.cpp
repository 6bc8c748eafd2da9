// A JPEG turned or flipped by vistrel-cli has its compressed blocks moved: the pixels are
// jpegtran's to the last bit, moves that cancel give the original back, markers survive,
// and a photo whose sides are not whole blocks is recompressed and says so.
#include "imaging/Loader.h"
#include "support/ImageCompare.h"
#include "support/RawFiles.h"
#include "support/TestFiles.h"

#include <QImage>

#include <gtest/gtest.h>

namespace {

namespace support = testing_support;
using testing_support::Run;

QString Exif(const QString& path) {
  return Run(QStringLiteral("exiftool"), {"-s3", "-n", "-Make", "-DateTimeOriginal", "-ProfileDescription", "-Orientation", path}).Output;
}

double Difference(const QString& a, const QString& b) {
  return testing_support::MeanAbsoluteDifference(imaging::LoadFile(a).value(), imaging::LoadFile(b).value());
}

class LosslessJpeg : public ::testing::Test {
 protected:
  QString Photo(const char* name, const char* size = "1024x768!", int orientation = 1) {
    return support::MakeCameraJpeg(folder_.File(QLatin1String(name)), QLatin1String(size), orientation);
  }
  testing_support::ProgramRun Apply(const QString& in, const QString& out, const QStringList& operations) {
    return support::Run(QStringLiteral(VISTREL_CLI_PATH), QStringList{"apply", in, out} + operations);
  }
  testing_support::TempFolder folder_;
};

TEST_F(LosslessJpeg, MovesGiveJpegtransPixelsAndCancellingMovesTheOriginal) {
  const QString photo = Photo("photo.jpg");
  const struct {
    QStringList operations;
    QStringList jpegtran;  // empty: the original itself
  } cases[] = {{{"Rotate", "90"}, {"-rotate", "90"}},         {{"Rotate", "-90"}, {"-rotate", "270"}},
               {{"Rotate", "180"}, {"-rotate", "180"}},       {{"Mirror"}, {"-flip", "horizontal"}},
               {{"Flip"}, {"-flip", "vertical"}},             {{"Rotate", "90", "Mirror"}, {"-transpose"}},
               {{"Crop", "16", "32", "512", "384"}, {"-crop", "512x384+16+32"}},
               {{"Rotate", "90", "Rotate", "-90"}, {}},       {{"Rotate", "90", "Rotate", "90", "Rotate", "90", "Rotate", "90"}, {}}};
  for (const auto& c : cases) {
    const QString moved = folder_.File(QStringLiteral("moved.jpg")), expected = folder_.File(QStringLiteral("expected.jpg"));
    const auto run = Apply(photo, moved, c.operations);
    ASSERT_EQ(run.ExitCode, 0) << c.operations.join(u' ').toStdString();
    EXPECT_EQ(run.Errors, QString());  // nothing recompressed
    if (!c.jpegtran.isEmpty()) {
      const QString command = QStringLiteral("jpegtran -perfect -copy all %1 \"$1\" > \"$0\"").arg(c.jpegtran.join(u' '));
      ASSERT_EQ(support::Run(QStringLiteral("sh"), {"-c", command, expected, photo}).ExitCode, 0);
    }
    EXPECT_EQ(Difference(moved, c.jpegtran.isEmpty() ? photo : expected), 0.0) << c.operations.join(u' ').toStdString();
    EXPECT_EQ(Exif(moved), Exif(photo));
  }
}

TEST_F(LosslessJpeg, AutoOrientBakesTheOrientationInAndPartBlocksAreRecompressedSayingSo) {
  const QString turned = Photo("turned.jpg", "1024x768!", 6), upright = folder_.File(QStringLiteral("upright.jpg"));
  const QString thumbnail = folder_.File(QStringLiteral("thumbnail.jpg"));
  ASSERT_EQ(support::Run(QStringLiteral("convert"), {turned, "-resize", "160x120", thumbnail}).ExitCode, 0);
  ASSERT_EQ(support::Run(QStringLiteral("exiftool"), {"-q", "-overwrite_original", "-ThumbnailImage<=" + thumbnail, turned}).ExitCode, 0);
  ASSERT_EQ(Apply(turned, upright, {"AutoOrient"}).ExitCode, 0);
  ASSERT_EQ(support::Run(QStringLiteral("sh"), {"-c", "exiftool -b -ThumbnailImage \"$1\" > \"$0\"", thumbnail, upright}).ExitCode, 0);
  EXPECT_EQ(QImage(thumbnail).size(), QSize(120, 160));  // the thumbnail turned with the picture
  EXPECT_EQ(support::Run(QStringLiteral("exiftool"), {"-s3", "-n", "-Orientation", upright}).Output, QStringLiteral("1\n"));
  EXPECT_EQ(testing_support::SizeOf(imaging::LoadFile(upright).value()), QSize(768, 1024));
  EXPECT_LT(Difference(upright, turned), 1.0);  // the picture the viewer showed, upright

  const QString odd = Photo("odd.jpg", "1001x751!"), moved = folder_.File(QStringLiteral("odd-turned.jpg"));
  const auto run = Apply(odd, moved, {"Rotate", "90"});
  EXPECT_EQ(run.ExitCode, 0);
  EXPECT_EQ(run.Errors, QStringLiteral("saved with recompression: the image is not a multiple of 16 pixels\n"));
  EXPECT_EQ(testing_support::SizeOf(imaging::LoadFile(moved).value()), QSize(751, 1001));  // no edge dropped
  EXPECT_EQ(Exif(moved), Exif(odd).replace(QStringLiteral("\n6\n"), QStringLiteral("\n1\n")));
}

}  // namespace
