#pragma once
// SettingsStore: every persistent user setting, in memory units
// (twips for positions and sizes, &HBBGGRR for colours).

#include "base/Twips.h"

#include <QString>

#include <array>
#include <cstdint>

namespace settings {

constexpr std::int32_t RGB(int red, int green, int blue) { return red | (green << 8) | (blue << 16); }

inline constexpr int kRecentFolderSlots = 20;
inline constexpr int kSplitterMinPixels = 30;
inline constexpr int kSplitterMaxPixels = 360;

struct SettingsStore {
  float WindowLeft = 0;
  float WindowTop = 0;
  float WindowWidth = 9075;
  float WindowHeight = 6570;
  bool WindowMaximized = true;
  float SplitterPos = 0;
  std::int32_t LastOpenKind = 0;
  QString LastFile;
  QString LastFolder;
  std::array<QString, kRecentFolderSlots> RecentFolders;
  std::array<float, 4> PrintMargins = {0.7f, 0.7f, 0.7f, 0.7f};
  std::int32_t PrintUnits = 0;
  std::int32_t StartOption = 0;
  bool ImageExtensionsOnly = true;
  bool ClassicTypesOnly = false;  // the scan leaves out today's types (HEIC, WebP...)
  std::int32_t SaveQuality = 90;      // WebP, AVIF, HEIF and JPEG XL: 1 to 100, 100 lossless
  std::int32_t TiffCompression = 0;  // LZW, Deflate, JPEG, none
  bool RecentEnabled = true;
  bool ConfirmDelete = true;
  std::int32_t ColorImage = RGB(153, 153, 153);
  std::int32_t ColorThumbnails = RGB(51, 51, 51);
  std::int32_t ColorFullScreen = RGB(0, 0, 0);
  bool ShowToolbar = true;
  bool ShowStatusBar = true;
  bool FitToWindow = true;
  std::int32_t FileTypeIcon = 0;
  bool EnlargeSmallImages = false;  // Fit enlarges pictures smaller than the window
  std::int32_t WheelAction = 0;      // the wheel scrolls (0), zooms (1) or steps through the images (2)
  std::int32_t SortOrder = 0;        // the list by name, date taken, last change, size or type (browse::SortKey)
  bool SortDescending = false;
  bool ColourManaged = true;        // pictures go through their profile and the screen's
  bool PerceptualIntent = false;    // else relative colorimetric
  QString ScreenProfileFile;        // the screen's profile when the display publishes none

  bool operator==(const SettingsStore&) const = default;
};

// The defaults: the normal rectangle centred on the screen, a 130-pixel list pane, and
// margins in the user's measurement system (0.7 in, or 1.8 cm where it is metric).
SettingsStore DefaultSettings(const base::ScreenMetrics& metrics);

// What is open now (LastOpenKind).
enum OpenKind : std::int32_t { kOpenNothing = 0, kOpenFile = 1, kOpenFolder = 2 };

}  // namespace settings
