#pragma once
// Whether a folder chosen in the Open Folder dialog can be opened: it must be named, exist,
// and hold at least one image file.

#include <QString>

namespace browse {

// True when the folder holds at least one file with an image extension of the scan's
// table or "jpe", whatever the "image extensions only" setting says.
bool FolderHasImages(const QString& folder);

enum class FolderProblem { None, NothingChosen, NotFound, NoImages };

struct FolderChoice {
  QString Folder;  // trimmed, without trailing separators; absolute once found
  FolderProblem Problem = FolderProblem::None;
};

FolderChoice CheckFolderChoice(const QString& candidate);

// "Please select a folder", "Folder not found", "No image found"; empty for None.
QString FolderProblemMessage(FolderProblem problem);

}  // namespace browse
