// Colour management judged on pixels against lcms2 run by the vips command: tagged RGB,
// CMYK with and without a profile and tagged grey are shown and saved within 1 % RMSE of
// the managed sRGB result; a tagged JPEG saved again keeps its profile byte for byte; a
// damaged profile counts as sRGB.
#include "imaging/Loader.h"
#include "imaging/Metadata.h"
#include "imaging/Operations.h"
#include "imaging/PackedImage.h"
#include "imaging/Saver.h"
#include "support/ImageCompare.h"
#include "support/TestFiles.h"

#include <QImage>

#include <gtest/gtest.h>

namespace {

using testing_support::CorpusPath;
using testing_support::Psnr;
using testing_support::ReadAll;
using testing_support::Run;

const QString kProfiles = QStringLiteral("/usr/share/color/icc/ghostscript/");

// `vips` with these words; the test stops at a failed run.
void Vips(const QStringList& words) { ASSERT_EQ(Run(QStringLiteral("vips"), words).ExitCode, 0) << words.join(u' ').toStdString(); }

imaging::Image Judged(const testing_support::TempFolder& folder, const QString& file, const char* fallback) {
  const QString judge = folder.File(QStringLiteral("judge.png"));
  Vips({"icc_transform", file, judge, "srgb", "--embedded", "--input-profile", QLatin1String(fallback),
        "--black-point-compensation"});
  return imaging::LoadFile(judge).value();
}

// RMSE within 1 % of full scale is a PSNR of 40 dB or more.
constexpr double kWithinOnePercent = 40;
// Thumbnails are reduced by another kernel than the judge's: alike, not the same.
constexpr double kThumbnailsAlike = 30;

TEST(ColourManagement, TaggedPicturesShowAndSaveAsTheirManagedSrgb) {
  testing_support::TempFolder folder;
  const QString hopper = CorpusPath(QStringLiteral("formats/hopper.png"));
  struct Case {
    const char* Name;
    QString File;
    QStringList Made;  // the vips words after "icc_transform hopper FILE"
    const char* Fallback;
  };
  const Case cases[] = {
      {"Adobe RGB JPEG", folder.File(QStringLiteral("a98.jpg[Q=95]")), {kProfiles + "a98.icc"}, "srgb"},
      {"ProPhoto 16-bit TIFF", folder.File(QStringLiteral("romm.tif")), {kProfiles + "rommrgb.icc", "--depth", "16"}, "srgb"},
      {"CMYK JPEG with its profile", folder.File(QStringLiteral("cmyk.jpg[Q=95]")), {kProfiles + "ps_cmyk.icc", "--intent", "perceptual"}, "cmyk"},
      {"grey PNG with a grey profile", folder.File(QStringLiteral("grey.png")), {kProfiles + "default_gray.icc"}, "srgb"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.Name);
    Vips(QStringList{"icc_transform", hopper, c.File, "--input-profile", "srgb"} + c.Made);
    const QString file = c.File.section(u'[', 0, 0);
    const imaging::Image judge = Judged(folder, file, c.Fallback);
    const imaging::Image shown = imaging::LoadFile(file).value();
    EXPECT_GT(Psnr(imaging::Image::FromQImage(shown.ToQImage()), judge), kWithinOnePercent);
    const imaging::Image thumbnail = imaging::LoadFitting(file, 64, 64).value();  // decoded reduced, as the list's
    EXPECT_GT(Psnr(imaging::Image::FromQImage(thumbnail.ToQImage()), judge.FitWithin(64, 64)), kThumbnailsAlike);
    const QString bmp = folder.File(QStringLiteral("saved.bmp"));  // BMP holds no profile: sRGB is written
    ASSERT_TRUE(imaging::SaveImage(shown, bmp));
    EXPECT_GT(Psnr(imaging::LoadFile(bmp).value(), judge), kWithinOnePercent);
  }
  // Saved again, the Adobe RGB JPEG keeps its profile byte for byte and still shows the same.
  const imaging::Image adobe = imaging::LoadFile(folder.File(QStringLiteral("a98.jpg"))).value();
  EXPECT_EQ(adobe.IccProfile(), ReadAll(kProfiles + "a98.icc"));
  const QString again = folder.File(QStringLiteral("again.jpg"));
  ASSERT_TRUE(imaging::SaveImage(adobe, again));
  EXPECT_EQ(imaging::LoadFile(again)->IccProfile(), adobe.IccProfile());
  // An undo state unpacked from its packed bytes alone keeps the profile and the resolution.
  const imaging::PackedImage packed = imaging::PackedImage::Pack(imaging::ops::Flip(adobe));
  (void)packed.Bytes();
  EXPECT_EQ(packed.Unpack().IccProfile(), adobe.IccProfile());
  EXPECT_EQ(packed.Unpack().DotsPerInch(), adobe.DotsPerInch());
  // A CMYK JPEG without a profile goes through the standard press profile.
  const QString bare = folder.File(QStringLiteral("bare.jpg"));
  Vips({"copy", folder.File(QStringLiteral("cmyk.jpg")), bare + "[strip]"});
  EXPECT_GT(Psnr(imaging::Image::FromQImage(imaging::LoadFile(bare)->ToQImage()), Judged(folder, bare, "cmyk")),
            kWithinOnePercent);
}

// What Properties says of the colours.
QString ProfileRow(const QString& path) {
  for (const auto& [name, value] : imaging::ReadPhotoMetadata(path)) {
    if (name == QStringLiteral("Colour profile")) return value;
  }
  return {};
}

// A profile lcms cannot read (its signature broken) leaves the picture as sRGB values.
TEST(ColourManagement, ADamagedProfileCountsAsSrgb) {
  testing_support::TempFolder folder;
  const QString tagged = folder.File(QStringLiteral("tagged.jpg"));
  Vips({"icc_transform", CorpusPath(QStringLiteral("formats/hopper.png")), tagged + "[Q=95]", kProfiles + "a98.icc",
        "--input-profile", "srgb"});
  QByteArray bytes = ReadAll(tagged);
  const qsizetype profile = bytes.indexOf(QByteArray("ICC_PROFILE\0", 12)) + 14;  // then the profile's header
  ASSERT_GT(profile, 14);
  bytes.replace(profile + 36, 4, "xxxx");  // "acsp"
  const QString damaged = folder.WriteBytes(QStringLiteral("damaged.jpg"), bytes);
  const QString untagged = folder.File(QStringLiteral("untagged.png"));
  Vips({"copy", tagged, untagged + "[strip]"});
  const auto shown = imaging::LoadFile(damaged);
  ASSERT_TRUE(shown.has_value());
  EXPECT_EQ(ProfileRow(damaged), QStringLiteral("unusable, sRGB assumed"));
  EXPECT_EQ(ProfileRow(untagged), QStringLiteral("sRGB (assumed)"));
  const QString described = ProfileRow(tagged);  // the profile's own description
  EXPECT_FALSE(described.isEmpty() || described.contains(QStringLiteral("sRGB"))) << described.toStdString();
  EXPECT_TRUE(shown->IccProfile().isEmpty());
  EXPECT_EQ(testing_support::MeanAbsoluteDifference(imaging::Image::FromQImage(shown->ToQImage()),
                                                    imaging::LoadFile(untagged).value()), 0);
}

// Four bytes, most significant first, as PNG writes its numbers.
QByteArray Number(quint32 value) {
  const char bytes[] = {char(value >> 24), char(value >> 16), char(value >> 8), char(value)};
  return QByteArray(bytes, 4);
}

// A PNG of flat grey 128 with these chunks put after its header (each with its CRC).
QString PngStating(const testing_support::TempFolder& folder, const QString& name, const QList<QByteArray>& chunks) {
  QImage grey(16, 16, QImage::Format_RGB888);
  grey.fill(QColor(128, 128, 128));
  const QString plain = folder.File(QStringLiteral("plain.png"));
  grey.save(plain);
  QByteArray png = ReadAll(plain);
  qsizetype at = 8 + 25;  // the signature and IHDR
  for (const QByteArray& chunk : chunks) {  // type and body
    quint32 crc = 0xFFFFFFFF;
    for (const char byte : chunk) {
      crc ^= quint8(byte);
      for (int bit = 0; bit < 8; ++bit) crc = (crc >> 1) ^ (0xEDB88320 & (0 - (crc & 1)));
    }
    crc = ~crc;
    const QByteArray whole = Number(quint32(chunk.size() - 4)) + chunk + Number(crc);
    png.insert(at, whole);
    at += whole.size();
  }
  return folder.WriteBytes(name, png);
}

// Colours stated without a profile: a PNG's gAMA and cHRM, a camera's EXIF Adobe RGB.
TEST(ColourManagement, ColoursStatedWithoutAProfileAreShownThroughThem) {
  testing_support::TempFolder folder;
  const auto shownGrey = [](const QString& file) { return imaging::LoadFile(file)->ToQImage().pixelColor(3, 3).red(); };
  // Linear light (gamma 1): grey 128 is sRGB 188.
  EXPECT_NEAR(shownGrey(PngStating(folder, QStringLiteral("linear.png"), {"gAMA" + Number(100000)})), 188, 1);
  // About 1/2.2, alone or with sRGB's primaries, is what most files write for sRGB.
  EXPECT_TRUE(imaging::LoadFile(CorpusPath(QStringLiteral("formats/hopper.png")))->IccProfile().isEmpty());
  const QString usual = PngStating(folder, QStringLiteral("usual.png"), {"gAMA" + Number(45455)});
  EXPECT_EQ(shownGrey(usual), 128);
  EXPECT_TRUE(imaging::LoadFile(usual)->IccProfile().isEmpty());
  // An sRGB chunk wins over the others.
  EXPECT_EQ(shownGrey(PngStating(folder, QStringLiteral("srgb.png"), {QByteArray("sRGB\0", 5), "gAMA" + Number(100000)})), 128);
  // Adobe RGB primaries in cHRM, judged against the Adobe RGB profile (both gamma 2.2).
  QByteArray adobe = "cHRM";
  for (const quint32 value : {31270u, 32900u, 64000u, 33000u, 21000u, 71000u, 15000u, 6000u}) adobe += Number(value);
  const QString wide = PngStating(folder, QStringLiteral("wide.png"), {"gAMA" + Number(45455), adobe});
  const QString judge = folder.File(QStringLiteral("judge.png"));
  Vips({"icc_transform", wide, judge, "srgb", "--input-profile", kProfiles + "a98.icc", "--black-point-compensation"});
  EXPECT_GT(Psnr(imaging::Image::FromQImage(imaging::LoadFile(wide)->ToQImage()), imaging::LoadFile(judge).value()),
            kWithinOnePercent);
  // A camera's "Uncalibrated" with the interoperability index R03 is Adobe RGB.
  const QString camera = folder.File(QStringLiteral("camera.jpg"));
  Vips({"copy", CorpusPath(QStringLiteral("formats/hopper.jpg")), camera + "[Q=95,strip]"});
  ASSERT_EQ(testing_support::Run(QStringLiteral("exiv2"), {"-M", "set Exif.Photo.ColorSpace Short 65535", "-M",
                                          "set Exif.Iop.InteroperabilityIndex Ascii R03", camera}).ExitCode, 0);
  Vips({"icc_transform", camera, judge, "srgb", "--input-profile", kProfiles + "a98.icc", "--black-point-compensation"});
  EXPECT_GT(Psnr(imaging::Image::FromQImage(imaging::LoadFile(camera)->ToQImage()), imaging::LoadFile(judge).value()),
            kWithinOnePercent);
  EXPECT_EQ(ProfileRow(camera), QStringLiteral("Adobe RGB (1998) (from EXIF)"));
}

}  // namespace
