#include "browse/FolderChoice.h"
#include "base/Texts.h"
#include "base/FileFormats.h"

#include "base/NumberRules.h"
#include "base/Paths.h"
#include "browse/FileTypes.h"

#include <QDir>
#include <QDirIterator>

namespace browse {

bool FolderHasImages(const QString& folder) {
  QDirIterator files(folder, QDir::Files | QDir::Hidden);
  while (files.hasNext()) {
    const QString extension = base::FileExtension(files.next());
    if (base::FindFileFormat(extension)) return true;  // every known type, jpe included
  }
  return false;
}

FolderChoice CheckFolderChoice(const QString& candidate) {
  const QString trimmed = numbers::TrimBlanks(candidate);
  if (trimmed.isEmpty()) return {trimmed, FolderProblem::NothingChosen};
  QString folder = base::StripTrailingBackslashes(trimmed);
  if (!base::FolderExists(folder)) return {folder, FolderProblem::NotFound};
  folder = QDir::cleanPath(QDir(folder).absolutePath());  // kept in the settings: it must not depend on where we started
  if (!FolderHasImages(folder)) return {folder, FolderProblem::NoImages};
  return {folder, FolderProblem::None};
}

QString FolderProblemMessage(FolderProblem problem) {
  switch (problem) {
    case FolderProblem::NothingChosen: return Texts::tr("Please select a folder");
    case FolderProblem::NotFound: return Texts::tr("Folder not found");
    case FolderProblem::NoImages: return Texts::tr("No image found");
    case FolderProblem::None: break;
  }
  return {};
}

}  // namespace browse
