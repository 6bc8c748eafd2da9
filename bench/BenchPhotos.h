#pragma once
// The benchmarks' photos: a source photo resized to 6000 x 4000 (24 megapixels) and
// tinted, so that each file decodes anew.

#include <QProcess>
#include <QString>

namespace bench {

inline bool MakeTintedPhoto(const QString& source, const QString& target, const QString& tint) {
  return QProcess::execute(QStringLiteral("convert"),
                           {source, QStringLiteral("-resize"), QStringLiteral("6000x4000!"), QStringLiteral("-fill"), tint,
                            QStringLiteral("-colorize"), QStringLiteral("10"), QStringLiteral("-quality"),
                            QStringLiteral("90"), target}) == 0;
}

}  // namespace bench
