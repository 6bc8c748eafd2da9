#include "browse/ListColumn.h"

#include <QHash>

#include <algorithm>
#include <array>

namespace browse {

namespace {

// How far an exact width may lie from its estimate, and how many near-widest names
// are measured exactly at most.
constexpr int kSlackPixels = 4;
constexpr size_t kMostExactMeasures = 256;

class AdvanceCache {
 public:
  explicit AdvanceCache(const std::function<int(QChar)>& advance) : advance_(advance) { latin1_.fill(-1); }

  int Estimate(const QString& text) {
    int sum = 0;
    for (const QChar c : text) sum += Advance(c);
    return sum;
  }

 private:
  int Advance(QChar c) {
    if (c.unicode() < latin1_.size()) {
      int& cached = latin1_[c.unicode()];
      if (cached < 0) cached = advance_(c);
      return cached;
    }
    auto found = others_.find(c.unicode());
    if (found == others_.end()) found = others_.insert(c.unicode(), advance_(c));
    return *found;
  }

  const std::function<int(QChar)>& advance_;
  std::array<int, 256> latin1_;
  QHash<char16_t, int> others_;
};

}  // namespace

int FitListColumnWidth(const std::vector<FileEntry>& entries, const TextMeasure& measure,
                       const EditedEntry& edited) {
  if (entries.empty()) return 20;
  AdvanceCache cache(measure.Advance);
  std::vector<std::pair<int, const QString*>> estimates;
  estimates.reserve(entries.size());
  for (size_t i = 0; i < entries.size(); ++i) {
    const QString& text = static_cast<int>(i) == edited.Row ? edited.NewName : entries[i].DisplayName;
    estimates.emplace_back(cache.Estimate(text), &text);
  }
  const size_t considered = std::min(kMostExactMeasures, estimates.size());
  std::partial_sort(estimates.begin(), estimates.begin() + static_cast<std::ptrdiff_t>(considered), estimates.end(),
                    [](const auto& a, const auto& b) { return a.first > b.first; });
  int widest = 0;
  for (size_t i = 0; i < considered; ++i) {
    if (estimates[i].first + kSlackPixels < widest - kSlackPixels) break;
    widest = std::max(widest, measure.Exact(*estimates[i].second));
  }
  return widest + 20;
}

}  // namespace browse
