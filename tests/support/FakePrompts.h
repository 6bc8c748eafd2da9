#pragma once
// The document's questions answered without widgets, and what it said recorded.
#include "document/Document.h"

#include <QStringList>

namespace testing_support {

class FakePrompts : public document::DocumentPrompts {
 public:
  QStringList messages;
  QStringList questions;
  document::SaveChangesAnswer answer = document::SaveChangesAnswer::No;
  bool saveSucceeds = true;
  int saves = 0;

  QStringList details;
  void ShowExclamation(const QString& text, const QString& detail) override {
    messages << text;
    details << detail;
  }
  document::SaveChangesAnswer AskSaveChanges(const QString& question) override {
    questions << question;
    return answer;
  }
  bool SaveForPrompt() override {
    ++saves;
    return saveSucceeds;
  }
};

}  // namespace testing_support
