// Turning a 24-megapixel JPEG by 90 degrees as whole commands in one run: vistrel-cli's
// lossless move of the compressed blocks, jpegtran doing the same, and a decode, turn and
// encode (libvips' vips rot) for what the move saves.
// Usage: bench_lossless PATH_TO_VISTREL_CLI SOURCE_PHOTO
#include "BenchCommand.h"

#include <QCoreApplication>

int main(int argc, char** argv) {
  QCoreApplication application(argc, argv);
  const auto comparison = bench::PrepareComparison(argc, argv);
  if (!comparison) return 2;
  const QString turned = comparison->Work.filePath(QStringLiteral("turned.jpg"));
  const double ours = bench::CommandMilliseconds(5, comparison->Cli, {"apply", comparison->Photo, turned, "Rotate", "90"});
  const double jpegtran = bench::CommandMilliseconds(
      5, QStringLiteral("sh"), {"-c", "jpegtran -rotate 90 -perfect -copy all \"$1\" > \"$0\"", turned, comparison->Photo});
  const double recoded = bench::CommandMilliseconds(5, QStringLiteral("vips"), {"rot", comparison->Photo, turned, "d90"});
  std::printf("lossless_source: 6000x4000 jpeg\n");
  bench::PrintFigure("vistrel_cli_rotate_90_lossless", ours, "ms");
  bench::PrintFigure("jpegtran_rotate_90_perfect", jpegtran, "ms");
  bench::PrintFigure("vips_rot_d90_decode_rotate_encode", recoded, "ms");
  bench::PrintRatio("vistrel_cli_rotate_90_lossless vs jpegtran", ours / jpegtran);
  bench::PrintRatio("vistrel_cli_rotate_90_lossless vs decode_rotate_encode", ours / recoded);
  return 0;
}
