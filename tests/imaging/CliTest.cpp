// vistrel-cli as a user runs it.
#include "support/ImageCompare.h"
#include "support/TestFiles.h"

#include "imaging/Loader.h"
#include "imaging/Operations.h"
#include "imaging/Saver.h"
#include "base/FileNames.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QThread>

#include <csignal>

#include <sys/stat.h>
#include <unistd.h>

#include <gtest/gtest.h>

namespace {

using testing_support::CorpusPath;

using CliRun = testing_support::ProgramRun;

CliRun Cli(const QStringList& arguments) { return testing_support::Run(QStringLiteral(VISTREL_CLI_PATH), arguments); }

TEST(VistrelCli, InfoPrintsOneLineAFileAndConvertSavesByTheExtension) {
  const QString good = CorpusPath(QStringLiteral("formats/pil184.pcx"));
  const QString bad = CorpusPath(QStringLiteral("malformed/negative_size.ppm"));
  const CliRun run = Cli({"info", good, bad});
  EXPECT_EQ(run.ExitCode, 1);
  EXPECT_EQ(run.Output, good + "\tPCX\t447x144\tsRGB\n" + bad + "\tCan't open file\n");
  EXPECT_EQ(Cli({"info", good}).ExitCode, 0);
  testing_support::TempFolder folder;  // convert loads as the viewer does and saves by the extension
  const QString out = folder.File(QStringLiteral("upright.tga"));
  EXPECT_EQ(Cli({"convert", CorpusPath(QStringLiteral("exif-orientation/Landscape_8.jpg")), out}).ExitCode, 0);
  EXPECT_EQ(Cli({"info", out}).Output, out + "\tTGA\t1800x1200\tsRGB\n");
  // A file of pages says how many, and convert writes the one asked for (counted from 1).
  const QString pages = folder.File(QStringLiteral("pages.dcx")), second = folder.File(QStringLiteral("second.png"));
  ASSERT_EQ(testing_support::Run(QStringLiteral("convert"), {"-size", "8x6", "xc:red", "xc:blue", pages}).ExitCode, 0);
  EXPECT_EQ(Cli({"info", pages}).Output, pages + "\tDCX\t8x6\tsRGB\tpages 2\n");
  EXPECT_EQ(Cli({"convert", "--page", "2", pages, second}).ExitCode, 0);
  EXPECT_EQ(QImage(second).pixelColor(0, 0), QColor(Qt::blue));
  const CliRun beyond = Cli({"convert", "--page", "3", pages, second});
  EXPECT_EQ(beyond.ExitCode, 2);
  EXPECT_EQ(beyond.Errors, "Bad page: 3 (" + pages + " has 2 pages)\n");
}

// Each failure names the file and why, and a bad word is refused before anything is read.
TEST(VistrelCli, FailuresSayWhatAndWhy) {
  testing_support::TempFolder folder;
  const QString photo = CorpusPath(QStringLiteral("formats/hopper.png"));
  const QString gif = folder.File(QStringLiteral("x.gif")), missing = folder.File(QStringLiteral("missing.png"));
  const QString out = folder.File(QStringLiteral("out.png"));
  struct Case {
    QStringList words;
    int exitCode;
    QString errors;
  };
  const Case cases[] = {
      {{"convert", photo, gif}, 1, "Can't save file: " + gif + " (this format cannot be written)\n"},
      {{"convert", missing, out}, 1, "Can't open file: " + missing + " (the file does not exist)\n"},
      {{"convert", folder.Path(), out}, 1, "Can't open file: " + folder.Path() + " (it is a folder)\n"},
      {{"thumbnail", photo, out, "0x0"}, 2, "Bad size: 0x0 (WIDTHxHEIGHT, each from 1 to 16384)\n"},
      {{"thumbnail", photo, out, "100000x100000"}, 2, "Bad size: 100000x100000 (WIDTHxHEIGHT, each from 1 to 16384)\n"},
      {{"thumbnail", photo, out, "320"}, 2, "Bad size: 320 (WIDTHxHEIGHT, each from 1 to 16384)\n"},
      {{"apply", photo, out, "Brightness", "250"}, 2, "Brightness: value must be from -100 to 100, not 250\n"},
  };
  for (const Case& c : cases) {
    const CliRun run = Cli(c.words);
    EXPECT_EQ(run.ExitCode, c.exitCode) << c.words.join(u' ').toStdString();
    EXPECT_EQ(run.Errors, c.errors);
  }
  EXPECT_FALSE(QFile::exists(out));
  for (const QStringList& words : {QStringList{"nothing"}, QStringList{"convert", "--quality", "0", photo, out},
                                   QStringList{"convert", "--compression", "zip", photo, out}, QStringList{"convert", photo}}) {
    EXPECT_EQ(Cli(words).ExitCode, 2) << words.join(u' ').toStdString();
  }
}

// Every save path (convert, apply's one-pass pipeline, apply in memory) treats a hostile
// target alike: a link is written through and stays a link, anything else is refused with
// its own reason and left as it was. A FIFO or a device as the source never blocks.
TEST(VistrelCli, HostileTargetsAndSourcesAreTreatedAlikeByEverySavePath) {
  testing_support::TempFolder folder;
  const QString photo = CorpusPath(QStringLiteral("formats/hopper.png"));
  const QString file = folder.WritePng(QStringLiteral("file.png"));
  const QString locked = folder.WritePng(QStringLiteral("locked.png"));
  QFile::setPermissions(locked, QFileDevice::ReadOwner | QFileDevice::ReadGroup);
  const QString link = folder.File(QStringLiteral("link.png")), dangling = folder.File(QStringLiteral("dangling.png"));
  QFile::link(file, link);
  QFile::link(folder.File(QStringLiteral("nowhere.png")), dangling);
  const QString fifo = folder.File(QStringLiteral("fifo.png")), device = folder.File(QStringLiteral("zero.pcx"));
  ASSERT_EQ(::mkfifo(base::EncodeFileName(fifo).constData(), 0600), 0);
  QFile::link(QStringLiteral("/dev/zero"), device);
  const QString subfolder = folder.MakeFolder(QStringLiteral("sub.png"));
  const QStringList savePaths[] = {{"convert", photo}, {"apply", photo, "%T", "Brightness", "20"},
                                   {"apply", photo, "%T", "Rotate", "90"}};
  const std::pair<QString, QString> refused[] = {{locked, "the file is marked as read-only"},
                                                 {dangling, "the link points to no file"},
                                                 {fifo, "not a regular file"},
                                                 {subfolder, "it is a folder"}};
  for (QStringList words : savePaths) {
    const auto runWith = [&words](const QString& target) {
      QStringList filled = words;
      if (!filled.contains(QStringLiteral("%T"))) filled << QStringLiteral("%T");
      return Cli(filled.replaceInStrings(QStringLiteral("%T"), target));
    };
    for (const auto& [target, reason] : refused) {
      const QByteArray before = target == fifo ? QByteArray() : testing_support::ReadAll(target);
      const CliRun run = runWith(target);
      EXPECT_EQ(run.ExitCode, 1) << words.join(u' ').toStdString() << " " << target.toStdString();
      EXPECT_EQ(run.Errors, QStringLiteral("Can't save file: %1 (%2)\n").arg(target, reason));
      if (!QFileInfo(target).isDir() && target != fifo) {
        EXPECT_EQ(testing_support::ReadAll(target), before);
      }
    }
    EXPECT_FALSE(QFileInfo::exists(dangling));
    const QByteArray before = testing_support::ReadAll(file);
    EXPECT_EQ(runWith(link).ExitCode, 0) << words.join(u' ').toStdString();
    EXPECT_TRUE(QFileInfo(link).isSymLink());
    EXPECT_NE(testing_support::ReadAll(file), before);
  }
  for (const QString& source : {fifo, device}) {
    const CliRun run = Cli({"convert", source, folder.File(QStringLiteral("out.png"))});
    EXPECT_EQ(run.ExitCode, 1);
    EXPECT_EQ(run.Errors, QStringLiteral("Can't open file: %1 (not a regular file)\n").arg(source));
    EXPECT_EQ(Cli({"info", source}).Output, source + QStringLiteral("\tCan't open file\n"));
  }
  EXPECT_TRUE(QDir(folder.Path()).entryList({QStringLiteral("*.vistrel-part")}, QDir::Hidden | QDir::Files).isEmpty());
}

TEST(VistrelCli, ApplyRunsOperationsInTurnAsTheViewerDoes) {
  namespace ops = imaging::ops;
  testing_support::TempFolder folder;
  const QString photo = CorpusPath(QStringLiteral("formats/hopper.png"));
  const QString out = folder.File(QStringLiteral("out.png"));
  ASSERT_EQ(Cli({"apply", photo, out, "Brightness", "20", "Negative", "Rotate", "90", "Crop", "10", "10", "100", "50"}).ExitCode, 0);
  imaging::Image expected = ops::Negative(ops::Brightness(imaging::LoadFile(photo).value(), 20));
  expected = ops::Crop(ops::Rotate(expected, 90), QRect(10, 10, 100, 50));
  EXPECT_EQ(testing_support::MeanAbsoluteDifference(imaging::LoadFile(out).value(), expected), 0);
}

// Many files into a folder: the operations run on each, and the summary and the failures
// are told; bad words are refused before anything is written.
TEST(VistrelCli, ConvertsManyFilesIntoAFolder) {
  testing_support::TempFolder folder;
  const QString photo = CorpusPath(QStringLiteral("formats/hopper.png")), out = folder.File(QStringLiteral("out"));
  const auto run = Cli({"convert", photo, folder.WriteBytes(QStringLiteral("x.png"), "x"), "--to", out, "--format", "webp", "--quality", "100",
                        "--name", "{n}.{ext}", "Negative"});
  EXPECT_EQ(run.ExitCode, 1);
  EXPECT_EQ(run.Output, QStringLiteral("1 written, 0 skipped, 1 failed\n"));
  EXPECT_TRUE(run.Errors.endsWith(QStringLiteral("x.png: not an image this program reads\n")));
  const imaging::Image expected = imaging::ops::Negative(imaging::LoadFile(photo).value());
  EXPECT_EQ(testing_support::MeanAbsoluteDifference(imaging::LoadFile(out + QStringLiteral("/1.webp")).value(), expected), 0);
  for (const QStringList& bad : {QStringList{"--format", "gif"}, {"--fit", "0x5"}, {"--name", "{when}"}, {"Sepia"}}) {
    EXPECT_EQ(Cli(QStringList{"convert", photo, "--to", folder.File(QStringLiteral("never"))} + bad).ExitCode, 2) << bad.join(u' ').toStdString();
  }
  EXPECT_FALSE(QFileInfo::exists(folder.File(QStringLiteral("never"))));
}

// What a killed run left (the helper's private folder with ImageMagick's temporaries, a
// part file beside a target) is cleared by the next run, whatever its age; what a running
// process owns stays, and a run leaves nothing of its own.
TEST(VistrelCli, ClearsWhatKilledRunsLeftAndLeavesNothingItself) {
  testing_support::TempFolder temporary, pictures;
  QProcess finished;
  finished.start(QStringLiteral("true"));
  const qint64 finishedId = finished.processId();
  ASSERT_TRUE(finished.waitForFinished());
  const QString gone = QStringLiteral("-pid%1-").arg(finishedId), running = QStringLiteral("-pid%1-").arg(::getpid());
  const QString deadHelper = temporary.MakeFolder("vistrel-helper" + gone + "Ab12Cd");
  QFile(deadHelper + QStringLiteral("/magick-1234")).open(QIODevice::WriteOnly);
  const QString liveHelper = temporary.MakeFolder("vistrel-helper" + running + "Ef34Gh");
  const QString deadPart = pictures.WriteBytes(".out.png" + gone + "Zz99Yy.vistrel-part", "partial");
  const QStringList environment = {"TMPDIR=" + temporary.Path()};
  const QString pcx = CorpusPath(QStringLiteral("formats/pil184.pcx"));
  EXPECT_EQ(testing_support::Run(QStringLiteral(VISTREL_CLI_PATH), {"info", pcx}, environment).ExitCode, 0);
  EXPECT_EQ(testing_support::Run(QStringLiteral(VISTREL_CLI_PATH),
                                 {"apply", CorpusPath(QStringLiteral("formats/hopper.png")), pictures.File("out.png"), "Negative"},
                                 environment)
                .ExitCode,
            0);
  EXPECT_EQ(QDir(temporary.Path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
            QStringList{QFileInfo(liveHelper).fileName()});
  EXPECT_EQ(QDir(pictures.Path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot), QStringList{"out.png"});
  EXPECT_FALSE(QFileInfo::exists(deadPart));
}

// A save killed at any moment leaves the target either exactly as it was or complete:
// never a half-written file (the bytes go to a temporary file that is renamed over it).
TEST(InterruptedSave, AKilledSaveLeavesTheOriginalIntactOrTheNewFileWhole) {
  testing_support::TempFolder folder;
  QImage big(3000, 2000, QImage::Format_RGB888);
  for (int y = 0; y < big.height(); ++y) {
    for (int x = 0; x < big.width(); ++x) big.setPixel(x, y, qRgb(x % 251, y % 241, (x * y) % 239));
  }
  const QString input = folder.File(QStringLiteral("big.ppm"));
  ASSERT_TRUE(big.save(input, "PPM"));
  const QString target = folder.File(QStringLiteral("target.tif"));
  QImage small(16, 16, QImage::Format_RGB888);
  small.fill(Qt::red);
  ASSERT_TRUE(imaging::SaveImage(imaging::Image::FromQImage(small), target));
  const QByteArray original = testing_support::ReadAll(target);
  int keptOriginal = 0, replacedWhole = 0;
  for (const int delay : {0, 10, 30, 60, 100, 150, 250, 400}) {
    QProcess saver;
    saver.start(QStringLiteral(VISTREL_CLI_PATH), {"convert", input, target});
    ASSERT_TRUE(saver.waitForStarted());
    QThread::msleep(static_cast<unsigned long>(delay));
    ::kill(static_cast<pid_t>(saver.processId()), SIGKILL);
    saver.waitForFinished();
    const QByteArray now = testing_support::ReadAll(target);
    if (now == original) {
      ++keptOriginal;
      continue;
    }
    const auto back = imaging::LoadFile(target);  // anything else must be the whole new image
    ASSERT_TRUE(back.has_value()) << "delay " << delay;
    EXPECT_EQ(back->Width(), 3000);
    ++replacedWhole;
    QFile restore(target);
    ASSERT_TRUE(restore.open(QIODevice::WriteOnly));
    restore.write(original);
  }
  EXPECT_GT(keptOriginal, 0);  // at least one kill landed during the save
  std::printf("kills: %d kept the original, %d after the rename\n", keptOriginal, replacedWhole);
}

}  // namespace
