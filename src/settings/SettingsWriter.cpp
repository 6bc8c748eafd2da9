// Writing "Ini.in" and where it lives.
#include "settings/SettingsFile.h"
#include "settings/SettingsSchema.h"
#include "base/NumberRules.h"
#include "base/Paths.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>


namespace settings {

namespace {

int Pixels(float twips, float twipsPerPixel) { return numbers::RoundToInt32(twips / twipsPerPixel).value_or(0); }

}  // namespace

bool FitsOnALine(const QString& path) { return !path.contains(u'\n') && !path.contains(u'\r'); }

WindowPlacement PlacementFromSettings(const SettingsStore& s, const base::ScreenMetrics& m) {
  return {Pixels(s.WindowLeft, m.TwipsPerPixelX), Pixels(s.WindowTop, m.TwipsPerPixelY),
          Pixels(s.WindowWidth, m.TwipsPerPixelX), Pixels(s.WindowHeight, m.TwipsPerPixelY),
          s.WindowMaximized};
}

QByteArray WriteSettingsText(const SettingsStore& s, const base::ScreenMetrics& m, const WindowPlacement& w) {
  QByteArray text;
  for (const SettingsLine& line : SettingsLines()) text += line.Write(s, m, w).toUtf8() + "\r\n";
  return text;
}

void ReadSettingsFile(const QString& path, const base::ScreenMetrics& metrics, SettingsStore& store) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return;
  constexpr qint64 kLargestSensibleFile = 1 << 20;  // 56 lines of paths; anything larger is not ours
  ReadSettingsText(file.read(kLargestSensibleFile), metrics, store);
}

bool WriteSettingsFile(const QString& path, const QByteArray& text) {
  QDir().mkpath(QFileInfo(path).absolutePath());
  QSaveFile file(path);
  if (!file.open(QIODevice::WriteOnly)) return false;
  file.write(text);
  return file.commit();
}

QString SettingsFilePath(const QString& programFolder, const QString& userConfigFolder) {
  const QFileInfo folder(programFolder);
  const bool installed = QFileInfo::exists(programFolder + QStringLiteral("/../share/applications/vistrel.desktop"));
  if (folder.isDir() && folder.isWritable() && !installed) return base::JoinPath(programFolder, QStringLiteral("Ini.in"));
  return base::JoinPath(base::JoinPath(userConfigFolder, QStringLiteral("vistrel")), QStringLiteral("Ini.in"));
}

QString ProgramSettingsPath() {
  return SettingsFilePath(QCoreApplication::applicationDirPath(),
                          QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation));
}

}  // namespace settings
