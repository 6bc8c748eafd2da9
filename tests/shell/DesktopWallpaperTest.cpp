// The wallpaper on each desktop: GNOME's and MATE's real GSettings store (a private keyfile)
// and the command lines of the others.
#include "shell/DesktopWallpaper.h"
#include "shell/Wallpaper.h"
#include "support/TestFiles.h"

#include <QDir>
#include <QUrl>

#include <gtest/gtest.h>

namespace {

using shell::Desktop;
using shell::DesktopWallpaper;

// A private GSettings store and no session bus, so no portal answers.
class PrivateGSettings : public ::testing::Test {
 protected:
  PrivateGSettings() : configHome_(qgetenv("XDG_CONFIG_HOME")) {
    qputenv("GSETTINGS_BACKEND", "keyfile");
    qputenv("XDG_CONFIG_HOME", config_.Path().toUtf8());
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent");
  }
  ~PrivateGSettings() override {
    for (const char* name : {"GSETTINGS_BACKEND", "DBUS_SESSION_BUS_ADDRESS"}) qunsetenv(name);
    qputenv("XDG_CONFIG_HOME", configHome_);
  }
  static QString Get(const QString& schema, const QString& key) {
    return shell::RunProgram(QStringLiteral("gsettings"), {"get", schema, key}).Output.trimmed();
  }
  testing_support::TempFolder config_;
  QByteArray configHome_;
};

TEST_F(PrivateGSettings, GnomeShowsThePictureInBothStylesRemoveTurnsItOffAndMateNamesTheFile) {
  const QString schema = QStringLiteral("org.gnome.desktop.background");
  const QString path = QStringLiteral("/home/ana/.local/share/vistrel/Vistrel Wallpaper.bmp");
  const QString uri = u'\'' + QString::fromUtf8(QUrl::fromLocalFile(path).toEncoded()) + u'\'';
  const DesktopWallpaper gnome(Desktop::Gnome, shell::RunProgram);
  gnome.Set(path);
  EXPECT_EQ(Get(schema, QStringLiteral("picture-uri")), uri);
  EXPECT_EQ(Get(schema, QStringLiteral("picture-uri-dark")), uri);
  gnome.Set(QString());
  EXPECT_EQ(Get(schema, QStringLiteral("picture-options")), QStringLiteral("'none'"));
  EXPECT_EQ(Get(schema, QStringLiteral("picture-uri")), uri);
  gnome.Set(path);  // after a Remove, the picture comes back
  EXPECT_EQ(Get(schema, QStringLiteral("picture-options")), QStringLiteral("'zoom'"));
  DesktopWallpaper(Desktop::Mate, shell::RunProgram).Set(QStringLiteral("/tmp/w.bmp"));
  EXPECT_EQ(Get(QStringLiteral("org.mate.background"), QStringLiteral("picture-filename")), QStringLiteral("'/tmp/w.bmp'"));
}

// With no desktop to take it, vistrel-cli says so, fails and leaves no picture behind.
TEST(DesktopWallpaperCommands, NoDesktopIsAFailureThatLeavesNoFile) {
  testing_support::TempFolder folder;
  const QString picture = folder.WritePng(QStringLiteral("photo.png"));
  const QStringList environment = {"XDG_CURRENT_DESKTOP=", "DBUS_SESSION_BUS_ADDRESS=unix:path=/nonexistent",
                                   "XDG_DATA_HOME=" + folder.MakeFolder(QStringLiteral("data"))};
  for (const QStringList& command : {QStringList{"wallpaper", "set", picture}, QStringList{"wallpaper", "remove"}}) {
    const testing_support::ProgramRun run = testing_support::Run(QStringLiteral(VISTREL_CLI_PATH), command, environment);
    EXPECT_EQ(run.ExitCode, 1) << command.join(u' ').toStdString();
    EXPECT_TRUE(run.Errors.contains(shell::NoDesktopMessage())) << run.Errors.toStdString();
  }
  EXPECT_TRUE(QDir(folder.File(QStringLiteral("data/vistrel"))).entryList(QDir::Files).isEmpty());
}

// What runs on the desktops tried through their own programs, the portal first.
TEST(DesktopWallpaperCommands, PortalPlasmaAndLxqt) {
  struct Case {
    std::optional<Desktop> desktop;
    bool portalAnswers;
    const char* path;
    QStringList expected;  // each program run, in order, and a part of its arguments
  };
  const Case cases[] = {
      {std::nullopt, false, "/w.bmp", {"gdbus portal.Wallpaper.SetWallpaperURI  file:///w.bmp"}},  // refused
      {Desktop::Kde, true, "/w.bmp", {"gdbus portal.Wallpaper.SetWallpaperURI  file:///w.bmp"}},
      {Desktop::Kde, false, "/w.bmp", {"gdbus file:///w.bmp", "gdbus d.writeConfig(\"Image\", \"file:///w.bmp\")"}},
      {Desktop::Kde, false, "", {"gdbus d.wallpaperPlugin = \"org.kde.color\""}},
      {Desktop::Lxqt, false, "/w.bmp", {"gdbus file:///w.bmp", "pcmanfm-qt --set-wallpaper=/w.bmp --wallpaper-mode=zoom"}},
      {Desktop::Lxqt, false, "", {"pcmanfm-qt --wallpaper-mode=color"}},
  };
  for (const Case& c : cases) {
    QStringList ran;
    const bool taken = DesktopWallpaper(c.desktop, [&](const QString& program, const QStringList& arguments) {
      ran << program + u' ' + arguments.join(u' ');
      const bool portal = arguments.contains(QStringLiteral("org.freedesktop.portal.Desktop"));
      return shell::ProcessResult{portal && !c.portalAnswers ? 1 : 0, {}};
    }).Set(QLatin1String(c.path));
    EXPECT_EQ(taken, c.desktop.has_value() || c.portalAnswers);
    ASSERT_EQ(ran.size(), c.expected.size()) << ran.join(u'\n').toStdString();
    for (int i = 0; i < ran.size(); ++i) {
      const QString program = c.expected[i].section(u' ', 0, 0), part = c.expected[i].section(u' ', 1);
      EXPECT_TRUE(ran[i].startsWith(program + u' ') && ran[i].contains(part)) << ran[i].toStdString();
    }
  }
}

}  // namespace
