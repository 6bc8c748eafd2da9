// vistrel-cli as a user runs it.
#include "support/ImageCompare.h"
#include "support/TestFiles.h"

#include <QProcess>

#include <gtest/gtest.h>

namespace {

using testing_support::CorpusPath;

struct CliRun {
  int ExitCode = -1;
  QString Output;
};

CliRun Cli(const QStringList& arguments) {
  QProcess process;
  process.start(QStringLiteral(VISTREL_CLI_PATH), arguments);
  process.waitForFinished(60000);
  return {process.exitCode(), QString::fromLocal8Bit(process.readAllStandardOutput())};
}

TEST(VistrelCli, InfoPrintsOneLineAFileAndFailsWhenOneDoes) {
  const QString good = CorpusPath(QStringLiteral("formats/pil184.pcx"));
  const QString bad = CorpusPath(QStringLiteral("malformed/negative_size.ppm"));
  const CliRun run = Cli({QStringLiteral("info"), good, bad});
  EXPECT_EQ(run.ExitCode, 1);
  EXPECT_EQ(run.Output, good + QStringLiteral("\tPCX\t447x144\n") + bad + QStringLiteral("\tCan't open file\n"));
  EXPECT_EQ(Cli({QStringLiteral("info"), good}).ExitCode, 0);
}

TEST(VistrelCli, ConvertLoadsAsTheViewerAndSavesByExtension) {
  testing_support::TempFolder folder;
  const QString out = folder.File(QStringLiteral("upright.tga"));
  EXPECT_EQ(Cli({QStringLiteral("convert"), CorpusPath(QStringLiteral("exif-orientation/Landscape_8.jpg")), out}).ExitCode, 0);
  EXPECT_EQ(Cli({QStringLiteral("info"), out}).Output, out + QStringLiteral("\tTGA\t1800x1200\n"));
}

TEST(VistrelCli, ConvertSaysCantSaveFileAndLeavesNothing) {
  testing_support::TempFolder folder;
  const CliRun run = Cli({QStringLiteral("convert"), CorpusPath(QStringLiteral("formats/hopper.png")), folder.File(QStringLiteral("x.gif"))});
  EXPECT_NE(run.ExitCode, 0);
  EXPECT_EQ(run.Output, QStringLiteral("Can't save file\n"));
  EXPECT_EQ(Cli({QStringLiteral("convert"), folder.File(QStringLiteral("missing.png")), folder.File(QStringLiteral("y.png"))}).Output,
            QStringLiteral("Can't open file\n"));
  EXPECT_EQ(Cli({QStringLiteral("nothing")}).ExitCode, 2);
}

}  // namespace
