#include "app/ScreenColourTracker.h"

#include "imaging/Image.h"

#include <QFile>
#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

namespace app {

namespace {

constexpr int kPollMilliseconds = 2000;
constexpr qint64 kLargestProfile = qint64(4) << 20;

QByteArray ProfileInFile(const QString& path) {
  QFile file(path);
  if (path.isEmpty() || !file.open(QIODevice::ReadOnly) || file.size() > kLargestProfile) return {};
  return file.readAll();
}

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

void ScreenColourTracker::Refresh() {
  imaging::ScreenColour colour;
  colour.Managed = settings_.ColourManaged;
  colour.Perceptual = settings_.PerceptualIntent;
  colour.Profile = shell::X11MonitorProfile(Monitor());
  source_ = shell::ScreenProfileSource::Display;
  if (colour.Profile.isEmpty()) {
    colour.Profile = ProfileInFile(settings_.ScreenProfileFile);
    source_ = colour.Profile.isEmpty() ? shell::ScreenProfileSource::Standard : shell::ScreenProfileSource::ChosenFile;
  }
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
