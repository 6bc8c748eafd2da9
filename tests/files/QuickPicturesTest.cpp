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

TEST(QuickPicturesTest, ALargeTurnedJpegComesAsAnEighthThenFittedBothUprightInItsColours) {
  testing_support::TempFolder folder;
  const QString photo = testing_support::MakeCameraJpeg(folder.File(QStringLiteral("turned.jpg")), QStringLiteral("2400x1600!"), 6);
  ASSERT_FALSE(photo.isEmpty());
  base::ScreenMetrics screen;
  screen.ScreenWidthTwips = 600 * 15;
  screen.ScreenHeightTwips = 400 * 15;
  std::vector<files::LoadedImage> pictures;
  files::LoadQuickPictures(photo, QSize(800, 800), screen, [&](files::LoadedImage picture) {
    pictures.push_back(std::move(picture));
    return true;
  });
  const auto whole = files::LoadImageFile(photo, screen);
  ASSERT_TRUE(whole);
  ASSERT_EQ(pictures.size(), 2u);
  // Upright the photo is 1600 x 2400; the box is bounded by the screen.
  const QSize expectedSizes[] = {{200, 300}, {267, 400}};
  for (size_t i = 0; i < pictures.size(); ++i) {
    SCOPED_TRACE(i);
    EXPECT_EQ(SizeOf(pictures[i].Picture), expectedSizes[i]);
    EXPECT_EQ(pictures[i].Natural, whole->Natural);
    const imaging::Image reduced = whole->Picture.FitWithin(expectedSizes[i].width(), expectedSizes[i].height());
    ASSERT_EQ(SizeOf(reduced), expectedSizes[i]);
    EXPECT_LT(testing_support::MeanAbsoluteDifference(pictures[i].Picture, reduced), 4);
  }
}

}  // namespace
