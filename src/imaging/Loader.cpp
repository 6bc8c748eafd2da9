#include "imaging/Loader.h"

#include "imaging/Decoders.h"
#include "imaging/Pdf.h"
#include "imaging/Raw.h"
#include "imaging/Sniff.h"
#include "base/FileFormats.h"
#include "base/FileNames.h"

#include <QFile>

namespace imaging {

namespace {

constexpr qint64 kLargestHelperInput = qint64(512) << 20;

QString LowerCaseExtension(const QString& path) {
  const qsizetype dot = path.lastIndexOf(u'.');
  const qsizetype slash = path.lastIndexOf(u'/');
  return dot > slash ? path.mid(dot + 1).trimmed().toLower() : QString();
}

// What a decoder needs besides the file: the picture composited onto white on the way in
// (for the types that come in on white), and where to say that the helper ran out of time.
struct DecodeFacts {
  bool OnWhite = false;
  bool* TimedOut = nullptr;
  int Page = 0;
  DecodeCores Cores = DecodeCores::All;
};

std::optional<Image> DecodeWithHelper(const QString& path, const QString& coder, DecodeFacts facts) {
  QFile file;
  if (coder.isEmpty() || !base::OpenForReading(file, path)) return std::nullopt;
  const QByteArray bytes = base::ReadWhole(file, kLargestHelperInput);
  if (bytes.isEmpty()) return std::nullopt;
  const HelperDecoder helper = coder == QLatin1String("EMF") ? HelperDecoder::ForEmf() : HelperDecoder();
  return helper.Decode(bytes, coder, facts.OnWhite, facts.TimedOut, facts.Page);
}

std::optional<Image> Decode(const QString& path, const Decision& decision, const QString& extension,
                            DecodeFacts facts) {
  switch (decision.Via) {
    case Route::Vips:
      return DecodeWithVips(path, 0, 0, facts.OnWhite, facts.Page, facts.Cores);
    case Route::Qt:
      // An animation's later frames: libvips composes each over the ones before.
      if (facts.Page > 0 && decision.Format == QLatin1String("GIF")) return DecodeWithVips(path, 0, 0, facts.OnWhite, facts.Page);
      if (auto image = DecodeWithQt(path, facts.OnWhite, facts.Page)) return image;
      // Qt refuses some old variants (OS/2 headers, odd bit counts); ImageMagick reads them.
      return DecodeWithHelper(path, HelperCoderForExtension(extension).isEmpty() ? decision.Format
                                                                                  : HelperCoderForExtension(extension),
                              facts);
    case Route::Helper:
      return DecodeWithHelper(path, decision.Format, facts);
    case Route::Raw:
      return DevelopRaw(path);
    case Route::Pdf:
      return RenderPdfPage(path, facts.Page);
    case Route::None:
      break;
  }
  return std::nullopt;
}

}  // namespace

Decision DecisionFor(const QString& path) {
  QFile file;
  if (!base::OpenForReading(file, path)) return {};
  return ChooseDecoder(file.read(32), LowerCaseExtension(path));
}

bool ComesInOnWhite(const QString& ext) {
  static const QStringList kTypes = {"cur", "emf", "gif", "ico", "rle", "wmf"};
  return kTypes.contains(ext);
}

std::optional<Loaded> LoadImage(const QString& path, int page, DecodeCores cores) {
  const QString extension = LowerCaseExtension(path);
  const Decision decision = DecisionFor(path);
  std::optional<Image> image = Decode(path, decision, extension, {ComesInOnWhite(extension), nullptr, page, cores});
  if (!image) return std::nullopt;
  return Loaded{*image, decision.Format};
}

std::optional<Image> OpenForStreaming(const QString& path) {
  if (ComesInOnWhite(LowerCaseExtension(path)) || DecisionFor(path).Via != Route::Vips) return std::nullopt;
  return OpenWithVipsInOrder(path);
}

std::optional<Image> LoadFile(const QString& path, int page, DecodeCores cores) {
  auto loaded = LoadImage(path, page, cores);
  if (!loaded) return std::nullopt;
  return loaded->Picture;
}

namespace {

std::optional<QSize> HeaderSize(const QString& path, const Decision& decision) {
  if (decision.Via == Route::Vips) return VipsHeaderSize(path);
  if (decision.Via == Route::Qt) return QtHeaderSize(path);
  if (decision.Via == Route::Raw) {
    const auto facts = ReadRawFacts(path);
    const QSize size(facts.value(QStringLiteral("width")).toInt(), facts.value(QStringLiteral("height")).toInt());
    if (!size.isEmpty()) return size;
  }
  return std::nullopt;
}

}  // namespace

std::optional<QSize> ReadImageSizeCheaply(const QString& path) { return HeaderSize(path, DecisionFor(path)); }

SourceFacts ReadSourceFacts(const QString& path) {
  const Decision decision = DecisionFor(path);
  std::optional<SourceFacts> facts;
  if (decision.Via == Route::Vips) facts = VipsSourceFacts(path);
  if (decision.Via == Route::Qt) facts = QtSourceFacts(path);
  if (decision.Via == Route::Pdf) facts = SourceFacts{std::max(1, PdfPageCount(path))};
  if (decision.Format == QLatin1String("DCX")) {
    QFile file;
    if (base::OpenForReading(file, path)) facts = SourceFacts{DcxPageCount(file.read(kDcxHeaderBytes))};
  }
  return facts.value_or(SourceFacts{});
}

SourceFacts ReadPageFacts(const QString& path) {
  const base::FileFormat* format = base::FindFileFormat(LowerCaseExtension(path));
  return format && !format->HoldsPages ? SourceFacts{} : ReadSourceFacts(path);
}

std::optional<QSize> ReadImageSize(const QString& path) {
  const Decision decision = DecisionFor(path);
  if (auto size = HeaderSize(path, decision)) return size;
  if (decision.Via == Route::Vips) return std::nullopt;
  if (const auto image = LoadFile(path)) return QSize(image->Width(), image->Height());
  return std::nullopt;
}

std::optional<Image> LoadFitting(const QString& path, int maxWidth, int maxHeight, FittingLoad* facts) {
  const QString extension = LowerCaseExtension(path);
  const Decision decision = DecisionFor(path);
  const bool onWhite = ComesInOnWhite(extension);
  FittingLoad noted;
  std::optional<Image> image;
  if (decision.Via == Route::Vips) {
    image = DecodeWithVips(path, maxWidth, maxHeight, onWhite);
    if (image && facts) noted.Original = VipsHeaderSize(path).value_or(QSize());
  } else if (decision.Via == Route::Raw) {
    if (auto preview = ReadRawPreview(path, maxWidth, maxHeight)) {
      image = std::move(preview->Picture);
      noted.Original = preview->Developed;
    } else if ((image = DevelopRaw(path, true))) {
      noted.Original = HeaderSize(path, decision).value_or(QSize());
    }
  } else {
    image = Decode(path, decision, extension, {onWhite, &noted.TimedOut});
    if (image) noted.Original = QSize(image->Width(), image->Height());
  }
  if (facts) *facts = noted;
  if (!image) return std::nullopt;
  return image->FitWithin(maxWidth, maxHeight);
}

}  // namespace imaging
