// The slide show player on a folder of 24-megapixel JPEGs: from a step (Page Down) to the
// painted frame once the next picture is prepared, and the player's memory after 200
// steps against after 2. The same step without a prepared picture (decoding on the spot)
// runs in the same go for the ratio.
// Usage: bench_slideshow SOURCE_PHOTO
#include "BenchClock.h"
#include "BenchPhotos.h"
#include "slideshow/frmSlideShow2.h"

#include <QApplication>
#include <QFile>
#include <QKeyEvent>
#include <QTemporaryDir>

namespace {

double ResidentMegabytes() {
  QFile status(QStringLiteral("/proc/self/status"));
  if (!status.open(QIODevice::ReadOnly)) return 0;
  for (const QByteArray& line : status.readAll().split('\n')) {
    if (line.startsWith("VmRSS:")) return line.mid(6).trimmed().split(' ').front().toDouble() / 1024;
  }
  return 0;
}

void PageDown(slideshow::frmSlideShow2& player) {
  QKeyEvent press(QEvent::KeyPress, Qt::Key_PageDown, Qt::NoModifier);
  QApplication::sendEvent(&player, &press);
  player.repaint();
  QApplication::processEvents();
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  if (argc < 2) return 2;
  QTemporaryDir folder;
  slideshow::PlayerSettings settings;
  settings.Folder = folder.path();
  settings.Repeat = true;
  const QStringList names = bench::MakeTintedPhotos(QString::fromLocal8Bit(argv[1]), folder.path(), 4);
  if (names.isEmpty()) return 1;
  for (const QString& name : names) settings.Rows.push_back({name, true});
  std::printf("slideshow_source: %lld photos of 6000x4000 jpeg, screen 1280x800\n", static_cast<long long>(names.size()));
  slideshow::frmSlideShow2 player(settings);
  player.resize(1280, 800);
  player.show();
  while (player.Shown().isEmpty()) QApplication::processEvents(QEventLoop::WaitForMoreEvents);

  const double prepared = bench::BestMillisecondsAfter(5, [&] { player.WaitForTheNextPicture(); }, [&] { PageDown(player); });
  double memoryAfter2 = 0;
  for (int step = 1; step <= 200; ++step) {
    player.WaitForTheNextPicture();
    PageDown(player);
    if (step == 2) memoryAfter2 = ResidentMegabytes();
  }
  const double memoryAfter200 = ResidentMegabytes();
  // Stepping twice at once: the second step finds its picture still being prepared.
  const double unprepared = bench::BestMillisecondsAfter(
      3, [&] { player.WaitForTheNextPicture(); PageDown(player); }, [&] { PageDown(player); });

  bench::PrintFigure("step_to_painted_prepared", prepared, "ms");
  bench::PrintFigure("step_to_painted_while_preparing", unprepared, "ms");
  bench::PrintFigure("memory_after_2_steps", memoryAfter2, "MB");
  bench::PrintFigure("memory_after_200_steps", memoryAfter200, "MB");
  bench::PrintRatio("step prepared vs while preparing", prepared / unprepared);
  bench::PrintRatio("memory after 200 vs after 2 steps", memoryAfter200 / memoryAfter2);
  return 0;
}
