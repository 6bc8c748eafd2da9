// The quick pictures of a large photo: what is painted while the whole one is read must be
// the same picture, upright and in its colours, at the whole one's natural size.
#include "files/LoadImageFile.h"
#include "support/ImageCompare.h"
#include "support/RawFiles.h"
#include "support/TestFiles.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using testing_support::SizeOf;

// A phone's HEIF photo with its own thumbnail, written by libheif's encoder.
QString MakeHeifWithThumbnail(const testing_support::TempFolder& folder) {
  const QString scene = folder.File(QStringLiteral("scene.png")), heif = folder.File(QStringLiteral("phone.heic"));
  const bool made =
      testing_support::Run(QStringLiteral("convert"), {VISTREL_SOURCE_DIR "/samples/landscape.jpg", "-resize", "1200x800!", scene}).ExitCode == 0 &&
      testing_support::Run(QStringLiteral("heif-enc"), {"-t", "160", "-q", "60", scene, "-o", heif}).ExitCode == 0;
  return made ? heif : QString();
}

// First a glimpse (a JPEG's eighth by its DCT, a HEIF's thumbnail), then the picture fitted
// to the box, which the screen bounds to 400 x 300.
TEST(QuickPicturesTest, ALargePhotoComesAsAGlimpseThenFittedBothUprightInItsColours) {
  testing_support::TempFolder folder;
  const struct {
    QString photo;
    QSize glimpse, fitted;
    double glimpseDifference;  // libheif's encoder makes its thumbnail sharper than our reduction
  } cases[] = {
      // Turned upright, the photo is 1600 x 2400.
      {testing_support::MakeCameraJpeg(folder.File(QStringLiteral("turned.jpg")), QStringLiteral("2400x1600!"), 6), {200, 300}, {200, 300}, 4},
      {MakeHeifWithThumbnail(folder), {160, 106}, {400, 267}, 20},
  };
  base::ScreenMetrics screen;
  screen.ScreenWidthTwips = 400 * 15;
  screen.ScreenHeightTwips = 300 * 15;
  for (const auto& c : cases) {
    SCOPED_TRACE(c.photo.toStdString());
    ASSERT_FALSE(c.photo.isEmpty());
    std::vector<files::LoadedImage> pictures;
    files::LoadQuickPictures(c.photo, QSize(800, 800), screen, [&](files::LoadedImage picture) {
      pictures.push_back(std::move(picture));
      return true;
    });
    const auto whole = files::LoadImageFile(c.photo, screen);
    ASSERT_TRUE(whole);
    ASSERT_EQ(pictures.size(), 2u);
    for (size_t i = 0; i < pictures.size(); ++i) {
      const QSize expected = i == 0 ? c.glimpse : c.fitted;
      EXPECT_EQ(SizeOf(pictures[i].Picture), expected) << i;
      EXPECT_EQ(pictures[i].Natural, whole->Natural) << i;
      const imaging::Image reduced = whole->Picture.ReducedForDisplay(expected.width(), expected.height());
      EXPECT_LT(testing_support::MeanAbsoluteDifference(pictures[i].Picture, reduced), i == 0 ? c.glimpseDifference : 4) << i;
    }
  }
}

}  // namespace
