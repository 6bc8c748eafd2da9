// Today's photo formats in the main window, 1280 x 800, fitted: from opening a 24-megapixel
// HEIC and a camera RAW to the first picture painted (a quick one while the whole image is
// read), next to `vipsthumbnail` making a picture of the window's size of the same file
// (for the RAW, of the JPEG preview it holds, which is what the window shows first).
// The RAW is a 24-megapixel DNG made by independent tools, with the 24-megapixel JPEG
// embedded as its preview, as cameras of today store one. A phone's 12-megapixel HEIC with
// its own 320-pixel thumbnail (written by libheif's encoder, as phones write one) is timed alike.
// Usage: bench_formats SOURCE_PHOTO (the files are made once and kept in the cache)
#include "BenchClock.h"
#include "BenchCommand.h"
#include "BenchWindow.h"
#include "app/frmMain.h"
#include "support/RawFiles.h"
#include "view/Viewport.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <cstdio>

namespace {

bool MakeFiles(const QString& source, const QString& folder) {
  const QString photo = folder + QStringLiteral("/24mp.jpg");
  const QString phone = folder + QStringLiteral("/phone.png");
  return bench::Make24MegapixelJpeg(source, photo) &&
         bench::RunCommand(QStringLiteral("vips"), {"copy", photo, folder + QStringLiteral("/24mp.heic[Q=50]")}) &&
         !testing_support::MakeDng(folder + QStringLiteral("/camera.dng"), {photo, 1, photo}).isEmpty() &&
         bench::RunCommand(QStringLiteral("convert"), {source, "-resize", "4032x3024!", phone}) &&
         bench::RunCommand(QStringLiteral("heif-enc"), {"-t", "320", "-q", "50", phone, "-o", folder + QStringLiteral("/phone.heic")}) &&
         QFile::remove(phone);
}

struct Opening {
  double FirstPictureMs = 1e300, WholeImageMs = 1e300;
};

// Best of three openings: when the first picture was painted, and when the whole image was in.
Opening Open(app::frmMain& window, const QString& path) {
  Opening best;
  document::Document& document = window.CurrentDocument();
  for (int i = 0; i < 3; ++i) {
    document.CloseFile();
    QApplication::processEvents();
    QElapsedTimer clock;
    double first = -1;
    const auto painted = [&] {
      if (first >= 0) return;
      window.ImageView().repaint();
      first = double(clock.nsecsElapsed()) / 1e6;
    };
    const auto standIn = QObject::connect(&document, &document::Document::StandInShown, painted);
    const auto shown = QObject::connect(&document, &document::Document::ImageShown, [&](const imaging::Image* image) {
      if (image) painted();
    });
    clock.start();
    document.OpenFile(path);
    const double whole = double(clock.nsecsElapsed()) / 1e6;
    QObject::disconnect(standIn);
    QObject::disconnect(shown);
    best.FirstPictureMs = std::min(best.FirstPictureMs, first);
    best.WholeImageMs = std::min(best.WholeImageMs, whole);
  }
  return best;
}

double VipsThumbnailMs(const QString& path) {
  QTemporaryDir out;
  return bench::CommandMilliseconds(3, QStringLiteral("vipsthumbnail"),
                                    {path, "--size", "1280x800", "-o", out.filePath(QStringLiteral("t.jpg"))});
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  if (argc < 2) return 2;
  imaging::Initialize();
  const QString source = QString::fromLocal8Bit(argv[1]);
  const QString cache = bench::CachedFiles(QStringLiteral("vistrel-bench-formats"), QStringLiteral("phone.heic"),
                                           [&source](const QString& folder) { return MakeFiles(source, folder); });
  if (cache.isEmpty()) return 1;
  bench::FittedWindow fitted;
  app::frmMain& window = fitted.window;
  const Opening heic = Open(window, cache + QStringLiteral("/24mp.heic"));
  const Opening raw = Open(window, cache + QStringLiteral("/camera.dng"));
  const Opening phone = Open(window, cache + QStringLiteral("/phone.heic"));
  const double heicPeer = VipsThumbnailMs(cache + QStringLiteral("/24mp.heic"));
  const double rawPeer = VipsThumbnailMs(cache + QStringLiteral("/24mp.jpg"));
  bench::PrintFigure("open_24mp_heic_to_first_picture_painted", heic.FirstPictureMs, "ms");
  bench::PrintFigure("open_24mp_heic_to_whole_image", heic.WholeImageMs, "ms");
  bench::PrintFigure("vipsthumbnail_24mp_heic_to_window_size", heicPeer, "ms");
  bench::PrintFigure("open_12mp_phone_heic_to_first_picture_painted", phone.FirstPictureMs, "ms");
  bench::PrintFigure("open_12mp_phone_heic_to_whole_image", phone.WholeImageMs, "ms");
  bench::PrintFigure("open_raw_24mp_preview_to_first_picture_painted", raw.FirstPictureMs, "ms");
  bench::PrintFigure("open_raw_24mp_preview_to_whole_preview", raw.WholeImageMs, "ms");
  bench::PrintFigure("vipsthumbnail_24mp_preview_to_window_size", rawPeer, "ms");
  bench::PrintRatio("open_24mp_heic_first_picture vs vipsthumbnail", heic.FirstPictureMs / heicPeer);
  bench::PrintRatio("open_raw_first_picture vs vipsthumbnail of its preview", raw.FirstPictureMs / rawPeer);
  return 0;
}
