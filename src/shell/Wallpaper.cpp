#include "shell/Wallpaper.h"

#include "imaging/Saver.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

namespace shell {

QString WallpaperFilePath() {
  const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + QStringLiteral("/vistrel");
  return folder + QStringLiteral("/Vistrel Wallpaper.bmp");
}

bool SetWallpaperPicture(const imaging::Image& picture, const WallpaperSetter& setDesktop) {
  const QString path = WallpaperFilePath();
  QDir().mkpath(QFileInfo(path).path());
  QFile::remove(path);
  if (!imaging::SaveImage(picture.OnWhite(), path)) return false;
  setDesktop(path);
  return true;
}

void RemoveWallpaper(const WallpaperSetter& setDesktop) { setDesktop(QString()); }

}  // namespace shell
