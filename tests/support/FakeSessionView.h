#pragma once
// A SessionView without widgets that records what the session asked of it.
#include "app/Session.h"

#include <QStringList>

namespace testing_support {

class FakeSessionView : public app::SessionView {
 public:
  QStringList messages;
  bool answerSaveChanges = true;
  int selectedRow = -2;
  int openFolderCommands = 0;
  bool imageShown = false;
  int editedImagesShown = 0;
  bool selectionRemoved = false;

  void ShowExclamation(const QString& text) override { messages << text; }
  bool ConfirmSaveChanges() override { return answerSaveChanges; }
  void LayOut() override {}
  void ApplyViewChecks() override {}
  void RefreshStatusBar(const QString&) override {}
  void SelectListRow(int row) override { selectedRow = row; }
  void FitListColumn() override {}
  void ShowImage(const imaging::Image* image) override { imageShown = image != nullptr; }
  void RunOpenFolderCommand() override { ++openFolderCommands; }
  void ShowEditedImage(const imaging::Image&, bool removeSelection) override {
    ++editedImagesShown;
    selectionRemoved = removeSelection;
  }
  void UpdateUndoCaptions() override {}
};

}  // namespace testing_support
