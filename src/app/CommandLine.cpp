#include "app/CommandLine.h"

#include "app/Vb.h"
#include "browse/Paths.h"

namespace app {

QString JoinArguments(const QStringList& argumentsAfterProgram) { return argumentsAfterProgram.join(u' '); }

QString CommandLinePath(const QString& commandLine) {
  QString path = vb::Trim(commandLine);
  if (!path.isEmpty()) {
    if (path.startsWith(u'"')) path = vb::Trim(path.mid(1));
    if (path.endsWith(u'"')) path = vb::Trim(path.chopped(1));
  }
  return browse::StripTrailingBackslashes(path);
}

}  // namespace app
