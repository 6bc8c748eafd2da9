#include "app/CommandRegistry.h"

namespace app {

QAction* CommandRegistry::Add(const QString& name, const QString& caption, const QKeySequence& shortcut) {
  auto* action = new QAction(caption, owner_);
  action->setObjectName(name);
  if (!shortcut.isEmpty()) action->setShortcut(shortcut);
  actions_.insert(name, action);
  return action;
}

QAction* CommandRegistry::Get(const QString& name) const { return actions_.value(name); }

void CommandRegistry::EnableWhen(const QString& name, std::function<bool()> predicate) {
  QAction* action = Get(name);
  for (Rule& rule : enabledRules_) {
    if (rule.action == action) {
      rule.predicate = std::move(predicate);
      return;
    }
  }
  enabledRules_.push_back({action, std::move(predicate)});
}

void CommandRegistry::CheckWhen(const QString& name, std::function<bool()> predicate) {
  QAction* action = Get(name);
  action->setCheckable(true);
  checkedRules_.push_back({action, std::move(predicate)});
}

void CommandRegistry::Refresh() const {
  for (const Rule& rule : enabledRules_) rule.action->setEnabled(rule.predicate());
  for (const Rule& rule : checkedRules_) rule.action->setChecked(rule.predicate());
}

}  // namespace app
