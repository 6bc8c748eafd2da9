// Metafiles: the EMF player (in its helper process) and WMF through ImageMagick's libwmf
// both show the corpus drawing, a red disc with a black outline, on white.
#include "imaging/Loader.h"
#include "imaging/emf/EmfReader.h"
#include "imaging/emf/EmfRender.h"
#include "support/ImageCompare.h"
#include "support/TestFiles.h"

#include <QtEndian>

#include <limits>


#include <gtest/gtest.h>

namespace {

using testing_support::CorpusPath;

void ExpectRedDiscOnWhite(const char* file, QSize size) {
  const auto loaded = imaging::LoadImage(CorpusPath(QLatin1String(file)));
  ASSERT_TRUE(loaded.has_value()) << file;
  EXPECT_EQ(QSize(loaded->Picture.Width(), loaded->Picture.Height()), size);
  EXPECT_FALSE(loaded->Picture.HasAlpha());
  const QImage picture = loaded->Picture.ToQImage();
  EXPECT_EQ(QColor(picture.pixel(size.width() / 2, size.height() / 2)), QColor(255, 0, 0)) << file;
  EXPECT_EQ(QColor(picture.pixel(1, 1)), QColor(Qt::white)) << file;
  int dark = 0;  // the outline crosses the middle row twice
  for (int x = 0; x < size.width(); ++x) dark += QColor(picture.pixel(x, size.height() / 2)).red() < 100 ? 1 : 0;
  EXPECT_GE(dark, 2) << file;
}

TEST(Metafiles, TheDrawingsShowAtTheirFrameSizeAt96Dpi) {
  ExpectRedDiscOnWhite("formats/drawing.emf", QSize(110, 110));  // a 29 mm frame
  ExpectRedDiscOnWhite("formats/drawing.wmf", QSize(83, 83));
}

QByteArray CorpusEmf() { return testing_support::ReadAll(CorpusPath(QStringLiteral("formats/drawing.emf"))); }

TEST(EmfReader, ReadsTheHeaderAndEveryRecordToEofAndStopsAtOneThatRunsPastTheEnd) {
  const QByteArray file = CorpusEmf();
  const auto header = imaging::emf::ReadHeader(file);
  ASSERT_TRUE(header.has_value());
  EXPECT_EQ(header->FrameHundredthsMm, (imaging::emf::Box{0, 0, 2899, 2899}));
  const auto records = imaging::emf::ReadRecords(file, 1000);
  ASSERT_FALSE(records.empty());
  EXPECT_EQ(records.back().Type(), 14);  // EMR_EOF
  QByteArray broken = file;  // a record that runs past the end stops the reading
  const qsizetype first = qFromLittleEndian<qint32>(file.constData() + 4);
  qToLittleEndian<quint32>(0x7FFFFFF0u, broken.data() + first + 4);  // the first record claims 2 GB
  EXPECT_TRUE(imaging::emf::ReadRecords(broken, 1000).empty());
  EXPECT_TRUE(imaging::emf::Render(broken, 1 << 20).has_value());  // an empty picture, no crash
}

TEST(EmfRender, RefusesWhatIsNotAnEmfOrIsTooLargeAndExtremeRectanglesDoNotOverflow) {
  // Found by the fuzzer: bounds of INT_MIN..INT_MAX overflowed a 32-bit width.
  QByteArray file = CorpusEmf();
  for (const qsizetype at : {8, 24}) {
    qToLittleEndian<qint32>(std::numeric_limits<qint32>::min(), file.data() + at);
    qToLittleEndian<qint32>(std::numeric_limits<qint32>::max(), file.data() + at + 8);
  }
  EXPECT_FALSE(imaging::emf::Render(file, imaging::kMaxPixels).has_value());
  EXPECT_FALSE(imaging::emf::Render("not a metafile", 1 << 20).has_value());
  QByteArray huge = CorpusEmf();
  qToLittleEndian<qint32>(200000000, huge.data() + 32);  // a 2 km frame
  qToLittleEndian<qint32>(200000000, huge.data() + 36);
  EXPECT_FALSE(imaging::emf::Render(huge, imaging::kMaxPixels).has_value());
  EXPECT_FALSE(imaging::emf::Render(CorpusEmf(), 100).has_value());
}

// A small file that asks for a great deal of painting (a thousand-pixel frame filled
// twenty thousand times, or half a million glyphs of text) is refused quickly instead of
// keeping the helper busy.
TEST(EmfRender, RefusesADrawingThatCostsFarMoreThanItsPicture) {
  const QByteArray corpus = CorpusEmf();
  const qsizetype headerSize = qFromLittleEndian<qint32>(corpus.constData() + 4);
  const auto drawing = [&](const QByteArray& record, int times) {
    QByteArray file = corpus.left(headerSize);
    qToLittleEndian<qint32>(26458, file.data() + 32);  // a frame of 1,000 x 1,000 pixels
    qToLittleEndian<qint32>(26458, file.data() + 36);
    for (int i = 0; i < times; ++i) file += record;
    return file + corpus.right(20);  // EMR_EOF
  };
  QByteArray fill(24, '\0');
  qToLittleEndian<quint32>(43, fill.data());  // EMR_RECTANGLE
  qToLittleEndian<quint32>(24, fill.data() + 4);
  qToLittleEndian<qint32>(-1000000, fill.data() + 8);
  qToLittleEndian<qint32>(-1000000, fill.data() + 12);
  qToLittleEndian<qint32>(1000000, fill.data() + 16);
  qToLittleEndian<qint32>(1000000, fill.data() + 20);
  const int characters = 500;
  QByteArray text(76 + 2 * characters, '\0');
  qToLittleEndian<quint32>(84, text.data());  // EMR_EXTTEXTOUTW
  qToLittleEndian<quint32>(quint32(text.size()), text.data() + 4);
  qToLittleEndian<quint32>(characters, text.data() + 44);  // EMRTEXT: characters, where they are
  qToLittleEndian<quint32>(76, text.data() + 48);
  for (int i = 0; i < characters; ++i) text[76 + 2 * i] = char('A' + i % 26);
  EXPECT_FALSE(imaging::emf::Render(drawing(fill, 20000), imaging::kMaxPixels).has_value());
  EXPECT_FALSE(imaging::emf::Render(drawing(text, 1000), imaging::kMaxPixels).has_value());
  EXPECT_TRUE(imaging::emf::Render(drawing(text, 2), imaging::kMaxPixels).has_value());  // some text still plays
  EXPECT_TRUE(imaging::emf::Render(CorpusEmf(), imaging::kMaxPixels).has_value());  // a real drawing still plays
}

}  // namespace
