// An edit through the main window on a 24-megapixel JPEG shown at Fit: from the parameter
// dialog's OK to the painted frame (Brightness 20), from the menu to the painted frame
// (Median, which has no dialog), and from Undo to the painted frame (once to the image
// shown before, kept whole, and once more to a state only its packed copy holds), beside
// the same operation run alone on the same image. The first edit of an image also records
// its base state; each figure is the best of three edits.
// Usage: bench_edit SOURCE_PHOTO
#include "BenchClock.h"
#include "BenchPhotos.h"
#include "app/frmMain.h"
#include "edit/Catalogue.h"
#include "edit/frmDiseno.h"
#include "view/Viewport.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QTemporaryDir>

#include <chrono>

namespace {

using Clock = std::chrono::steady_clock;

void Paint(app::frmMain& window) {
  window.ImageView().repaint();
  QApplication::processEvents();
}

double MillisecondsSince(Clock::time_point start) {
  return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

// The command chosen from its menu, its dialog (if it has one) answered OK with `value` in
// the first box: the time from OK, or from the command for one without a dialog, to the
// painted frame.
// Until nothing works in the background: the exact frame made, every undo state packed,
// every row of a state undone to unpacked (ToQImage reads them all).
void Settle(app::frmMain& window) {
  while (!window.ImageView().FrameExact()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 10);
  (void)window.CurrentDocument().CurrentImage()->ToQImage();
  const auto& history = window.CurrentDocument().UndoHistory();
  for (int slot = 0; slot < history.kSlots; ++slot) {
    if (const auto& state = history.PictureIn(slot)) (void)state->Picture.Bytes();
  }
}

// From OK to the first paint that shows the result.
double OkToPainted(app::frmMain& window, const char* command, const char* value) {
  Settle(window);
  Clock::time_point ok = Clock::now();
  window.SetParameterDialogRunner([&](edit::frmDiseno& dialog) {
    if (*value) dialog.findChild<QLineEdit*>()->setText(QLatin1String(value));
    ok = Clock::now();
    return true;
  });
  window.findChild<QAction*>(QLatin1String(command))->trigger();
  Paint(window);
  return MillisecondsSince(ok);
}

double OperationAlone(const imaging::Image& image, edit::OperationId id, const edit::Arguments& values) {
  return bench::BestMilliseconds(3, [&] { (void)edit::Apply(edit::CommandFor(id), image, values); });
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  if (argc < 2) return 2;
  QTemporaryDir pictures, config;
  const QStringList names = bench::MakeTintedPhotos(QString::fromLocal8Bit(argv[1]), pictures.path(), 1);
  if (names.isEmpty()) return 1;
  app::frmMain window(config.filePath(QStringLiteral("Ini.in")));
  window.RunStartup(pictures.filePath(names.front()));
  window.State().Settings.FitToWindow = true;
  window.resize(1280, 800);
  window.show();
  Paint(window);
  document::Document& session = window.CurrentDocument();

  double brightness = 1e300, median = 1e300, undo = 1e300, undoPacked = 1e300;
  for (int i = 0; i < 3; ++i) {
    brightness = std::min(brightness, OkToPainted(window, "mnuColorsBrightness", "20"));
    median = std::min(median, OkToPainted(window, "mnuImageFiltersMedian", ""));
    const Clock::time_point start = Clock::now();
    session.Undo();
    Paint(window);
    undo = std::min(undo, MillisecondsSince(start));
    for (int slot = 0; slot < session.UndoHistory().Count(); ++slot) {
      if (const auto& state = session.UndoHistory().PictureIn(slot)) (void)state->Picture.Bytes();  // packed by now
    }
    const Clock::time_point again = Clock::now();
    session.Undo();  // to a state that only its packed copy holds
    Paint(window);
    undoPacked = std::min(undoPacked, MillisecondsSince(again));
  }
  Settle(window);
  const imaging::Image original = *session.CurrentImage();  // not held before: the base state is only packed
  const double brightnessAlone = OperationAlone(original, edit::OperationId::Brightness, {20});
  const double medianAlone = OperationAlone(original, edit::OperationId::Median, {});
  std::printf("edit_source: 6000x4000 jpeg at Fit, window 1280x800\n");
  bench::PrintFigure("brightness_operation_alone", brightnessAlone, "ms");
  bench::PrintFigure("brightness_ok_to_painted", brightness, "ms");
  bench::PrintFigure("median_operation_alone", medianAlone, "ms");
  bench::PrintFigure("median_ok_to_painted", median, "ms");
  bench::PrintFigure("undo_to_painted", undo, "ms");
  bench::PrintFigure("undo_unpacking_to_painted", undoPacked, "ms");
  bench::PrintRatio("brightness ok_to_painted vs operation_alone", brightness / brightnessAlone);
  bench::PrintRatio("median ok_to_painted vs operation_alone", median / medianAlone);
  bench::PrintRatio("undo_to_painted vs brightness_operation_alone", undo / brightnessAlone);
  bench::PrintRatio("undo_unpacking_to_painted vs brightness_operation_alone", undoPacked / brightnessAlone);
  return 0;
}
