#pragma once
// The three decoders behind LoadImage. Each refuses images over the pixel limit before
// decoding them and returns nullopt for anything it cannot read.

#include "imaging/Image.h"
#include "imaging/Loader.h"

#include <QByteArray>
#include <QSize>
#include <QString>
#include <QStringList>

#include <chrono>
#include <functional>
#include <optional>

class QFile;

namespace imaging {

// libvips' in-process loaders (untrusted ones stay blocked); shrink > 1 decodes reduced.
// `onWhite` composites any alpha onto white on the way into memory.
std::optional<Image> DecodeWithVips(const QString& path, int maxWidth = 0, int maxHeight = 0, bool onWhite = false, int page = 0,
                                    DecodeCores cores = DecodeCores::All);
std::optional<QSize> VipsHeaderSize(const QString& path);
// The pages and bits per channel the file's header states.
std::optional<SourceFacts> VipsSourceFacts(const QString& path);
// Upright pixels as an unevaluated pipeline read once, top to bottom (for streaming).
std::optional<Image> OpenWithVipsInOrder(const QString& path);

// Qt's image readers, by content; `format` as QImageReader names it ("bmp", "ico"...).
// An icon's (ICO, CUR) images count largest first.
std::optional<Image> DecodeWithQt(const QString& path, bool onWhite = false, int page = 0);
std::optional<QSize> QtHeaderSize(const QString& path);
// A GIF's logical screen, from its header: Qt's reader scans the whole file to answer.
std::optional<QSize> GifScreenSize(QFile& file);
std::optional<SourceFacts> QtSourceFacts(const QString& path);

// The helper process: ImageMagick reading the file's bytes from standard input with the
// given coder, capped in memory and time, writing PAM to standard output.
struct HelperLimits {
  std::chrono::milliseconds Time{20000};
  qint64 AddressSpaceBytes = qint64(3) << 30;  // 0: no cap
  int CpuSeconds = 20;
};

// The most pixels ImageMagick may decode (its area resource; the usual system policy's
// 128 MP is a maximum our own limits cannot raise).
inline constexpr qint64 kHelperAreaPixels = 128'000'000;
// The most pixels of a file we write through the helper (TGA, PCX, DCX) or for it to read
// (WPG). Within the system policy's memory and map (256 and 512 MiB, maxima our limits
// cannot raise either) its PCX reader holds the packed planes beside the pixel cache and
// fails a little above 56 MP; below this cap every coder reads back what we wrote.
inline constexpr qint64 kHelperMaxPixels = 48'000'000;

class HelperDecoder {
 public:
  // The default runs ImageMagick's `convert`; tests pass a program that crashes or hangs.
  HelperDecoder();
  // Our EMF player, `vistrel-emf`, beside the program (or in the build tree).
  static HelperDecoder ForEmf();
  // Our camera RAW reader, `vistrel-raw` (imaging/Raw.h); its arguments are given per call.
  static HelperDecoder ForRaw();
  HelperDecoder(QString program, QStringList arguments, HelperLimits limits);

  // `onWhite` composites any alpha onto white as the picture arrives. `timedOut`, when
  // given, says whether the helper ran out of time: a busy machine's failure, not the file's.
  std::optional<Image> Decode(const QByteArray& bytes, const QString& coder, bool onWhite = false,
                              bool* timedOut = nullptr, int page = 0) const;
  // Writes the image in the coder's format (TGA, PCX, DCX), through the same caps.
  std::optional<QByteArray> Encode(const Image& image, const QString& coder) const;
  // Runs the program with `arguments` and reads a PAM from its output.
  std::optional<Image> DecodeOutput(const QStringList& arguments, bool onWhite = false, bool* timedOut = nullptr) const;
  // Runs the program with `arguments` (and `input` on its standard input) and returns what
  // it wrote, nullopt when that is more than `maxBytes` or the run failed.
  std::optional<QByteArray> Output(const QStringList& arguments, qint64 maxBytes, const QByteArray& input = {}) const;
  // Converts bytes of one format (an ImageMagick coder) into another.
  std::optional<QByteArray> Convert(const QByteArray& bytes, const QString& fromCoder, const QString& coder) const;

 private:
  // Runs the program in `folder`, its private temporary folder, handing its output to
  // `receive` as it comes (false from `receive` stops the run). True when it ended well.
  bool Run(const QByteArray& input, const QStringList& arguments, const QString& folder,
           const std::function<bool(const QByteArray&)>& receive, bool* timedOut = nullptr) const;

  QString program_;
  QStringList arguments_;  // "%IN%" (coder:file[0]), "%FILE%" (the file) and "%OUT%" stand in
  HelperLimits limits_;
};

// The image as PAM (P7), the helper's input when encoding.
QByteArray ToPam(const Image& image);

}  // namespace imaging
