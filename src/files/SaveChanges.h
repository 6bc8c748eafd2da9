#pragma once
// ConfirmSaveChanges of Part 5.1: the question asked before the current image is
// closed or replaced while it has unsaved changes.

#include "app/AppState.h"

#include <QString>

#include <functional>

namespace files {

enum class SaveChangesAnswer { Yes, No, Cancel };

// "'" + name + "' has changed. Do you want to save changes?"
QString SaveChangesQuestion(const QString& fileName);

struct SaveChangesHooks {
  std::function<SaveChangesAnswer(const QString& question)> Ask;  // titled "Save Changes"
  std::function<bool()> Save;                                     // true when the save succeeded
};

// Asks only when the image has changed and something is open (`fileName` not empty).
// Returns false when the caller must stop: Cancel, or Yes with a save that failed.
bool ConfirmSaveChanges(app::AppState& state, const QString& fileName, const SaveChangesHooks& hooks);

}  // namespace files
