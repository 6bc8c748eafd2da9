#include "document/CommandLine.h"

#include "base/NumberRules.h"
#include "base/Paths.h"

#include <QDir>
#include <QUrl>

namespace document {

QString JoinArguments(const QStringList& argumentsAfterProgram) { return argumentsAfterProgram.join(u' '); }

QString CommandLinePath(const QString& commandLine) {
  QString path = numbers::TrimBlanks(commandLine);
  if (!path.isEmpty()) {
    if (path.startsWith(u'"')) path = numbers::TrimBlanks(path.mid(1));
    if (path.endsWith(u'"')) path = numbers::TrimBlanks(path.chopped(1));
  }
  return base::StripTrailingBackslashes(path);
}

QString ResolveCommandLinePath(const QString& path, const QString& workingFolder) {
  if (path.isEmpty()) return path;
  QString local = path;
  if (path.startsWith(QLatin1String("file://"), Qt::CaseInsensitive)) local = QUrl(path).toLocalFile();
  return base::StripTrailingBackslashes(QDir::cleanPath(QDir(workingFolder).absoluteFilePath(local)));
}

}  // namespace document
