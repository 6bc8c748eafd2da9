// The Thumbnails view on a page of twelve 24-megapixel JPEGs: cold (nothing cached, the
// pictures decoded reduced on the worker pool) against twelve runs of `vipsthumbnail
// --size 256` on the same files in the same go, and again from the desktop's thumbnail
// cache; the same page of photos tagged Adobe RGB, cold; and Full Screen on a shown
// 24-megapixel image to its first painted frame.
// Usage: bench_thumbnails SOURCE_PHOTO
#include "BenchCommand.h"
#include "browse/FolderScan.h"
#include "browse/ThumbnailsView.h"
#include "imaging/Loader.h"
#include "view/frmFull.h"

#include <QApplication>
#include <QFile>
#include <QProcess>

namespace {

double PageMilliseconds(const browse::FileListModel& list, const QString& folder, const base::ScreenMetrics& metrics) {
  browse::ThumbnailsView view(list, metrics);
  view.resize(1200, 900);
  view.show();
  view.SetFolder(folder);
  return bench::BestMilliseconds(1, [&] {
    view.ShowPage(1);
    while (!view.PageComplete()) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    view.widget()->repaint();
  });
}

// The same page of the photo carrying an Adobe RGB profile (its colours converted into it,
// with the same chroma subsampling), cold too; -1 when the files could not be made.
double TaggedPageMilliseconds(const QString& photo, const base::ScreenMetrics& metrics) {
  QTemporaryDir tagged;
  const QString first = tagged.filePath(QStringLiteral("photo00.jpg"));
  if (QProcess::execute(QStringLiteral("vips"), {"icc_transform", photo, first + "[Q=90,subsample-mode=on]",
                                                 "/usr/share/color/icc/ghostscript/a98.icc", "--input-profile", "srgb"}) != 0) {
    return -1;
  }
  for (int i = 1; i < 12; ++i) QFile::copy(first, tagged.filePath(QStringLiteral("photo%1.jpg").arg(i, 2, 10, QLatin1Char('0'))));
  browse::FileListModel list;
  list.SetEntries(browse::ScanFolder(tagged.path(), browse::ScanFilter::Images));
  return PageMilliseconds(list, tagged.path(), metrics);
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QTemporaryDir cache, pictures;
  qputenv("XDG_CACHE_HOME", cache.path().toLocal8Bit());  // cold: nothing cached yet
  QApplication application(argc, argv);
  if (argc < 2) return 2;
  imaging::Initialize();
  const QString first = pictures.filePath(QStringLiteral("photo00.jpg"));
  if (!bench::Make24MegapixelJpeg(QString::fromLocal8Bit(argv[1]), first)) return 1;
  QStringList photos = {first};
  for (int i = 1; i < 12; ++i) {
    photos << pictures.filePath(QStringLiteral("photo%1.jpg").arg(i, 2, 10, QLatin1Char('0')));
    QFile::copy(first, photos.back());
  }
  std::printf("thumbnails_source: 12 photos of 6000x4000 jpeg\n");
  browse::FileListModel list;
  list.SetEntries(browse::ScanFolder(pictures.path(), browse::ScanFilter::Images));
  const base::ScreenMetrics metrics;

  const double cold = PageMilliseconds(list, pictures.path(), metrics);
  const double cached = PageMilliseconds(list, pictures.path(), metrics);
  QTemporaryDir out;
  double vips = 0;
  for (const QString& photo : photos) {
    vips += bench::CommandMilliseconds(1, QStringLiteral("vipsthumbnail"),
                                       {photo, QStringLiteral("--size"), QStringLiteral("256"), QStringLiteral("-o"),
                                        out.filePath(QStringLiteral("%s.jpg"))});
  }
  const double taggedCold = TaggedPageMilliseconds(first, metrics);
  if (taggedCold < 0) return 1;
  bench::PrintFigure("thumbnails_cold_page_painted", cold, "ms");
  bench::PrintFigure("thumbnails_cached_page_painted", cached, "ms");
  bench::PrintFigure("vipsthumbnail_12_runs", vips, "ms");
  bench::PrintRatio("cold page vs vipsthumbnail_12_runs", cold / vips);
  bench::PrintFigure("adobe_rgb_thumbnails_cold_page_painted", taggedCold, "ms");
  bench::PrintRatio("adobe_rgb cold page vs cold page", taggedCold / cold);

  const imaging::Image shown = imaging::LoadFile(first).value();
  shown.WarmDisplayLevels();
  const double fullScreen = bench::BestMilliseconds(3, [&] {
    view::frmFull full(shown, base::NaturalSize::FromPixels(shown.Width(), shown.Height(), metrics), metrics, Qt::black);
    full.resize(1920, 1080);
    full.show();
    QApplication::processEvents();
    (void)full.grab();  // renders the frame as the screen would get it
  });
  bench::PrintFigure("full_screen_first_frame", fullScreen, "ms");
  return 0;
}
