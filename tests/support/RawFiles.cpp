#include "support/RawFiles.h"

#include "support/TestFiles.h"

#include <QFile>
#include <QImageReader>
#include <QTemporaryDir>
#include <QtEndian>

namespace testing_support {

namespace {

bool Ran(const QString& program, const QStringList& arguments) { return Run(program, arguments).ExitCode == 0; }

// tiffcp wrote the preview's JPEG as libtiff does, its tables apart from its one strip; the
// strip is pointed at a whole JPEG appended to the file, as cameras store theirs.
bool PointPreviewAt(const QString& path, const QByteArray& jpeg) {
  QFile file(path);
  if (!file.open(QIODevice::ReadWrite)) return false;
  QByteArray data = file.readAll();
  const auto word = [&data](qsizetype at) { return qFromLittleEndian<quint16>(data.constData() + at); };
  const auto dword = [&data](qsizetype at) { return qFromLittleEndian<quint32>(data.constData() + at); };
  const quint32 first = dword(4);
  const quint32 second = dword(first + 2 + 12 * word(first));
  const quint32 offset = quint32(data.size());
  for (int entry = 0; entry < word(second); ++entry) {
    const qsizetype at = second + 2 + 12 * entry;
    if (word(at) != 273 && word(at) != 279) continue;
    const quint32 value = word(at) == 273 ? offset : quint32(jpeg.size());
    if (word(at + 2) == 4) qToLittleEndian<quint32>(value, data.data() + at + 8);
    else qToLittleEndian<quint16>(quint16(value), data.data() + at + 8);
  }
  return file.seek(0) && file.write(data + jpeg) == data.size() + jpeg.size();
}

// The scene's light as the sensor's 12-bit samples: linear, one colour a photosite, red and
// green on even rows, green and blue on odd ones (x % 2 + y % 2 picks red, green or blue).
// libvips' commands, one step each, so that a 24-megapixel mosaic takes a moment.
bool MakeMosaic(const QString& scene, const QString& mosaic) {
  QTemporaryDir steps;
  const auto step = [&steps](const char* name) { return steps.filePath(QLatin1String(name) + QStringLiteral(".v")); };
  const QSize size = QImageReader(scene).size();
  const QStringList bands = {step("r"), step("g"), step("b")};
  bool made = Ran(QStringLiteral("vips"), {"xyz", step("xy"), QString::number(size.width()), QString::number(size.height())}) &&
              Ran(QStringLiteral("vips"), {"remainder_const", step("xy"), step("odd"), "2"}) &&
              Ran(QStringLiteral("vips"), {"extract_band", step("odd"), step("oddx"), "0"}) &&
              Ran(QStringLiteral("vips"), {"extract_band", step("odd"), step("oddy"), "1"}) &&
              Ran(QStringLiteral("vips"), {"add", step("oddx"), step("oddy"), step("colour")});
  for (int band = 0; made && band < 3; ++band) made = Ran(QStringLiteral("vips"), {"extract_band", scene, bands[band], QString::number(band)});
  return made && Ran(QStringLiteral("vips"), {"case", step("colour"), bands.join(u' '), step("picked")}) &&
         Ran(QStringLiteral("vips"), {"linear", step("picked"), step("unit"), QString::number(1.0 / 255), "0"}) &&
         Ran(QStringLiteral("vips"), {"math2_const", step("unit"), step("linear"), "pow", "2.2"}) &&
         Ran(QStringLiteral("vips"), {"linear", step("linear"), step("twelve"), "4095", "0"}) &&
         Ran(QStringLiteral("vips"), {"cast", step("twelve"), step("samples"), "ushort"}) &&
         Ran(QStringLiteral("vips"), {"tiffsave", step("samples"), mosaic});
}

}  // namespace

QString MakeDng(const QString& path, const DngRecipe& recipe) {
  const QString mosaic = path + QStringLiteral(".mosaic.tif");
  const bool made =
      MakeMosaic(recipe.Source, mosaic) &&
      Ran(QStringLiteral("tiffset"), {"-s", "262", "32803", mosaic}) &&
      Ran(QStringLiteral("tiffset"), {"-s", "33421", "2", "2", "2", mosaic}) &&
      Ran(QStringLiteral("tiffset"), {"-s", "33422", "4", "0", "1", "1", "2", mosaic}) &&
      Ran(QStringLiteral("exiftool"),
          {"-q", "-q", "-overwrite_original", "-DNGVersion=1.4.0.0", "-DNGBackwardVersion=1.1.0.0", "-Make=Vistrel",
           "-Model=Test Camera", "-UniqueCameraModel=Vistrel Test Camera", "-BlackLevel=0", "-WhiteLevel=4095",
           "-CalibrationIlluminant1=D65", "-ColorMatrix1=3.2406 -1.5372 -0.4986 -0.9689 1.8758 0.0415 0.0557 -0.2040 1.0570",
           "-AsShotNeutral=1 1 1", QStringLiteral("-Orientation#=%1").arg(recipe.Orientation),
           "-DateTimeOriginal=2024:05:06 07:08:09", "-ExposureTime=0.01", "-FNumber=5.6", "-ISO=200",
           "-LensModel=Test Lens 50mm", mosaic});
  if (!made) return {};
  if (recipe.PreviewJpeg.isEmpty()) return QFile::rename(mosaic, path) ? path : QString();
  const QString strip = path + QStringLiteral(".preview.tif");
  const bool withPreview = Ran(QStringLiteral("convert"), {recipe.PreviewJpeg, "-compress", "jpeg", strip}) &&
                           Ran(QStringLiteral("tiffcp"), {"-r", "100000", mosaic, strip, path}) &&
                           Ran(QStringLiteral("tiffset"), {"-d", "1", "-s", "254", "1", path}) &&
                           PointPreviewAt(path, ReadAll(recipe.PreviewJpeg));
  QFile::remove(mosaic);
  QFile::remove(strip);
  return withPreview ? path : QString();
}

QString MakeCameraJpeg(const QString& path, const QString& size, int orientation) {
  const QString scene = path + QStringLiteral(".png");
  const bool made = Ran(QStringLiteral("vips"), {"icc_transform", QStringLiteral(VISTREL_SOURCE_DIR "/samples/landscape.jpg"), scene,
                                                 "/usr/share/color/icc/ghostscript/a98.icc"}) &&
                    Ran(QStringLiteral("convert"), {scene, "-resize", size, "-quality", "85", path}) &&
                    Ran(QStringLiteral("exiftool"), {"-q", "-overwrite_original", "-Make=Vistrel", "-DateTimeOriginal=2024:05:06 07:08:09",
                                                     QStringLiteral("-Orientation#=%1").arg(orientation), path});
  QFile::remove(scene);
  return made ? path : QString();
}

}  // namespace testing_support
