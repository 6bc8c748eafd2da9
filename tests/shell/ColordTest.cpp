// The screen's profile from colord, asked on a bus of the test's own where a stand-in
// colord answers as the real one does (object paths, "ao" properties, errors).
#include "shell/Colord.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusContext>
#include <QDBusObjectPath>
#include <QProcess>
#include <QThread>

#include <gtest/gtest.h>

#include <map>
#include <memory>

namespace {

class StandInProfile : public QObject {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.ColorManager.Profile")
  Q_PROPERTY(QString Filename MEMBER filename_)

 public:
  explicit StandInProfile(QString filename) : filename_(std::move(filename)) {}

 private:
  QString filename_;
};

class StandInDevice : public QObject {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.ColorManager.Device")
  Q_PROPERTY(QList<QDBusObjectPath> Profiles MEMBER profiles_)

 public:
  explicit StandInDevice(QList<QDBusObjectPath> profiles) : profiles_(std::move(profiles)) {}

 private:
  QList<QDBusObjectPath> profiles_;
};

class StandInColord : public QObject, protected QDBusContext {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.ColorManager")

 public:
  std::map<QString, QString> Devices;  // output name to device path

 public Q_SLOTS:
  QDBusObjectPath FindDeviceByProperty(const QString& key, const QString& value) {
    const auto device = Devices.find(value);
    if (key != QLatin1String("XRANDR_name") || device == Devices.end()) {
      sendErrorReply(QStringLiteral("org.freedesktop.ColorManager.NotFound"), QStringLiteral("device not found"));
      return {};
    }
    return QDBusObjectPath(device->second);
  }
};

TEST(Colord, GivesTheDefaultProfileOfTheOutputAskedFor) {
  QProcess daemon;
  daemon.start(QStringLiteral("dbus-daemon"), {"--session", "--nofork", "--print-address"});
  ASSERT_TRUE(daemon.waitForReadyRead(10000)) << "dbus-daemon did not start";
  const QByteArray address = daemon.readLine().trimmed();
  qputenv("DBUS_SYSTEM_BUS_ADDRESS", address);
  EXPECT_TRUE(shell::ColordDisplayProfileFile(QStringLiteral("DP-1")).isEmpty());  // colord not running

  QThread answering;  // the stand-ins answer while the test waits for their replies
  answering.start();
  QDBusConnection bus = QDBusConnection::connectToBus(QString::fromLatin1(address), QStringLiteral("stand-in colord"));
  StandInColord colord;
  StandInProfile wide(QStringLiteral("/profiles/wide.icc")), other(QStringLiteral("/profiles/other.icc"));
  StandInDevice monitor({QDBusObjectPath("/profiles/1"), QDBusObjectPath("/profiles/2")}), bare({});
  colord.Devices = {{QStringLiteral("DP-1"), QStringLiteral("/devices/1")}, {QStringLiteral("HDMI-1"), QStringLiteral("/devices/2")}};
  const std::vector<std::pair<const char*, QObject*>> objects = {{"/org/freedesktop/ColorManager", &colord},
                                                                  {"/devices/1", &monitor},
                                                                  {"/devices/2", &bare},
                                                                  {"/profiles/1", &wide},
                                                                  {"/profiles/2", &other}};
  for (const auto& [path, object] : objects) {
    object->moveToThread(&answering);
    ASSERT_TRUE(bus.registerObject(QLatin1String(path), object, QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllProperties));
  }
  ASSERT_TRUE(bus.registerService(QStringLiteral("org.freedesktop.ColorManager")));

  EXPECT_EQ(shell::ColordDisplayProfileFile(QStringLiteral("DP-1")), QStringLiteral("/profiles/wide.icc"));  // the first is the default
  EXPECT_TRUE(shell::ColordDisplayProfileFile(QStringLiteral("HDMI-1")).isEmpty());  // a device without profiles
  EXPECT_TRUE(shell::ColordDisplayProfileFile(QStringLiteral("VGA-1")).isEmpty());   // no such device

  bus.unregisterService(QStringLiteral("org.freedesktop.ColorManager"));
  for (const auto& [path, object] : objects) bus.unregisterObject(QLatin1String(path));
  QDBusConnection::disconnectFromBus(QStringLiteral("stand-in colord"));
  answering.quit();
  answering.wait();
  daemon.kill();
  daemon.waitForFinished();
}

}  // namespace

#include "ColordTest.moc"
