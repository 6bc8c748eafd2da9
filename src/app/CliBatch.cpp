#include "app/CliBatch.h"

#include "app/CliOutput.h"
#include "edit/BatchConvert.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>

#include <malloc.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>

namespace cli {

namespace {

struct BatchWords {
  edit::BatchOrder Order;
  QString Error;
};

// One option and its value into the order; the complaint when it does not fit.
QString ReadOption(const QString& option, const QString& value, edit::BatchOrder& order) {
  static const QStringList kExisting = {"skip", "replace", "rename"}, kCompressions = {"lzw", "deflate", "jpeg", "none"};
  bool isNumber = false;
  const int number = value.toInt(&isNumber);
  if (option == QLatin1String("--to")) order.OutputFolder = value;
  else if (option == QLatin1String("--format") && imaging::CanEncode(value.toLower())) order.Format = value.toLower();
  else if (option == QLatin1String("--format")) return QStringLiteral("Can't write %1 files").arg(value);
  else if (option == QLatin1String("--fit") && ParseBox(value)) order.Fit = *ParseBox(value);
  else if (option == QLatin1String("--fit")) return QStringLiteral("Bad size: %1 (WIDTHxHEIGHT, each from 1 to %2)").arg(value).arg(kLargestBoxSide);
  else if (option == QLatin1String("--jobs") && isNumber && number >= 1 && number <= 64) order.Jobs = number;
  else if (option == QLatin1String("--name") && edit::PatternProblem(value).isEmpty()) order.NamePattern = value;
  else if (option == QLatin1String("--name")) return QStringLiteral("Bad name pattern \"%1\": %2").arg(value, edit::PatternProblem(value));
  else if (option == QLatin1String("--existing") && kExisting.contains(value)) order.Existing = edit::WhenExists(kExisting.indexOf(value));
  else if (option == QLatin1String("--quality") && isNumber && number >= 1 && number <= 100) order.Options.Quality = number;
  else if (option == QLatin1String("--compression") && kCompressions.contains(value)) order.Options.Tiff = imaging::TiffCompression(kCompressions.indexOf(value));
  else return QStringLiteral("Bad option: %1 %2").arg(option, value);
  return {};
}

// The inputs come before --to; options follow, then the operations.
BatchWords ReadBatchWords(QStringList words) {
  BatchWords read;
  const qsizetype to = words.indexOf(QStringLiteral("--to"));
  read.Order.Inputs = words.mid(0, to);
  words = words.mid(to);
  while (words.size() >= 2 && words.front().startsWith(QLatin1String("--")) && read.Error.isEmpty()) {
    const QString option = words.takeFirst();
    read.Error = ReadOption(option, words.takeFirst(), read.Order);
  }
  if (read.Error.isEmpty() && !words.isEmpty()) {
    const edit::OperationChain chain = edit::ParseOperationChain(words);
    read.Error = chain.Error;
    read.Order.Steps = chain.Steps;
  }
  if (read.Error.isEmpty() && (read.Order.Inputs.isEmpty() || read.Order.OutputFolder.isEmpty())) read.Error = QStringLiteral("No files to convert, or no --to folder");
  return read;
}

std::atomic_bool stopRequested{false};

extern "C" void StopOnInterrupt(int) { stopRequested = true; }

// Each file frees its pictures just before the next asks for the same sizes again. Kept in
// the process, that memory is not handed back to the kernel and faulted in anew, page by
// page, for every file: about 4 % of a batch of photos, and the process ends soon anyway.
void KeepFreedMemory() {
  mallopt(M_MMAP_THRESHOLD, 32 << 20);
  mallopt(M_TRIM_THRESHOLD, 512 << 20);
}

// The skipped and failed files on standard error, the summary on standard output.
void Report(const std::vector<edit::PlannedFile>& plan, const edit::BatchReport& report) {
  const QStringList lines = edit::ReportLines(plan, report);
  for (qsizetype i = 0; i + 1 < lines.size(); ++i) Complain(lines[i]);
  Print(lines.back());
}

}  // namespace

std::optional<QSize> ParseBox(const QString& text) {
  const QStringList sides = text.split(u'x');
  if (sides.size() != 2) return std::nullopt;
  bool wideOk = false, highOk = false;
  const int width = sides[0].toInt(&wideOk), height = sides[1].toInt(&highOk);
  const auto inRange = [](int side) { return side >= 1 && side <= kLargestBoxSide; };
  if (!wideOk || !highOk || !inRange(width) || !inRange(height)) return std::nullopt;
  return QSize(width, height);
}

int ConvertMany(const QStringList& words) {
  const BatchWords read = ReadBatchWords(words);
  if (!read.Error.isEmpty()) {
    Complain(read.Error);
    return 2;
  }
  if (!QDir().mkpath(read.Order.OutputFolder)) {
    Complain(QStringLiteral("Can't make the folder %1").arg(read.Order.OutputFolder));
    return 1;
  }
  const std::vector<edit::PlannedFile> plan = edit::PlanBatch(read.Order);
  std::signal(SIGINT, StopOnInterrupt);
  KeepFreedMemory();
  const bool terminal = isatty(fileno(stderr)) != 0;
  QElapsedTimer clock;
  clock.start();
  const edit::BatchReport report = edit::RunBatch(
      read.Order, plan,
      [&](const edit::BatchProgress& progress) {
        if (!terminal) return;
        std::fprintf(stderr, "\r\033[K%s", edit::ProgressLine(progress, clock.elapsed()).toLocal8Bit().constData());
        std::fflush(stderr);
      },
      stopRequested);
  if (terminal) std::fputs("\n", stderr);
  Report(plan, report);
  if (stopRequested.load()) return 130;
  return report.Failures.empty() ? 0 : 1;
}

}  // namespace cli
