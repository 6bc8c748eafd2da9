#pragma once
// Keeps the pictures' screen colours in step with the window: the profile colord or the
// display holds for the monitor the window is on, else the file chosen in Options, else sRGB;
// or no management at all when Options says so. Looked at again every two seconds (a
// colour manager changing the display's profile, the window moved to another monitor) and
// whenever Options are accepted.

#include "settings/SettingsStore.h"
#include "shell/ScreenProfile.h"

#include <QObject>
#include <QTimer>

class QWidget;

namespace app {

class ScreenColourTracker : public QObject {
  Q_OBJECT

 public:
  ScreenColourTracker(const QWidget& window, const settings::SettingsStore& settings);

  // Reads the display and the settings again; Changed when the screen's colours differ.
  void Refresh();
  // "Adobe RGB (1998), from the display", for Options.
  QString InUse() const;

 Q_SIGNALS:
  void Changed();

 private:
  int Monitor() const;
  std::pair<QByteArray, shell::ScreenProfileSource> ScreenProfile();

  const QWidget& window_;
  const settings::SettingsStore& settings_;
  shell::ScreenProfileSource source_ = shell::ScreenProfileSource::Standard;
  shell::ProfileFile colordFile_, chosenFile_;
  QTimer poll_;
};

}  // namespace app
