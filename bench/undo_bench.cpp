// The undo history on a 24-megapixel photo: seven different operations recorded after
// the base state, then the history's memory next to the naive eight whole copies, and the
// time of an undo and a redo (unpacking the state). Run on a smooth photo and on the same
// photo with sensor-like noise, which no lossless packing can shrink much.
// Usage: bench_undo SOURCE_PHOTO
#include "BenchClock.h"
#include "edit/UndoHistory.h"
#include "imaging/Loader.h"
#include "imaging/Operations.h"
#include "imaging/PackedImage.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTemporaryDir>

namespace {

void Measure(const char* label, const QString& photo) {
  const imaging::Image base = imaging::LoadFile(photo).value();
  const qint64 oneImage = qint64(base.Width()) * base.Height() * base.Bands();
  edit::UndoHistory<imaging::PackedImage> history;
  double pushMs = 0;
  imaging::Image image = base;
  const auto push = [&](const imaging::Image& state, const char* name) {
    pushMs = std::max(pushMs, bench::BestMilliseconds(1, [&] { history.Push(imaging::PackedImage::Pack(state), QLatin1String(name)); }));
  };
  push(image, "");
  push(image = imaging::ops::Brightness(image, 20), "Brightness");
  push(image = imaging::ops::Blur(image), "Blur");
  push(image = imaging::ops::Flip(image), "Flip");
  push(image = imaging::ops::Mirror(image), "Mirror");
  push(image = imaging::ops::Negative(image), "Negative");
  push(image = imaging::ops::RotateQuarter(image, 1), "Rotate");
  push(image = imaging::ops::GrayScale(image), "Gray Scale");
  qint64 held = 0;
  for (int slot = 0; slot < 8; ++slot) {
    if (const auto& state = history.PictureIn(slot)) held += state->Bytes();
  }
  const double undo = bench::BestMilliseconds(1, [&] { image = history.PictureIn(history.Undo()->Slot)->Unpack(); });
  const double redo = bench::BestMilliseconds(1, [&] { image = history.PictureIn(history.Redo()->Slot)->Unpack(); });
  std::printf("%s_states: 8 (base + 7 operations)\n", label);
  std::printf("%s_history_memory: %.1f MB\n", label, double(held) / 1048576.0);
  std::printf("%s_naive_memory: %.1f MB\n", label, 8.0 * double(oneImage) / 1048576.0);
  std::printf("%s history vs one image ratio: %.2f\n", label, double(held) / double(oneImage));
  std::printf("%s history vs naive ratio: %.2f\n", label, double(held) / (8.0 * double(oneImage)));
  bench::PrintFigure((std::string(label) + "_slowest_push").c_str(), pushMs, "ms");
  bench::PrintFigure((std::string(label) + "_undo").c_str(), undo, "ms");
  bench::PrintFigure((std::string(label) + "_redo").c_str(), redo, "ms");
}

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication application(argc, argv);
  if (argc < 2) return 2;
  imaging::Initialize();
  QTemporaryDir work;
  const QString smooth = work.filePath(QStringLiteral("smooth.jpg")), noisy = work.filePath(QStringLiteral("noisy.jpg"));
  const QString source = QString::fromLocal8Bit(argv[1]);
  const QStringList resize = {source, QStringLiteral("-resize"), QStringLiteral("6000x4000!")};
  if (QProcess::execute(QStringLiteral("convert"), resize + QStringList{QStringLiteral("-quality"), QStringLiteral("92"), smooth}) != 0 ||
      QProcess::execute(QStringLiteral("convert"), resize + QStringList{QStringLiteral("-attenuate"), QStringLiteral("0.6"),
                                                                      QStringLiteral("+noise"), QStringLiteral("Gaussian"),
                                                                      QStringLiteral("-quality"), QStringLiteral("92"), noisy}) != 0) {
    return 1;
  }
  Measure("smooth", smooth);
  Measure("noisy", noisy);
  return 0;
}
