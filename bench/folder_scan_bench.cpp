// The folder scan on a folder of 100,000 files: scanned, sorted and shown in frmMain's
// list, next to `ls -f | sort` on the same folder in the same run.
// Usage: bench_folder_scan [FILE_COUNT]
#include "BenchClock.h"
#include "app/frmMain.h"
#include "browse/FolderScan.h"
#include "browse/ListColumn.h"

#include <QApplication>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <cstdlib>

namespace {

void MakeFiles(const QString& folder, int count) {
  static const char* const kPatterns[] = {"IMG_%06d.JPG", "photo %d.jpg", "Scan%d.png", "frame-%d.gif", "notes %d.txt"};
  for (int i = 0; i < count; ++i) {
    QFile file(folder + u'/' + QString::asprintf(kPatterns[i % 5], i));
    file.open(QIODevice::WriteOnly);
  }
}

double LsSortMilliseconds(const QString& folder) {
  return bench::BestMilliseconds(3, [&] {
    QProcess::execute(QStringLiteral("sh"), {QStringLiteral("-c"), QStringLiteral("ls -f \"$0\" | sort > /dev/null"), folder});
  });
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  const int count = argc > 1 ? std::atoi(argv[1]) : 100000;
  QTemporaryDir pictures;
  QTemporaryDir config;
  MakeFiles(pictures.path(), count);
  std::printf("folder_scan_files: %d files\n", count);

  size_t listed = 0;
  const double scanSort = bench::BestMilliseconds(3, [&] { listed = browse::ScanFolder(pictures.path(), browse::ScanFilter::Images).size(); });
  std::vector<browse::FileEntry> entries = browse::ScanFolder(pictures.path(), browse::ScanFilter::Images);
  const double sortOnly = bench::BestMilliseconds(3, [&] {
    std::vector<browse::FileEntry> shuffled(entries.rbegin(), entries.rend());
    browse::SortEntries(shuffled);
  });
  const QFontMetrics metrics(QApplication::font());
  const double fitColumn = bench::BestMilliseconds(3, [&] {
    browse::FitListColumnWidth(entries, {[&](const QString& text) { return metrics.horizontalAdvance(text); },
                                         [&](QChar c) { return metrics.horizontalAdvance(c); }});
  });
  const double scanShow = bench::BestMilliseconds(3, [&] {
    app::frmMain window(config.filePath(QStringLiteral("Ini.in")));
    window.RunStartup(pictures.path());
    QApplication::processEvents();  // the first painted frame of the list
  });
  const double lsSort = LsSortMilliseconds(pictures.path());

  std::printf("folder_scan_listed: %zu files\n", listed);
  bench::PrintFigure("folder_scan_sort", scanSort, "ms");
  bench::PrintFigure("folder_sort_only", sortOnly, "ms");
  bench::PrintFigure("folder_fit_column", fitColumn, "ms");
  bench::PrintFigure("folder_scan_and_show", scanShow, "ms");
  bench::PrintFigure("ls_f_sort", lsSort, "ms");
  bench::PrintRatio("folder_scan_and_show vs ls_f_sort", scanShow / lsSort);
  return 0;
}
