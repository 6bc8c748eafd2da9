#include "shell/Wallpaper.h"
#include "base/Texts.h"

#include "imaging/Saver.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

namespace shell {

namespace {

const QString kName = QStringLiteral("Vistrel Wallpaper");

}  // namespace

QString WallpaperFolder() {
  return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + QStringLiteral("/vistrel");
}

QString FreshWallpaperPath() {
  return WallpaperFolder() + u'/' + kName + u' ' + QString::number(QDateTime::currentMSecsSinceEpoch()) + QStringLiteral(".bmp");
}

WallpaperOutcome SetWallpaperPicture(const imaging::Image& picture, const WallpaperSetter& setDesktop) {
  const QDir folder(WallpaperFolder());
  QDir().mkpath(folder.path());
  const QString path = FreshWallpaperPath();
  if (!imaging::SaveImage(picture.OnWhite(), path)) return WallpaperOutcome::NotWritten;
  if (!setDesktop(path)) {
    QFile::remove(path);
    return WallpaperOutcome::NoDesktop;
  }
  for (const QString& older : folder.entryList({kName + QStringLiteral("*.bmp")}, QDir::Files)) {
    if (folder.filePath(older) != path) QFile::remove(folder.filePath(older));
  }
  return WallpaperOutcome::Shown;
}

bool RemoveWallpaper(const WallpaperSetter& setDesktop) { return setDesktop(QString()); }

QString NoDesktopMessage() { return Texts::tr("No supported desktop was found to set the wallpaper on"); }

}  // namespace shell
