// vistrel-cli: the headless companion for scripts and batch work. The viewer's own
// command line stays a single path. Every command and exit code is described in the
// manual page, docs/man/vistrel-cli.1.scd.
#include "app/CliBatch.h"
#include "app/CliOutput.h"
#include "app/CliPrint.h"
#include "app/CliShell.h"
#include "edit/Catalogue.h"
#include "settings/SettingsFile.h"
#include "files/FailureReasons.h"
#include "imaging/Animation.h"
#include "imaging/Loader.h"
#include "imaging/LosslessJpeg.h"
#include "imaging/Saver.h"
#include "imaging/Streaming.h"
#include "base/FileFormats.h"
#include "base/FileNames.h"
#include "shell/DesktopWallpaper.h"
#include "shell/Wallpaper.h"

#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLocale>

#include <cstdio>
#include <memory>
#include <optional>

namespace {

constexpr const char* kUsage =
    "usage: vistrel-cli info FILE...\n"
    "       vistrel-cli convert [--page N] [--quality 1-100] [--compression lzw|deflate|jpeg|none] IN OUT\n"
    "       vistrel-cli convert IN... --to DIR [--format EXT] [--fit WxH] [--jobs N] [--name PATTERN] [--existing skip|replace|rename] [--quality Q] [--compression C] [OPERATION [VALUE...]]...\n"
    "       vistrel-cli thumbnail IN OUT WIDTHxHEIGHT\n"
    "       vistrel-cli apply IN OUT [AutoOrient] OPERATION [VALUE...] [OPERATION [VALUE...]]...\n"
    "       vistrel-cli wallpaper set FILE\n"
    "       vistrel-cli wallpaper remove\n"
    "       vistrel-cli print FILE... [--printer NAME | --pdf OUT.pdf] [--copies N] [--fit | --original] [--center]\n"
    "       vistrel-cli associate [--remove] EXT... | associate --list\n"
    "       vistrel-cli folder-entry add | remove | status\n"
    "       vistrel-cli --help | --version\n";

int Usage() {
  std::fputs(kUsage, stderr);
  return 2;
}

using cli::Complain;
using cli::Print;

int CantOpen(const QString& path) {
  Complain(QStringLiteral("Can't open file: %1 (%2)").arg(path, files::OpenFailureReason(path)));
  return 1;
}

int CantSave(const QString& path, QSize imageSize = {}) {
  Complain(QStringLiteral("Can't save file: %1 (%2)").arg(path, files::SaveFailureReason(path, imageSize)));
  return 1;
}

int Info(const QStringList& paths) {
  int failures = 0;
  for (const QString& path : paths) {
    const auto loaded = imaging::LoadImage(path);
    if (!loaded) {
      Print(path + QStringLiteral("\tCan't open file"));
      ++failures;
      continue;
    }
    const QByteArray profile = loaded->Picture.IccProfile();
    const QString colours = profile.isEmpty() ? QStringLiteral("sRGB") : imaging::DescribeProfile(profile);
    const int pages = imaging::ReadPageFacts(path).TurnablePages();
    const auto animation = imaging::ReadFrameTiming(path);
    QString beyond = pages > 1 ? QStringLiteral("\tpages %1").arg(pages) : QString();
    if (animation) beyond = u'\t' + imaging::DescribeAnimation(*animation);
    Print(QStringLiteral("%1\t%2\t%3x%4\t%5")
              .arg(path, loaded->Format)
              .arg(loaded->Picture.Width())
              .arg(loaded->Picture.Height())
              .arg(colours) +
          beyond);
  }
  return failures == 0 ? 0 : 1;
}

int Save(const imaging::Image& image, const QString& output, const imaging::SaveOptions& options = {}) {
  return imaging::SaveImage(image, output, options) ? 0 : CantSave(output, QSize(image.Width(), image.Height()));
}

// Frame `index` of an animation, as the player shows it.
std::optional<imaging::Image> FrameOf(const QString& path, int index) {
  imaging::FrameReader reader(path);
  std::optional<imaging::Image> frame;
  for (int i = 0; i <= index; ++i) frame = reader.Next();
  return frame;
}

// `page` counts from 1, as the user does; an animation's frames count as its pages.
int Convert(const QString& input, const QString& output, int page, const imaging::SaveOptions& options) {
  const auto timing = imaging::ReadFrameTiming(input);
  const int pages = timing ? int(timing->DelaysMs.size()) : imaging::ReadSourceFacts(input).Pages;
  if (page < 1 || page > pages) {
    Complain(QStringLiteral("Bad page: %1 (%2 has %3)").arg(page).arg(input, pages == 1 ? QStringLiteral("1 page") : QStringLiteral("%1 pages").arg(pages)));
    return 2;
  }
  const auto image = timing ? FrameOf(input, page - 1) : imaging::LoadFile(input, page - 1);
  return image ? Save(*image, output, options) : CantOpen(input);
}

// convert's words after the verb: its options, then IN and OUT. Without a page asked for,
// an animation written as WebP keeps every frame.
int ConvertCommand(QStringList words) {
  std::optional<int> page;
  imaging::SaveOptions options;
  static const QStringList kCompressions = {"lzw", "deflate", "jpeg", "none"};
  while (words.size() > 2 && words.front().startsWith(QLatin1String("--"))) {
    const QString option = words.takeFirst(), value = words.takeFirst();
    bool number = false;
    const int count = value.toInt(&number);
    if (option == QLatin1String("--page") && number) page = count;
    else if (option == QLatin1String("--quality") && number && count >= 1 && count <= 100) options.Quality = count;
    else if (option == QLatin1String("--compression") && kCompressions.contains(value)) options.Tiff = imaging::TiffCompression(kCompressions.indexOf(value));
    else return Usage();
  }
  if (words.size() != 2) return Usage();
  const QString &input = words[0], &output = words[1];
  if (page || !output.endsWith(QLatin1String(".webp"), Qt::CaseInsensitive) || !imaging::ReadFrameTiming(input)) {
    return Convert(input, output, page.value_or(1), options);
  }
  return imaging::SaveAnimation(input, output, options) ? 0 : CantSave(output);
}

int Thumbnail(const QString& input, const QString& output, const QString& boxText) {
  const auto box = cli::ParseBox(boxText);
  if (!box) {
    Complain(QStringLiteral("Bad size: %1 (WIDTHxHEIGHT, each from 1 to %2)").arg(boxText).arg(cli::kLargestBoxSide));
    return 2;
  }
  const auto image = imaging::LoadFitting(input, box->width(), box->height());
  return image ? Save(*image, output) : CantOpen(input);
}

// Decodes, applies and writes in one pipeline where every step allows it; false when
// it did not (nothing written), so the caller takes the in-memory path.
bool ApplyStreaming(const QString& input, const QString& output, const edit::OperationChain& chain) {
  for (const edit::OperationStep& step : chain.Steps) {
    if (!step.Command->ReadsSourceInOrder()) return false;
  }
  const imaging::StreamingScope streaming;
  auto image = imaging::OpenForStreaming(input);
  if (!image) return false;
  for (const edit::OperationStep& step : chain.Steps) {
    image = edit::TryApply(*step.Command, *image, step.Values).Picture;  // a failure is told by the other path
    if (!image) return false;
  }
  return imaging::SaveStreaming(*image, output);
}

// A JPEG only turned, flipped or cropped into a JPEG has its compressed blocks moved (nothing lost,
// every marker kept), upright by its EXIF orientation as every picture is read; where that
// cannot be done perfectly it is decoded and saved as usual, and says so. nullopt: not this way.
std::optional<int> ApplyLosslessly(const QString& input, const QString& output, const std::vector<edit::OperationStep>& steps) {
  QFile file;
  if (!base::HasJpegName(output) || !base::OpenForReading(file, input) || !file.peek(3).startsWith("\xFF\xD8\xFF")) return std::nullopt;
  const QByteArray jpeg = base::ReadWhole(file, qint64(1) << 30);
  const imaging::RightAngles upright = imaging::RightAngles::Upright(imaging::JpegOrientation(jpeg));
  const QSize stored = imaging::JpegSize(jpeg);
  const auto edit = edit::BlockEditOf(steps, upright.SwapsSides() ? stored.transposed() : stored);
  if (!edit) return std::nullopt;
  const imaging::LosslessResult moved = imaging::MoveJpegBlocks(jpeg, edit->After(upright));
  if (moved.Jpeg) return imaging::SaveEncoded(*moved.Jpeg, output) ? 0 : CantSave(output);
  Complain(QStringLiteral("saved with recompression: ") + moved.WhyNot);
  return std::nullopt;
}

int Apply(const QString& input, const QString& output, QStringList words) {
  // AutoOrient turns the picture upright by its EXIF orientation, as every reading does.
  const bool autoOrient = !words.isEmpty() && words.front().compare(QLatin1String("AutoOrient"), Qt::CaseInsensitive) == 0;
  if (autoOrient) words.removeFirst();
  const edit::OperationChain chain = words.isEmpty() && autoOrient ? edit::OperationChain{} : edit::ParseOperationChain(words);
  if (!chain.Error.isEmpty()) {
    Complain(chain.Error);
    return 2;
  }
  if (const auto code = ApplyLosslessly(input, output, chain.Steps)) return *code;
  imaging::Initialize();
  if (ApplyStreaming(input, output, chain)) return 0;
  auto image = imaging::LoadFile(input);
  if (!image) return CantOpen(input);
  for (const edit::OperationStep& step : chain.Steps) {
    const edit::Applied applied = edit::TryApply(*step.Command, *image, step.Values);
    if (!applied.Picture) {
      Complain(QStringLiteral("Can't apply %1: %2").arg(step.Command->Undo(), applied.Failure));
      return 1;
    }
    image = applied.Picture;
  }
  return Save(*image, output);
}

int SetWallpaper(const QString& input) {
  const auto image = imaging::LoadFile(input);
  if (!image) return CantOpen(input);
  switch (shell::SetWallpaperPicture(*image, shell::SetDesktopWallpaper)) {
    case shell::WallpaperOutcome::Shown: return 0;
    case shell::WallpaperOutcome::NotWritten: return CantSave(shell::FreshWallpaperPath());
    case shell::WallpaperOutcome::NoDesktop: break;
  }
  Complain(shell::NoDesktopMessage());
  return 1;
}

}  // namespace

int main(int argc, char** argv) {
  // Printing draws through Qt's painting, which needs a GUI application; without a display
  // it draws offscreen.
  const bool printing = argc > 1 && qstrcmp(argv[1], "print") == 0;
  if (printing && qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
  }
  std::unique_ptr<QCoreApplication> application =
      printing ? std::make_unique<QGuiApplication>(argc, argv) : std::make_unique<QCoreApplication>(argc, argv);
  QLocale::setDefault(QLocale::c());  // what scripts read stays the same on every machine: "1,234.5"
  QStringList arguments;
  for (int i = 1; i < argc; ++i) arguments << base::DecodeFileName(argv[i]);
  const QString verb = arguments.value(0);
  if (verb == QLatin1String("--help")) {
    std::fputs(kUsage, stdout);
    return 0;
  }
  if (verb == QLatin1String("--version")) {
    std::printf("vistrel-cli %s\n", VISTREL_VERSION);
    return 0;
  }
  // A lossless move of a JPEG's blocks needs no libvips, whose start (its loaders' modules) would be most of its time.
  if (verb == QLatin1String("apply") && arguments.size() >= 4) return Apply(arguments[1], arguments[2], arguments.mid(3));
  imaging::Initialize();
  if (verb == QLatin1String("info") && arguments.size() >= 2) return Info(arguments.mid(1));
  if (verb == QLatin1String("convert") && arguments.contains(QStringLiteral("--to"))) return cli::ConvertMany(arguments.mid(1));
  if (verb == QLatin1String("convert")) return ConvertCommand(arguments.mid(1));
  if (verb == QLatin1String("thumbnail") && arguments.size() == 4) return Thumbnail(arguments[1], arguments[2], arguments[3]);
  if (printing) {
    return cli::Print(arguments.mid(1), settings::ProgramSettingsPath());
  }
  const QString viewer = QCoreApplication::applicationDirPath() + QStringLiteral("/vistrel");
  if (verb == QLatin1String("associate")) {
    const int code = cli::Associate(arguments.mid(1), viewer);
    return code == 2 ? Usage() : code;
  }
  if (verb == QLatin1String("folder-entry")) {
    const int code = cli::FolderEntry(arguments.mid(1), viewer);
    return code == 2 ? Usage() : code;
  }
  if (verb == QLatin1String("wallpaper") && arguments.value(1) == QLatin1String("set") && arguments.size() == 3) {
    return SetWallpaper(arguments[2]);
  }
  if (verb == QLatin1String("wallpaper") && arguments.value(1) == QLatin1String("remove") && arguments.size() == 2) {
    if (shell::RemoveWallpaper(shell::SetDesktopWallpaper)) return 0;
    Complain(shell::NoDesktopMessage());
    return 1;
  }
  return Usage();
}
