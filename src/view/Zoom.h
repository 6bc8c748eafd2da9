#pragma once
// The zoom arithmetic, without widgets: the steps, the fit percentages and the
// zoom dialog's rules. Sizes are in twips.

#include <QString>
#include <QStringList>

#include <optional>

namespace view {

inline constexpr int kMinZoom = 10;
inline constexpr int kMaxZoom = 1000;
inline constexpr int kZoomStep = 20;

int ClampZoom(int percentage);

// Zoom In and Zoom Out: the new percentage, or nullopt where the command does nothing
// (already at 1000 %, or at 10 %).
std::optional<int> ZoomIn(int percentage);
std::optional<int> ZoomOut(int percentage);

// The smaller of panel / natural on both axes, times 100, floored; 100 without a natural
// size. No scroll bar is subtracted. A picture smaller than the panel is enlarged (up to
// 1000 %) only when asked, and a giant one fits below the 10 % of the zoom commands.
inline constexpr int kMinFit = 1;
int FitPercentage(float panelWidth, float panelHeight, float naturalWidth, float naturalHeight, bool enlarge);

// The same for a selection, with twice the scroll bars' thickness taken off the panel.
struct SelectionFitInput {
  float PanelWidth = 0, PanelHeight = 0;
  float VerticalBarWidth = 0, HorizontalBarHeight = 0;
  float NaturalWidth = 0, NaturalHeight = 0;
  float SelectionWidth = 0, SelectionHeight = 0;
};
int SelectionFitPercentage(const SelectionFitInput& input);

// Scroll bar steps at a zoom: round-half-to-even of percentage / 100 + 0.5 and of
// percentage x 24 / 100 + 0.5, at least 1 (2 and 24 at 100 %).
int SmallChange(int percentage);
int LargeChange(int percentage);

// The zoom dialog `frmZoom`.
QStringList ZoomDialogChoices();  // "10%" ... "1000%"
// A typed character: control characters pass; others only from "0123456789%", and
// none once the text holds 6 characters unless part of it is selected.
bool ZoomDialogAcceptsCharacter(QChar c, const QString& text, bool hasSelection);
// The whole part of the text's leading number when within 10..1000.
std::optional<int> ZoomDialogValue(const QString& text);
QString ZoomDialogRangeMessage();  // "Please enter a value between 10% and 1000%"

}  // namespace view
