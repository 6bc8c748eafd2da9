#include "app/CommandTable.h"

#include <QIcon>
#include <QMenu>
#include <QToolBar>

namespace app {

namespace {

// The desktop theme's icon, or the bundled one of the same name.
QIcon ThemedIcon(const char* name) {
  const QString themeName = QLatin1String(name);
  return QIcon::fromTheme(themeName, QIcon(QStringLiteral(":/icons/") + themeName + QStringLiteral(".svg")));
}

}  // namespace

QAction* CommandTable::Declare(const Command& command, CommandRules rules) {
  auto* action = new QAction(command.Caption, owner_);
  action->setObjectName(QLatin1String(command.Name));
  QList<QKeySequence> shortcuts;
  for (const QKeyCombination key : {command.Shortcut, command.AlternateShortcut}) {
    if (key.key() != Qt::Key_unknown) shortcuts << QKeySequence(key);
  }
  action->setShortcuts(shortcuts);
  if (command.Icon) action->setIcon(ThemedIcon(command.Icon));
  if (!command.ButtonCaption.isEmpty()) {
    action->setIconText(command.ButtonCaption);
    action->setToolTip(command.ButtonCaption);
  }
  if (rules.Checked) action->setCheckable(true);
  if (!rules.Run) {
    rules.Enabled = [] { return false; };
  } else {
    // A command whose rule says no does nothing, even when triggered from code.
    QObject::connect(action, &QAction::triggered, owner_, [this, run = rules.Run, enabled = rules.Enabled] {
      if (!enabled || enabled()) run();
      Refresh();
    });
  }
  actions_.insert(action->objectName(), action);
  entries_.push_back({action, std::move(rules)});
  return action;
}

void CommandTable::FillMenu(QMenu& menu, const std::vector<const char*>& layout) const {
  QMenu* target = &menu;
  for (const char* item : layout) {
    const QString text = QLatin1String(item);
    if (text == QLatin1String("-")) {
      target->addSeparator();
    } else if (text == QLatin1String("@")) {
      target = &menu;
    } else if (text.startsWith(u'@')) {
      const QString name = text.mid(1);
      target = menu.addMenu(submenus_.value(name));
      target->setObjectName(name);
    } else if (QAction* action = Get(text)) {
      target->addAction(action);
    }
  }
}

void CommandTable::FillToolbar(QToolBar& toolbar, const std::vector<const char*>& layout) const {
  for (const char* name : layout) {
    if (!name) {
      toolbar.addSeparator();
    } else if (QAction* action = Get(QLatin1String(name))) {
      toolbar.addAction(action);
    }
  }
}

void CommandTable::Refresh() const {
  for (const Entry& entry : entries_) {
    const CommandRules& rules = entry.Rules;
    if (rules.Enabled) entry.Action->setEnabled(rules.Enabled());
    if (rules.Checked) entry.Action->setChecked(rules.Checked());
    if (rules.Caption) entry.Action->setText(rules.Caption());
    if (rules.Tooltip) entry.Action->setToolTip(rules.Tooltip());
  }
}

}  // namespace app
