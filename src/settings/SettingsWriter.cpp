// Writing "Ini.in" and where it lives.
#include "settings/SettingsFile.h"
#include "base/NumberRules.h"
#include "base/Paths.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>

#include <charconv>

namespace settings {

namespace {

QString Number(std::int64_t value) { return QString::number(value); }
QString Flag(bool value) { return value ? QStringLiteral("1") : QStringLiteral("0"); }

// The shortest decimal form of a Single, with a point: 0.7f is written "0.7".
QString SingleText(float value) {
  char buffer[32];
  const auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
  return QString::fromLatin1(buffer, result.ptr - buffer);
}

int Pixels(float twips, float twipsPerPixel) { return numbers::RoundToInt32(twips / twipsPerPixel).value_or(0); }

}  // namespace

bool FitsOnALine(const QString& path) { return !path.contains(u'\n') && !path.contains(u'\r'); }

WindowPlacement PlacementFromSettings(const SettingsStore& s, const base::ScreenMetrics& m) {
  return {Pixels(s.WindowLeft, m.TwipsPerPixelX), Pixels(s.WindowTop, m.TwipsPerPixelY),
          Pixels(s.WindowWidth, m.TwipsPerPixelX), Pixels(s.WindowHeight, m.TwipsPerPixelY),
          s.WindowMaximized};
}

QByteArray WriteSettingsText(const SettingsStore& s, const base::ScreenMetrics& m, const WindowPlacement& w) {
  QStringList lines = {QStringLiteral("Vistrel 6.2"), {}, QStringLiteral("Window")};
  lines << Number(w.Left) << Number(w.Top) << Number(w.Width) << Number(w.Height) << Flag(w.Maximized);
  lines << Number(numbers::RoundedDiv(s.SplitterPos, m.TwipsPerPixelX).value_or(0));
  const QString openPath = s.LastOpenKind == kOpenFile     ? s.LastFile
                           : s.LastOpenKind == kOpenFolder ? s.LastFolder
                                                           : QString();
  // A path with a line break would shift every later line: it is not kept.
  const bool openPathFits = FitsOnALine(openPath);
  lines << QString() << QStringLiteral("File") << Number(openPathFits ? s.LastOpenKind : kOpenNothing);
  lines << (openPathFits ? openPath : QString()) << QString() << QStringLiteral("Recent folders");
  for (const QString& folder : s.RecentFolders) lines << (FitsOnALine(folder) ? folder : QString());
  lines << QString() << QStringLiteral("Print");
  for (const float margin : s.PrintMargins) lines << SingleText(margin);
  lines << Number(s.PrintUnits) << QString() << QStringLiteral("Options");
  lines << Number(s.StartOption) << Flag(s.ImageExtensionsOnly) << Flag(s.RecentEnabled)
        << Flag(s.ConfirmDelete) << Number(s.ColorImage) << Number(s.ColorThumbnails)
        << Number(s.ColorFullScreen) << Flag(s.ShowToolbar) << Flag(s.ShowStatusBar)
        << Flag(s.FitToWindow) << Number(s.FileTypeIcon) << Flag(s.EnlargeSmallImages);
  QByteArray text;
  for (const QString& line : lines) text += line.toUtf8() + "\r\n";
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
