// Our WPG 1.0 writer, proved by ImageMagick's WPG reader.
#include "imaging/Loader.h"
#include "imaging/Saver.h"
#include "imaging/WpgEncoder.h"
#include "support/ImageCompare.h"
#include "support/TestFiles.h"

#include <QPainter>

#include <gtest/gtest.h>

namespace {

using testing_support::CorpusPath;
using testing_support::TempFolder;

// Decodes a run-length coded row the way WPG readers do, for checking the coder alone.
QByteArray Expand(const QByteArray& coded) {
  QByteArray out;
  for (qsizetype i = 0; i < coded.size();) {
    const auto code = static_cast<unsigned char>(coded[i++]);
    const int count = code & 0x7F;
    if (code & 0x80) {
      out.append(QByteArray(count, coded[i++]));
    } else {
      out.append(coded.mid(i, count));
      i += count;
    }
  }
  return out;
}

TEST(WpgRunLength, CodesRunsAndLiteralsAndDecodesBack) {
  QByteArray row("abc");
  row += QByteArray(300, 'x');
  row += "de";
  row += QByteArray(2, 'y');
  const QByteArray coded = imaging::WpgRunLength(row);
  EXPECT_EQ(Expand(coded), row);
  EXPECT_LT(coded.size(), 20);
  for (qsizetype i = 0; i < coded.size();) {  // no 0x00 or 0x80 code, which mean other things
    const auto code = static_cast<unsigned char>(coded[i]);
    EXPECT_NE(code & 0x7F, 0);
    i += (code & 0x80) ? 2 : 1 + (code & 0x7F);
  }
  QByteArray noisy;
  for (int i = 0; i < 1000; ++i) noisy.append(static_cast<char>(i * 37 % 251));
  EXPECT_EQ(Expand(imaging::WpgRunLength(noisy)), noisy);
}

TEST(Wpg, AFewColoursComeBackExactlyThroughImageMagick) {
  QImage picture(97, 41, QImage::Format_RGB32);
  picture.fill(Qt::white);
  QPainter painter(&picture);
  painter.fillRect(5, 5, 40, 20, QColor(200, 30, 40));
  painter.fillRect(50, 10, 30, 25, QColor(20, 90, 200));
  painter.end();
  const imaging::Image image = imaging::Image::FromQImage(picture);
  TempFolder folder;
  const QString path = folder.File(QStringLiteral("few.wpg"));
  ASSERT_TRUE(imaging::SaveImage(image, path));
  EXPECT_TRUE(testing_support::ReadAll(path).startsWith("\xFFWPC"));
  const auto back = imaging::LoadImage(path);  // WPG is read by ImageMagick in the helper
  ASSERT_TRUE(back.has_value());
  EXPECT_EQ(back->Format, QStringLiteral("WPG"));
  EXPECT_EQ(testing_support::MeanAbsoluteDifference(back->Picture, image), 0);
}

TEST(Wpg, APhotoComesBackInTwoHundredAndFiftySixColoursAndHugeSidesAreRefused) {
  const auto photo = imaging::LoadFile(CorpusPath(QStringLiteral("formats/hopper.png")));
  ASSERT_TRUE(photo.has_value());
  TempFolder folder;
  const QString path = folder.File(QStringLiteral("photo.wpg"));
  ASSERT_TRUE(imaging::SaveImage(*photo, path));
  EXPECT_EQ(testing_support::Run(QStringLiteral("identify"), {"-format", "%m %w %h", path}).Output, QStringLiteral("WPG 128 128"));
  const auto back = imaging::LoadFile(path);
  ASSERT_TRUE(back.has_value());
  EXPECT_GT(testing_support::Psnr(*back, *photo), 28);
  EXPECT_LE(testing_support::ColourCount(*back), 256);
  const imaging::Image wide = imaging::Image::FromQImage(QImage(70000, 1, QImage::Format_RGB32));
  EXPECT_FALSE(imaging::EncodeWpg(wide).has_value());  // sides beyond the format's limit are refused
}

}  // namespace
