#pragma once
// Whole commands for the benchmarks that compare with other programs run in the same go.

#include "BenchClock.h"

#include <QProcess>
#include <QStringList>

namespace bench {

inline bool RunCommand(const QString& program, const QStringList& arguments) {
  QProcess process;
  process.start(program, arguments);
  return process.waitForFinished(600000) && process.exitCode() == 0;
}

inline double CommandMilliseconds(int runs, const QString& program, const QStringList& arguments) {
  return BestMilliseconds(runs, [&] { RunCommand(program, arguments); });
}

// The benchmarks' 24-megapixel photo: `source` enlarged to 6000 x 4000 by ImageMagick.
inline bool Make24MegapixelJpeg(const QString& source, const QString& path) {
  return RunCommand(QStringLiteral("convert"), {source, QStringLiteral("-resize"), QStringLiteral("6000x4000!"),
                                                QStringLiteral("-quality"), QStringLiteral("90"), path});
}

}  // namespace bench
