#include "files/SaveChanges.h"

#include "browse/Paths.h"

namespace files {

QString SaveChangesQuestion(const QString& fileName) {
  return u'\'' + browse::FileNamePart(fileName) + QStringLiteral("' has changed. Do you want to save changes?");
}

bool ConfirmSaveChanges(app::AppState& state, const QString& fileName, const SaveChangesHooks& hooks) {
  if (state.ChangeLevel == 0 || state.Settings.LastOpenKind == app::kOpenNothing || fileName.isEmpty()) {
    return true;
  }
  switch (hooks.Ask(SaveChangesQuestion(fileName))) {
    case SaveChangesAnswer::No:
      state.ChangeLevel = 0;
      return true;
    case SaveChangesAnswer::Yes: {
      state.DialogCancelled = false;
      // A failed save keeps ChangeLevel (Part 5.1's failure handling), so the image is
      // never left without the question.
      const bool saved = hooks.Save && hooks.Save();
      state.DialogCancelled = !saved;
      if (saved) state.ChangeLevel = 0;
      return saved;
    }
    case SaveChangesAnswer::Cancel:
      break;
  }
  return false;
}

}  // namespace files
