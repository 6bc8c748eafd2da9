// The imaging engine on a 24-megapixel JPEG made by ImageMagick at bench time: full
// decode, decode-to-fit for a 1920x1080 panel and header-only, in process; then the same
// fit as whole commands next to vipsthumbnail and ImageMagick's convert -resize.
// Usage: bench_imaging PATH_TO_VISTREL_CLI SOURCE_PHOTO
#include "BenchCommand.h"
#include "imaging/Loader.h"

#include <QCoreApplication>

namespace {

double CommandMilliseconds(const QString& program, const QStringList& arguments) {
  return bench::CommandMilliseconds(3, program, arguments);
}

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication application(argc, argv);
  const auto comparison = bench::PrepareComparison(argc, argv);
  if (!comparison) return 2;
  const QString& cli = comparison->Cli;
  const QString& photo = comparison->Photo;
  std::printf("imaging_source: 6000x4000 jpeg\n");
  bench::PrintFigure("decode_full", bench::BestMilliseconds(3, [&] { (void)imaging::LoadFile(photo); }), "ms");
  const double fit = bench::BestMilliseconds(3, [&] { (void)imaging::LoadFitting(photo, 1920, 1080); });
  bench::PrintFigure("decode_to_fit_1920x1080", fit, "ms");
  const double header = bench::BestMilliseconds(5, [&] {
    for (int i = 0; i < 20; ++i) (void)imaging::ReadImageSize(photo);
  }) / 20;
  bench::PrintFigure("header_only", header, "ms");

  const QString out = comparison->Work.filePath(QStringLiteral("fit.ppm"));
  const double ours = CommandMilliseconds(cli, {QStringLiteral("thumbnail"), photo, out, QStringLiteral("1920x1080")});
  const double vips = CommandMilliseconds(QStringLiteral("vipsthumbnail"),
                                          {photo, QStringLiteral("--size"), QStringLiteral("1920x1080"), QStringLiteral("-o"), out});
  const double magick = CommandMilliseconds(QStringLiteral("convert"), {photo, QStringLiteral("-resize"), QStringLiteral("1920x1080"), out});
  bench::PrintFigure("fit_command_vistrel_cli", ours, "ms");
  bench::PrintFigure("fit_command_vipsthumbnail", vips, "ms");
  bench::PrintFigure("fit_command_imagemagick", magick, "ms");
  bench::PrintRatio("fit vistrel_cli vs vipsthumbnail", ours / vips);
  bench::PrintRatio("fit imagemagick vs vistrel_cli", magick / ours);
  return 0;
}
