#pragma once
// The image value the rest of the program passes around. Cheap to copy (shared,
// immutable pixels). Only src/imaging/ sees libvips.

#include <QImage>
#include <QString>

#include <memory>
#include <optional>

namespace imaging {

// Starts libvips once per process (safe to call repeatedly) with its untrusted loaders blocked.
void Initialize();

class Image {
 public:
  int Width() const;
  int Height() const;

  // A copy reduced with area averaging to fit within maxWidth x maxHeight (never enlarged).
  Image FitWithin(int maxWidth, int maxHeight) const;

  // An 8-bit RGB copy for display.
  QImage ToQImage() const;
  QImage ToQImageFitting(int maxWidth, int maxHeight) const { return FitWithin(maxWidth, maxHeight).ToQImage(); }

  // An image from Qt's pixels (alpha composited onto white), e.g. from the clipboard.
  static Image FromQImage(const QImage& image);

  struct Pixels;  // opaque: the decoded libvips image

 private:
  friend std::optional<Image> LoadFile(const QString& path);
  static Image FromPixels(Pixels pixels);
  explicit Image(std::shared_ptr<const Pixels> pixels);
  std::shared_ptr<const Pixels> pixels_;
};

// Decodes a file completely (upright by its EXIF orientation, alpha composited onto
// white); nullopt when it cannot be read.
std::optional<Image> LoadFile(const QString& path);

}  // namespace imaging
