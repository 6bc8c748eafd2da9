// vistrel-cli: the headless companion for scripts and batch work. The viewer's own
// command line stays a single path.
//   vistrel-cli info FILE...   one line a file: PATH<TAB>FORMAT<TAB>WIDTHxHEIGHT
//   vistrel-cli convert IN OUT load IN as the viewer does, save OUT by its extension
//   vistrel-cli thumbnail IN OUT WIDTHxHEIGHT   the same, reduced to fit the box
//   vistrel-cli apply IN OUT OPERATION [VALUE...]...   the editing operations in turn, then save
#include "edit/Catalogue.h"
#include "imaging/Loader.h"
#include "imaging/Saver.h"
#include "imaging/Streaming.h"

#include <QCoreApplication>

#include <cstdio>

namespace {

int Usage() {
  std::fprintf(stderr,
               "usage: vistrel-cli info FILE...\n       vistrel-cli convert IN OUT\n"
               "       vistrel-cli thumbnail IN OUT WIDTHxHEIGHT\n"
               "       vistrel-cli apply IN OUT OPERATION [VALUE...] [OPERATION [VALUE...]]...\n");
  return 2;
}

void Print(const QString& line) { std::printf("%s\n", line.toLocal8Bit().constData()); }

int Info(const QStringList& files) {
  int failures = 0;
  for (const QString& file : files) {
    const auto loaded = imaging::LoadImage(file);
    if (!loaded) {
      Print(file + QStringLiteral("\tCan't open file"));
      ++failures;
      continue;
    }
    Print(QStringLiteral("%1\t%2\t%3x%4").arg(file, loaded->Format).arg(loaded->Picture.Width()).arg(loaded->Picture.Height()));
  }
  return failures == 0 ? 0 : 1;
}

int Convert(const QString& input, const QString& output, const QString& box = {}) {
  const QStringList sides = box.split(u'x');
  const auto image = box.isEmpty() ? imaging::LoadFile(input)
                     : sides.size() == 2 ? imaging::LoadFitting(input, sides[0].toInt(), sides[1].toInt())
                                         : std::nullopt;
  if (!image) {
    Print(QStringLiteral("Can't open file"));
    return 1;
  }
  if (!imaging::SaveImage(*image, output)) {
    Print(QStringLiteral("Can't save file"));
    return 1;
  }
  return 0;
}

// Decodes, applies and writes in one pipeline where every step allows it; false when
// it did not (nothing written), so the caller takes the in-memory path.
bool ApplyStreaming(const QString& input, const QString& output, const edit::OperationChain& chain) {
  for (const edit::OperationStep& step : chain.Steps) {
    if (!edit::ReadsSourceInOrder(*step.Command)) return false;
  }
  const imaging::StreamingScope streaming;
  auto image = imaging::OpenForStreaming(input);
  if (!image) return false;
  for (const edit::OperationStep& step : chain.Steps) image = edit::Apply(*step.Command, *image, step.Values);
  return imaging::SaveStreaming(*image, output);
}

int Apply(const QString& input, const QString& output, const QStringList& words) {
  const edit::OperationChain chain = edit::ParseOperationChain(words);
  if (!chain.Error.isEmpty()) {
    std::fprintf(stderr, "%s\n", chain.Error.toLocal8Bit().constData());
    return 2;
  }
  if (ApplyStreaming(input, output, chain)) return 0;
  auto image = imaging::LoadFile(input);
  if (!image) {
    Print(QStringLiteral("Can't open file"));
    return 1;
  }
  for (const edit::OperationStep& step : chain.Steps) image = edit::Apply(*step.Command, *image, step.Values);
  if (!imaging::SaveImage(*image, output)) {
    Print(QStringLiteral("Can't save file"));
    return 1;
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication application(argc, argv);
  imaging::Initialize();
  const QStringList arguments = QCoreApplication::arguments().mid(1);
  if (arguments.size() >= 2 && arguments[0] == QLatin1String("info")) return Info(arguments.mid(1));
  if (arguments.size() == 3 && arguments[0] == QLatin1String("convert")) return Convert(arguments[1], arguments[2]);
  if (arguments.size() == 4 && arguments[0] == QLatin1String("thumbnail")) {
    return Convert(arguments[1], arguments[2], arguments[3]);
  }
  if (arguments.size() >= 4 && arguments[0] == QLatin1String("apply")) {
    return Apply(arguments[1], arguments[2], arguments.mid(3));
  }
  return Usage();
}
