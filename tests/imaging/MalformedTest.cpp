// Hostile and broken files: each either loads what can be recovered or fails cleanly;
// none crashes, hangs or exhausts memory (the ASan build runs these too).
#include "imaging/Decoders.h"
#include "imaging/Loader.h"
#include "imaging/Pam.h"
#include "support/ImageCompare.h"
#include "support/TestFiles.h"

#include <QDir>
#include <QElapsedTimer>

#include <gtest/gtest.h>

namespace {

using testing_support::CorpusPath;

const QByteArray kOnePixelPam = "P7\nWIDTH 1\nHEIGHT 1\nDEPTH 3\nMAXVAL 255\nTUPLTYPE RGB\nENDHDR\n\x10\x20\x30";

TEST(Malformed, EveryBrokenFileLoadsOrFailsCleanly) {
  for (const char* folder : {"malformed", "bmpsuite-bad"}) {
    const QDir dir(CorpusPath(QLatin1String(folder)));
    for (const QString& name : dir.entryList(QDir::Files)) {
      QElapsedTimer timer;
      timer.start();
      const auto loaded = imaging::LoadImage(dir.filePath(name));
      if (loaded) {
        EXPECT_GT(loaded->Picture.Width(), 0) << name.toStdString();
      }
      EXPECT_LT(timer.elapsed(), 20000) << name.toStdString();
      (void)imaging::ReadImageSize(dir.filePath(name));
    }
  }
}

TEST(Malformed, DecompressionBombsAreRefusedFromTheHeader) {
  QElapsedTimer timer;
  timer.start();
  EXPECT_FALSE(imaging::LoadFile(CorpusPath(QStringLiteral("malformed/decompression_bomb.gif"))).has_value());
  EXPECT_LT(timer.elapsed(), 2000);
}

TEST(Helper, ACrashingDecoderCostsOneFailedLoadAndAHangingOneIsStoppedAtItsTimeLimit) {
  const imaging::HelperDecoder crashing(QStringLiteral("sh"), {QStringLiteral("-c"), QStringLiteral("kill -SEGV $$")}, {});
  EXPECT_FALSE(crashing.Decode("anything", QStringLiteral("PCX")).has_value());
  const imaging::HelperDecoder hanging(QStringLiteral("sleep"), {QStringLiteral("30")}, {std::chrono::milliseconds(300)});
  QElapsedTimer timer;
  timer.start();
  EXPECT_FALSE(hanging.Decode("anything", QStringLiteral("PCX")).has_value());
  EXPECT_LT(timer.elapsed(), 5000);
}

TEST(Helper, ADecoderThatAllocatesTooMuchIsStoppedByTheMemoryCap) {
  // Allocates 600 MB, then writes a one-pixel PAM: fine without a cap, refused under 256 MB.
  const QString script = QStringLiteral("$x = 'a' x 600000000; print \"") +
                         QString::fromLatin1(kOnePixelPam.left(kOnePixelPam.size() - 3)).replace(u'\n', QStringLiteral("\\n")) +
                         QStringLiteral("\\x10\\x20\\x30\";");
  const imaging::HelperDecoder roomy(QStringLiteral("perl"), {QStringLiteral("-e"), script},
                                     {std::chrono::milliseconds(20000), qint64(4) << 30});
  EXPECT_TRUE(roomy.Decode("x", QStringLiteral("PCX")).has_value());
  const imaging::HelperDecoder capped(QStringLiteral("perl"), {QStringLiteral("-e"), script},
                                      {std::chrono::milliseconds(20000), qint64(256) << 20});
  EXPECT_FALSE(capped.Decode("x", QStringLiteral("PCX")).has_value());
}

TEST(Helper, OnlyOurCodersAreAllowed) {
  const QByteArray png = testing_support::ReadAll(CorpusPath(QStringLiteral("formats/hopper.png")));
  EXPECT_FALSE(imaging::HelperDecoder().Decode(png, QStringLiteral("PNG")).has_value());
  const QByteArray pcx = testing_support::ReadAll(CorpusPath(QStringLiteral("formats/pil184.pcx")));
  EXPECT_TRUE(imaging::HelperDecoder().Decode(pcx, QStringLiteral("PCX")).has_value());
}

TEST(Pam, ReadsAWholeImage) {
  const auto pam = imaging::ParsePam(kOnePixelPam, 100);
  ASSERT_TRUE(pam.has_value());
  EXPECT_EQ(pam->Width, 1);
  EXPECT_EQ(pam->Depth, 3);
  EXPECT_EQ(pam->BytesPerSample, 1);
  EXPECT_EQ(kOnePixelPam.at(pam->DataOffset), '\x10');
}

TEST(Pam, RefusesTruncatedOversizedAndIncompleteHeaders) {
  EXPECT_FALSE(imaging::ParsePam(kOnePixelPam.chopped(1), 100).has_value());
  EXPECT_FALSE(imaging::ParsePam(kOnePixelPam, 0).has_value());
  QByteArray noDepth = kOnePixelPam;
  noDepth.replace("DEPTH 3\n", "");
  EXPECT_FALSE(imaging::ParsePam(noDepth, 100).has_value());
  QByteArray huge = kOnePixelPam;
  huge.replace("WIDTH 1", "WIDTH 99999999999");
  EXPECT_FALSE(imaging::ParsePam(huge, 1LL << 40).has_value());
  QByteArray wide = kOnePixelPam;
  wide.replace("MAXVAL 255", "MAXVAL 65535");
  EXPECT_FALSE(imaging::ParsePam(wide, 100).has_value());  // two bytes a sample: data too short
  EXPECT_FALSE(imaging::ParsePam("P6\n1 1\n255\nabc", 100).has_value());
}

}  // namespace
