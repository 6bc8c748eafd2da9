#include "files/FileDialogs.h"

#include "browse/FileTypes.h"

#include <QFileInfo>

namespace files {

namespace {

struct SaveAsFormat {
  const char* Description;
  const char* Extension;
};

constexpr SaveAsFormat kSaveAsFormats[] = {
    {"Bitmap (*.bmp)", "bmp"},          {"Paintbrush dcx (*.dcx)", "dcx"},
    {"Dib (*.dib)", "dib"},             {"Jpeg (*.jpg)", "jpg"},
    {"Portable bitmap (*.pbm)", "pbm"}, {"Paintbrush pcx (*.pcx)", "pcx"},
    {"Portable graymap (*.pgm)", "pgm"}, {"Png (*.png)", "png"},
    {"Portable pixmap (*.ppm)", "ppm"}, {"Targa (*.tga)", "tga"},
    {"Tiff (*.tif)", "tif"},            {"Word Perfect graphic bitmap (*.wpg)", "wpg"},
};

// Open File's entries: the type whose description is shown, and the pattern part.
struct OpenType {
  const char* Type;
  const char* Shown;
  const char* Patterns;
};

constexpr OpenType kOpenTypes[] = {
    {"bmp", " (*.bmp)", "*.bmp"},
    {"cal", " (*.cal)", "*.cal"},
    {"cur", " (*.cur)", "*.cur"},
    {"dib", " (*.dib)", "*.dib"},
    {"gif", " (*.gif)", "*.gif"},
    {"ico", " (*.ico)", "*.ico"},
    {"jpg", " (*.jpg, *.jpeg, *.jpe, *.jif)", "*.jpg;*.jpeg;*.jpe;*.jif"},
    {"pbm", " (*.pbm)", "*.pbm"},
    {"pcx", " (*.pcx, *.dcx)", "*.pcx;*.dcx"},
    {"pgm", " (*.pgm)", "*.pgm"},
    {"png", " (*.png)", "*.png"},
    {"ppm", " (*.ppm)", "*.ppm"},
    {"rle", " (*.rle)", "*.rle"},
    {"tga", " (*.tga)", "*.tga"},
    {"tif", " (*.tif)", "*.tif"},
    {"wmf", " (*.wmf, *.emf)", "*.wmf;*.emf"},
    {"wpg", " (*.wpg)", "*.wpg"},
};

constexpr const char* kAllImagePatterns =
    "*.bmp;*.cal;*.cur;*.dcx;*.dib;*.emf;*.gif;*.ico;*.jpe;*.jpg;*.jpeg;*.jif;*.pbm;*.pcx;*.pgm;*.png;*.ppm;*.rle;"
    "*.tga;*.tif;*.wmf;*.wpg";

QStringList Split(const char* patterns) { return QString::fromLatin1(patterns).split(u';'); }

}  // namespace

std::vector<DialogFilter> OpenFileFilters() {
  std::vector<DialogFilter> filters{{QStringLiteral("All image files"), Split(kAllImagePatterns)}};
  for (const OpenType& type : kOpenTypes) {
    filters.push_back({browse::FileTypeDescription(QLatin1String(type.Type)) + QLatin1String(type.Shown), Split(type.Patterns)});
  }
  filters.push_back({QStringLiteral("All files"), {QStringLiteral("*.*")}});
  return filters;
}

std::vector<DialogFilter> SaveAsFilters() {
  std::vector<DialogFilter> filters;
  for (const SaveAsFormat& format : kSaveAsFormats) {
    filters.push_back({QLatin1String(format.Description), {QStringLiteral("*.") + QLatin1String(format.Extension)}});
  }
  return filters;
}

int SaveAsFilterIndex(const QString& lowerCaseExtension) {
  if (lowerCaseExtension == QLatin1String("jpeg") || lowerCaseExtension == QLatin1String("jif")) return 4;
  for (int i = 0; i < int(std::size(kSaveAsFormats)); ++i) {
    if (lowerCaseExtension == QLatin1String(kSaveAsFormats[i].Extension)) return i + 1;
  }
  return 0;
}

QString WithSaveAsExtension(const QString& path, int filterIndex) {
  if (!QFileInfo(path).suffix().isEmpty() || filterIndex < 1 || filterIndex > int(std::size(kSaveAsFormats))) return path;
  return path + u'.' + QLatin1String(kSaveAsFormats[filterIndex - 1].Extension);
}

QStringList QtNameFilters(const std::vector<DialogFilter>& filters) {
  QStringList names;
  for (const DialogFilter& filter : filters) {
    QStringList patterns = filter.Patterns;
    if (patterns == QStringList{QStringLiteral("*.*")}) patterns = {QStringLiteral("*")};  // every file, dotted or not
    names << filter.Description + QStringLiteral(" (") + patterns.join(u' ') + u')';
  }
  return names;
}

bool CannotBeWritten(const QString& lowerCaseExtension) {
  static const QStringList kReadOnlyTypes = {QStringLiteral("cal"), QStringLiteral("cur"), QStringLiteral("emf"),
                                             QStringLiteral("gif"), QStringLiteral("ico"), QStringLiteral("rle"),
                                             QStringLiteral("wmf")};
  return kReadOnlyTypes.contains(lowerCaseExtension);
}

bool IsMarkedReadOnly(const QString& path) {
  const QFileInfo file(path);
  return file.exists() && !(file.permissions() & QFileDevice::WriteOwner);
}

QString DestinationReadOnlyNote(const QString& path) {
  return IsMarkedReadOnly(path) ? QStringLiteral(". Destination file is as marked as read-only") : QString();
}

QString ReadOnlyNote(const QString& path) {
  return IsMarkedReadOnly(path) ? QStringLiteral(". File is marked as read-only") : QString();
}

}  // namespace files
