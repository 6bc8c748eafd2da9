// The legacy coders run in a helper process: ImageMagick's `convert`, fed the file's bytes
// on standard input with the coder we chose (never the file's name, so no "coder:" prefix
// of a user's file reaches ImageMagick), under a policy that allows only our coders, with
// caps on memory, disk and time. A crash or runaway there costs one "Can't open file".
#include "imaging/Decoders.h"
#include "base/Leftovers.h"
#include "imaging/ImageInternal.h"
#include "imaging/Loader.h"
#include "imaging/Pam.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include <QSaveFile>
#include <QStandardPaths>

#include <csignal>
#include <limits>
#include <memory>

#include <sys/resource.h>
#ifdef Q_OS_LINUX
#include <sys/prctl.h>
#endif

namespace imaging {

namespace {

// GROUP4 and TIFF are allowed because ImageMagick's CALS reader decodes through them;
// we always name the coder ourselves, so no file reaches them by its own say.
const char kPolicy[] = R"(<policymap>
  <policy domain="coder" rights="none" pattern="*" />
  <policy domain="coder" rights="read | write" pattern="{BMP,BMP2,BMP3,DIB,ICO,CUR,PCX,DCX,CALS,GROUP4,TIFF,TGA,WPG,WMF,PBM,PGM,PPM,PNM,PAM,PSD,EXR}" />
  <policy domain="delegate" rights="none" pattern="*" />
  <policy domain="path" rights="none" pattern="@*" />
</policymap>
)";

bool WritePolicy(const QString& folder) {
  if (!QDir().mkpath(folder)) return false;
  const QString path = QDir(folder).filePath(QStringLiteral("policy.xml"));
  QFile existing(path);
  if (existing.open(QIODevice::ReadOnly) && existing.readAll() == QByteArray(kPolicy)) return true;
  QSaveFile file(path);
  return file.open(QIODevice::WriteOnly) && file.write(kPolicy) > 0 && file.commit();
}

// Each run of the helper works in a folder of its own, named for this process and removed
// when the run ends: ImageMagick's temporary files and our copy of the input go there. What
// a killed process left is removed by the next one.
std::unique_ptr<QTemporaryDir> PrivateFolder() {
  static const bool swept = [] {
    base::SweepLeftovers(QDir::temp(), QStringLiteral("vistrel-helper-*"));
    base::SweepLeftovers(QDir::temp(), QStringLiteral("vistrel-*.bin"));  // copies of older versions
    return true;
  }();
  (void)swept;
  auto folder = std::make_unique<QTemporaryDir>(QDir::tempPath() + QStringLiteral("/vistrel-helper") + base::OwnerTag() +
                                                QStringLiteral("XXXXXX"));
  return folder->isValid() ? std::move(folder) : nullptr;
}

// The folder holding our ImageMagick policy: one per user in the cache folder, so a killed
// process leaves nothing behind; a private temporary one where the cache is not writable.
QString PolicyFolder() {
  static const QString folder = [] {
    const QString cache = QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation);
    const QString ours = cache + QStringLiteral("/vistrel/helper-policy");
    if (!cache.isEmpty() && WritePolicy(ours)) return ours;
    static QTemporaryDir fallback(QDir::tempPath() + QStringLiteral("/vistrel-policy-XXXXXX"));
    return WritePolicy(fallback.path()) ? fallback.path() : QString();
  }();
  return folder;
}

}  // namespace

HelperDecoder::HelperDecoder()
    : HelperDecoder(QStringLiteral("convert"),
                    // Memory and map as the usual system policy has them, whatever this system's
                    // says; past them the pixel cache may spill to a bounded file on disk.
                    {QStringLiteral("-limit"), QStringLiteral("area"), QString::number(kHelperAreaPixels),
                     QStringLiteral("-limit"), QStringLiteral("memory"), QStringLiteral("256MiB"),
                     QStringLiteral("-limit"), QStringLiteral("map"), QStringLiteral("512MiB"),
                     QStringLiteral("-limit"), QStringLiteral("disk"), QStringLiteral("1GiB"),
                     QStringLiteral("-limit"), QStringLiteral("time"), QStringLiteral("20"),
                     // ImageMagick records a Targa's bottom-left origin as orientation
                     // metadata rather than turning the rows; -auto-orient turns them.
                     QStringLiteral("%IN%"), QStringLiteral("-auto-orient"), QStringLiteral("-depth"),
                     QStringLiteral("8"), QStringLiteral("%OUT%")},
                    {}) {}

namespace {

// One of our own helpers: installed under ../libexec/vistrel beside the program's folder (so
// a relocated install works), beside the program in the build tree, or in the build's bin.
HelperDecoder OwnHelper(const QString& name, QStringList arguments) {
  const QString folder = QCoreApplication::applicationDirPath();
  QString program = folder + QStringLiteral("/../libexec/vistrel/") + name;
  if (!QFileInfo::exists(program)) program = folder + u'/' + name;
  if (!QFileInfo::exists(program)) program = QStringLiteral(VISTREL_BUILD_BIN_DIR "/") + name;
  HelperLimits limits;
#if defined(__SANITIZE_ADDRESS__)
  limits.AddressSpaceBytes = 0;  // our helpers are AddressSanitizer-built too: the shadow needs the space
#endif
  return HelperDecoder(program, std::move(arguments), limits);
}

}  // namespace

HelperDecoder HelperDecoder::ForEmf() { return OwnHelper(QStringLiteral("vistrel-emf"), {QStringLiteral("%FILE%")}); }

HelperDecoder HelperDecoder::ForRaw() { return OwnHelper(QStringLiteral("vistrel-raw"), {}); }

HelperDecoder::HelperDecoder(QString program, QStringList arguments, HelperLimits limits)
    : program_(std::move(program)), arguments_(std::move(arguments)), limits_(limits) {}

bool HelperDecoder::Run(const QByteArray& input, const QStringList& arguments, const QString& folder,
                        const std::function<bool(const QByteArray&)>& receive, bool* timedOut) const {
  QProcess process;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert(QStringLiteral("MAGICK_CONFIGURE_PATH"), PolicyFolder());
  environment.insert(QStringLiteral("MAGICK_TEMPORARY_PATH"), folder);
  environment.insert(QStringLiteral("TMPDIR"), folder);
  process.setProcessEnvironment(environment);
  process.setStandardErrorFile(QProcess::nullDevice());
  // In the child: its memory and CPU time are capped, and it dies with its parent.
  const rlim_t addressSpace = static_cast<rlim_t>(limits_.AddressSpaceBytes);
  const rlim_t cpuSeconds = static_cast<rlim_t>(limits_.CpuSeconds);
  process.setChildProcessModifier([addressSpace, cpuSeconds] {
    if (addressSpace > 0) {
      const rlimit cap{addressSpace, addressSpace};
      setrlimit(RLIMIT_AS, &cap);
    }
    const rlimit cpu{cpuSeconds, cpuSeconds + 1};
    setrlimit(RLIMIT_CPU, &cpu);
#ifdef Q_OS_LINUX
    prctl(PR_SET_PDEATHSIG, SIGKILL);
#endif
  });
  process.start(program_, arguments);
  if (!process.waitForStarted()) return false;
  process.write(input);
  process.closeWriteChannel();
  // The output is handed on as it comes, so it is never held whole. The time limit counts
  // the time spent waiting for the helper, not the time we take over what it sent.
  const qint64 limit = limits_.Time.count();
  qint64 waited = 0;
  QElapsedTimer clock;
  bool receiving = true;
  while (receiving && process.state() != QProcess::NotRunning && waited < limit) {
    clock.start();
    process.waitForReadyRead(static_cast<int>(limit - waited));
    waited += clock.elapsed();
    receiving = receive(process.readAllStandardOutput());
  }
  if (process.state() != QProcess::NotRunning) {
    process.kill();
    process.waitForFinished(2000);
    if (timedOut && receiving) *timedOut = true;
    return false;
  }
  // ImageMagick exits with 1 on a warning too (a truncated file it partly recovered);
  // what it wrote is used when it is whole. A crash or a kill gives nothing.
  return receive(process.readAllStandardOutput()) && process.exitStatus() == QProcess::NormalExit;
}

std::optional<Image> HelperDecoder::Decode(const QByteArray& bytes, const QString& coder, bool onWhite,
                                           bool* timedOut, int page) const {
  Initialize();
  const auto folder = PrivateFolder();
  if (!folder) return std::nullopt;
  // A private copy under a name of our own: some coders (libwmf) cannot read a pipe, and
  // the user's file name never reaches ImageMagick.
  QFile copy(folder->filePath(QStringLiteral("input.bin")));
  if (!copy.open(QIODevice::WriteOnly) || copy.write(bytes) != bytes.size() || !copy.flush()) return std::nullopt;
  QStringList arguments = arguments_;
  arguments.replaceInStrings(QStringLiteral("%IN%"), coder + u':' + copy.fileName() + QStringLiteral("[%1]").arg(std::max(0, page)));
  arguments.replaceInStrings(QStringLiteral("%FILE%"), copy.fileName());
  arguments.replaceInStrings(QStringLiteral("%OUT%"), QStringLiteral("PAM:-"));
  return DecodeOutput(arguments, onWhite, timedOut);
}

std::optional<Image> HelperDecoder::DecodeOutput(const QStringList& arguments, bool onWhite, bool* timedOut) const {
  const auto folder = PrivateFolder();
  if (!folder) return std::nullopt;
  PamReceiver picture(kMaxPixels, onWhite);
  const auto receive = [&picture](const QByteArray& chunk) { return picture.Take(chunk); };
  if (!Run({}, arguments, folder->path(), receive, timedOut)) return std::nullopt;
  return picture.Finish();
}

std::optional<QByteArray> HelperDecoder::Output(const QStringList& arguments, qint64 maxBytes, const QByteArray& input) const {
  const auto folder = PrivateFolder();
  if (!folder) return std::nullopt;
  QByteArray output;
  const auto receive = [&output, maxBytes](const QByteArray& chunk) {
    output += chunk;
    return output.size() <= maxBytes;
  };
  if (!Run(input, arguments, folder->path(), receive) || output.isEmpty()) return std::nullopt;
  return output;
}

std::optional<QByteArray> HelperDecoder::Encode(const Image& image, const QString& coder) const {
  return Convert(ToPam(image), QStringLiteral("PAM"), coder);
}

std::optional<QByteArray> HelperDecoder::Convert(const QByteArray& bytes, const QString& fromCoder,
                                                 const QString& coder) const {
  QStringList arguments = arguments_;
  arguments.replaceInStrings(QStringLiteral("%IN%"), fromCoder + QStringLiteral(":-"));
  arguments.replaceInStrings(QStringLiteral("%OUT%"), coder + QStringLiteral(":-"));
  return Output(arguments, std::numeric_limits<qint64>::max(), bytes);
}

QByteArray ToPam(const Image& image) {
  const Image eight = image.InSrgb();
  const vips::VImage& pixels = eight.Internal().image;
  QByteArray pam = QStringLiteral("P7\nWIDTH %1\nHEIGHT %2\nDEPTH %3\nMAXVAL 255\nTUPLTYPE %4\nENDHDR\n")
                       .arg(pixels.width())
                       .arg(pixels.height())
                       .arg(pixels.bands())
                       .arg(image.HasAlpha() ? QStringLiteral("RGB_ALPHA") : QStringLiteral("RGB"))
                       .toLatin1();
  pam.append(static_cast<const char*>(pixels.data()),
             static_cast<qsizetype>(pixels.width()) * pixels.height() * pixels.bands());
  return pam;
}

}  // namespace imaging
