#include "files/FileDialogs.h"
#include "base/Texts.h"

#include "base/FileFormats.h"
#include "browse/FileTypes.h"

#include <QFileInfo>

namespace files {

namespace {

QString Patterns(const QStringList& extensions, const QString& prefix, QChar separator) {
  QStringList patterns;
  for (const QString& extension : extensions) patterns << prefix + extension;
  return patterns.join(separator);
}

}  // namespace

// Texts::tr("All image files") (every known type), one entry per group with its description, Texts::tr("All files").
std::vector<DialogFilter> OpenFileFilters() {
  QStringList every;
  for (const base::FileFormat& format : base::FileFormats()) every << QLatin1String(format.Extension);
  std::vector<DialogFilter> filters{{Texts::tr("All image files"), Patterns(every, QStringLiteral("*."), u';').split(u';')}};
  for (const base::FileFormat* head : base::FormatGroups()) {
    const QStringList group = base::GroupExtensions(*head);
    filters.push_back({browse::FileTypeDescription(QLatin1String(head->Extension)) + QStringLiteral(" (") +
                           Patterns(group, QStringLiteral("*."), u',').replace(u',', QStringLiteral(", ")) + u')',
                       Patterns(group, QStringLiteral("*."), u';').split(u';')});
  }
  filters.push_back({Texts::tr("All files"), {QStringLiteral("*.*")}});
  return filters;
}

std::vector<DialogFilter> SaveAsFilters() {
  std::vector<DialogFilter> filters;
  for (const base::FileFormat* format : base::SaveAsFormats()) {
    filters.push_back({QLatin1String(format->SaveAs), {QStringLiteral("*.") + QLatin1String(format->Extension)}});
  }
  return filters;
}

int SaveAsFilterIndex(const QString& lowerCaseExtension) {
  const base::FileFormat* format = base::FindFileFormat(lowerCaseExtension);
  if (format && format->SavedLike) format = base::FindFileFormat(QLatin1String(format->SavedLike));
  const auto entries = base::SaveAsFormats();
  for (size_t i = 0; format && i < entries.size(); ++i) {
    if (entries[i] == format) return static_cast<int>(i) + 1;
  }
  return 0;
}

QString WithSaveAsExtension(const QString& path, int filterIndex) {
  const auto entries = base::SaveAsFormats();
  if (!QFileInfo(path).suffix().isEmpty() || filterIndex < 1 || filterIndex > int(entries.size())) return path;
  return path + u'.' + QLatin1String(entries[static_cast<size_t>(filterIndex - 1)]->Extension);
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
  const base::FileFormat* format = base::FindFileFormat(lowerCaseExtension);
  return format && !format->Writable;
}

bool IsMarkedReadOnly(const QString& path) {
  const QFileInfo file(path);
  return file.exists() && !(file.permissions() & QFileDevice::WriteOwner);
}

QString DestinationReadOnlyNote(const QString& path) {
  return IsMarkedReadOnly(path) ? Texts::tr(". Destination file is as marked as read-only") : QString();
}

QString ReadOnlyNote(const QString& path) {
  return IsMarkedReadOnly(path) ? Texts::tr(". File is marked as read-only") : QString();
}

}  // namespace files
