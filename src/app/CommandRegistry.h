#pragma once
// One registry of the window's commands: each QAction is made once, named as the spec
// names it, and its enabled and checked state follow the application state through
// predicates that the command-state refresh re-evaluates.

#include <QAction>
#include <QHash>
#include <QKeySequence>

#include <functional>
#include <vector>

namespace app {

class CommandRegistry {
 public:
  explicit CommandRegistry(QObject* owner) : owner_(owner) {}

  QAction* Add(const QString& name, const QString& caption, const QKeySequence& shortcut = {});
  QAction* Get(const QString& name) const;

  // Without a predicate a command is always enabled; a later predicate replaces an earlier one.
  void EnableWhen(const QString& name, std::function<bool()> predicate);
  void CheckWhen(const QString& name, std::function<bool()> predicate);
  // A command whose Part is not built yet: present, and disabled until it is.
  void NotBuiltYet(const QString& name) {
    EnableWhen(name, [] { return false; });
  }

  // The command-state refresh.
  void Refresh() const;

 private:
  struct Rule {
    QAction* action;
    std::function<bool()> predicate;
  };
  QObject* owner_;
  QHash<QString, QAction*> actions_;
  std::vector<Rule> enabledRules_;
  std::vector<Rule> checkedRules_;
};

}  // namespace app
