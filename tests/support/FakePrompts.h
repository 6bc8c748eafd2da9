#pragma once
// The document's questions answered without dialogs, and what it said recorded; waiting
// is the window's own, so Esc and the window's timers work as they do there.
#include "document/Document.h"
#include "widgets/WaitForWork.h"

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
  bool WaitFor(const QFuture<void>& work, std::atomic_bool& cancel) override { return widgets::WaitForWork(work, cancel); }
  QStringList reloads;
  bool reloadAnswer = false;
  bool AskToReload(const QString& question) override {
    reloads << question;
    return reloadAnswer;
  }
};

}  // namespace testing_support
