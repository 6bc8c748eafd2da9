// Camera RAW files: a DNG made by independent tools is developed upright in its colours,
// its camera facts read, and crafted or cut files refused in the helper's process.
#include "imaging/Loader.h"
#include "imaging/Metadata.h"
#include "imaging/Operations.h"
#include "imaging/Raw.h"
#include "support/ImageCompare.h"
#include "support/RawFiles.h"
#include "support/TestFiles.h"

#include <QElapsedTimer>

#include <gtest/gtest.h>

namespace {

using testing_support::TempFolder;

// A 240 x 160 landscape with its sides marked.
QString Scene(const TempFolder& folder) {
  const QString scene = folder.File(QStringLiteral("scene.png"));
  testing_support::Run(QStringLiteral("convert"), {QStringLiteral(VISTREL_SOURCE_DIR "/samples/landscape.jpg"), "-resize", "240x160!", scene});
  return scene;
}

class CameraRaw : public ::testing::TestWithParam<int> {};

TEST_P(CameraRaw, DevelopsUprightInTheSceneColoursWithTheCameraFacts) {
  const int orientation = GetParam();
  TempFolder folder;
  const QString scene = Scene(folder);
  const QString dng = testing_support::MakeDng(folder.File(QStringLiteral("photo.dng")), {scene, orientation, {}});
  ASSERT_FALSE(dng.isEmpty());
  const auto loaded = imaging::LoadImage(dng);
  ASSERT_TRUE(loaded.has_value());
  EXPECT_EQ(loaded->Format, QStringLiteral("RAW"));
  // Orientation 6: the camera was turned right, so the picture is turned right to stand up.
  const imaging::Image expected = imaging::ops::RotateQuarter(imaging::LoadFile(scene).value(), orientation == 6 ? 1 : 0);
  ASSERT_EQ(testing_support::SizeOf(loaded->Picture), testing_support::SizeOf(expected));
  EXPECT_GT(testing_support::Psnr(loaded->Picture, expected), 20);
  EXPECT_EQ(imaging::ReadImageSize(dng), testing_support::SizeOf(expected));
  // Without a preview, a thumbnail is developed at half the size.
  imaging::FittingLoad facts;
  const auto thumbnail = imaging::LoadFitting(dng, 60, 60, &facts);
  ASSERT_TRUE(thumbnail.has_value());
  EXPECT_EQ(std::max(thumbnail->Width(), thumbnail->Height()), 60);
  EXPECT_EQ(facts.Original, testing_support::SizeOf(expected));

  const auto rows = imaging::ReadPhotoMetadata(dng);
  const auto row = [&rows](const char* name) {
    for (const auto& [key, value] : rows) if (key == QLatin1String(name)) return value;
    return QString();
  };
  EXPECT_EQ(row("Camera"), QStringLiteral("Vistrel Test Camera"));
  EXPECT_EQ(row("Lens"), QStringLiteral("Test Lens 50mm"));
  EXPECT_EQ(row("Exposure"), QStringLiteral("1/100 s"));
  EXPECT_EQ(row("Aperture"), QStringLiteral("f/5.6"));
  EXPECT_EQ(row("ISO"), QStringLiteral("200"));
  EXPECT_EQ(row("Orientation"), orientation == 6 ? QStringLiteral("Right-top") : QStringLiteral("Top-left"));
  EXPECT_FALSE(row("Taken").isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Orientations, CameraRaw, ::testing::Values(1, 6));

TEST(CameraRaw, ThumbnailsComeFromTheEmbeddedPreviewTurnedByTheFile) {
  TempFolder folder;
  const QString scene = Scene(folder);
  const QString preview = folder.File(QStringLiteral("preview.jpg"));
  testing_support::Run(QStringLiteral("convert"), {scene, "-negate", preview});
  const QString dng = testing_support::MakeDng(folder.File(QStringLiteral("photo.dng")), {scene, 6, preview});
  ASSERT_FALSE(dng.isEmpty());
  const auto read = imaging::ReadRawPreview(dng);
  ASSERT_TRUE(read.has_value());
  EXPECT_EQ(read->Developed, QSize(160, 240));
  const imaging::Image negative = imaging::ops::RotateQuarter(imaging::ops::Negative(imaging::LoadFile(scene).value()), 1);
  EXPECT_GT(testing_support::Psnr(read->Picture, negative), 25);
  imaging::FittingLoad facts;
  const auto thumbnail = imaging::LoadFitting(dng, 40, 40, &facts);
  ASSERT_TRUE(thumbnail.has_value());
  EXPECT_EQ(testing_support::SizeOf(*thumbnail), QSize(27, 40));
  EXPECT_EQ(facts.Original, QSize(160, 240));
}

TEST(CameraRaw, CutCraftedAndForeignFilesAreRefusedQuickly) {
  TempFolder folder;
  const QString dng = testing_support::MakeDng(folder.File(QStringLiteral("photo.dng")), {Scene(folder), 1, {}});
  ASSERT_FALSE(dng.isEmpty());
  const QByteArray bytes = testing_support::ReadAll(dng);
  QByteArray huge = bytes;  // the first IFD claims 60000 x 60000 pixels
  const QString hugePath = folder.WriteBytes(QStringLiteral("huge.dng"), huge);
  testing_support::Run(QStringLiteral("tiffset"), {"-s", "256", "60000", hugePath});
  testing_support::Run(QStringLiteral("tiffset"), {"-s", "257", "60000", hugePath});
  const QStringList refused = {folder.WriteBytes(QStringLiteral("cut.dng"), bytes.left(bytes.size() / 3)),
                               folder.WriteBytes(QStringLiteral("header.nef"), bytes.left(200)),
                               folder.WriteBytes(QStringLiteral("text.cr2"), "not a raw file at all"),
                               folder.WriteBytes(QStringLiteral("png.arw"), testing_support::ReadAll(Scene(folder))), hugePath};
  for (const QString& path : refused) {
    QElapsedTimer clock;
    clock.start();
    const auto loaded = imaging::LoadFile(path);
    EXPECT_TRUE(!loaded || loaded->Width() == 240) << path.toStdString();
    EXPECT_FALSE(imaging::ReadRawPreview(path).has_value()) << path.toStdString();
    EXPECT_LT(clock.elapsed(), 10000) << path.toStdString();
  }
}

// A JPEG's EXIF thumbnail, as cameras store it: turned by the photo's orientation, and
// left out where it is padded to other proportions or missing.
TEST(EmbeddedPreview, ACamerasThumbnailComesUprightAndAPaddedOneIsLeftOut) {
  TempFolder folder;
  const QString photo = folder.File(QStringLiteral("photo.jpg"));
  ASSERT_TRUE(testing_support::Hopper().FitWithin(120, 80).ToQImage().scaled(120, 80).save(photo));
  EXPECT_FALSE(imaging::ReadEmbeddedPreview(photo).has_value());
  for (const auto& [side, kept] : {std::pair(40, true), std::pair(45, false)}) {
    const QString thumbnail = folder.File(QStringLiteral("thumbnail.jpg"));
    ASSERT_TRUE(testing_support::Painted(60, side, [](int, int) { return QColor(Qt::green); }).ToQImage().save(thumbnail));
    ASSERT_EQ(testing_support::Run(QStringLiteral("exiftool"), {"-q", "-overwrite_original", "-ThumbnailImage<=" + thumbnail,
                                                                "-Orientation#=6", photo}).ExitCode, 0);
    const auto preview = imaging::ReadEmbeddedPreview(photo);
    ASSERT_EQ(preview.has_value(), kept) << side;
    if (!kept) continue;
    EXPECT_EQ(testing_support::SizeOf(*preview), QSize(40, 60));  // as the photo, 80 x 120 upright
    EXPECT_GT(testing_support::PixelAt(*preview, 20, 30).green(), 240);
  }
}

}  // namespace
