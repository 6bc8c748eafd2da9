#pragma once
// The settings file "Ini.in": a positional text file of CRLF lines (SettingsSchema.h
// declares each), read back by position, with three older layouts migrated on read.

#include "settings/SettingsStore.h"

#include <QByteArray>
#include <QString>

namespace settings {

// The main window's normal (restored) rectangle in pixels and whether it is maximized now.
struct WindowPlacement {
  int Left = 0;
  int Top = 0;
  int Width = 0;
  int Height = 0;
  bool Maximized = false;
};

// False for a path with a line break, which the line-by-line file cannot hold.
bool FitsOnALine(const QString& path);

// The placement that the store describes, for writing without a window.
WindowPlacement PlacementFromSettings(const SettingsStore& store, const base::ScreenMetrics& metrics);

// Overwrites `store` from the file's bytes; an unknown header leaves it untouched.
// Never fails: whatever the bytes, `store` stays usable.
void ReadSettingsText(const QByteArray& bytes, const base::ScreenMetrics& metrics, SettingsStore& store);

// The lines of the current format, each ended by CR LF.
QByteArray WriteSettingsText(const SettingsStore& store, const base::ScreenMetrics& metrics,
                             const WindowPlacement& placement);

// File access: reading a missing or unreadable file keeps the defaults silently;
// writing is atomic (a temporary file renamed over the old one) and reports success.
void ReadSettingsFile(const QString& path, const base::ScreenMetrics& metrics, SettingsStore& store);
bool WriteSettingsFile(const QString& path, const QByteArray& text);

// Where "Ini.in" lives: in the program's folder when that folder is writable
// (portable use), otherwise in `userConfigFolder`/vistrel. An installed program (its
// desktop entry in ../share/applications) never keeps them beside itself, even for root.
QString SettingsFilePath(const QString& programFolder, const QString& userConfigFolder);

// The same for this process.
QString ProgramSettingsPath();

}  // namespace settings
