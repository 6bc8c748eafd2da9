#pragma once
// The wallpaper file in the per-user data folder ($XDG_DATA_HOME/vistrel/), written under
// a fresh name on every Set ("Vistrel Wallpaper 1732533000123.bmp"), since some desktops do
// not look again at a picture whose name has not changed; and the two wallpaper commands
// that the viewer and vistrel-cli share.

#include "imaging/Image.h"

#include <QString>

#include <functional>

namespace shell {

// Changes the desktop's wallpaper to the file at path; an empty path removes it. False
// when no desktop took it.
using WallpaperSetter = std::function<bool(const QString& path)>;

QString WallpaperFolder();
// The name the next picture is written under (also what a failure to write names).
QString FreshWallpaperPath();

enum class WallpaperOutcome { Shown, NotWritten, NoDesktop };

// Writes the picture under a fresh name and shows it; once the desktop shows it, the older
// pictures are removed. When the file cannot be written or no desktop takes it, the desktop
// stays as it was and no new file is left behind.
WallpaperOutcome SetWallpaperPicture(const imaging::Image& picture, const WallpaperSetter& setDesktop);

// Takes the wallpaper away; the file stays where it is. False when no desktop took it.
bool RemoveWallpaper(const WallpaperSetter& setDesktop);

// "No supported desktop was found to set the wallpaper on"
QString NoDesktopMessage();

}  // namespace shell
