// The main window on a 24-megapixel JPEG (a click on a list entry, the zoom): from
// opening a list entry to its first painted frame at Fit, from a zoom command to the
// painted frame at 10 %, 100 % and 1000 %, and from "next image" to its painted frame
// once the neighbours are prefetched. Zooms are timed with the worker idle (the display
// levels warmed, as they are a moment after an image opens). The imaging engine's
// decode-to-fit of the same file is timed in the same run for the ratios. A cold open also
// times its first picture (a quick one while the whole image is read), and, with the file
// dropped from the page cache, its first paint and its first paint in full quality at Fit;
// the same photos with a camera's EXIF thumbnail are timed alike. The same
// photos carrying an Adobe RGB profile are timed in the same run, for the cost of colour
// management.
// Usage: bench_view SOURCE_PHOTO
#include "BenchClock.h"
#include "BenchPhotos.h"
#include "BenchScreen.h"
#include "app/frmMain.h"
#include "imaging/Loader.h"
#include "view/Viewport.h"

#include <QApplication>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <fcntl.h>
#include <unistd.h>

namespace {

void Paint(app::frmMain& window) {
  window.ImageView().repaint();
  QApplication::processEvents();
}

struct ViewFigures {
  double FirstPicture = 1e300, FirstOpen = 0, Zoom10 = 0, Zoom100 = 0, Zoom1000 = 0, Next = 0;
  double ColdFirstPaint = 1e300, ColdFitFramePaint = 1e300;  // the file dropped from the page cache
};

// Drops the file from the page cache, so that its next read comes from the disk.
void DropFromPageCache(const QString& path) {
  const int file = ::open(QFile::encodeName(path).constData(), O_RDONLY);
  if (file < 0) return;
  ::fdatasync(file);
  ::posix_fadvise(file, 0, 0, POSIX_FADV_DONTNEED);
  ::close(file);
}

// Times, from `Start`, the canvas's first paint and its first paint of a frame in full
// quality at the fitted zoom: a quick picture as wide as the canvas, or the whole image.
class PaintClock : public QObject {
 public:
  explicit PaintClock(QWidget* canvas) : canvas_(canvas) { canvas->installEventFilter(this); }
  void Start() {
    started_ = std::chrono::steady_clock::now();
    first_ = fitFrame_ = -1;
    quickWidth_ = 0;
    whole_ = false;
  }
  void QuickShown(int width) { quickWidth_ = width; }
  void WholeShown() { whole_ = true; }
  double First() const { return first_; }
  double FitFrame() const { return fitFrame_; }

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() != QEvent::Paint) return false;
    const double now = std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - started_).count();
    if (first_ < 0) first_ = now;
    if (fitFrame_ < 0 && (whole_ || quickWidth_ >= canvas_->width() * 95 / 100)) fitFrame_ = now;
    return false;
  }

 private:
  QWidget* canvas_;
  std::chrono::steady_clock::time_point started_;
  double first_ = -1, fitFrame_ = -1;
  int quickWidth_ = 0;
  bool whole_ = false;
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
  PaintClock paints(window.findChild<QWidget*>(QStringLiteral("imaImagen")));
  QObject::connect(&session, &document::Document::StandInShown, [&](const imaging::Image& picture) {
    pictureShown();
    paints.QuickShown(int(picture.Width() / window.devicePixelRatioF()));
  });
  QObject::connect(&session, &document::Document::ImageShown, [&](const imaging::Image* image) {
    if (!image) return;
    pictureShown();
    paints.WholeShown();
  });
  const auto nextFar = [&] { return far == 2 ? 5 : 2; };
  figures.FirstOpen = bench::BestMillisecondsAfter(
      3,
      [&] {
        window.Prefetcher().WaitForIdle();
        DropFromPageCache(folder + u'/' + window.ListModel().Entry(nextFar()).FileName);
      },
      [&] {
        far = nextFar();
        opened = std::chrono::steady_clock::now();
        paints.Start();
        session.ClickEntry(far);
        Paint(window);
        figures.ColdFirstPaint = std::min(figures.ColdFirstPaint, paints.First());
        figures.ColdFitFramePaint = std::min(figures.ColdFitFramePaint, paints.FitFrame() < 0 ? 1e300 : paints.FitFrame());
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

// The same photos as a camera writes them, with a 160-pixel thumbnail in their EXIF.
bool MakeCameraLike(const QString& from, const QString& to, const QStringList& names) {
  for (const QString& name : names) {
    const QString photo = to + u'/' + name, thumbnail = to + QStringLiteral("/thumbnail.jpg");
    if (!QFile::copy(from + u'/' + name, photo) || QProcess::execute(QStringLiteral("vipsthumbnail"), {photo, "-s", "160", "-o", thumbnail}) != 0 ||
        QProcess::execute(QStringLiteral("exiftool"), {"-q", "-overwrite_original", "-ThumbnailImage<=" + thumbnail, photo}) != 0) {
      return false;
    }
    QFile::remove(thumbnail);
  }
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  bench::UseOffscreenDesktop();
  QApplication application(argc, argv);
  if (argc < 2) return 2;
  QTemporaryDir pictures, tagged, camera;
  const QStringList names = bench::MakeTintedPhotos(QString::fromLocal8Bit(argv[1]), pictures.path(), 6);
  if (names.isEmpty() || !MakeTagged(pictures.path(), tagged.path(), names) || !MakeCameraLike(pictures.path(), camera.path(), names)) return 1;
  std::printf("view_source: %lld photos of 6000x4000 jpeg, window 1280x800\n", static_cast<long long>(names.size()));

  const QString photo = pictures.filePath(names.front());
  const double decodeToFit = bench::BestMilliseconds(3, [&] { (void)imaging::LoadFitting(photo, 1280, 800); });
  const double decodeToFitHd = bench::BestMilliseconds(3, [&] { (void)imaging::LoadFitting(photo, 1920, 1080); });
  const ViewFigures plain = MeasureWindow(pictures.path());
  const ViewFigures adobe = MeasureWindow(tagged.path());
  const ViewFigures cameraLike = MeasureWindow(camera.path());

  bench::PrintFigure("imaging_decode_to_fit_1280x800", decodeToFit, "ms");
  bench::PrintFigure("imaging_decode_to_fit_1920x1080", decodeToFitHd, "ms");
  bench::PrintFigure("open_entry_to_first_picture", plain.FirstPicture, "ms");
  bench::PrintFigure("open_entry_to_painted_fit", plain.FirstOpen, "ms");
  bench::PrintFigure("cold_open_first_paint", plain.ColdFirstPaint, "ms");
  bench::PrintFigure("cold_open_fit_frame_painted", plain.ColdFitFramePaint, "ms");
  bench::PrintFigure("camera_cold_open_first_paint", cameraLike.ColdFirstPaint, "ms");
  bench::PrintFigure("camera_cold_open_fit_frame_painted", cameraLike.ColdFitFramePaint, "ms");
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
