#pragma once
// The window's commands, each declared once: its name, caption, shortcut, toolbar icon
// and caption, what it does, and the rules for its enabled state, check mark and
// changing caption. Menus, the list's context menu and the toolbar are built from the
// table by name, so one QAction serves them all. Refresh() re-reads every rule; the
// window calls it when the document or the view says something changed, and the table
// calls it after every command it runs.

#include <QAction>
#include <QHash>
#include <QKeySequence>
#include <QString>

#include <functional>
#include <vector>

class QMenu;
class QToolBar;

namespace app {

struct Command {
  const char* Name;
  QString Caption;
  QKeyCombination Shortcut = {};
  const char* Icon = nullptr;  // a freedesktop icon name, for the toolbar
  QString ButtonCaption = {};  // the toolbar button's caption
  QKeyCombination AlternateShortcut = {};
};

struct CommandRules {
  std::function<void()> Run = {};       // none: not available yet, so always disabled
  std::function<bool()> Enabled = {};   // none: enabled whenever it can run
  std::function<bool()> Checked = {};   // none: not checkable
  std::function<QString()> Caption = {};  // none: the declared caption stays
  std::function<QString()> Tooltip = {};
};

class CommandTable {
 public:
  explicit CommandTable(QObject* owner) : owner_(owner) {}

  QAction* Declare(const Command& command, CommandRules rules = {});
  QAction* Get(const QString& name) const { return actions_.value(name); }
  void DeclareSubmenu(const char* name, const QString& caption) { submenus_.insert(QLatin1String(name), caption); }

  // Fills a menu from names in order; "-" is a separator, "@Name" a declared submenu
  // whose entries follow until "@".
  void FillMenu(QMenu& menu, const std::vector<const char*>& layout) const;
  // Fills the toolbar with the named commands' icons and button captions; nullptr is a
  // separator.
  void FillToolbar(QToolBar& toolbar, const std::vector<const char*>& layout) const;

  void Refresh() const;

 private:
  struct Entry {
    QAction* Action;
    CommandRules Rules;
  };
  QObject* owner_;
  QHash<QString, QAction*> actions_;
  QHash<QString, QString> submenus_;
  std::vector<Entry> entries_;
};

}  // namespace app
