// The Properties rows of real files: the size's figures, a file that is no image, and a
// camera photo's own record of itself (written with exiv2, as a camera would have).
#include "files/Properties.h"
#include "files/frmProperties.h"
#include "support/TestFiles.h"
#include "support/UsLocale.h"

#include <QProcess>
#include <QTreeWidget>

#include <gtest/gtest.h>

#include <map>

namespace {

std::map<QString, QString> Rows(const QString& path) {
  std::map<QString, QString> rows;
  for (const auto& [name, value] : files::PropertyRows(path)) rows[name] = value;
  return rows;
}

TEST(Properties, SizesAreCutNotRoundedAndANonImageHasNoDimensions) {
  const testing_support::UsLocale us;
  testing_support::TempFolder folder;
  const std::pair<int, const char*> sizes[] = {{0, "0 bytes (0.0 KB)"}, {1023, "1,023 bytes (0.9 KB)"},
                                               {1500, "1,500 bytes (1.4 KB)"}, {2048000, "2,048,000 bytes (2,000.0 KB)"}};
  for (const auto& [bytes, text] : sizes) {
    const QString file = folder.WriteBytes(QStringLiteral("f%1.xyz").arg(bytes), QByteArray(bytes, 'x'));
    const auto rows = Rows(file);
    EXPECT_EQ(rows.at(QStringLiteral("Size")), QLatin1String(text));
    EXPECT_EQ(rows.at(QStringLiteral("Width x height")), QStringLiteral("(Unknow)"));
    EXPECT_EQ(rows.at(QStringLiteral("Type")), QStringLiteral("xyz file"));
  }
  const auto photo = Rows(folder.WritePng(QStringLiteral("IMG_0001.PNG"), 1200, 900));
  EXPECT_EQ(photo.at(QStringLiteral("File")), QStringLiteral("IMG_0001.PNG"));  // exactly as named
  EXPECT_EQ(photo.at(QStringLiteral("Width x height")), QStringLiteral("1,200 x 900"));
  EXPECT_EQ(photo.at(QStringLiteral("Folder")), folder.Path());
  EXPECT_EQ(photo.count(QStringLiteral("Camera")), 0u);  // nothing recorded, nothing shown
  EXPECT_EQ(photo.count(QStringLiteral("Pages")) + photo.count(QStringLiteral("Animation")), 0u);
}

TEST(Properties, ACameraPhotoShowsWhatItRecords) {
  testing_support::TempFolder folder;
  const QString photo = folder.File(QStringLiteral("camera.jpg"));
  ASSERT_EQ(QProcess::execute(QStringLiteral("convert"), {"-size", "64x48", "gradient:", photo}), 0);
  ASSERT_EQ(QProcess::execute(QStringLiteral("exiv2"),
                              {"-M", "set Exif.Image.Make Canon", "-M", "set Exif.Image.Model Canon EOS 80D", "-M",
                               "set Exif.Photo.ISOSpeedRatings 400", "-M", "set Exif.Photo.DateTimeOriginal 2024:06:01 10:30:00",
                               "-M", "set Exif.Photo.FNumber Rational 8/1", "-M", "set Exif.Photo.FocalLength Rational 50/1",
                               "-M", "set Exif.Photo.ExposureTime Rational 1/250", "-M", "set Exif.GPSInfo.GPSLatitude 52/1 22/1 1112/100",
                               "-M", "set Exif.GPSInfo.GPSLatitudeRef N", "-M", "set Exif.GPSInfo.GPSLongitude 4/1 53/1 0/1",
                               "-M", "set Exif.GPSInfo.GPSLongitudeRef E", photo}),
            0);
  const QLocale before;
  QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));  // dates in the user's locale
  const auto rows = Rows(photo);
  QLocale::setDefault(before);
  const std::pair<const char*, const char*> recorded[] = {
      {"Camera", "Canon EOS 80D"}, {"ISO", "400"},        {"Taken", "01.06.24 10:30:00"},
      {"Aperture", "f/8"},         {"Focal length", "50 mm"}, {"Exposure", "1/250 s"},
      {"GPS position", "52.36976\u00b0 N, 4.88333\u00b0 E"}};
  for (const auto& [name, value] : recorded) EXPECT_EQ(rows.at(QLatin1String(name)), QString::fromUtf8(value)) << name;
  files::frmProperties dialog(photo);
  auto* list = dialog.findChild<QTreeWidget*>(QStringLiteral("lisLista"));
  ASSERT_NE(list, nullptr);
  EXPECT_EQ(list->topLevelItem(0)->text(0), QStringLiteral("File"));
  EXPECT_EQ(list->topLevelItemCount(), int(files::PropertyRows(photo).size()));
}

}  // namespace
