#include "document/SaveChanges.h"

#include "base/Paths.h"

namespace document {

QString SaveChangesQuestion(const QString& fileName) {
  return u'\'' + base::FileNamePart(fileName) + QStringLiteral("' has changed. Do you want to save changes?");
}

}  // namespace document
