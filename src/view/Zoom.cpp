#include "view/Zoom.h"
#include "base/Texts.h"

#include "base/NumberRules.h"

#include <algorithm>
#include <cmath>

namespace view {

int ClampZoom(int percentage) { return std::clamp(percentage, kMinZoom, kMaxZoom); }

std::optional<int> ZoomIn(int percentage) {
  if (percentage >= kMaxZoom) return std::nullopt;
  return ClampZoom(percentage + kZoomStep);
}

std::optional<int> ZoomOut(int percentage) {
  if (percentage <= kMinZoom) return std::nullopt;
  return ClampZoom(percentage - kZoomStep);
}

namespace {

// Single precision throughout, so fit percentages match on every platform: 4290 / 1500 is 2.86 in float, and
// 2.86f * 100 is exactly 286.0f (in double it would floor to 285).
int FlooredPercentage(float horizontalRatio, float verticalRatio) {
  const float ratio = std::min(horizontalRatio, verticalRatio);
  const float percentage = ratio * 100.0f;
  const double floored = numbers::Floor(percentage);
  return ClampZoom(static_cast<int>(std::clamp(floored, -1e6, 1e6)));
}

}  // namespace

int FitPercentage(float panelWidth, float panelHeight, float naturalWidth, float naturalHeight, bool enlarge) {
  if (naturalWidth <= 0 || naturalHeight <= 0) return 100;
  const float ratio = std::min(panelWidth / naturalWidth, panelHeight / naturalHeight);
  const double floored = numbers::Floor(ratio * 100.0f);
  return static_cast<int>(std::clamp(floored, double(kMinFit), double(enlarge ? kMaxZoom : 100)));
}

int SelectionFitPercentage(const SelectionFitInput& in) {
  if (in.NaturalWidth <= 0 || in.NaturalHeight <= 0 || !(in.SelectionWidth > 0) || !(in.SelectionHeight > 0)) {
    return 100;
  }
  return FlooredPercentage((in.PanelWidth - 2 * in.VerticalBarWidth) / in.SelectionWidth,
                           (in.PanelHeight - 2 * in.HorizontalBarHeight) / in.SelectionHeight);
}

int SmallChange(int percentage) { return std::max(1, numbers::RoundToInt32(percentage / 100.0 + 0.5).value_or(1)); }

int LargeChange(int percentage) { return std::max(1, numbers::RoundToInt32(percentage * 24 / 100.0 + 0.5).value_or(1)); }

QStringList ZoomDialogChoices() {
  return {QStringLiteral("10%"), QStringLiteral("20%"), QStringLiteral("50%"), QStringLiteral("100%"),
          QStringLiteral("200%"), QStringLiteral("500%"), QStringLiteral("1000%")};
}

bool ZoomDialogAcceptsCharacter(QChar c, const QString& text, bool hasSelection) {
  if (c.unicode() < 32) return true;
  if (!hasSelection && text.size() >= 6) return false;
  return QStringLiteral("0123456789%").contains(c);
}

std::optional<int> ZoomDialogValue(const QString& text) {
  const double value = numbers::Floor(numbers::LeadingNumber(text));
  if (value < kMinZoom || value > kMaxZoom) return std::nullopt;
  return static_cast<int>(value);
}

QString ZoomDialogRangeMessage() {
  return Texts::tr("Please enter a value between %1% and %2%").arg(kMinZoom).arg(kMaxZoom);
}

}  // namespace view
