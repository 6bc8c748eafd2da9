#include "shell/ScreenProfile.h"
#include "base/Texts.h"

#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>

namespace shell {

namespace {

constexpr std::uint32_t kLargestProfile = std::uint32_t(4) << 20;

template <typename Reply>
using Owned = std::unique_ptr<Reply, decltype(&std::free)>;

xcb_connection_t* X11Connection() {
  auto* x11 = qGuiApp ? qGuiApp->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
  return x11 ? x11->connection() : nullptr;
}

}  // namespace

QByteArray X11MonitorProfile(int monitor) {
  xcb_connection_t* connection = X11Connection();
  if (!connection || monitor < 0) return {};
  const QByteArray name = monitor == 0 ? QByteArray("_ICC_PROFILE") : "_ICC_PROFILE_" + QByteArray::number(monitor);
  const Owned<xcb_intern_atom_reply_t> atom(
      xcb_intern_atom_reply(connection, xcb_intern_atom(connection, 1, quint16(name.size()), name.constData()), nullptr),
      &std::free);
  const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
  if (!atom || atom->atom == XCB_ATOM_NONE || !screen) return {};
  // Asked for in 32-bit units: a profile of up to 4 MB in one reply.
  const Owned<xcb_get_property_reply_t> reply(
      xcb_get_property_reply(connection,
                             xcb_get_property(connection, 0, screen->root, atom->atom, XCB_GET_PROPERTY_TYPE_ANY, 0, kLargestProfile / 4),
                             nullptr),
      &std::free);
  if (!reply || reply->format != 8 || reply->bytes_after > 0) return {};
  return QByteArray(static_cast<const char*>(xcb_get_property_value(reply.get())), xcb_get_property_value_length(reply.get()));
}

QString DescribeSource(ScreenProfileSource source) {
  switch (source) {
    case ScreenProfileSource::Colord: return Texts::tr("from colord");
    case ScreenProfileSource::Display: return Texts::tr("from the display");
    case ScreenProfileSource::ChosenFile: return Texts::tr("the file chosen below");
    case ScreenProfileSource::Standard: break;
  }
  return Texts::tr("sRGB: no profile from the display");
}

const QByteArray& ProfileFile::Read(const QString& path) {
  const QFileInfo info(path);
  const qint64 size = path.isEmpty() ? -1 : info.size();
  const QDateTime modified = path.isEmpty() ? QDateTime() : info.lastModified();
  if (path == path_ && size == size_ && modified == modified_) return bytes_;
  path_ = path;
  size_ = size;
  modified_ = modified;
  bytes_.clear();
  QFile file(path);
  if (!path.isEmpty() && size <= qint64(kLargestProfile) && file.open(QIODevice::ReadOnly)) bytes_ = file.readAll();
  return bytes_;
}

}  // namespace shell
