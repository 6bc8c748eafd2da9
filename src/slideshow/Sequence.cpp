#include "slideshow/Sequence.h"

#include <algorithm>

namespace slideshow {

QStringList BuildSequence(const std::vector<SlideShowRow>& rows, int selectedRow, bool random, std::mt19937& generator) {
  const int count = static_cast<int>(rows.size());
  const bool startAtSelection = !random && selectedRow >= 0 && selectedRow < count && rows[selectedRow].Checked;
  const int start = startAtSelection ? selectedRow : 0;
  QStringList sequence;
  for (int i = 0; i < count; ++i) {
    const SlideShowRow& row = rows[(start + i) % count];
    if (row.Checked) sequence << row.Name;
  }
  if (random) Shuffle(sequence, generator);
  return sequence;
}

void Shuffle(QStringList& sequence, std::mt19937& generator) {
  const auto count = sequence.size();
  std::uniform_real_distribution<double> unit(0.0, 1.0);
  for (qsizetype i = 0; i < count * 21; ++i) {
    const auto a = static_cast<qsizetype>(unit(generator) * double(count));
    const auto b = static_cast<qsizetype>(unit(generator) * double(count));
    if (a != b && a < count && b < count) sequence.swapItemsAt(a, b);
  }
}

double PlayerZoom(QSize image, QSize area, bool fitAlways) {
  double zoom = 1;
  const bool tooLarge = image.width() > area.width() || image.height() > area.height();
  if ((fitAlways || tooLarge) && image.width() > 0 && image.height() > 0) {
    zoom = std::min(double(area.width()) / image.width(), double(area.height()) / image.height());
  }
  return std::clamp(zoom, 0.1, 10.0);
}

std::optional<QString> PlayOrder::NextInLine() const {
  if (position_ + 1 < sequence_.size()) return sequence_[position_ + 1];
  if (repeat_ && !random_ && !sequence_.isEmpty()) return sequence_.front();
  return std::nullopt;
}

PlayOrder::Step PlayOrder::Back() {
  if (position_ == 0 && (random_ || !repeat_)) return Step::Nothing;
  position_ = position_ == 0 ? static_cast<int>(sequence_.size()) - 1 : position_ - 1;
  return Step::Show;
}

PlayOrder::Step PlayOrder::Forward() {
  if (++position_ < sequence_.size()) return Step::Show;
  if (!repeat_) return Step::End;
  if (random_) Shuffle(sequence_, generator_);
  position_ = 0;
  return Step::Show;
}

}  // namespace slideshow
