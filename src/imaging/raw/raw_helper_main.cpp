// vistrel-raw: reads a camera RAW file with LibRaw in its own process, so a crafted file
// can crash or exhaust only this process (the viewer caps its memory and time).
// Usage:
//   vistrel-raw preview FILE   "RAW <width> <height> <orientation>\n", then the embedded
//                              preview: its JPEG bytes as stored, or a PAM (P7) bitmap.
//                              Width and height are the developed image's, upright; the
//                              orientation (EXIF 1-8) is the one the preview still needs.
//   vistrel-raw facts FILE     what the camera recorded, one "name<TAB>value" line each,
//                              named as libvips names EXIF's fields, and the developed
//                              image's upright "width" and "height".
//   vistrel-raw develop FILE [half]
//                              the developed image as 8-bit sRGB PAM, upright: camera white
//                              balance, LibRaw's default demosaic (half: each 2x2 block as
//                              one pixel, for a quick picture).
#include <libraw/libraw.h>

#include <cstdio>
#include <cstring>
#include <ctime>
#include <memory>
#include <string>

namespace {

constexpr long long kMaxPixels = 0x3FFFLL * 0x3FFF;

// LibRaw's flip (0, 3, 5, 6) as an EXIF orientation.
int ExifOrientation(int flip) {
  switch (flip) {
    case 3: return 3;
    case 5: return 8;
    case 6: return 6;
    default: return 1;
  }
}

bool WritePam(const libraw_processed_image_t& image) {
  if (image.type != LIBRAW_IMAGE_BITMAP || image.bits != 8 || (image.colors != 3 && image.colors != 1)) return false;
  std::printf("P7\nWIDTH %d\nHEIGHT %d\nDEPTH %d\nMAXVAL 255\nTUPLTYPE %s\nENDHDR\n", image.width, image.height, image.colors,
              image.colors == 3 ? "RGB" : "GRAYSCALE");
  const size_t bytes = size_t(image.width) * image.height * image.colors;
  return image.data_size >= bytes && std::fwrite(image.data, 1, bytes, stdout) == bytes;
}

struct ImageFree {
  void operator()(libraw_processed_image_t* image) const { LibRaw::dcraw_clear_mem(image); }
};
using ProcessedImage = std::unique_ptr<libraw_processed_image_t, ImageFree>;

bool Open(LibRaw& raw, const char* path) {
  if (raw.open_file(path) != LIBRAW_SUCCESS) return false;
  const libraw_image_sizes_t& sizes = raw.imgdata.sizes;
  return sizes.width > 0 && sizes.height > 0 && (long long)sizes.width * sizes.height <= kMaxPixels;
}

bool Preview(LibRaw& raw) {
  if (raw.unpack_thumb() != LIBRAW_SUCCESS) return false;
  int error = 0;
  const ProcessedImage thumb(raw.dcraw_make_mem_thumb(&error));
  if (!thumb) return false;
  const libraw_image_sizes_t& sizes = raw.imgdata.sizes;
  const bool turned = sizes.flip & 4;
  std::printf("RAW %d %d %d\n", turned ? sizes.height : sizes.width, turned ? sizes.width : sizes.height,
              ExifOrientation(sizes.flip));
  if (thumb->type == LIBRAW_IMAGE_JPEG) return std::fwrite(thumb->data, 1, thumb->data_size, stdout) == thumb->data_size;
  return WritePam(*thumb);
}

void Fact(const char* name, const std::string& value) {
  if (!value.empty()) std::printf("%s\t%s\n", name, value.c_str());
}

std::string Number(double value) {
  if (value <= 0) return {};
  char text[32];
  std::snprintf(text, sizeof text, "%g", value);
  return text;
}

bool Facts(const LibRaw& raw) {
  const libraw_data_t& data = raw.imgdata;
  Fact("exif-ifd0-Make", data.idata.make);
  Fact("exif-ifd0-Model", data.idata.model);
  Fact("exif-ifd2-LensModel", data.lens.Lens);
  Fact("exif-ifd2-ExposureTime", Number(data.other.shutter));
  Fact("exif-ifd2-FNumber", Number(data.other.aperture));
  Fact("exif-ifd2-ISOSpeedRatings", Number(data.other.iso_speed));
  Fact("exif-ifd2-FocalLength", Number(data.other.focal_len));
  if (data.other.timestamp > 0) {
    char taken[32];
    tm local{};
    localtime_r(&data.other.timestamp, &local);  // LibRaw read the camera's date as local time
    std::strftime(taken, sizeof taken, "%Y:%m:%d %H:%M:%S", &local);
    Fact("exif-ifd2-DateTimeOriginal", taken);
  }
  Fact("exif-ifd0-Orientation", std::to_string(ExifOrientation(data.sizes.flip)));
  const bool turned = data.sizes.flip & 4;
  Fact("width", std::to_string(turned ? data.sizes.height : data.sizes.width));
  Fact("height", std::to_string(turned ? data.sizes.width : data.sizes.height));
  return true;
}

bool Develop(LibRaw& raw, bool half) {
  libraw_output_params_t& params = raw.imgdata.params;
  params.use_camera_wb = 1;
  params.output_color = 1;  // sRGB
  params.output_bps = 8;
  params.half_size = half ? 1 : 0;
  if (raw.unpack() != LIBRAW_SUCCESS || raw.dcraw_process() != LIBRAW_SUCCESS) return false;
  int error = 0;
  const ProcessedImage image(raw.dcraw_make_mem_image(&error));
  return image && WritePam(*image);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3) return 2;
  const std::string mode = argv[1];
  const auto raw = std::make_unique<LibRaw>();  // large: not on the stack
  if (!Open(*raw, argv[2])) return 1;
  bool done = false;
  if (mode == "preview") done = Preview(*raw);
  if (mode == "facts") done = Facts(*raw);
  if (mode == "develop") done = Develop(*raw, argc > 3 && std::strcmp(argv[3], "half") == 0);
  return done && std::fflush(stdout) == 0 ? 0 : 1;
}
