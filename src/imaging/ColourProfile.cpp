// The colours of a decoded image: an RGB image keeps its values and the profile it came
// with (edits work on the file's own values, and a save into a format that holds a profile
// embeds it unchanged); whatever reaches a format without a profile goes to sRGB, and
// whatever reaches the screen to the screen's profile, through lcms2 (ColourTransform.cpp),
// relative colorimetric with black-point compensation. CMYK and tagged grey images are
// turned into sRGB as they are decoded (libvips' own icc_transform).
#include "imaging/ImageInternal.h"
#include "base/Texts.h"

#include <lcms2.h>

#include <mutex>

namespace imaging {

namespace {

// Larger than any real profile; a bigger one is damage or an attack.
constexpr size_t kLargestProfile = size_t(4) << 20;

vips::VImage ToSrgb(const vips::VImage& image, int depth, const char* fallbackProfile = nullptr) {
  auto* options = vips::VImage::option()
                      ->set("embedded", true)
                      ->set("intent", VIPS_INTENT_RELATIVE)
                      ->set("black_point_compensation", true)
                      ->set("depth", depth);
  if (fallbackProfile) options->set("input_profile", fallbackProfile);
  return WithoutProfile(image.icc_transform("srgb", options));
}

bool IsCmyk(const vips::VImage& image) { return image.interpretation() == VIPS_INTERPRETATION_CMYK; }

// The profile's bytes, empty when there is none.
QByteArrayView ProfileOf(const vips::VImage& image) {
  const void* data = nullptr;
  size_t length = 0;
  if (!HasProfile(image) || vips_image_get_blob(image.get_image(), VIPS_META_ICC_NAME, &data, &length) != 0) {
    vips_error_clear();
    return {};
  }
  return {static_cast<const char*>(data), qsizetype(length)};
}

// lcms reads it and it describes these pixels; a device link, an abstract or a named-colour
// profile describes no pixels at all (the class is at byte 12 of the header).
bool Describes(const vips::VImage& image, QByteArrayView profile) {
  if (profile.size() < 128 || size_t(profile.size()) > kLargestProfile) return false;
  const QByteArrayView deviceClass = profile.sliced(12, 4);
  if (deviceClass == "link" || deviceClass == "abst" || deviceClass == "nmcl") return false;
  return vips_icc_is_compatible_profile(image.get_image(), profile.data(), size_t(profile.size()));
}

}  // namespace

bool HasProfile(const vips::VImage& image) { return image.get_typeof(VIPS_META_ICC_NAME) != 0; }

vips::VImage WithoutProfile(const vips::VImage& image) {
  if (!HasProfile(image)) return image;
  vips::VImage copy = image.copy();
  copy.remove(VIPS_META_ICC_NAME);
  return copy;
}

// A profile that is too large, damaged, of the wrong class or for other pixels is dropped:
// the image counts as sRGB. CMYK (through a standard press profile when it has none) and
// tagged grey become sRGB here.
vips::VImage WithUsableColours(const vips::VImage& image) {
  const int depth = image.format() == VIPS_FORMAT_USHORT ? 16 : 8;
  try {
    if (IsCmyk(image)) return ToSrgb(image, depth, "cmyk");
    if (!HasProfile(image)) return image;
    if (!Describes(image, ProfileOf(image))) return WithoutProfile(image);
    return image.bands() < 3 ? ToSrgb(image, depth) : image;
  } catch (const vips::VError&) {
    vips_error_clear();
    return WithoutProfile(image);
  }
}

vips::VImage InSrgb(const vips::VImage& image) {
  if (HasProfile(image)) {
    try {
      if (auto srgb = Transformed(image, {ProfileOf(image), {}})) return *srgb;
    } catch (const vips::VError&) {
      vips_error_clear();
    }
  }
  return WithoutProfile(EightBitOf(image));
}

namespace {

std::mutex screenLock;
ScreenColour screen;

}  // namespace

void SetScreenColour(const ScreenColour& colour) {
  const std::lock_guard guard(screenLock);
  screen = colour;
}

ScreenColour CurrentScreenColour() {
  const std::lock_guard guard(screenLock);
  return screen;
}

vips::VImage ForScreen(const vips::VImage& image) {
  const ScreenColour colour = CurrentScreenColour();
  const QByteArrayView source = ProfileOf(image);
  if (colour.Managed && (!source.isEmpty() || !colour.Profile.isEmpty())) {
    try {
      if (auto shown = Transformed(image, {source, colour.Profile, colour.Perceptual})) return *shown;
    } catch (const vips::VError&) {
      vips_error_clear();
    }
  }
  return IsDeep(image) ? EightBitOf(image).copy_memory() : image;  // the pixels as they are, no copy
}

QString DescribeProfile(const QByteArray& profile) {
  cmsHPROFILE opened = cmsOpenProfileFromMem(profile.constData(), cmsUInt32Number(profile.size()));
  if (!opened) return Texts::tr("unreadable profile");
  char text[256] = {};
  cmsGetProfileInfoASCII(opened, cmsInfoDescription, "en", "US", text, sizeof text);
  cmsCloseProfile(opened);
  const QString description = QString::fromLatin1(text).trimmed();
  return description.isEmpty() ? QStringLiteral("embedded") : description;
}

QString ProfileSummary(const vips::VImage& image) {
  const QByteArrayView profile = ProfileOf(image);
  if (profile.isEmpty()) return IsCmyk(image) ? Texts::tr("CMYK (standard press profile)") : Texts::tr("sRGB (assumed)");
  if (!Describes(image, profile)) return QStringLiteral("unusable, sRGB assumed");
  return DescribeProfile(profile.toByteArray());
}

bool Image::ShownAsIs() const {
  const ScreenColour colour = CurrentScreenColour();
  const bool converted = colour.Managed && (HasProfile(pixels_->image) || !colour.Profile.isEmpty());
  return !converted && !IsDeep(pixels_->image);
}

QByteArray Image::IccProfile() const { return ProfileOf(pixels_->image).toByteArray(); }

Image Image::InSrgb() const {
  if (!HasProfile(pixels_->image)) return EightBit();
  return FromInternal(Pixels{imaging::InSrgb(Internal().image)});
}

}  // namespace imaging
