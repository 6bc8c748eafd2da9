#pragma once
// The desktop wallpaper on the Linux desktops. The XDG desktop portal is asked first;
// when no portal answers, the desktop named by XDG_CURRENT_DESKTOP is set through its own
// settings store: GSettings for GNOME, Unity, Budgie, Cinnamon and MATE, xfconf for Xfce
// (every monitor and workspace), Plasma's scripting interface for KDE, and pcmanfm-qt for
// LXQt. Each store is changed through its own command-line tool, so what is written is
// exactly what a user of that desktop could type.

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

namespace shell {

enum class Desktop { Gnome, Cinnamon, Mate, Xfce, Kde, Lxqt };

// The first desktop of the colon-separated list that we know; nothing for any other.
std::optional<Desktop> DesktopFromName(const QString& xdgCurrentDesktop);

struct ProcessResult {
  int ExitCode = -1;  // -1 when the program could not run or timed out
  QString Output;
};
using RunProcess = std::function<ProcessResult(const QString& program, const QStringList& arguments)>;

// Runs a program and waits up to ten seconds for it.
ProcessResult RunProgram(const QString& program, const QStringList& arguments);

class DesktopWallpaper {
 public:
  DesktopWallpaper(std::optional<Desktop> desktop, RunProcess run) : desktop_(desktop), run_(std::move(run)) {}

  // Shows the picture at path as the wallpaper; an empty path removes the wallpaper. A
  // desktop that refuses leaves its wallpaper as it was. False when neither the portal nor
  // a desktop we know took it.
  bool Set(const QString& path) const;

 private:
  bool SetThroughPortal(const QString& path) const;
  bool SetThroughGSettings(const QString& schema, const QString& path) const;
  bool SetThroughXfconf(const QString& path) const;
  bool SetThroughPlasma(const QString& path) const;
  bool SetThroughPcmanfm(const QString& path) const;

  std::optional<Desktop> desktop_;
  RunProcess run_;
};

// The desktop of this session, changed through real programs.
bool SetDesktopWallpaper(const QString& path);

}  // namespace shell
