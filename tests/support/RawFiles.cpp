#include "support/RawFiles.h"

#include "support/TestFiles.h"

#include <QFile>
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

}  // namespace

QString MakeDng(const QString& path, const DngRecipe& recipe) {
  const QString mosaic = path + QStringLiteral(".mosaic.tif");
  const bool made =
      Ran(QStringLiteral("convert"),
          {recipe.Source, "-gamma", "0.4545", "-fx", "(i%2==0&&j%2==0)?u.r:((i%2==1&&j%2==1)?u.b:u.g)", "-channel", "R",
           "-separate", "+channel", "-evaluate", "multiply", "0.0625", "-depth", "16", "-compress", "none", "-define",
           "tiff:photometric=min-is-black", mosaic}) &&
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
  return withPreview ? path : QString();
}

}  // namespace testing_support
