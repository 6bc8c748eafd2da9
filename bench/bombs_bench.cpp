// Memory of tiny files that ask for huge pictures (16383 x 16383, the largest we open):
// each is opened by a child process whose peak resident size is read back, next to
// libvips alone decoding the same file without keeping it (`vips avg`) where it reads it. The goal is
// 4 bytes a pixel plus 64 MB; the EMF player's helper process is reported apart.
// Usage: bench_bombs            (the child: bench_bombs --open FILE)
#include "BenchClock.h"
#include "imaging/Loader.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QtEndian>

#include <string>
#include <vector>

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>

namespace {

constexpr int kSide = 16383;
constexpr double kPixels = double(kSide) * kSide;
constexpr double kMegabyte = 1024.0 * 1024.0;

QByteArray Le16(int v) { QByteArray b(2, '\0'); qToLittleEndian<quint16>(quint16(v), b.data()); return b; }
QByteArray Le32(qint64 v) { QByteArray b(4, '\0'); qToLittleEndian<quint32>(quint32(v), b.data()); return b; }

// A one-pixel frame on the largest canvas: the rest is the background.
QByteArray GifBomb() {
  return "GIF89a" + Le16(kSide) + Le16(kSide) + QByteArray("\x80\x00\x00\x00\x00\x00\xff\xff\xff", 9) + "," +
         Le16(0) + Le16(0) + Le16(1) + Le16(1) + QByteArray("\x00\x02\x02\x44\x01\x00;", 8);
}

// An 8-bit run-length BMP whose data ends at once.
QByteArray RleBmpBomb() {
  QByteArray info = Le32(40) + Le32(kSide) + Le32(kSide) + Le16(1) + Le16(8) + Le32(1) + Le32(2) + Le32(0) + Le32(0) +
                    Le32(2) + Le32(0) + QByteArray("\x00\x00\x00\x00\xff\xff\xff\x00", 8);
  return "BM" + Le32(14 + info.size() + 2) + Le32(0) + Le32(14 + info.size()) + info + QByteArray("\x00\x01", 2);
}

// An EMF header whose frame is the largest picture, and its end.
QByteArray EmfBomb() {
  const qint64 frame = qint64(kSide) * 2540 / 96;
  QByteArray header = Le32(1) + Le32(88) + Le32(0) + Le32(0) + Le32(kSide - 1) + Le32(kSide - 1) + Le32(0) + Le32(0) +
                      Le32(frame) + Le32(frame) + QByteArray(" EMF", 4) + Le32(0x10000) + Le32(108) + Le32(2) +
                      Le32(1) + Le32(0) + Le32(0) + Le32(0) + Le32(1920) + Le32(1080) + Le32(508) + Le32(286);
  return header + Le32(14) + Le32(20) + Le32(0) + Le32(16) + Le32(20);
}

struct Peak {
  double Self = 0, Helpers = 0;  // megabytes; 0 when the file did not open
};

// Our own child reports its peak and its helpers' on its output.
Peak OursOpening(const QString& path) {
  QProcess process;
  process.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--open"), path});
  process.waitForFinished(600000);
  const QList<QByteArray> words = process.readAllStandardOutput().trimmed().split(' ');
  if (process.exitCode() != 0 || words.size() != 2) return {};
  return {words[0].toDouble() / 1024, words[1].toDouble() / 1024};
}

// A peer's peak, from the kernel when it ends.
double PeerPeak(const std::vector<std::string>& command) {
  std::vector<char*> arguments;
  for (const std::string& word : command) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);
  posix_spawn_file_actions_t quiet;
  posix_spawn_file_actions_init(&quiet);
  posix_spawn_file_actions_addopen(&quiet, 1, "/dev/null", O_WRONLY, 0);
  pid_t child = 0;
  const int failed = posix_spawnp(&child, arguments[0], &quiet, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&quiet);
  if (failed != 0) return 0;
  int status = 0;
  rusage usage{};
  wait4(child, &status, 0, &usage);
  return double(usage.ru_maxrss) / 1024;
}

int OpenAndReport(const QString& path) {
  const bool opened = imaging::LoadFile(path).has_value();
  rusage self{}, children{};
  getrusage(RUSAGE_SELF, &self);
  getrusage(RUSAGE_CHILDREN, &children);
  std::printf("%ld %ld\n", self.ru_maxrss, children.ru_maxrss);
  return opened ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication application(argc, argv);
  if (argc == 3 && QByteArray(argv[1]) == "--open") return OpenAndReport(QString::fromLocal8Bit(argv[2]));
  QTemporaryDir work;
  const auto write = [&work](const char* name, const QByteArray& bytes) {
    QFile file(work.filePath(QLatin1String(name)));
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() ? file.fileName() : QString();
  };
  const QString webp = work.filePath(QStringLiteral("bomb.webp"));
  QProcess::execute(QStringLiteral("vips"), {QStringLiteral("black"), webp + QStringLiteral("[Q=1]"),
                                             QString::number(kSide), QString::number(kSide)});
  const QList<std::pair<const char*, QString>> bombs = {
      {"gif", write("bomb.gif", GifBomb())}, {"rle_bmp", write("bomb.bmp", RleBmpBomb())},
      {"webp", webp}, {"emf", write("bomb.emf", EmfBomb())}};
  for (const auto& [kind, path] : bombs) {
    const Peak ours = OursOpening(path);
    const QByteArray name = QByteArray("bomb_") + kind;
    if (ours.Self == 0) std::printf("%s: did not open\n", name.constData());
    bench::PrintFigure(name + "_file_size", double(QFile(path).size()), "bytes");
    bench::PrintFigure(name + "_peak", ours.Self, "MB");
    bench::PrintFigure(name + "_bytes_a_pixel", ours.Self * kMegabyte / kPixels, "B");
    if (ours.Helpers > 0) bench::PrintFigure(name + "_helper_peak", ours.Helpers, "MB");
    bench::PrintRatio(name + "_peak_to_goal", ours.Self / (4 * kPixels / kMegabyte + 64));
  }
  // libvips alone decoding the formats it reads, keeping nothing.
  for (const auto& [kind, path] : {bombs[0], bombs[2]}) {
    const double vips = PeerPeak({"vips", "avg", path.toStdString()});
    bench::PrintFigure((QByteArray("bomb_") + kind + "_peak_vips_avg").constData(), vips, "MB");
  }
  return 0;
}
