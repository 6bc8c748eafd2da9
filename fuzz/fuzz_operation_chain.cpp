// Arbitrary words for `vistrel-cli apply`: parsing never crashes, a chain either has an
// error and no steps or steps whose values are all inside their ranges, and the first
// two steps run on a small image without failing.
#include "edit/Catalogue.h"
#include "imaging/Image.h"

#include <QColor>
#include <QImage>

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const QString text = QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
  const edit::OperationChain chain = edit::ParseOperationChain(text.split(u' ', Qt::SkipEmptyParts));
  if (chain.Error.isEmpty() == chain.Steps.empty()) std::abort();
  static const imaging::Image small = [] {
    imaging::Initialize();
    QImage picture(6, 5, QImage::Format_RGB32);
    picture.fill(QColor(200, 40, 60));
    return imaging::Image::FromQImage(picture);
  }();
  for (size_t i = 0; i < chain.Steps.size(); ++i) {
    const edit::OperationStep& step = chain.Steps[i];
    if (step.Values.size() != step.Command->Parameters.size()) std::abort();
    for (size_t k = 0; k < step.Values.size(); ++k) {
      const edit::Parameter& p = step.Command->Parameters[k];
      if (step.Values[k] < p.Minimum || step.Values[k] > p.Maximum) std::abort();
    }
    if (i < 2) {
      const edit::Applied applied = edit::TryApply(*step.Command, small, step.Values);
      if (applied.Picture ? applied.Picture->Width() < 1 : applied.Failure.isEmpty()) std::abort();
    }
  }
  return 0;
}
