#pragma once
// Whole commands for the benchmarks that compare with other programs run in the same go.

#include "BenchClock.h"

#include "imaging/Image.h"

#include <QFile>
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>

#include <memory>

namespace bench {

inline bool RunCommand(const QString& program, const QStringList& arguments) {
  QProcess process;
  process.start(program, arguments);
  return process.waitForFinished(600000) && process.exitCode() == 0;
}

inline double CommandMilliseconds(int runs, const QString& program, const QStringList& arguments) {
  return BestMilliseconds(runs, [&] { RunCommand(program, arguments); });
}

// The same for a command that writes `output`, which each run finds missing, as a command
// making a new file does: replacing a big file costs both the unlinking of the old one
// and, on ext4, its forced write-back.
inline double NewFileCommandMilliseconds(int runs, const QString& program, const QStringList& arguments,
                                         const QString& output) {
  return BestMillisecondsAfter(runs, [&] { QFile::remove(output); }, [&] { RunCommand(program, arguments); });
}

// The benchmarks' 24-megapixel photo: `source` enlarged to 6000 x 4000 by ImageMagick.
inline bool Make24MegapixelJpeg(const QString& source, const QString& path) {
  return RunCommand(QStringLiteral("convert"), {source, QStringLiteral("-resize"), QStringLiteral("6000x4000!"),
                                                QStringLiteral("-quality"), QStringLiteral("90"), path});
}

// The start of a comparison: libvips up, vistrel-cli's path from argv[1], and the
// 24-megapixel photo made from argv[2] in a temporary folder; null on bad arguments.
struct Comparison {
  QString Cli;
  QTemporaryDir Work;
  QString Photo;
};

inline std::unique_ptr<Comparison> PrepareComparison(int argc, char** argv) {
  if (argc < 3) return nullptr;
  imaging::Initialize();
  auto comparison = std::make_unique<Comparison>();
  comparison->Cli = QString::fromLocal8Bit(argv[1]);
  comparison->Photo = comparison->Work.filePath(QStringLiteral("24mp.jpg"));
  if (!Make24MegapixelJpeg(QString::fromLocal8Bit(argv[2]), comparison->Photo)) return nullptr;
  return comparison;
}

}  // namespace bench
