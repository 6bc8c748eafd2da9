// The main window on a 24-megapixel JPEG (a click on a list entry, the zoom): from
// opening a list entry to its first painted frame at Fit, from a zoom command to the
// painted frame at 10 %, 100 % and 1000 %, and from "next image" to its painted frame
// once the neighbours are prefetched. Zooms are timed with the worker idle (the display
// levels warmed, as they are a moment after an image opens). The imaging engine's
// decode-to-fit of the same file is timed in the same run for the ratios. A cold open also
// times its first picture: the quick stand-in while the whole image is read.
// Usage: bench_view SOURCE_PHOTO
#include "BenchClock.h"
#include "BenchPhotos.h"
#include "app/frmMain.h"
#include "imaging/Loader.h"
#include "view/Viewport.h"

#include <QApplication>
#include <QTemporaryDir>

namespace {

void Paint(app::frmMain& window) {
  window.ImageView().repaint();
  QApplication::processEvents();
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  if (argc < 2) return 2;
  QTemporaryDir pictures;
  QTemporaryDir config;
  const QStringList names = bench::MakeTintedPhotos(QString::fromLocal8Bit(argv[1]), pictures.path(), 6);
  if (names.isEmpty()) return 1;
  std::printf("view_source: %lld photos of 6000x4000 jpeg, window 1280x800\n", static_cast<long long>(names.size()));

  app::frmMain window(config.filePath(QStringLiteral("Ini.in")));
  window.RunStartup(pictures.path());
  window.State().Settings.FitToWindow = true;
  window.resize(1280, 800);
  window.show();
  QApplication::processEvents();
  document::Document& session = window.CurrentDocument();

  const QString photo = pictures.filePath(names.front());
  const double decodeToFit = bench::BestMilliseconds(3, [&] { (void)imaging::LoadFitting(photo, 1280, 800); });
  const double decodeToFitHd = bench::BestMilliseconds(3, [&] { (void)imaging::LoadFitting(photo, 1920, 1080); });
  // Far entries, so nothing was prefetched: each open is a cold one.
  int far = 2;
  std::chrono::steady_clock::time_point opened;
  double firstPicture = 1e300;
  const auto pictureShown = [&] {
    const std::chrono::duration<double, std::milli> elapsed = std::chrono::steady_clock::now() - opened;
    firstPicture = std::min(firstPicture, elapsed.count());
  };
  QObject::connect(&session, &document::Document::StandInShown, pictureShown);
  QObject::connect(&session, &document::Document::ImageShown, [&](const imaging::Image* image) {
    if (image) pictureShown();
  });
  const double firstOpen = bench::BestMillisecondsAfter(
      3, [&] { window.Prefetcher().WaitForIdle(); },
      [&] {
        far = far == 2 ? 5 : 2;
        opened = std::chrono::steady_clock::now();
        session.ClickEntry(far);
        Paint(window);
      });
  const auto zoomTo = [&](int percentage) {
    return bench::BestMillisecondsAfter(
        3,
        [&] {
          window.ImageView().ApplyZoom(percentage == 100 ? 50 : 100);
          Paint(window);
          window.Prefetcher().WaitForIdle();
        },
        [&] {
          window.ImageView().ApplyZoom(percentage);
          Paint(window);
        });
  };
  const double zoom10 = zoomTo(10), zoom100 = zoomTo(100), zoom1000 = zoomTo(1000);

  int row = -1;
  const double next = bench::BestMillisecondsAfter(
      3,
      [&] {
        session.ClickEntry(++row);
        Paint(window);
        window.Prefetcher().WaitForIdle();
      },
      [&] {
        session.Step(1);
        Paint(window);
      });

  bench::PrintFigure("imaging_decode_to_fit_1280x800", decodeToFit, "ms");
  bench::PrintFigure("imaging_decode_to_fit_1920x1080", decodeToFitHd, "ms");
  bench::PrintFigure("open_entry_to_first_picture", firstPicture, "ms");
  bench::PrintFigure("open_entry_to_painted_fit", firstOpen, "ms");
  bench::PrintFigure("zoom_to_10_painted", zoom10, "ms");
  bench::PrintFigure("zoom_to_100_painted", zoom100, "ms");
  bench::PrintFigure("zoom_to_1000_painted", zoom1000, "ms");
  bench::PrintFigure("next_image_prefetched_painted", next, "ms");
  bench::PrintRatio("open_entry vs imaging_decode_to_fit_1920x1080", firstOpen / decodeToFitHd);
  bench::PrintRatio("open_entry vs imaging_decode_to_fit_1280x800", firstOpen / decodeToFit);
  return 0;
}
