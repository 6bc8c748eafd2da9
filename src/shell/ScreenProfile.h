#pragma once
// The screen's colour profile as the desktop publishes it. On X11 a colour manager (colord's
// session helper, dispwin, xiccd) puts the profile of each monitor on the root window:
// `_ICC_PROFILE` for the first, `_ICC_PROFILE_n` for monitor n. Wayland offers none to a
// client yet, so there the screen counts as sRGB.

#include <QByteArray>
#include <QDateTime>
#include <QString>

namespace shell {

// The profile for monitor `monitor` (0 the first); empty when there is none or the display
// is not X11.
QByteArray X11MonitorProfile(int monitor);

// Where the screen's profile in use came from, in the words Options shows.
enum class ScreenProfileSource { Colord, Display, ChosenFile, Standard };
QString DescribeSource(ScreenProfileSource source);

// A profile file, read again only when its name, size or time changes: the screen's
// profile is looked for every two seconds. Empty for no file, an unreadable one or one
// over 4 MB.
class ProfileFile {
 public:
  const QByteArray& Read(const QString& path);

 private:
  QString path_;
  qint64 size_ = -1;
  QDateTime modified_;
  QByteArray bytes_;
};

}  // namespace shell
