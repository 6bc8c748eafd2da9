#include "shell/Colord.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>

namespace shell {

namespace {

const QString kService = QStringLiteral("org.freedesktop.ColorManager");
constexpr int kTimeoutMilliseconds = 500;

// The reply's first argument; invalid for an error or no answer.
QVariant Ask(const QDBusConnection& bus, const QString& path, const QString& interface, const QString& method,
             const QVariantList& arguments) {
  QDBusMessage message = QDBusMessage::createMethodCall(kService, path, interface, method);
  message.setArguments(arguments);
  const QDBusMessage reply = bus.call(message, QDBus::Block, kTimeoutMilliseconds);
  if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().isEmpty()) return {};
  return reply.arguments().constFirst();
}

QVariant Property(const QDBusConnection& bus, const QString& path, const QString& interface, const QString& name) {
  const QVariant boxed = Ask(bus, path, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"), {interface, name});
  return boxed.value<QDBusVariant>().variant();
}

QList<QDBusObjectPath> ObjectPaths(const QVariant& value) {
  if (value.canConvert<QList<QDBusObjectPath>>()) return value.value<QList<QDBusObjectPath>>();
  QList<QDBusObjectPath> paths;
  if (value.canConvert<QDBusArgument>()) {
    const QDBusArgument argument = value.value<QDBusArgument>();
    if (argument.currentSignature() == QLatin1String("ao")) argument >> paths;
  }
  return paths;
}

}  // namespace

QString ColordDisplayProfileFile(const QString& outputName) {
  const QDBusConnection bus = QDBusConnection::systemBus();
  if (outputName.isEmpty() || !bus.isConnected() || !bus.interface()->isServiceRegistered(kService)) return {};
  const QString device = Ask(bus, QStringLiteral("/org/freedesktop/ColorManager"), kService, QStringLiteral("FindDeviceByProperty"),
                             {QStringLiteral("XRANDR_name"), outputName})
                             .value<QDBusObjectPath>()
                             .path();
  if (device.isEmpty()) return {};
  const QList<QDBusObjectPath> profiles =
      ObjectPaths(Property(bus, device, kService + QStringLiteral(".Device"), QStringLiteral("Profiles")));
  if (profiles.isEmpty()) return {};
  return Property(bus, profiles.constFirst().path(), kService + QStringLiteral(".Profile"), QStringLiteral("Filename")).toString();
}

}  // namespace shell
