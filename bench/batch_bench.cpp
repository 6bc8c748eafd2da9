// Converting 48 photos of 12 megapixels to WebP 1920 pixels wide at quality 75 (libwebp's own
// default), as whole commands in one
// run: vistrel-cli's batch (one file a job on every core), a loop of vipsthumbnail (libvips
// shrinking on load and writing WebP, one file after another) and ImageMagick's mogrify.
// Usage: bench_batch PATH_TO_VISTREL_CLI SOURCE_PHOTO
#include "BenchCommand.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <algorithm>

#include <sys/resource.h>

namespace {

constexpr int kPhotos = 48;
constexpr int kRounds = 3;

// Processor time of the finished children so far, in milliseconds.
double ChildrenCpuMs() {
  rusage usage{};
  getrusage(RUSAGE_CHILDREN, &usage);
  return (usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) * 1000.0 + (usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1000.0;
}

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication application(argc, argv);
  if (argc < 3) return 2;
  const QString cli = QString::fromLocal8Bit(argv[1]);
  QTemporaryDir work;
  const QString first = work.filePath(QStringLiteral("photo01.jpg"));
  if (!bench::RunCommand(QStringLiteral("convert"), {QString::fromLocal8Bit(argv[2]), "-resize", "4000x3000!", "-quality", "90", first})) return 1;
  QStringList photos{first};
  for (int i = 2; i <= kPhotos; ++i) {
    photos << work.filePath(QStringLiteral("photo%1.jpg").arg(i, 2, 10, QLatin1Char('0')));
    QFile::copy(first, photos.back());
  }
  const auto fresh = [&work](const char* name) {
    QDir(work.filePath(QLatin1String(name))).removeRecursively();
    QDir().mkpath(work.filePath(QLatin1String(name)));
    return work.filePath(QLatin1String(name));
  };
  // Three rounds, each side once a round, and each side's best: a slow spell of this host
  // then costs every side alike instead of whichever happened to run in it.
  double ours = 1e300, ourCpu = 0, loop = 1e300, mogrify = 1e300;
  for (int round = 0; round < kRounds; ++round) {
    const double cpuBefore = ChildrenCpuMs();
    const double thisRound = bench::BestMilliseconds(1, [&] {
      bench::RunCommand(cli, QStringList{"convert"} + photos + QStringList{"--to", fresh("ours"), "--format", "webp", "--fit", "1920x1920", "--quality", "75"});
    });
    if (thisRound < ours) {
      ours = thisRound;
      ourCpu = ChildrenCpuMs() - cpuBefore;
    }
    loop = std::min(loop, bench::BestMilliseconds(1, [&] {
      const QString out = fresh("loop");
      for (const QString& photo : photos) bench::RunCommand(QStringLiteral("vipsthumbnail"), {photo, "--size", "1920", "-o", out + "/%s.webp[Q=75]"});
    }));
    mogrify = std::min(mogrify, bench::BestMilliseconds(1, [&] {
      bench::RunCommand(QStringLiteral("mogrify"), QStringList{"-path", fresh("mogrify"), "-resize", "1920x1920", "-quality", "75", "-format", "webp"} + photos);
    }));
  }
  std::printf("batch_source: %d photos of 4000x3000 jpeg to webp q75 within 1920x1920\n", kPhotos);
  bench::PrintFigure("vistrel_cli_batch_convert", ours, "ms");
  bench::PrintFigure("vistrel_cli_batch_cores_busy", ourCpu / ours, "cores");
  bench::PrintFigure("vipsthumbnail_loop", loop, "ms");
  bench::PrintFigure("mogrify_resize_webp", mogrify, "ms");
  bench::PrintRatio("vipsthumbnail_loop vs vistrel_cli_batch_convert", loop / ours);
  bench::PrintRatio("mogrify_resize_webp vs vistrel_cli_batch_convert", mogrify / ours);
  return 0;
}
