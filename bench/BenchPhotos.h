#pragma once
// The benchmarks' photos: a source photo resized to 6000 x 4000 (24 megapixels) and
// tinted, so that each file decodes anew.

#include <QProcess>
#include <QString>
#include <QStringList>

namespace bench {

inline bool MakeTintedPhoto(const QString& source, const QString& target, const QString& tint) {
  return QProcess::execute(QStringLiteral("convert"),
                           {source, QStringLiteral("-resize"), QStringLiteral("6000x4000!"), QStringLiteral("-fill"), tint,
                            QStringLiteral("-colorize"), QStringLiteral("10"), QStringLiteral("-quality"),
                            QStringLiteral("90"), target}) == 0;
}

// `count` (at most six) tinted photos in `folder`, named by their tint ("red.jpg"...);
// their names, or none when one could not be made.
inline QStringList MakeTintedPhotos(const QString& source, const QString& folder, int count) {
  const QStringList tints = {QStringLiteral("red"),    QStringLiteral("green"), QStringLiteral("blue"),
                             QStringLiteral("yellow"), QStringLiteral("cyan"),  QStringLiteral("magenta")};
  QStringList names;
  for (const QString& tint : tints.mid(0, count)) {
    names << tint + QStringLiteral(".jpg");
    if (!MakeTintedPhoto(source, folder + u'/' + names.back(), tint)) return {};
  }
  return names;
}

}  // namespace bench
