#include "base/Twips.h"

#include "base/NumberRules.h"

namespace base {

NaturalSize NaturalSize::FromPixels(int widthPixels, int heightPixels, const ScreenMetrics& metrics) {
  const auto width = numbers::RoundToInt32(widthPixels * double(metrics.ImageTwipsPerPixelX())).value_or(0);
  const auto height = numbers::RoundToInt32(heightPixels * double(metrics.ImageTwipsPerPixelY())).value_or(0);
  return {float(width), float(height)};
}

}  // namespace base
