// An animation of 200 frames of 1920 x 1080 (a photo panning across, 40 ms a frame) in the
// main window, 1280 x 800, fitted: from opening it to its first painted frame, against the
// same GIF holding only its first frame; then ten seconds of playing it: the mean interval
// between frames shown against the file's, how many frames came more than one display
// frame (16.7 ms) after they were due, and the process's peak memory while it played.
// Usage: bench_animation SOURCE_PHOTO (the animation is made once and kept in the cache)
#include "BenchClock.h"
#include "BenchWindow.h"
#include "app/frmMain.h"
#include "view/Viewport.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTimer>

#include <cstdio>

namespace {

constexpr int kFrames = 200, kDelayCentiseconds = 4;

bool Run(const QString& program, const QStringList& words) { return QProcess::execute(program, words) == 0; }

// The GIF's frame delays, which libvips' command cannot set: each graphic control block's
// two bytes of delay.
bool SetDelays(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadWrite)) return false;
  QByteArray bytes = file.readAll();
  for (qsizetype at = bytes.indexOf("\x21\xF9\x04"); at >= 0 && at + 8 <= bytes.size(); at = bytes.indexOf("\x21\xF9\x04", at + 8)) {
    if (bytes[at + 7] != 0) continue;
    bytes[at + 4] = char(kDelayCentiseconds);
    bytes[at + 5] = 0;
  }
  return file.seek(0) && file.write(bytes) == bytes.size();
}

// The photo cut into frames panning one pixel each, joined into a GIF, and its first frame alone.
bool MakeAnimation(const QString& photo, const QString& folder) {
  QTemporaryDir frames;
  const QString wide = frames.filePath(QStringLiteral("wide.v"));
  if (!Run(QStringLiteral("vips"), {"thumbnail", photo, wide, QString::number(1920 + kFrames), "--height", "1080", "--crop", "centre"})) return false;
  QStringList names;
  for (int i = 0; i < kFrames; ++i) {
    names << frames.filePath(QStringLiteral("f%1.jpg").arg(i));
    if (!Run(QStringLiteral("vips"), {"crop", wide, names.back(), QString::number(i), "0", "1920", "1080"})) return false;
  }
  const QString moving = folder + QStringLiteral("/moving.gif");
  return Run(QStringLiteral("vips"), {"arrayjoin", names.join(u' '), moving + "[page-height=1080,effort=1]", "--across", "1"}) &&
         SetDelays(moving) && Run(QStringLiteral("vips"), {"copy", moving, folder + QStringLiteral("/still.gif")});
}

double PeakMegabytes() {
  QFile status(QStringLiteral("/proc/self/status"));
  if (!status.open(QIODevice::ReadOnly)) return 0;
  for (const QByteArray& line : status.readAll().split('\n')) {
    if (line.startsWith("VmHWM:")) return line.mid(6).trimmed().split(' ').value(0).toDouble() / 1024;
  }
  return 0;
}

struct Playing {
  double MeanIntervalMs = 0, LateFrames = 0, Shown = 0;
};

// Ten seconds of playing, timed from the frames shown.
Playing Play(app::frmMain& window) {
  view::AnimationPlayer& player = window.Player();
  QElapsedTimer clock;
  std::vector<qint64> shownAt;
  qint64 dueMs = 0;
  Playing figures;
  QObject::connect(&player, &view::AnimationPlayer::FrameShown, [&] {
    const qint64 now = clock.elapsed();
    dueMs = shownAt.empty() ? now : dueMs + kDelayCentiseconds * 10;
    if (now - dueMs > 17) ++figures.LateFrames;
    dueMs = std::max(dueMs, now - kDelayCentiseconds * 10);  // as the player starts afresh after a lost frame
    shownAt.push_back(now);
  });
  clock.start();
  QEventLoop playing;
  QTimer::singleShot(10000, &playing, &QEventLoop::quit);
  playing.exec();
  figures.Shown = double(shownAt.size());
  if (shownAt.size() > 1) figures.MeanIntervalMs = double(shownAt.back() - shownAt.front()) / double(shownAt.size() - 1);
  return figures;
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  if (argc < 2) return 2;
  const QString source = QString::fromLocal8Bit(argv[1]);
  const QString cache = bench::CachedFiles(QStringLiteral("vistrel-bench-animation"), QStringLiteral("still.gif"),
                                           [&source](const QString& folder) { return MakeAnimation(source, folder); });
  if (cache.isEmpty()) return 1;
  std::printf("animation_source: %d frames of 1920x1080 gif, %d ms each, window 1280x800\n", kFrames, kDelayCentiseconds * 10);
  bench::FittedWindow fitted;
  app::frmMain& window = fitted.window;
  const auto open = [&](const char* name) {
    return bench::BestMilliseconds(1, [&] {
      window.CurrentDocument().OpenFile(cache + u'/' + QLatin1String(name));
      window.ImageView().repaint();
      QApplication::processEvents();
    });
  };
  double still = 1e300, moving = 1e300;
  for (int i = 0; i < 3; ++i) {  // in turns, so that neither has the warmer start
    still = std::min(still, open("still.gif"));
    moving = std::min(moving, open("moving.gif"));
  }
  const Playing playing = Play(window);
  bench::PrintFigure("open_still_gif_to_painted", still, "ms");
  bench::PrintFigure("open_animation_to_first_frame_painted", moving, "ms");
  bench::PrintFigure("playing_mean_frame_interval", playing.MeanIntervalMs, "ms");
  bench::PrintFigure("playing_frames_shown_in_10_s", playing.Shown, "frames");
  bench::PrintFigure("playing_frames_late_over_16.7_ms", playing.LateFrames, "frames");
  bench::PrintFigure("playing_peak_memory", PeakMegabytes(), "MB");
  bench::PrintRatio("open_animation vs open_still_gif", moving / still);
  bench::PrintRatio("playing_mean_frame_interval vs the file's", playing.MeanIntervalMs / (kDelayCentiseconds * 10));
  return 0;
}
