#include "imaging/Pam.h"

#include "imaging/RowAssembler.h"

#include <QList>

namespace imaging {

namespace {

constexpr qsizetype kLongestHeader = 4096;

std::optional<std::int64_t> PositiveNumber(const QByteArray& text) {
  bool ok = false;
  const qlonglong value = text.toLongLong(&ok);
  if (!ok || value <= 0 || value > 0x7FFFFFFF) return std::nullopt;
  return value;
}

}  // namespace

std::optional<PamImage> ParsePamHeader(const QByteArray& bytes, std::int64_t maxPixels, bool* incomplete) {
  const bool looksLikePam = QByteArray("P7\n").startsWith(bytes.left(3));
  const qsizetype end = bytes.indexOf("\nENDHDR\n");
  if (incomplete) *incomplete = looksLikePam && end < 0 && bytes.size() <= kLongestHeader;
  if (!looksLikePam || end < 0) return std::nullopt;
  std::int64_t width = 0, height = 0, depth = 0, maxval = 0;
  for (const QByteArray& line : bytes.mid(3, end - 3).split('\n')) {
    const QList<QByteArray> words = line.simplified().split(' ');
    if (words.size() != 2) continue;  // comments, TUPLTYPE with several words, blanks
    const auto value = PositiveNumber(words[1]);
    if (words[0] == "WIDTH" && value) width = *value;
    if (words[0] == "HEIGHT" && value) height = *value;
    if (words[0] == "DEPTH" && value) depth = *value;
    if (words[0] == "MAXVAL" && value) maxval = *value;
  }
  if (width == 0 || height == 0 || depth < 1 || depth > 4 || maxval == 0 || maxval > 65535) return std::nullopt;
  if (width * height > maxPixels) return std::nullopt;
  PamImage pam;
  pam.Width = static_cast<int>(width);
  pam.Height = static_cast<int>(height);
  pam.Depth = static_cast<int>(depth);
  pam.BytesPerSample = maxval > 255 ? 2 : 1;
  pam.DataOffset = end + 8;
  return pam;
}

PamReceiver::PamReceiver(std::int64_t maxPixels, bool onWhite) : maxPixels_(maxPixels), onWhite_(onWhite) {}

PamReceiver::~PamReceiver() = default;

bool PamReceiver::Take(const QByteArray& chunk) {
  pending_ += chunk;
  if (!header_ && !Start()) return false;
  if (!header_) return true;  // the header is still arriving
  const qsizetype rowBytes = qsizetype(header_->Width) * header_->Depth * header_->BytesPerSample;
  const int band = RowAssembler::BandRows(header_->Width);
  while (rowsTaken_ < header_->Height) {
    const int rows = std::min(band, header_->Height - rowsTaken_);
    if (pending_.size() < rowBytes * rows) return true;
    if (!AddBand(rows)) return false;
  }
  return pending_.isEmpty();
}

bool PamReceiver::Start() {
  bool incomplete = false;
  header_ = ParsePamHeader(pending_, maxPixels_, &incomplete);
  if (!header_) return incomplete;
  pending_.remove(0, header_->DataOffset);
  const bool alpha = header_->Depth == 2 || header_->Depth == 4;
  rows_ = std::make_unique<RowAssembler>(header_->Width, header_->Height, alpha, onWhite_);
  return true;
}

// The next rows, high bytes only when samples have two.
bool PamReceiver::AddBand(int rows) {
  const PamImage& pam = *header_;
  const qsizetype samples = qsizetype(pam.Width) * pam.Depth * rows;
  QByteArray eight(samples, Qt::Uninitialized);
  const char* from = pending_.constData();
  char* to = eight.data();
  for (qsizetype i = 0; i < samples; ++i) to[i] = from[i * pam.BytesPerSample];
  pending_.remove(0, samples * pam.BytesPerSample);
  rowsTaken_ += rows;
  const auto interpretation = pam.Depth <= 2 ? VIPS_INTERPRETATION_B_W : VIPS_INTERPRETATION_sRGB;
  try {
    return rows_->Add(RowsIn(eight.data(), pam.Width, rows, pam.Depth, interpretation));
  } catch (const vips::VError&) {
    vips_error_clear();
    return false;
  }
}

std::optional<Image> PamReceiver::Finish() {
  if (!rows_ || !pending_.isEmpty()) return std::nullopt;
  try {
    return rows_->Finish();
  } catch (const vips::VError&) {
    vips_error_clear();
    return std::nullopt;
  }
}

}  // namespace imaging
