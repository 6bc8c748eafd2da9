// Hostile and broken files: each either loads what can be recovered or fails cleanly;
// none crashes, hangs or exhausts memory (the ASan build runs these too).
#include "imaging/Decoders.h"
#include "imaging/Loader.h"
#include "imaging/Pam.h"
#include "support/ImageCompare.h"
#include "support/TestFiles.h"

#include <QDir>
#include <QElapsedTimer>

#include <sys/stat.h>

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

// A file gone or not a regular one, as a thumbnail or a picture is asked of it (a file
// renamed while its thumbnail waits): nothing, and nothing left behind (the ASan build
// finds what a refused read leaks).
TEST(Malformed, AFileThatIsGoneOrNotRegularGivesNothing) {
  testing_support::TempFolder folder;
  const QString gone = folder.File(QStringLiteral("gone.jpg")), fifo = folder.File(QStringLiteral("pipe.png"));
  ASSERT_EQ(::mkfifo(fifo.toLocal8Bit().constData(), 0600), 0);
  for (const QString& path : {gone, fifo}) {
    EXPECT_FALSE(imaging::DecodeWithVips(path, 64, 64).has_value());
    EXPECT_FALSE(imaging::DecodeWithVips(path).has_value());
    EXPECT_FALSE(imaging::OpenWithVipsInOrder(path).has_value());
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

// A picture taller than a band, fed in chunks of every awkward size: the pixels come out
// the same, two-byte samples by their high byte, alpha kept or put on white.
TEST(PamReceiver, AssemblesTheSamePictureHoweverTheStreamIsCut) {
  const int height = 5000;  // more rows than one band of a two-pixel-wide picture holds
  const auto pam = [height](int depth, int maxval) {
    QByteArray bytes = QStringLiteral("P7\nWIDTH 2\nHEIGHT %1\nDEPTH %2\nMAXVAL %3\nENDHDR\n")
                           .arg(height).arg(depth).arg(maxval).toLatin1();
    for (int y = 0; y < height; ++y) {
      for (int sample = 0; sample < 2 * depth; ++sample) {
        const bool alpha = sample % depth == depth - 1 && depth % 2 == 0;
        const char value = alpha ? char(y % 2 ? 255 : 0) : char(40 + sample + y % 7);
        bytes += value;
        if (maxval > 255) bytes += '\x99';  // the low byte, dropped
      }
    }
    return bytes;
  };
  struct Case { int Depth, Maxval; bool OnWhite; int Bands; };
  for (const Case c : {Case{3, 255, false, 3}, Case{4, 255, true, 3}, Case{2, 65535, false, 4}, Case{1, 65535, true, 3}}) {
    const QByteArray bytes = pam(c.Depth, c.Maxval);
    for (const qsizetype chunk : {qsizetype(1), qsizetype(7), qsizetype(65536), bytes.size()}) {
      if (chunk == 1 && c.Depth != 1) continue;  // byte by byte once is enough
      imaging::PamReceiver receiver(1 << 20, c.OnWhite);
      for (qsizetype at = 0; at < bytes.size(); at += chunk) ASSERT_TRUE(receiver.Take(bytes.mid(at, chunk)));
      const auto picture = receiver.Finish();
      ASSERT_TRUE(picture.has_value()) << c.Depth << " " << chunk;
      EXPECT_EQ(picture->Bands(), c.Bands);
      EXPECT_EQ(QSize(picture->Width(), picture->Height()), QSize(2, height));
      for (const int y : {height - 2, height - 1}) {  // even rows are transparent where there is alpha
        const int first = 40 + c.Depth + y % 7;  // the second pixel's first sample
        const QColor drawn = c.Depth >= 3 ? QColor(first, first + 1, first + 2) : QColor(first, first, first);
        const QColor expected = c.Depth % 2 == 0 && y % 2 == 0 ? QColor(Qt::white) : drawn;
        EXPECT_EQ(testing_support::PixelAt(*picture, 1, y), expected) << c.Depth << " " << chunk << " " << y;
      }
    }
  }
}

TEST(PamReceiver, RefusesTruncatedOversizedSurplusAndMalformedStreams) {
  const auto received = [](const QByteArray& bytes, std::int64_t maxPixels = 100) {
    imaging::PamReceiver receiver(maxPixels, false);
    return receiver.Take(bytes) ? receiver.Finish() : std::nullopt;
  };
  EXPECT_TRUE(received(kOnePixelPam).has_value());
  EXPECT_FALSE(received(kOnePixelPam.chopped(1)).has_value());
  EXPECT_FALSE(received(kOnePixelPam + 'x').has_value());
  EXPECT_FALSE(received(kOnePixelPam, 0).has_value());
  QByteArray noDepth = kOnePixelPam;
  noDepth.replace("DEPTH 3\n", "");
  QByteArray huge = kOnePixelPam;
  huge.replace("WIDTH 1", "WIDTH 99999999999");
  QByteArray wide = kOnePixelPam;
  wide.replace("MAXVAL 255", "MAXVAL 65535");  // two bytes a sample: data too short
  for (const QByteArray& bad : {noDepth, huge, wide, QByteArray("P6\n1 1\n255\nabc"), "P7\n" + QByteArray(5000, '#')}) {
    EXPECT_FALSE(received(bad, 1LL << 40).has_value()) << bad.left(40).toStdString();
  }
  imaging::PamReceiver endless(100, false);  // a header that never ends is refused early
  EXPECT_FALSE(endless.Take("P7\n" + QByteArray(5000, '#')));
}

}  // namespace
