#pragma once
// The image value the rest of the program passes around: sRGB with 3 bands, or 4 with
// alpha, at 8 bits per sample, or 16 when it came from a 16-bit PNG or TIFF (edits keep
// them where they can, saving keeps them where the format can). Cheap to copy (shared,
// immutable pixels). Only src/imaging/ sees libvips.

#include <QImage>
#include <QString>

#include <memory>

namespace imaging {

// Starts libvips once per process (safe to call repeatedly) with its untrusted loaders blocked.
void Initialize();

// The screen's colours: the profile of the monitor the window is on (empty for sRGB), and
// whether pictures are colour-managed at all. Process-wide, as the display is; the window
// sets it, and every picture made for the screen from then on follows it.
struct ScreenColour {
  bool Managed = true;
  QByteArray Profile;
  bool Perceptual = false;  // else relative colorimetric
  bool operator==(const ScreenColour&) const = default;
};
void SetScreenColour(const ScreenColour& colour);
ScreenColour CurrentScreenColour();
// A profile's own description ("Adobe RGB (1998)"); "unreadable profile" when lcms cannot read it.
QString DescribeProfile(const QByteArray& profile);

class Image {
 public:
  int Width() const;
  int Height() const;
  int Bands() const;
  bool HasAlpha() const { return Bands() == 4; }
  // 8, or 16 for a deep image.
  int BitsPerSample() const;
  // The image at 8 bits per sample (itself when it already is).
  Image EightBit() const;
  // The ICC profile the pixels are in; empty when they are sRGB (stated or assumed).
  QByteArray IccProfile() const;
  // The colours in sRGB at 8 bits, through the profile: what the screen and a format
  // without a profile get (the 8-bit image itself when it has no profile).
  Image InSrgb() const;
  // The resolution the file records, in dots per inch; 0 when it records none.
  double DotsPerInch() const;

  // A copy reduced (adaptive Lanczos-3, no aliasing) to fit within maxWidth x maxHeight (never enlarged).
  Image FitWithin(int maxWidth, int maxHeight) const;
  // The same size for display (alpha onto white), made from the cached display levels:
  // a parameter dialog's preview opens without reducing the whole image again.
  Image FitWithinForDisplay(int maxWidth, int maxHeight) const;
  // The image composited onto white, RGB(255, 255, 255), without alpha.
  Image OnWhite() const;

  // For display at `width` x `height` (at most the image's size), alpha onto white: made
  // from the smallest cached half-size level that is still as large, so that repeated
  // zooms do not reduce the whole image again. Thread-safe.
  Image ReducedForDisplay(int width, int height) const;
  // The same size a quicker way, for a picture shown a moment (an animation's frame): one
  // linear filter as wide as the factor, several times faster than the above and a little
  // softer. Alpha is kept. Thread-safe.
  Image ReducedQuickly(int width, int height) const;
  // Builds the half-size levels while their longest side stays at least `smallestSide`,
  // ahead of the first paint and of zooming out.
  void WarmDisplayLevels(int smallestSide = 256) const;

  // An 8-bit sRGB copy (alpha composited onto white): for the clipboard, a file, a printer.
  QImage ToQImage() const;
  // The same with its alpha kept (RGBA).
  QImage ToQImageWithAlpha() const;
  // What the screen shows: 8-bit, through the image's profile to the screen's, alpha onto
  // white; and with its alpha kept, for drawing over a checkerboard.
  QImage ForScreen() const;
  QImage ForScreenWithAlpha() const;
  // The screen shows the pixels as they are (8-bit, no profile, an sRGB or unmanaged
  // screen): ForScreen costs no conversion.
  bool ShownAsIs() const;

  // An image from Qt's pixels (alpha kept).
  static Image FromQImage(const QImage& image);

  struct Pixels;  // opaque: the decoded libvips image
  // The pixels, once every row is there (an undo state may still be unpacking them).
  const Pixels& Internal() const;
  // Size, format and metadata at once, without waiting for the rows.
  const Pixels& Header() const { return *pixels_; }
  static Image FromInternal(Pixels pixels);

 private:
  friend class PackedImage;  // hands back pixels that are still alive elsewhere
  explicit Image(std::shared_ptr<const Pixels> pixels);
  std::shared_ptr<const Pixels> pixels_;
};

}  // namespace imaging
