#pragma once
// The question asked before an image with unsaved changes is closed or replaced.

#include <QString>

namespace document {

enum class SaveChangesAnswer { Yes, No, Cancel };

// "'" + name + "' has changed. Do you want to save changes?"
QString SaveChangesQuestion(const QString& fileName);

}  // namespace document
