#pragma once
// What an Image holds, for the files of src/imaging/ only.

#include "imaging/Image.h"

#include <vips/vips8>

#include <optional>

namespace imaging {

// Half-size reductions of an image for display, built on demand (DisplayLevels.cpp).
struct DisplayLevelCache;
// Rows an undo state is still unpacking into the memory of an image (PackedImage.cpp).
struct RowsArriving;

struct Image::Pixels {
  vips::VImage image;  // uchar sRGB or ushort RGB16, 3 or 4 bands, in memory
  std::shared_ptr<DisplayLevelCache> levels = MakeDisplayLevelCache();
  // Set while `image`'s memory is still being filled: read it through Image::Internal().
  std::shared_ptr<RowsArriving> arriving = nullptr;

  static std::shared_ptr<DisplayLevelCache> MakeDisplayLevelCache();
};

// Returns once every row of the pixels is in memory (at once for all but an unpacking undo state).
void WaitForRows(const Image::Pixels& pixels);

// Any decoded image to the form an Image holds: sRGB, 3 bands or 4 with alpha, 16 bits
// for a 16-bit RGB or grey file and 8 for everything else.
vips::VImage Normalized(vips::VImage image);

inline bool IsDeep(const vips::VImage& image) { return image.format() == VIPS_FORMAT_USHORT; }
// The largest sample value: white.
inline double WhiteOf(const vips::VImage& image) { return IsDeep(image) ? 65535.0 : 255.0; }
// A pipeline's result labelled as an Image's pixels of that sample format.
vips::VImage AsSamples(const vips::VImage& image, VipsBandFormat format);
// The pixels at 8 bits per sample (the high byte of a 16-bit sample), still a pipeline.
vips::VImage EightBitOf(const vips::VImage& image);

// The embedded ICC profile travels with the pixels as libvips' "icc-profile-data" (ColourProfile.cpp).
bool HasProfile(const vips::VImage& image);
vips::VImage WithoutProfile(const vips::VImage& image);
// A file without a profile that states its colours another way (a PNG's gAMA and cHRM, an
// Adobe RGB camera's EXIF) gets a profile made for them (StatedColours.cpp).
vips::VImage WithStatedColours(const vips::VImage& image, const QString& path);
// A decoded image with a profile it can use, or none; CMYK and tagged grey turned into sRGB.
vips::VImage WithUsableColours(const vips::VImage& image);
// What Properties says of the file's colours: the profile's description, or how they are taken.
QString ProfileSummary(const vips::VImage& image);
// The colours in sRGB at 8 bits, in memory, without a profile.
vips::VImage InSrgb(const vips::VImage& image);
// An RGB(A) image's colours from one profile to another through lcms2 (ColourTransform.cpp),
// 8-bit and in memory; nullopt when lcms cannot read a profile. An empty profile is sRGB.
struct Conversion {
  QByteArrayView From, To;
  bool Perceptual = false;  // else relative colorimetric; black-point compensation either way
};
std::optional<vips::VImage> Transformed(const vips::VImage& image, const Conversion& conversion);
// The pixels as the screen shows them (alpha kept): through the image's profile, or sRGB, to
// the screen's (SetScreenColour), 8-bit, in memory.
vips::VImage ForScreen(const vips::VImage& image);

// The image composited onto white (unchanged without alpha), still a pipeline.
inline vips::VImage FlattenedOnWhite(const vips::VImage& image) {
  if (image.bands() != 4) return image;
  const double white = WhiteOf(image);
  return image.flatten(vips::VImage::option()->set("background", std::vector<double>{white, white, white}))
      .cast(image.format());
}

// Every field of `from` that `to` lacks, and its resolution: the metadata bare pixels lost.
void CopyMetadata(const vips::VImage& from, vips::VImage& to);

// Packed 8-bit rows in memory as an image, without a copy; the memory must outlive it.
vips::VImage RowsIn(void* data, int width, int rows, int bands,
                    VipsInterpretation interpretation = VIPS_INTERPRETATION_sRGB);

// The reductions made for display so far that together cost at most an eighth of the image;
// and such reductions given back to an image made again from the same pixels (a packed undo
// state unpacked), so that the views it was shown at are ready at once.
std::vector<vips::VImage> SmallDisplayLevels(const Image& image);
void AdoptDisplayLevels(const Image& image, const std::vector<vips::VImage>& levels);

// Reduced to exactly width x height (each at most the image's) with an adaptive Lanczos-3
// kernel, in memory.
vips::VImage ReduceTo(const vips::VImage& image, int width, int height);

// The file as libvips reads it: a regular file opened once by its exact bytes. Throws
// vips::VError for anything else (a FIFO, a device), so no loader waits on one.
vips::VSource SourceOf(const QString& path);

// Memory for a picture's pixels, freed with g_free; a large picture's may be backed by huge
// pages (PixelMemory.cpp). nullptr when there is not enough.
void* AllocatePixels(size_t bytes);
// The image computed into such memory, as libvips' copy_memory does (an image already in
// memory is returned as it is). Throws std::bad_alloc or vips::VError.
vips::VImage InMemory(const vips::VImage& image);

// libvips started without its loadable modules (VipsModules.cpp), and the coders it may run.
int StartVips();
void TrustCoders();
// The HEIF and JPEG XL coders, loaded once, when a saver or the file open on the descriptor
// needs them.
void LoadFormatModules();
void LoadFormatModulesFor(int descriptor);

// A decoded image normalised into memory in one pass (composited onto white when asked,
// so no second full-size copy is made).
Image Wrap(vips::VImage image, bool onWhite = false);

}  // namespace imaging
