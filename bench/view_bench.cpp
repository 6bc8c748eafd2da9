// The main window on a 24-megapixel JPEG (a click on a list entry, the zoom): from
// opening a list entry to its first painted frame at Fit, from a zoom command to the
// painted frame at 10 %, 100 % and 1000 %, and from "next image" to its painted frame
// once the neighbours are prefetched. Zooms are timed with the worker idle (the display
// levels warmed, as they are a moment after an image opens). The imaging engine's
// decode-to-fit of the same file is timed in the same run for the ratios. A cold open also
// times its first picture: the quick stand-in while the whole image is read. The same
// photos carrying an Adobe RGB profile are timed in the same run, for the cost of colour
// management.
// Usage: bench_view SOURCE_PHOTO
#include "BenchClock.h"
#include "BenchPhotos.h"
#include "app/frmMain.h"
#include "imaging/Loader.h"
#include "view/Viewport.h"

#include <QApplication>
#include <QProcess>
#include <QTemporaryDir>

namespace {

void Paint(app::frmMain& window) {
  window.ImageView().repaint();
  QApplication::processEvents();
}

struct ViewFigures {
  double FirstPicture = 1e300, FirstOpen = 0, Zoom10 = 0, Zoom100 = 0, Zoom1000 = 0, Next = 0;
};

// The window on a folder of six photos: cold opens, zooms and prefetched steps.
ViewFigures MeasureWindow(const QString& folder) {
  QTemporaryDir config;
  app::frmMain window(config.filePath(QStringLiteral("Ini.in")));
  window.RunStartup(folder);
  window.State().Settings.FitToWindow = true;
  window.resize(1280, 800);
  window.show();
  QApplication::processEvents();
  document::Document& session = window.CurrentDocument();
  ViewFigures figures;
  // Far entries, so nothing was prefetched: each open is a cold one.
  int far = 2;
  std::chrono::steady_clock::time_point opened;
  const auto pictureShown = [&] {
    const std::chrono::duration<double, std::milli> elapsed = std::chrono::steady_clock::now() - opened;
    figures.FirstPicture = std::min(figures.FirstPicture, elapsed.count());
  };
  QObject::connect(&session, &document::Document::StandInShown, pictureShown);
  QObject::connect(&session, &document::Document::ImageShown, [&](const imaging::Image* image) {
    if (image) pictureShown();
  });
  figures.FirstOpen = bench::BestMillisecondsAfter(
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
  figures.Zoom10 = zoomTo(10);
  figures.Zoom100 = zoomTo(100);
  figures.Zoom1000 = zoomTo(1000);
  int row = -1;
  figures.Next = bench::BestMillisecondsAfter(
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
  return figures;
}

// The same photos carrying an Adobe RGB profile (their colours converted into it), with
// the same chroma subsampling as the untagged ones.
bool MakeTagged(const QString& from, const QString& to, const QStringList& names) {
  for (const QString& name : names) {
    if (QProcess::execute(QStringLiteral("vips"), {"icc_transform", from + u'/' + name, to + u'/' + name + "[Q=90,subsample-mode=on]",
                                                   "/usr/share/color/icc/ghostscript/a98.icc", "--input-profile", "srgb"}) != 0) {
      return false;
    }
  }
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  if (argc < 2) return 2;
  QTemporaryDir pictures, tagged;
  const QStringList names = bench::MakeTintedPhotos(QString::fromLocal8Bit(argv[1]), pictures.path(), 6);
  if (names.isEmpty() || !MakeTagged(pictures.path(), tagged.path(), names)) return 1;
  std::printf("view_source: %lld photos of 6000x4000 jpeg, window 1280x800\n", static_cast<long long>(names.size()));

  const QString photo = pictures.filePath(names.front());
  const double decodeToFit = bench::BestMilliseconds(3, [&] { (void)imaging::LoadFitting(photo, 1280, 800); });
  const double decodeToFitHd = bench::BestMilliseconds(3, [&] { (void)imaging::LoadFitting(photo, 1920, 1080); });
  const ViewFigures plain = MeasureWindow(pictures.path());
  const ViewFigures adobe = MeasureWindow(tagged.path());

  bench::PrintFigure("imaging_decode_to_fit_1280x800", decodeToFit, "ms");
  bench::PrintFigure("imaging_decode_to_fit_1920x1080", decodeToFitHd, "ms");
  bench::PrintFigure("open_entry_to_first_picture", plain.FirstPicture, "ms");
  bench::PrintFigure("open_entry_to_painted_fit", plain.FirstOpen, "ms");
  bench::PrintFigure("zoom_to_10_painted", plain.Zoom10, "ms");
  bench::PrintFigure("zoom_to_100_painted", plain.Zoom100, "ms");
  bench::PrintFigure("zoom_to_1000_painted", plain.Zoom1000, "ms");
  bench::PrintFigure("next_image_prefetched_painted", plain.Next, "ms");
  bench::PrintFigure("adobe_rgb_open_entry_to_painted_fit", adobe.FirstOpen, "ms");
  bench::PrintFigure("adobe_rgb_zoom_to_10_painted", adobe.Zoom10, "ms");
  bench::PrintFigure("adobe_rgb_zoom_to_100_painted", adobe.Zoom100, "ms");
  bench::PrintFigure("adobe_rgb_zoom_to_1000_painted", adobe.Zoom1000, "ms");
  bench::PrintFigure("adobe_rgb_next_image_prefetched_painted", adobe.Next, "ms");
  bench::PrintRatio("open_entry vs imaging_decode_to_fit_1920x1080", plain.FirstOpen / decodeToFitHd);
  bench::PrintRatio("open_entry vs imaging_decode_to_fit_1280x800", plain.FirstOpen / decodeToFit);
  bench::PrintRatio("adobe_rgb_open_entry vs open_entry", adobe.FirstOpen / plain.FirstOpen);
  return 0;
}
