#include "edit/Catalogue.h"

#include "imaging/Operations.h"

#include <algorithm>
#include <climits>
#include <cmath>

namespace edit {

namespace {

namespace ops = imaging::ops;
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
      {"mnuColorsBrightness", "Brightness", "Brightness", "", false, kPercent,
       [](const Image& i, const Arguments& a) { return ops::Brightness(i, N(a, 0)); }},
      {"mnuColorsContrast", "Contrast", "Contrast", "", false, kPercent,
       [](const Image& i, const Arguments& a) { return ops::Contrast(i, N(a, 0)); }},
      {"mnuColorsGamma", "Gamma", "Gamma", "", false, {{"value in hundredths", 1, 1000}},
       [](const Image& i, const Arguments& a) { return ops::Gamma(i, a[0] / 100.0); }},
      {"mnuColorsHSL", "Hsl", "Hue / Saturation / Luminance", "", false,
       {{"hue", -100, 100, Source::TextBox, 1}, {"saturation", -100, 100, Source::TextBox, 2},
        {"luminance", -100, 100, Source::TextBox, 3}},
       [](const Image& i, const Arguments& a) { return ops::HueSaturationLuminance(i, N(a, 0), N(a, 1), N(a, 2)); }},
      {"mnuColorsRGB", "Rgb", "Red / Green / Blue", "", false,
       {{"red", -100, 100, Source::TextBox, 1}, {"green", -100, 100, Source::TextBox, 2},
        {"blue", -100, 100, Source::TextBox, 3}},
       [](const Image& i, const Arguments& a) { return ops::RedGreenBlue(i, N(a, 0), N(a, 1), N(a, 2)); }},
      {"mnuColorsSolarize", "Solarize", "Solarize", "", false, {{"value", 0, 255}},
       [](const Image& i, const Arguments& a) { return ops::Solarize(i, N(a, 0)); }},
      {"mnuColorsEqualize", "", "Equalize", "", false, {}, [](const Image& i, const Arguments&) { return ops::Equalize(i); }},
      {"mnuColorsNegative", "", "Negative", "", false, {}, [](const Image& i, const Arguments&) { return ops::Negative(i); }},
      {"mnuColorsGrayScale", "", "Gray Scale", "", false, {},
       [](const Image& i, const Arguments&) { return ops::GrayScale(i); }},
      {"mnuColorsColorDepth1Bit", "", "Color Depth", "", false, {},
       [](const Image& i, const Arguments&) { return ops::ColorDepth(i, 1); }, 1},
      {"mnuColorsColorDepth4Bits", "", "Color Depth", "", false, {},
       [](const Image& i, const Arguments&) { return ops::ColorDepth(i, 4); }, 4},
      {"mnuColorsColorDepth8Bits", "", "Color Depth", "", false, {},
       [](const Image& i, const Arguments&) { return ops::ColorDepth(i, 8); }, 8},
      {"mnuColorsColorDepth24Bits", "", "Color Depth", "", false, {},
       [](const Image& i, const Arguments&) { return ops::ColorDepth(i, 24); }, 24},
      {"mnuColorsConcaveParabolic", "", "Concave Parabolic", "", false, {},
       [](const Image& i, const Arguments&) { return ops::Parabolic(i, true); }},
      {"mnuColorsConvexParabolic", "", "Convex Parabolic", "", false, {},
       [](const Image& i, const Arguments&) { return ops::Parabolic(i, false); }},
      {"mnuColorsRedEye", "", "Red Eye Removal", "Select an area to apply red eye removal", false, kSelection,
       [](const Image& i, const Arguments& a) { return ops::RedEyeRemoval(i, Area(a)); }},
      {"mnuImageFiltersBlend", "Blend", "Blend", "", false, {{"value", 0, 100}},
       [](const Image& i, const Arguments& a) { return ops::Blend(i, N(a, 0)); }},
      {"mnuImageFiltersBlur", "", "Blur", "", false, {}, [](const Image& i, const Arguments&) { return ops::Blur(i); }},
      {"mnuImageFiltersDiffuse", "", "Diffuse", "", false, {}, [](const Image& i, const Arguments&) { return ops::Diffuse(i); }},
      {"mnuImageFiltersDilate", "", "Dilate", "", false, {}, [](const Image& i, const Arguments&) { return ops::Dilate(i); }},
      {"mnuImageFiltersErode", "", "Erode", "", false, {}, [](const Image& i, const Arguments&) { return ops::Erode(i); }},
      {"mnuImageFiltersMedian", "", "Median", "", false, {}, [](const Image& i, const Arguments&) { return ops::Median(i); }},
      {"mnuImageFiltersMosaic", "Mosaic", "Mosaic", "", false, {{"block size", 1, 63}},
       [](const Image& i, const Arguments& a) { return ops::Mosaic(i, N(a, 0)); }},
      {"mnuImageFiltersMotionBlur", "MotionBlur", "Motion Blur", "", false,
       {{"horizontal speed", -10, 10, Source::TextBox, 1}, {"vertical speed", -10, 10, Source::TextBox, 2},
        {"intensity", 1, 25, Source::TextBox, 3}},
       [](const Image& i, const Arguments& a) { return ops::MotionBlur(i, N(a, 0), N(a, 1), N(a, 2)); }},
      {"mnuImageFiltersNoise", "Noise", "Noise", "", false,
       {{"frequency", 1, 20, Source::TextBox, 1}, {"intensity", 1, 128, Source::TextBox, 2}},
       [](const Image& i, const Arguments& a) { return ops::Noise(i, N(a, 0), N(a, 1)); }},
      {"mnuImageFiltersSharpen", "Sharpen", "Sharpen", "", false, kLevel,
       [](const Image& i, const Arguments& a) { return ops::Sharpen(i, N(a, 0)); }},
      {"mnuImageFiltersSoften", "Soften", "Soften", "", false, kLevel,
       [](const Image& i, const Arguments& a) { return ops::Soften(i, N(a, 0)); }},
      {"mnuImageFlip", "", "Flip", "", false, {}, [](const Image& i, const Arguments&) { return ops::Flip(i); }},
      {"mnuImageMirror", "", "Mirror", "", false, {}, [](const Image& i, const Arguments&) { return ops::Mirror(i); }},
      {"mnuImagePerspective", "Perspective", "Perspective", "", false,
       {{"value", 0, 100, Source::TextBox, 1}, {"direction", 1, 4, Source::Option}},
       [](const Image& i, const Arguments& a) {
         return ops::Perspective(i, static_cast<ops::PerspectiveDirection>(N(a, 1) - 1), N(a, 0));
       }},
      {"mnuImagePinch", "Pinch", "Pinch", "", false, kPercent,
       [](const Image& i, const Arguments& a) { return ops::Pinch(i, N(a, 0)); }},
      {"mnuImageRipple", "Ripple", "Ripple", "", false,
       {{"frequency", 1, 100, Source::TextBox, 1}, {"intensity", 1, 100, Source::TextBox, 2},
        {"direction", 1, 2, Source::Option}},
       [](const Image& i, const Arguments& a) {
         return ops::Ripple(i, N(a, 0), N(a, 1), static_cast<ops::RippleDirection>(N(a, 2) - 1));
       }},
      {"mnuImageSwirl", "Swirl", "Swirl", "", false, {{"angle", -1000, 1000}},
       [](const Image& i, const Arguments& a) { return ops::Swirl(i, N(a, 0)); }},
      {"mnuImageRotate", "Rotate", "Rotate", "", true, {{"angle", -180, 180, Source::TextBox, 1, true}},
       [](const Image& i, const Arguments& a) { return ops::Rotate(i, a[0]); }},
      {"mnuImageResize", "Resize", "Resize", "", true,
       {{"new width", 1, 2048, Source::TextBox, 3}, {"new height", 1, 2048, Source::TextBox, 4}},
       [](const Image& i, const Arguments& a) { return ops::Resize(i, N(a, 0), N(a, 1)); }},
      {"mnuImageCrop", "", "Crop", "Select an area before cropping", true, kSelection,
       [](const Image& i, const Arguments& a) { return ops::Crop(i, Area(a)); }},
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

const CatalogueCommand* FindCatalogueCommand(const QString& menuCommand) {
  for (const CatalogueCommand& c : Catalogue()) {
    if (menuCommand == QLatin1String(c.Command)) return &c;
  }
  return nullptr;
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

bool ReadsSourceInOrder(const CatalogueCommand& command) {
  static const QStringList kRandomAccess = {"mnuImageFlip",   "mnuImageRotate", "mnuImagePerspective", "mnuImagePinch",
                                            "mnuImageRipple", "mnuImageSwirl",  "mnuImageFiltersDiffuse",
                                            "mnuColorsEqualize", "mnuColorsRedEye"};
  return !kRandomAccess.contains(QLatin1String(command.Command));
}

Operation PreviewOperation(const CatalogueCommand& command) {
  return [&command](const Image& image, const DialogValues& values) {
    return TryApply(command, image, ArgumentsFrom(command, values)).Picture.value_or(image);  // unchanged on failure
  };
}

}  // namespace edit
