#pragma once
// The placing step without widgets: which scroll bars show, their ranges, steps
// and values, and where the image control goes. Sizes in twips, bar values in pixels.

namespace view {

struct ScrollBarState {
  bool Visible = false;
  int Maximum = 0;
  int Value = 0;
  int SmallChange = 1;
  int LargeChange = 1;
};

enum class Pending { None, ZoomStep, ZoomToSelection };

struct SelectionTwips {
  float Left = 0, Top = 0, Width = 0, Height = 0;  // of the image at 100 %
};

struct PlacingInput {
  float TwipsPerPixelX = 15, TwipsPerPixelY = 15;
  float ControlWidth = 0, ControlHeight = 0;  // the image at the current zoom
  float PanelWidth = 0, PanelHeight = 0;      // picFondo's inner size
  float VerticalBarWidth = 0, HorizontalBarHeight = 0;
  bool ImageLoaded = false;
  int Percentage = 100;
  Pending PendingFlag = Pending::None;
  ScrollBarState PreviousHorizontal, PreviousVertical;
  SelectionTwips Selection;
};

struct Placement {
  ScrollBarState Horizontal, Vertical;
  bool CornerVisible = false;  // picCuadro, where both bars meet
  float ControlLeft = 0, ControlTop = 0;
};

Placement PlaceImage(const PlacingInput& input);

}  // namespace view
