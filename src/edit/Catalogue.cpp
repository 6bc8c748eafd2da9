#include "edit/Catalogue.h"

#include "imaging/Operations.h"

#include <algorithm>
#include <climits>
#include <cmath>

namespace edit {

namespace {

namespace ops = imaging::ops;
using Id = OperationId;
using imaging::Image;

int N(const Arguments& a, size_t i) { return static_cast<int>(std::lround(a[i])); }
QRect Area(const Arguments& a) { return QRect(N(a, 0), N(a, 1), N(a, 2), N(a, 3)); }

const std::vector<Parameter> kPercent = {{"value", -100, 100}};
const std::vector<Parameter> kLevel = {{"value", 1, 9}};
const std::vector<Parameter> kSelection = {{"left", 0, INT_MAX, Source::Selection, 0},
                                           {"top", 0, INT_MAX, Source::Selection, 1},
                                           {"width", 1, INT_MAX, Source::Selection, 2},
                                           {"height", 1, INT_MAX, Source::Selection, 3}};

std::vector<CatalogueCommand> MakeCatalogue() {
  return {
      {Id::Brightness, "mnuColorsBrightness", "&Brightness...", "Brightness", "Brightness", "", kPointwise, kPercent,
       [](const Image& i, const Arguments& a) { return ops::Brightness(i, N(a, 0)); }},
      {Id::Contrast, "mnuColorsContrast", "&Contrast...", "Contrast", "Contrast", "", kPointwise, kPercent,
       [](const Image& i, const Arguments& a) { return ops::Contrast(i, N(a, 0)); }},
      {Id::Gamma, "mnuColorsGamma", "&Gamma...", "Gamma", "Gamma", "", kPointwise, {{"value in hundredths", 1, 1000}},
       [](const Image& i, const Arguments& a) { return ops::Gamma(i, a[0] / 100.0); }},
      {Id::Hsl, "mnuColorsHSL", "&Hue / Saturation / Luminance...", "Hsl", "Hue / Saturation / Luminance", "", kPointwise,
       {{"hue", -100, 100, Source::TextBox, 1}, {"saturation", -100, 100, Source::TextBox, 2},
        {"luminance", -100, 100, Source::TextBox, 3}},
       [](const Image& i, const Arguments& a) { return ops::HueSaturationLuminance(i, N(a, 0), N(a, 1), N(a, 2)); }},
      {Id::Rgb, "mnuColorsRGB", "&Red / Green / Blue...", "Rgb", "Red / Green / Blue", "", kPointwise,
       {{"red", -100, 100, Source::TextBox, 1}, {"green", -100, 100, Source::TextBox, 2},
        {"blue", -100, 100, Source::TextBox, 3}},
       [](const Image& i, const Arguments& a) { return ops::RedGreenBlue(i, N(a, 0), N(a, 1), N(a, 2)); }},
      {Id::Solarize, "mnuColorsSolarize", "&Solarize...", "Solarize", "Solarize", "", kPointwise, {{"value", 0, 255}},
       [](const Image& i, const Arguments& a) { return ops::Solarize(i, N(a, 0)); }},
      {Id::Equalize, "mnuColorsEqualize", "&Equalize", "", "Equalize", "", kRandomAccess, {}, [](const Image& i, const Arguments&) { return ops::Equalize(i); }},
      {Id::Negative, "mnuColorsNegative", "&Negative", "", "Negative", "", kPointwise, {}, [](const Image& i, const Arguments&) { return ops::Negative(i); }},
      {Id::GrayScale, "mnuColorsGrayScale", "Gr&ay Scale", "", "Gray Scale", "", kPointwise, {},
       [](const Image& i, const Arguments&) { return ops::GrayScale(i); }},
      {Id::ColorDepth1, "mnuColorsColorDepth1Bit", "&1 Bit (2 Colors)", "", "Color Depth", "", kNoTrait, {},
       [](const Image& i, const Arguments&) { return ops::ColorDepth(i, 1); }, 1},
      {Id::ColorDepth4, "mnuColorsColorDepth4Bits", "&4 Bits (16 Colors)", "", "Color Depth", "", kNoTrait, {},
       [](const Image& i, const Arguments&) { return ops::ColorDepth(i, 4); }, 4},
      {Id::ColorDepth8, "mnuColorsColorDepth8Bits", "&8 Bits (256 Colors)", "", "Color Depth", "", kNoTrait, {},
       [](const Image& i, const Arguments&) { return ops::ColorDepth(i, 8); }, 8},
      {Id::ColorDepth24, "mnuColorsColorDepth24Bits", "&24 Bits (True Color)", "", "Color Depth", "", kNoTrait, {},
       [](const Image& i, const Arguments&) { return ops::ColorDepth(i, 24); }, 24},
      {Id::ConcaveParabolic, "mnuColorsConcaveParabolic", "Conca&ve Parabolic", "", "Concave Parabolic", "", kPointwise, {},
       [](const Image& i, const Arguments&) { return ops::Parabolic(i, true); }},
      {Id::ConvexParabolic, "mnuColorsConvexParabolic", "Conve&x Parabolic", "", "Convex Parabolic", "", kPointwise, {},
       [](const Image& i, const Arguments&) { return ops::Parabolic(i, false); }},
      {Id::RedEye, "mnuColorsRedEye", "Red E&ye Removal", "", "Red Eye Removal", "Select an area to apply red eye removal", kRandomAccess, kSelection,
       [](const Image& i, const Arguments& a) { return ops::RedEyeRemoval(i, Area(a)); }},
      {Id::RotateLeft, "mnuImageRotateLeft", "Rotate L&eft", "", "Rotate Left", "", kChangesGeometry | kRandomAccess, {},
       [](const Image& i, const Arguments&) { return ops::Rotate(i, -90); }},
      {Id::RotateRight, "mnuImageRotateRight", "Rotate Righ&t", "", "Rotate Right", "", kChangesGeometry | kRandomAccess, {},
       [](const Image& i, const Arguments&) { return ops::Rotate(i, 90); }},
      {Id::FlipHorizontal, "mnuImageFlipHorizontal", "Flip &Horizontal", "", "Flip Horizontal", "", kNoTrait, {},
       [](const Image& i, const Arguments&) { return ops::Mirror(i); }},
      {Id::FlipVertical, "mnuImageFlipVertical", "Flip Vertic&al", "", "Flip Vertical", "", kRandomAccess, {},
       [](const Image& i, const Arguments&) { return ops::Flip(i); }},
      {Id::Flip, "mnuImageFlip", "F&lip", "", "Flip", "", kRandomAccess, {}, [](const Image& i, const Arguments&) { return ops::Flip(i); }},
      {Id::Mirror, "mnuImageMirror", "&Mirror", "", "Mirror", "", kNoTrait, {}, [](const Image& i, const Arguments&) { return ops::Mirror(i); }},
      {Id::Rotate, "mnuImageRotate", "&Rotate...", "Rotate", "Rotate", "", kChangesGeometry | kRandomAccess, {{"angle", -180, 180, Source::TextBox, 1, true}},
       [](const Image& i, const Arguments& a) { return ops::Rotate(i, a[0]); }},
      {Id::Resize, "mnuImageResize", "Re&size...", "Resize", "Resize", "", kChangesGeometry,
       {{"new width", 1, 2048, Source::TextBox, 3}, {"new height", 1, 2048, Source::TextBox, 4}},
       [](const Image& i, const Arguments& a) { return ops::Resize(i, N(a, 0), N(a, 1)); }},
      {Id::Crop, "mnuImageCrop", "&Crop", "", "Crop", "Select an area before cropping", kChangesGeometry, kSelection,
       [](const Image& i, const Arguments& a) { return ops::Crop(i, Area(a)); }},
      {Id::Perspective, "mnuImagePerspective", "Perspecti&ve...", "Perspective", "Perspective", "", kRandomAccess,
       {{"value", 0, 100, Source::TextBox, 1}, {"direction", 1, 4, Source::Option}},
       [](const Image& i, const Arguments& a) {
         return ops::Perspective(i, static_cast<ops::PerspectiveDirection>(N(a, 1) - 1), N(a, 0));
       }},
      {Id::Pinch, "mnuImagePinch", "P&inch...", "Pinch", "Pinch", "", kRandomAccess, kPercent,
       [](const Image& i, const Arguments& a) { return ops::Pinch(i, N(a, 0)); }},
      {Id::Ripple, "mnuImageRipple", "Ri&pple...", "Ripple", "Ripple", "", kRandomAccess,
       {{"frequency", 1, 100, Source::TextBox, 1}, {"intensity", 1, 100, Source::TextBox, 2},
        {"direction", 1, 2, Source::Option}},
       [](const Image& i, const Arguments& a) {
         return ops::Ripple(i, N(a, 0), N(a, 1), static_cast<ops::RippleDirection>(N(a, 2) - 1));
       }},
      {Id::Swirl, "mnuImageSwirl", "S&wirl...", "Swirl", "Swirl", "", kRandomAccess, {{"angle", -1000, 1000}},
       [](const Image& i, const Arguments& a) { return ops::Swirl(i, N(a, 0)); }},
      {Id::Blend, "mnuImageFiltersBlend", "&Blend...", "Blend", "Blend", "", kNoTrait, {{"value", 0, 100}},
       [](const Image& i, const Arguments& a) { return ops::Blend(i, N(a, 0)); }},
      {Id::Blur, "mnuImageFiltersBlur", "B&lur", "", "Blur", "", kNoTrait, {}, [](const Image& i, const Arguments&) { return ops::Blur(i); }},
      {Id::Diffuse, "mnuImageFiltersDiffuse", "&Diffuse", "", "Diffuse", "", kRandomAccess, {}, [](const Image& i, const Arguments&) { return ops::Diffuse(i); }},
      {Id::Dilate, "mnuImageFiltersDilate", "D&ilate", "", "Dilate", "", kNoTrait, {}, [](const Image& i, const Arguments&) { return ops::Dilate(i); }},
      {Id::Erode, "mnuImageFiltersErode", "&Erode", "", "Erode", "", kNoTrait, {}, [](const Image& i, const Arguments&) { return ops::Erode(i); }},
      {Id::Median, "mnuImageFiltersMedian", "Medi&an", "", "Median", "", kNoTrait, {}, [](const Image& i, const Arguments&) { return ops::Median(i); }},
      {Id::Mosaic, "mnuImageFiltersMosaic", "&Mosaic...", "Mosaic", "Mosaic", "", kNoTrait, {{"block size", 1, 63}},
       [](const Image& i, const Arguments& a) { return ops::Mosaic(i, N(a, 0)); }},
      {Id::MotionBlur, "mnuImageFiltersMotionBlur", "Mo&tion Blur...", "MotionBlur", "Motion Blur", "", kNoTrait,
       {{"horizontal speed", -10, 10, Source::TextBox, 1}, {"vertical speed", -10, 10, Source::TextBox, 2},
        {"intensity", 1, 25, Source::TextBox, 3}},
       [](const Image& i, const Arguments& a) { return ops::MotionBlur(i, N(a, 0), N(a, 1), N(a, 2)); }},
      {Id::Noise, "mnuImageFiltersNoise", "&Noise...", "Noise", "Noise", "", kNoTrait,
       {{"frequency", 1, 20, Source::TextBox, 1}, {"intensity", 1, 128, Source::TextBox, 2}},
       [](const Image& i, const Arguments& a) { return ops::Noise(i, N(a, 0), N(a, 1)); }},
      {Id::Sharpen, "mnuImageFiltersSharpen", "&Sharpen...", "Sharpen", "Sharpen", "", kNoTrait, kLevel,
       [](const Image& i, const Arguments& a) { return ops::Sharpen(i, N(a, 0)); }},
      {Id::Soften, "mnuImageFiltersSoften", "S&often...", "Soften", "Soften", "", kNoTrait, kLevel,
       [](const Image& i, const Arguments& a) { return ops::Soften(i, N(a, 0)); }},
  };
}

double ReadParameter(const Parameter& p, const DialogValues& values, const QRect& selection) {
  switch (p.From) {
    case Source::TextBox: return values.Number(p.Index);
    case Source::Option: return values.SelectedOption;
    case Source::Selection: break;
  }
  const int sides[] = {selection.x(), selection.y(), selection.width(), selection.height()};
  return sides[std::clamp(p.Index, 0, 3)];
}

}  // namespace

const std::vector<CatalogueCommand>& Catalogue() {
  static const std::vector<CatalogueCommand> catalogue = MakeCatalogue();
  return catalogue;
}

const CatalogueCommand& CommandFor(OperationId id) {
  const auto& catalogue = Catalogue();
  return *std::find_if(catalogue.begin(), catalogue.end(), [id](const CatalogueCommand& c) { return c.Id == id; });
}

Arguments ArgumentsFrom(const CatalogueCommand& command, const DialogValues& values, const QRect& selection) {
  Arguments arguments;
  for (const Parameter& p : command.Parameters) {
    arguments.push_back(std::clamp(ReadParameter(p, values, selection), p.Minimum, p.Maximum));
  }
  return arguments;
}

Arguments CommandArguments(const CatalogueCommand& command, const DialogValues& chosen, const DialogValues& atLoad,
                           const QRect& selection) {
  return ArgumentsFrom(command, chosen.AllConverted ? chosen : atLoad, selection);
}

Image Apply(const CatalogueCommand& command, const Image& image, const Arguments& values) {
  if (values.size() != command.Parameters.size()) return image;
  return command.Run(image, values);
}

Applied TryApply(const CatalogueCommand& command, const Image& image, const Arguments& values) {
  try {
    return {Apply(command, image, values), {}};
  } catch (const imaging::ops::OperationFailed& failure) {
    return {std::nullopt, QString::fromUtf8(failure.what())};
  }
}

std::optional<imaging::BlockStep> BlockStepOf(const CatalogueCommand& command, const Arguments& values) {
  using imaging::RightAngles;
  const double degrees = values.empty() ? 0 : values.front();
  switch (command.Id) {
    case Id::RotateLeft: return RightAngles::Clockwise(-1);
    case Id::RotateRight: return RightAngles::Clockwise(1);
    case Id::FlipHorizontal: case Id::Mirror: return RightAngles::Mirror();
    case Id::FlipVertical: case Id::Flip: return RightAngles::Flip();
    case Id::Rotate:
      if (std::fmod(degrees, 90) == 0) return RightAngles::Clockwise(int(degrees) / 90);
      break;
    case Id::Crop:
      if (values.size() == 4) return Area(values);
      break;
    default: break;
  }
  return std::nullopt;
}

Operation PreviewOperation(const CatalogueCommand& command) {
  return [&command](const Image& image, const DialogValues& values) {
    return TryApply(command, image, ArgumentsFrom(command, values)).Picture.value_or(image);  // unchanged on failure
  };
}

}  // namespace edit
