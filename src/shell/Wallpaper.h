#pragma once
// The one wallpaper file, "Vistrel Wallpaper.bmp" in the per-user data folder
// ($XDG_DATA_HOME/vistrel/), replaced on every Set, and the two wallpaper commands that
// the viewer and vistrel-cli share.

#include "imaging/Image.h"

#include <QString>

#include <functional>

namespace shell {

// Changes the desktop's wallpaper to the file at path; an empty path removes it.
using WallpaperSetter = std::function<void(const QString& path)>;

QString WallpaperFilePath();

// Writes the picture as the wallpaper file (any older one is deleted first) and shows it.
// False when the file could not be written: the desktop then stays as it was.
bool SetWallpaperPicture(const imaging::Image& picture, const WallpaperSetter& setDesktop);

// Takes the wallpaper away; the file stays where it is.
void RemoveWallpaper(const WallpaperSetter& setDesktop);

}  // namespace shell
