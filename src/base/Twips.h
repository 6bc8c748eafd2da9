#pragma once
// Screen positions and image sizes at 100 % are kept in twips (1/1440 inch) so that
// they mean the same on screens of any density. One ScreenMetrics, owned by the main
// window and refreshed whenever its screen changes, converts them to pixels.

namespace base {

struct ScreenMetrics {
  float TwipsPerPixelX = 15;  // per pixel of the desktop's layout (a logical pixel)
  float TwipsPerPixelY = 15;
  float ScreenWidthTwips = 1920 * 15;
  float ScreenHeightTwips = 1080 * 15;
  // Device pixels per logical pixel (2 at 200 % desktop scaling). An image pixel at 100 %
  // is one device pixel, so an image's twips per pixel are the screen's divided by this.
  float DevicePixelRatio = 1;

  float ImageTwipsPerPixelX() const { return TwipsPerPixelX / DevicePixelRatio; }
  float ImageTwipsPerPixelY() const { return TwipsPerPixelY / DevicePixelRatio; }
};

// An image's size at 100 % in twips: its pixels times twips per pixel, each rounded to
// a whole number half to even.
struct NaturalSize {
  float WidthTwips = 0;
  float HeightTwips = 0;

  static NaturalSize FromPixels(int widthPixels, int heightPixels, const ScreenMetrics& metrics);
  bool operator==(const NaturalSize&) const = default;
};

}  // namespace base
