// JPEGs are decoded by TurboJPEG from memory rather than by libvips' loader: the pixels,
// profile and orientation must be exactly what libvips' loader gives at every shrink, and
// whatever TurboJPEG declines (CMYK, a cut file) must still come out as libvips reads it.
#include "imaging/Loader.h"
#include "support/ImageCompare.h"
#include "support/TestFiles.h"

#include <QFile>

#include <gtest/gtest.h>

namespace {

using testing_support::Run;

// landscape.jpg written anew by ImageMagick with `options`.
QString Made(const testing_support::TempFolder& folder, const QString& name, const QStringList& options) {
  const QString path = folder.File(name);
  const QStringList arguments = QStringList{VISTREL_SOURCE_DIR "/samples/landscape.jpg"} + options + QStringList{path};
  return Run(QStringLiteral("convert"), arguments).ExitCode == 0 ? path : QString();
}

QString Cut(const testing_support::TempFolder& folder, const QString& from) {
  const QByteArray whole = testing_support::ReadAll(from);
  QFile cut(folder.File(QStringLiteral("cut.jpg")));
  return cut.open(QIODevice::WriteOnly) && cut.write(whole.left(whole.size() * 3 / 5)) > 0 ? cut.fileName() : QString();
}

// libvips' loader at that shrink, kept in a TIFF with its profile and orientation.
imaging::Image ByLibvips(const testing_support::TempFolder& folder, const QString& jpeg, int shrink) {
  const QString kept = folder.File(QStringLiteral("expected.tif"));
  EXPECT_EQ(Run(QStringLiteral("vips"), {"jpegload", jpeg, kept, "--shrink", QString::number(shrink)}).ExitCode, 0);
  return imaging::LoadFile(kept).value();
}

TEST(JpegDecode, GivesLibvipsOwnPixelsProfileAndOrientationAtEveryShrink) {
  testing_support::TempFolder folder;
  const QString odd = Made(folder, QStringLiteral("odd.jpg"), {"-resize", "1001x777!", "-orient", "RightTop"});
  const QStringList photos{
      odd,
      Made(folder, QStringLiteral("grey.jpg"), {"-resize", "901x601!", "-colorspace", "Gray"}),
      Made(folder, QStringLiteral("progressive.jpg"), {"-interlace", "JPEG", "-sampling-factor", "4:2:2"}),
      Made(folder, QStringLiteral("restarts.jpg"), {"-define", "jpeg:restart-interval=1", "-sampling-factor", "4:4:4"}),
      Made(folder, QStringLiteral("cmyk.jpg"), {"-resize", "640x480!", "-colorspace", "CMYK"}),
      Made(folder, QStringLiteral("adobe.jpg"), {"-profile", "/usr/share/color/icc/ghostscript/a98.icc"}),
      Cut(folder, odd),
  };
  for (const QString& photo : photos) {
    ASSERT_FALSE(photo.isEmpty());
    const QSize stored = imaging::ReadImageSizeCheaply(photo).value();
    for (const int shrink : {1, 2, 4, 8}) {
      SCOPED_TRACE(QStringLiteral("%1 shrunk by %2").arg(photo).arg(shrink).toStdString());
      const imaging::Image expected = ByLibvips(folder, photo, shrink);
      const auto decoded = shrink == 1 ? imaging::LoadFile(photo)
                                       : imaging::LoadFitting(photo, stored.width() / shrink, stored.height() / shrink);
      ASSERT_TRUE(decoded);
      EXPECT_EQ(testing_support::MeanAbsoluteDifference(*decoded, expected), 0);  // -1 for another size
      EXPECT_EQ(decoded->IccProfile(), expected.IccProfile());
    }
  }
}

}  // namespace
