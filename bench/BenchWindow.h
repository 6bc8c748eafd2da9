#pragma once
// What the window benchmarks share: files made once and kept in the user's cache, and the
// main window as a user has it (fresh settings, fitted, 1280 x 800, shown).

#include "app/frmMain.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <functional>

namespace bench {

// The cache folder `name`, made by `make` unless it already holds `marker`; empty on failure.
inline QString CachedFiles(const QString& name, const QString& marker, const std::function<bool(const QString& folder)>& make) {
  const QString cache = QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) + u'/' + name;
  if (QFile::exists(cache + u'/' + marker)) return cache;
  return QDir().mkpath(cache) && make(cache) ? cache : QString();
}

struct FittedWindow {
  FittedWindow() {
    window.RunStartup(QString());
    window.State().Settings.FitToWindow = true;
    window.resize(1280, 800);
    window.show();
  }
  QTemporaryDir config;
  app::frmMain window{config.filePath(QStringLiteral("Ini.in"))};
};

}  // namespace bench
