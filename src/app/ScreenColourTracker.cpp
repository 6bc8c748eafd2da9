#include "app/ScreenColourTracker.h"

#include "imaging/Image.h"
#include "shell/Colord.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

#include <tuple>

namespace app {

namespace {

constexpr int kPollMilliseconds = 2000;

}  // namespace

ScreenColourTracker::ScreenColourTracker(const QWidget& window, const settings::SettingsStore& settings)
    : window_(window), settings_(settings) {
  connect(&poll_, &QTimer::timeout, this, &ScreenColourTracker::Refresh);
  poll_.start(kPollMilliseconds);
}

int ScreenColourTracker::Monitor() const {
  const QList<QScreen*> screens = QGuiApplication::screens();
  return std::max<int>(0, int(screens.indexOf(window_.screen())));
}

// colord's profile for the output the window is on, else the one the X11 display
// publishes for its monitor, else the file chosen in Options, else none (sRGB).
std::pair<QByteArray, shell::ScreenProfileSource> ScreenColourTracker::ScreenProfile() {
  using shell::ScreenProfileSource;
  const QScreen* screen = window_.screen();
  if (const QByteArray& profile = colordFile_.Read(screen ? shell::ColordDisplayProfileFile(screen->name()) : QString());
      !profile.isEmpty()) {
    return {profile, ScreenProfileSource::Colord};
  }
  if (QByteArray profile = shell::X11MonitorProfile(Monitor()); !profile.isEmpty()) return {profile, ScreenProfileSource::Display};
  if (const QByteArray& profile = chosenFile_.Read(settings_.ScreenProfileFile); !profile.isEmpty()) {
    return {profile, ScreenProfileSource::ChosenFile};
  }
  return {{}, ScreenProfileSource::Standard};
}

void ScreenColourTracker::Refresh() {
  imaging::ScreenColour colour;
  colour.Managed = settings_.ColourManaged;
  colour.Perceptual = settings_.PerceptualIntent;
  std::tie(colour.Profile, source_) = ScreenProfile();
  if (colour == imaging::CurrentScreenColour()) return;
  imaging::SetScreenColour(colour);
  Q_EMIT Changed();
}

QString ScreenColourTracker::InUse() const {
  const QByteArray profile = imaging::CurrentScreenColour().Profile;
  const QString name = profile.isEmpty() ? QStringLiteral("sRGB") : imaging::DescribeProfile(profile);
  return source_ == shell::ScreenProfileSource::Standard ? shell::DescribeSource(source_)
                                                          : name + QStringLiteral(", ") + shell::DescribeSource(source_);
}

}  // namespace app
