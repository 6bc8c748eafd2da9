// Animations made by ImageMagick and libvips: their timing as played and their frames read
// in order, and what a damaged one gives.
#include "imaging/Animation.h"
#include "imaging/GifScan.h"
#include "imaging/Loader.h"
#include "support/TestFiles.h"
#include "support/UsLocale.h"

#include <QFile>

#include <gtest/gtest.h>

namespace {

// ImageMagick or libvips with these words, to their exit code.
int Made(const char* program, const QStringList& words) { return testing_support::Run(QLatin1String(program), words).ExitCode; }

// An APNG of the pictures by apngasm, each shown `delay` hundredths, played `plays` times.
QString MakeApng(const testing_support::TempFolder& folder, const QList<QStringList>& pictures, const char* delay, const char* plays) {
  QStringList frames;
  for (const QStringList& words : pictures) {
    frames << folder.File(QStringLiteral("frame%1.png").arg(frames.size() + 1));
    if (Made("convert", words + QStringList{frames.back()}) != 0) return {};
  }
  const QString apng = folder.File(QStringLiteral("moving.png"));
  const bool made = Made("apngasm", {apng, folder.File(QStringLiteral("frame*.png")), delay, "100", QStringLiteral("-l") + plays}) == 0;
  for (const QString& frame : frames) QFile::remove(frame);
  return made ? apng : QString();
}

// Three frames, red, lime and blue, of 40 x 30, in a GIF, a WebP and an APNG; and a file of pages.
TEST(Animation, FramesComeInOrderWithTheirDelaysAndLoops) {
  const testing_support::UsLocale us;
  testing_support::TempFolder folder;
  const QString gif = folder.File(QStringLiteral("three.gif")), webp = folder.File(QStringLiteral("three.webp"));
  const QString apng = MakeApng(folder, {{"-size", "40x30", "xc:red"}, {"-size", "40x30", "xc:lime"}, {"-size", "40x30", "xc:blue"}}, "7", "3");
  const QString still = folder.File(QStringLiteral("zero.gif")), tiff = folder.File(QStringLiteral("pages.tif"));
  ASSERT_EQ(Made("convert", {"-delay", "7", "-size", "40x30", "xc:red", "xc:lime", "xc:blue", "-loop", "3", gif}), 0);
  ASSERT_EQ(Made("vips", {"copy", gif + "[n=-1]", webp + "[lossless]"}), 0);
  ASSERT_EQ(Made("convert", {"-delay", "0", "-size", "4x3", "xc:red", "xc:lime", still}), 0);
  ASSERT_EQ(Made("convert", {"-size", "4x3", "xc:red", "xc:lime", tiff}), 0);
  for (const QString& path : {gif, webp, apng}) {
    const auto timing = imaging::ReadFrameTiming(path);
    ASSERT_TRUE(timing.has_value()) << path.toStdString();
    EXPECT_EQ(timing->DelaysMs, (std::vector<int>{70, 70, 70}));
    EXPECT_EQ(std::tuple(timing->Loops, timing->TotalMs()), std::tuple(3, qint64(210)));
    imaging::FrameReader reader(path);
    for (const QColor colour : {QColor(Qt::red), QColor(Qt::green), QColor(Qt::blue)}) {
      const auto frame = reader.Next();
      ASSERT_TRUE(frame.has_value()) << path.toStdString();
      EXPECT_EQ(std::tuple(frame->Width(), frame->Height()), std::tuple(40, 30));
      EXPECT_EQ(frame->ToQImage().pixelColor(20, 15), colour) << path.toStdString();
    }
    EXPECT_FALSE(reader.Next().has_value());
    EXPECT_FALSE(reader.Failed());
  }
  EXPECT_EQ(imaging::ReadFrameTiming(still)->DelaysMs, (std::vector<int>{100, 100}));  // "as fast as possible"
  EXPECT_EQ(imaging::DescribeAnimation(*imaging::ReadFrameTiming(still)), QStringLiteral("2 frames, 0.2 s"));
  EXPECT_FALSE(imaging::ReadFrameTiming(tiff).has_value());
}

// apngasm keeps only what changes: the second frame is the square laid over the first and
// then taken away again (its disposal gives back what was under it), the third one pixel.
TEST(Animation, AnApngsFramesAreLaidOverTheCanvas) {
  testing_support::TempFolder folder;
  const QStringList red = {"-size", "40x30", "xc:red"};
  const QString apng = MakeApng(folder, {red, red + QStringList{"-fill", "lime", "-draw", "rectangle 20,10 29,19"}, red}, "10", "0");
  ASSERT_FALSE(apng.isEmpty());
  EXPECT_EQ(imaging::ReadFrameTiming(apng)->Loops, 0);
  imaging::FrameReader reader(apng);
  const std::pair<QPoint, QColor> expected[][2] = {{{{5, 5}, Qt::red}, {{25, 15}, Qt::red}},
                                                   {{{5, 5}, Qt::red}, {{25, 15}, Qt::green}},
                                                   {{{5, 5}, Qt::red}, {{25, 15}, Qt::red}}};
  for (const auto& frame : expected) {
    const auto picture = reader.Next();
    ASSERT_TRUE(picture.has_value());
    for (const auto& [at, colour] : frame) EXPECT_EQ(picture->ToQImage().pixelColor(at), colour) << at.x();
  }
  EXPECT_FALSE(reader.Next().has_value());
  const QByteArray bytes = testing_support::ReadAll(apng);  // cut in its last frame: what it holds, then a failure
  imaging::FrameReader cut(folder.WriteBytes(QStringLiteral("cut.png"), bytes.left(bytes.lastIndexOf("fdAT") + 8)));
  int frames = 0;
  while (cut.Next()) ++frames;
  EXPECT_EQ(std::tuple(frames, cut.Failed()), std::tuple(2, true));
}

// Hostile files of frames and pages: a GIF of more frames than are played (shown as a
// still picture) and a TIFF whose last page points back to its first: each is read in
// bounded time and opens on its first picture.
TEST(Animation, EndlessFramesAndLoopingPagesAreBounded) {
  testing_support::TempFolder folder;
  QByteArray gif = QByteArray("GIF89a\x01\x00\x01\x00\x80\x00\x00", 13) + QByteArray("\x00\x00\x00\xff\xff\xff", 6);
  const QByteArray frame("\x21\xf9\x04\x00\x00\x00\x00\x00\x2c\x00\x00\x00\x00\x01\x00\x01\x00\x00\x02\x02\x44\x01\x00", 23);
  for (int i = 0; i <= imaging::kMaxGifFrames; ++i) gif += frame;
  const QString many = folder.WriteBytes(QStringLiteral("many.gif"), gif + ';');
  EXPECT_TRUE(imaging::IsAnimation(many));  // what the first frames say; the timing refuses it
  EXPECT_FALSE(imaging::ReadFrameTiming(many).has_value());
  EXPECT_TRUE(imaging::LoadFile(many).has_value());
  const QString looping = folder.File(QStringLiteral("looping.tif"));
  ASSERT_EQ(Made("convert", {"-size", "4x3", "xc:red", "xc:lime", looping}), 0);
  QByteArray tiff = testing_support::ReadAll(looping);
  const auto word = [&tiff](qsizetype at, int bytes) {
    quint32 value = 0;
    for (int i = bytes - 1; i >= 0; --i) value = value << 8 | quint8(tiff[at + i]);
    return value;
  };
  const quint32 first = word(4, 4), second = word(first + 2 + 12 * word(first, 2), 4);
  const qsizetype end = second + 2 + 12 * word(second, 2);
  for (int i = 0; i < 4; ++i) tiff[end + i] = char(first >> (8 * i));
  folder.WriteBytes(QStringLiteral("looping.tif"), tiff);
  EXPECT_LE(imaging::ReadSourceFacts(looping).Pages, 2);
  EXPECT_EQ(imaging::LoadFile(looping)->ToQImage().pixelColor(1, 1), QColor(Qt::red));
  EXPECT_FALSE(imaging::LoadFile(looping, 5).has_value());
}

}  // namespace
