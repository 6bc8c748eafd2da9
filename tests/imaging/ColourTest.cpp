// Colour management judged on pixels against lcms2 run by the vips command: tagged RGB,
// CMYK with and without a profile and tagged grey are shown and saved within 1 % RMSE of
// the managed sRGB result; a tagged JPEG saved again keeps its profile byte for byte; a
// damaged profile counts as sRGB.
#include "imaging/Loader.h"
#include "imaging/Metadata.h"
#include "imaging/Saver.h"
#include "support/ImageCompare.h"
#include "support/TestFiles.h"

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

}  // namespace
