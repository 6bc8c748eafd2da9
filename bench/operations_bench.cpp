// The editing operations on a 24-megapixel photo made by ImageMagick at bench time.
// For each: the operation alone in process (best of 3), its preview on the dialog's
// reduced copy, and the whole command (load the JPEG, apply, write a new PPM; best of 3) through
// `vistrel-cli apply` next to the closest `convert` of ImageMagick, in the same run.
// Usage: bench_operations PATH_TO_VISTREL_CLI SOURCE_PHOTO [OPERATION...]
#include "BenchCommand.h"
#include "edit/Catalogue.h"
#include "edit/DialogDescription.h"
#include "edit/DialogDescriptions.h"
#include "imaging/Loader.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

struct Case {
  const char* Words;   // vistrel-cli apply's words
  const char* Magick;  // convert's options between the input and the output
};

// The closest ImageMagick equivalent of each operation on a 6000 x 4000 photo.
const Case kCases[] = {
    {"Brightness 20", "-brightness-contrast 20x0"},
    {"Contrast 20", "-brightness-contrast 0x20"},
    {"Gamma 150", "-gamma 1.5"},
    {"Hsl 20 20 20", "-modulate 120,120,120"},
    {"Rgb 20 -10 5", "-channel R -evaluate add 51 -channel G -evaluate subtract 25 -channel B -evaluate add 13 +channel"},
    {"Solarize 128", "-solarize 50%"},
    {"Equalize", "-equalize"},
    {"Negative", "-negate"},
    {"GrayScale", "-grayscale Rec601Luma"},
    {"ColorDepth 1", "-dither FloydSteinberg -colors 2"},
    {"ColorDepth 4", "-dither FloydSteinberg -colors 16"},
    {"ColorDepth 8", "-dither FloydSteinberg -colors 256"},
    {"ColorDepth 24", "-alpha off"},
    {"ConcaveParabolic", "-function Polynomial -1,2,0"},
    {"ConvexParabolic", "-function Polynomial 1,0,0"},
    {"RedEyeRemoval 2500 1500 1000 1000", "-region 1000x1000+2500+1500 -channel R -fx (r>1.5*(g+b)/2)?(g+b)/2:r"},
    {"Blend 50", "-morphology Convolve 3x3:0.0556,0.0556,0.0556,0.0556,0.5556,0.0556,0.0556,0.0556,0.0556"},
    {"Blur", "-gaussian-blur 0x1"},
    {"Diffuse", "-spread 2"},
    {"Dilate", "-morphology Dilate Square:1"},
    {"Erode", "-morphology Erode Square:1"},
    {"Median", "-statistic Median 3x3"},
    {"Mosaic 8", "-scale 750x500! -scale 6000x4000!"},
    {"MotionBlur 5 5 10", "-motion-blur 0x3+45"},
    {"Noise 10 50", "-attenuate 0.4 +noise Uniform"},
    {"Sharpen 4", "-unsharp 0x1+1.0+0"},
    {"Soften 4", "-gaussian-blur 0x2"},
    {"Flip", "-flip"},
    {"Mirror", "-flop"},
    {"Perspective 50 1", "-virtual-pixel white -distort Perspective 0,0,1200,0,5999,0,4799,0,0,3999,0,3999,5999,3999,5999,3999"},
    {"Pinch 50", "-implode 0.5"},
    {"Ripple 10 20 1", "-background white -wave 80x600"},
    {"Swirl 300", "-swirl 300"},
    {"Rotate 30", "-background white -rotate 30"},
    {"Resize 2000 1500", "-resize 2000x1500!"},
    {"Crop 1000 1000 2000 1500", "-crop 2000x1500+1000+1000 +repage"},
};

bool HasPreview(const edit::CatalogueCommand& command) {
  return edit::ParseDialogDescription(edit::DialogDescriptionFor(command.Id)).HasPreview();
}

QStringList Words(const char* text) { return QString::fromLatin1(text).split(u' ', Qt::SkipEmptyParts); }

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication application(argc, argv);
  const auto comparison = bench::PrepareComparison(argc, argv);
  if (!comparison) return 2;
  const QString& cli = comparison->Cli;
  const QString& photo = comparison->Photo;
  const QStringList only = QCoreApplication::arguments().mid(3);
  const imaging::Image image = imaging::LoadFile(photo).value();
  const imaging::Image preview = image.FitWithin(112, 112);  // the dialog's panel at 96 DPI
  const QString out = comparison->Work.filePath(QStringLiteral("out.ppm"));
  std::printf("operations_source: 6000x4000 jpeg\n");
  // The operations in process first: a machine just busy with ImageMagick's threads
  // runs the next few seconds slower, which would be charged to us.
  struct Row {
    const Case* Source;
    QStringList Words;
    double Alone = 0, Preview = -1;  // -1: the command has no preview
  };
  std::vector<Row> rows;
  for (const Case& c : kCases) {
    const QStringList words = Words(c.Words);
    if (!only.isEmpty() && !only.contains(words[0])) continue;
    const edit::OperationChain chain = edit::ParseOperationChain(words);
    if (chain.Steps.size() != 1) return 1;
    const edit::OperationStep& step = chain.Steps.front();
    Row row{&c, words};
    // Best of three: a busy moment of the machine only ever adds time.
    row.Alone = bench::BestMilliseconds(3, [&] { (void)edit::Apply(*step.Command, image, step.Values); });
    if (HasPreview(*step.Command)) {
      row.Preview = bench::BestMilliseconds(5, [&] { (void)edit::Apply(*step.Command, preview, step.Values); });
    }
    rows.push_back(row);
  }
  std::printf("%-34s %9s %9s %11s %11s %7s\n", "operation", "op ms", "preview", "vistrel ms", "magick ms", "ratio");
  std::vector<double> ratios;
  for (const Row& row : rows) {
    const double ours =
        bench::NewFileCommandMilliseconds(3, cli, QStringList{QStringLiteral("apply"), photo, out} + row.Words, out);
    const double magick = bench::NewFileCommandMilliseconds(
        3, QStringLiteral("convert"), QStringList{photo} + Words(row.Source->Magick) + QStringList{out}, out);
    ratios.push_back(magick / ours);
    char previewText[16] = "n/a";
    if (row.Preview >= 0) std::snprintf(previewText, sizeof previewText, "%.2f", row.Preview);
    std::printf("%-34s %9.1f %9s %11.1f %11.1f %7.2f\n", row.Source->Words, row.Alone, previewText, ours, magick,
                magick / ours);
    std::fflush(stdout);
  }
  if (ratios.empty()) return 0;
  std::sort(ratios.begin(), ratios.end());
  bench::PrintRatio("operations imagemagick vs vistrel_cli, lowest", ratios.front());
  bench::PrintRatio("operations imagemagick vs vistrel_cli, median", ratios[ratios.size() / 2]);
  return 0;
}
