#pragma once
// The player's order and its steps, without widgets: which files play, from where, in
// which order, and what a step forward or back does.

#include "slideshow/SlideShowList.h"

#include <QSize>
#include <QString>
#include <QStringList>

#include <random>

namespace slideshow {

// The checked rows once around the list. In list order the show starts at the selected
// row when that row is checked (0-based; -1 for none) and wraps to the rows before it; in
// random order it starts at the first row and is then shuffled.
QStringList BuildSequence(const std::vector<SlideShowRow>& rows, int selectedRow, bool random, std::mt19937& generator);

// Count x 21 exchanges of two positions drawn at random; a draw of the same position
// twice exchanges nothing. Every entry stays in the sequence exactly once.
void Shuffle(QStringList& sequence, std::mt19937& generator);

// The zoom, as a fraction, of an image shown in an area: 1, or fitted when the option
// says so or the image does not fit, and always within 10 % to 1000 %.
double PlayerZoom(QSize image, QSize area, bool fitAlways);

class PlayOrder {
 public:
  enum class Step { Show, End, Nothing };

  PlayOrder(QStringList sequence, bool random, bool repeat, std::mt19937& generator)
      : sequence_(std::move(sequence)), random_(random), repeat_(repeat), generator_(generator) {}

  const QStringList& Sequence() const { return sequence_; }
  int Position() const { return position_; }
  QString Current() const { return sequence_.value(position_); }
  // The entry a step forward shows, when it shows one without a reshuffle.
  std::optional<QString> NextInLine() const;

  // Back from the first entry moves only in a repeating show in list order, to the last.
  Step Back();
  // Past the last entry: the end, or with repeat the first again (a random show reshuffled).
  Step Forward();

 private:
  QStringList sequence_;
  bool random_, repeat_;
  std::mt19937& generator_;
  int position_ = 0;
};

}  // namespace slideshow
