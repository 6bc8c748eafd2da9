#include "shell/DesktopWallpaper.h"

#include <QProcess>
#include <QUrl>

namespace shell {

namespace {

const QString kGSettings = QStringLiteral("gsettings");
const QString kXfconf = QStringLiteral("xfconf-query");

QString FileUri(const QString& path) { return QString::fromUtf8(QUrl::fromLocalFile(path).toEncoded()); }

// A JavaScript string literal.
QString Quoted(const QString& text) {
  QString quoted = text;
  quoted.replace(u'\\', QStringLiteral("\\\\")).replace(u'"', QStringLiteral("\\\""));
  return u'"' + quoted + u'"';
}

}  // namespace

std::optional<Desktop> DesktopFromName(const QString& xdgCurrentDesktop) {
  for (const QString& name : xdgCurrentDesktop.split(u':', Qt::SkipEmptyParts)) {
    const QString n = name.toLower();
    if (n == u"gnome" || n == u"unity" || n == u"budgie" || n == u"ubuntu") return Desktop::Gnome;
    if (n == u"x-cinnamon" || n == u"cinnamon") return Desktop::Cinnamon;
    if (n == u"mate") return Desktop::Mate;
    if (n == u"xfce") return Desktop::Xfce;
    if (n == u"kde") return Desktop::Kde;
    if (n == u"lxqt") return Desktop::Lxqt;
  }
  return std::nullopt;
}

ProcessResult RunProgram(const QString& program, const QStringList& arguments) {
  QProcess process;
  process.start(program, arguments);
  if (!process.waitForFinished(10000) || process.exitStatus() != QProcess::NormalExit) {
    process.kill();
    process.waitForFinished();
    return {};
  }
  return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput())};
}

bool DesktopWallpaper::Set(const QString& path) const {
  if (!path.isEmpty() && SetThroughPortal(path)) return true;
  if (!desktop_) return false;
  switch (*desktop_) {
    case Desktop::Gnome:
      return SetThroughGSettings(QStringLiteral("org.gnome.desktop.background"), path);
    case Desktop::Cinnamon:
      return SetThroughGSettings(QStringLiteral("org.cinnamon.desktop.background"), path);
    case Desktop::Mate:
      return SetThroughGSettings(QStringLiteral("org.mate.background"), path);
    case Desktop::Xfce:
      return SetThroughXfconf(path);
    case Desktop::Kde:
      return SetThroughPlasma(path);
    case Desktop::Lxqt:
      return SetThroughPcmanfm(path);
  }
  return false;
}

// The portal shows no preview and sets the background only; it has no way to remove one.
bool DesktopWallpaper::SetThroughPortal(const QString& path) const {
  const ProcessResult result =
      run_(QStringLiteral("gdbus"),
           {"call", "--session", "--timeout", "5", "--dest", "org.freedesktop.portal.Desktop", "--object-path",
            "/org/freedesktop/portal/desktop", "--method", "org.freedesktop.portal.Wallpaper.SetWallpaperURI", "",
            FileUri(path), "{'show-preview': <false>, 'set-on': <'background'>}"});
  return result.ExitCode == 0;
}

// MATE names a file, the others a URI; removing sets the picture options to "none". A
// later Set brings the picture back zoomed.
bool DesktopWallpaper::SetThroughGSettings(const QString& schema, const QString& path) const {
  const auto set = [&](const QString& key, const QString& value) {
    return run_(kGSettings, {"set", schema, key, value}).ExitCode == 0;
  };
  if (path.isEmpty()) return set(QStringLiteral("picture-options"), QStringLiteral("none"));
  if (desktop_ == Desktop::Mate) {
    if (!set(QStringLiteral("picture-filename"), path)) return false;
  } else {
    if (!set(QStringLiteral("picture-uri"), FileUri(path))) return false;
    const ProcessResult keys = run_(kGSettings, {"list-keys", schema});
    if (keys.Output.split(u'\n').contains(QStringLiteral("picture-uri-dark"))) set(QStringLiteral("picture-uri-dark"), FileUri(path));
  }
  const ProcessResult options = run_(kGSettings, {"get", schema, "picture-options"});
  if (options.ExitCode == 0 && options.Output.trimmed() == QStringLiteral("'none'")) {
    set(QStringLiteral("picture-options"), QStringLiteral("zoom"));
  }
  return true;
}

// Every monitor and workspace has its own picture (".../last-image") and style
// (".../image-style", 0 for none, 5 for zoomed). A desktop that has never had a wallpaper
// gets the first monitor's first workspace.
bool DesktopWallpaper::SetThroughXfconf(const QString& path) const {
  const QString channel = QStringLiteral("xfce4-desktop");
  QStringList images;
  const ProcessResult listed = run_(kXfconf, {"-c", channel, "-l"});
  if (listed.ExitCode < 0) return false;  // no xfconf to ask
  for (const QString& property : listed.Output.split(u'\n', Qt::SkipEmptyParts)) {
    if (property.startsWith(QStringLiteral("/backdrop/")) && property.endsWith(QStringLiteral("/last-image"))) images << property;
  }
  if (images.isEmpty()) images << QStringLiteral("/backdrop/screen0/monitor0/workspace0/last-image");
  bool taken = true;
  for (const QString& image : images) {
    const QString style = image.chopped(QStringLiteral("last-image").size()) + QStringLiteral("image-style");
    if (!path.isEmpty()) taken = run_(kXfconf, {"-c", channel, "-p", image, "-n", "-t", "string", "-s", path}).ExitCode == 0 && taken;
    run_(kXfconf, {"-c", channel, "-p", style, "-n", "-t", "int", "-s", path.isEmpty() ? "0" : "5"});
  }
  return taken;
}

// Plasma's desktop script: the image plugin with the picture, or the plain colour plugin.
bool DesktopWallpaper::SetThroughPlasma(const QString& path) const {
  const QString perDesktop =
      path.isEmpty() ? QStringLiteral("d.wallpaperPlugin = \"org.kde.color\";")
                     : QStringLiteral("d.wallpaperPlugin = \"org.kde.image\"; "
                                      "d.currentConfigGroup = [\"Wallpaper\", \"org.kde.image\", \"General\"]; "
                                      "d.writeConfig(\"Image\", %1);")
                           .arg(Quoted(FileUri(path)));
  const QString script =
      QStringLiteral("var all = desktops(); for (var i = 0; i < all.length; i++) { var d = all[i]; %1 }").arg(perDesktop);
  return run_(QStringLiteral("gdbus"), {"call", "--session", "--dest", "org.kde.plasmashell", "--object-path",
                                        "/PlasmaShell", "--method", "org.kde.PlasmaShell.evaluateScript", script})
             .ExitCode == 0;
}

bool DesktopWallpaper::SetThroughPcmanfm(const QString& path) const {
  const QStringList arguments = path.isEmpty() ? QStringList{"--wallpaper-mode=color"}
                                               : QStringList{"--set-wallpaper=" + path, "--wallpaper-mode=zoom"};
  return run_(QStringLiteral("pcmanfm-qt"), arguments).ExitCode == 0;
}

bool SetDesktopWallpaper(const QString& path) {
  return DesktopWallpaper(DesktopFromName(qEnvironmentVariable("XDG_CURRENT_DESKTOP")), RunProgram).Set(path);
}

}  // namespace shell
