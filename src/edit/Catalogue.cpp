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
      {Id::Brightness, "mnuColorsBrightness", QT_TRANSLATE_NOOP("edit::Catalogue", "&Brightness..."), "Brightness", QT_TRANSLATE_NOOP("edit::Catalogue", "Brightness"), "", kPointwise, kPercent,
       [](const Image& i, const Arguments& a) { return ops::Brightness(i, N(a, 0)); }},
      {Id::Contrast, "mnuColorsContrast", QT_TRANSLATE_NOOP("edit::Catalogue", "&Contrast..."), "Contrast", QT_TRANSLATE_NOOP("edit::Catalogue", "Contrast"), "", kPointwise, kPercent,
       [](const Image& i, const Arguments& a) { return ops::Contrast(i, N(a, 0)); }},
      {Id::Gamma, "mnuColorsGamma", QT_TRANSLATE_NOOP("edit::Catalogue", "&Gamma..."), "Gamma", QT_TRANSLATE_NOOP("edit::Catalogue", "Gamma"), "", kPointwise, {{"value in hundredths", 1, 1000}},
       [](const Image& i, const Arguments& a) { return ops::Gamma(i, a[0] / 100.0); }},
      {Id::Hsl, "mnuColorsHSL", QT_TRANSLATE_NOOP("edit::Catalogue", "&Hue / Saturation / Luminance..."), "Hsl", QT_TRANSLATE_NOOP("edit::Catalogue", "Hue / Saturation / Luminance"), "", kPointwise,
       {{"hue", -100, 100, Source::TextBox, 1}, {"saturation", -100, 100, Source::TextBox, 2},
        {"luminance", -100, 100, Source::TextBox, 3}},
       [](const Image& i, const Arguments& a) { return ops::HueSaturationLuminance(i, N(a, 0), N(a, 1), N(a, 2)); }},
      {Id::Rgb, "mnuColorsRGB", QT_TRANSLATE_NOOP("edit::Catalogue", "&Red / Green / Blue..."), "Rgb", QT_TRANSLATE_NOOP("edit::Catalogue", "Red / Green / Blue"), "", kPointwise,
       {{"red", -100, 100, Source::TextBox, 1}, {"green", -100, 100, Source::TextBox, 2},
        {"blue", -100, 100, Source::TextBox, 3}},
       [](const Image& i, const Arguments& a) { return ops::RedGreenBlue(i, N(a, 0), N(a, 1), N(a, 2)); }},
      {Id::Solarize, "mnuColorsSolarize", QT_TRANSLATE_NOOP("edit::Catalogue", "&Solarize..."), "Solarize", QT_TRANSLATE_NOOP("edit::Catalogue", "Solarize"), "", kPointwise, {{"value", 0, 255}},
       [](const Image& i, const Arguments& a) { return ops::Solarize(i, N(a, 0)); }},
      {Id::Equalize, "mnuColorsEqualize", QT_TRANSLATE_NOOP("edit::Catalogue", "&Equalize"), "", QT_TRANSLATE_NOOP("edit::Catalogue", "Equalize"), "", kRandomAccess, {}, [](const Image& i, const Arguments&) { return ops::Equalize(i); }},
      {Id::Negative, "mnuColorsNegative", QT_TRANSLATE_NOOP("edit::Catalogue", "&Negative"), "", QT_TRANSLATE_NOOP("edit::Catalogue", "Negative"), "", kPointwise, {}, [](const Image& i, const Arguments&) { return ops::Negative(i); }},
      {Id::GrayScale, "mnuColorsGrayScale", QT_TRANSLATE_NOOP("edit::Catalogue", "Gr&ay Scale"), "", QT_TRANSLATE_NOOP("edit::Catalogue", "Gray Scale"), "", kPointwise, {},
       [](const Image& i, const Arguments&) { return ops::GrayScale(i); }},
      {Id::ColorDepth1, "mnuColorsColorDepth1Bit", QT_TRANSLATE_NOOP("edit::Catalogue", "&1 Bit (2 Colors)"), "", QT_TRANSLATE_NOOP("edit::Catalogue", "Color Depth"), "", kNoTrait, {},
       [](const Image& i, const Arguments&) { return ops::ColorDepth(i, 1); }, 1},
      {Id::ColorDepth4, "mnuColorsColorDepth4Bits", QT_TRANSLATE_NOOP("edit::Catalogue", "&4 Bits (16 Colors)"), "", QT_TRANSLATE_NOOP("edit::Catalogue", "Color Depth"), "", kNoTrait, {},
       [](const Image& i, const Arguments&) { return ops::ColorDepth(i, 4); }, 4},
      {Id::ColorDepth8, "mnuColorsColorDepth8Bits", QT_TRANSLATE_NOOP("edit::Catalogue", "&8 Bits (256 Colors)"), "", QT_TRANSLATE_NOOP("edit::Catalogue", "Color Depth"), "", kNoTrait, {},
       [](const Image& i, const Arguments&) { return ops::ColorDepth(i, 8); }, 8},
      {Id::ColorDepth24, "mnuColorsColorDepth24Bits", QT_TRANSLATE_NOOP("edit::Catalogue", "&24 Bits (True Color)"), "", QT_TRANSLATE_NOOP("edit::Catalogue", "Color Depth"), "", kNoTrait, {},
       [](const Image& i, const Arguments&) { return ops::ColorDepth(i, 24); }, 24},
      {Id::ConcaveParabolic, "mnuColorsConcaveParabolic", QT_TRANSLATE_NOOP("edit::Catalogue", "Conca&ve Parabolic"), "", QT_TRANSLATE_NOOP("edit::Catalogue", "Concave Parabolic"), "", kPointwise, {},
       [](const Image& i, const Arguments&) { return ops::Parabolic(i, true); }},
      {Id::ConvexParabolic, "mnuColorsConvexParabolic", QT_TRANSLATE_NOOP("edit::Catalogue", "Conve&x Parabolic"), "", QT_TRANSLATE_NOOP("edit::Catalogue", "Convex Parabolic"), "", kPointwise, {},
       [](const Image& i, const Arguments&) { return ops::Parabolic(i, false); }},
      {Id::RedEye, "mnuColorsRedEye", QT_TRANSLATE_NOOP("edit::Catalogue", "Red E&ye Removal"), "", QT_TRANSLATE_NOOP("edit::Catalogue", "Red Eye Removal"), QT_TRANSLATE_NOOP("edit::Catalogue", "Select an area to apply red eye removal"), kRandomAccess, kSelection,
       [](const Image& i, const Arguments& a) { return ops::RedEyeRemoval(i, Area(a)); }},
      {Id::RotateLeft, "mnuImageRotateLeft", QT_TRANSLATE_NOOP("edit::Catalogue", "Rotate L&eft"), "", QT_TRANSLATE_NOOP("edit::Catalogue", "Rotate Left"), "", kChangesGeometry | kRandomAccess, {},
       [](const Image& i, const Arguments&) { return ops::Rotate(i, -90); }},
      {Id::RotateRight, "mnuImageRotateRight", QT_TRANSLATE_NOOP("edit::Catalogue", "Rotate Righ&t"), "", QT_TRANSLATE_NOOP("edit::Catalogue", "Rotate Right"), "", kChangesGeometry | kRandomAccess, {},
       [](const Image& i, const Arguments&) { return ops::Rotate(i, 90); }},
      {Id::FlipHorizontal, "mnuImageFlipHorizontal", QT_TRANSLATE_NOOP("edit::Catalogue", "Flip &Horizontal"), "", QT_TRANSLATE_NOOP("edit::Catalogue", "Flip Horizontal"), "", kNoTrait, {},
       [](const Image& i, const Arguments&) { return ops::Mirror(i); }},
      {Id::FlipVertical, "mnuImageFlipVertical", QT_TRANSLATE_NOOP("edit::Catalogue", "Flip Vertic&al"), "", QT_TRANSLATE_NOOP("edit::Catalogue", "Flip Vertical"), "", kRandomAccess, {},
       [](const Image& i, const Arguments&) { return ops::Flip(i); }},
      {Id::Flip, "mnuImageFlip", QT_TRANSLATE_NOOP("edit::Catalogue", "F&lip"), "", QT_TRANSLATE_NOOP("edit::Catalogue", "Flip"), "", kRandomAccess, {}, [](const Image& i, const Arguments&) { return ops::Flip(i); }},
      {Id::Mirror, "mnuImageMirror", QT_TRANSLATE_NOOP("edit::Catalogue", "&Mirror"), "", QT_TRANSLATE_NOOP("edit::Catalogue", "Mirror"), "", kNoTrait, {}, [](const Image& i, const Arguments&) { return ops::Mirror(i); }},
      {Id::Rotate, "mnuImageRotate", QT_TRANSLATE_NOOP("edit::Catalogue", "&Rotate..."), "Rotate", QT_TRANSLATE_NOOP("edit::Catalogue", "Rotate"), "", kChangesGeometry | kRandomAccess, {{"angle", -180, 180, Source::TextBox, 1, true}},
       [](const Image& i, const Arguments& a) { return ops::Rotate(i, a[0]); }},
      {Id::Resize, "mnuImageResize", QT_TRANSLATE_NOOP("edit::Catalogue", "Re&size..."), "Resize", QT_TRANSLATE_NOOP("edit::Catalogue", "Resize"), "", kChangesGeometry,
       {{"new width", 1, 2048, Source::TextBox, 3}, {"new height", 1, 2048, Source::TextBox, 4}},
       [](const Image& i, const Arguments& a) { return ops::Resize(i, N(a, 0), N(a, 1)); }},
      {Id::Crop, "mnuImageCrop", QT_TRANSLATE_NOOP("edit::Catalogue", "&Crop"), "", QT_TRANSLATE_NOOP("edit::Catalogue", "Crop"), QT_TRANSLATE_NOOP("edit::Catalogue", "Select an area before cropping"), kChangesGeometry, kSelection,
       [](const Image& i, const Arguments& a) { return ops::Crop(i, Area(a)); }},
      {Id::Perspective, "mnuImagePerspective", QT_TRANSLATE_NOOP("edit::Catalogue", "Perspecti&ve..."), "Perspective", QT_TRANSLATE_NOOP("edit::Catalogue", "Perspective"), "", kRandomAccess,
       {{"value", 0, 100, Source::TextBox, 1}, {"direction", 1, 4, Source::Option}},
       [](const Image& i, const Arguments& a) {
         return ops::Perspective(i, static_cast<ops::PerspectiveDirection>(N(a, 1) - 1), N(a, 0));
       }},
      {Id::Pinch, "mnuImagePinch", QT_TRANSLATE_NOOP("edit::Catalogue", "P&inch..."), "Pinch", QT_TRANSLATE_NOOP("edit::Catalogue", "Pinch"), "", kRandomAccess, kPercent,
       [](const Image& i, const Arguments& a) { return ops::Pinch(i, N(a, 0)); }},
      {Id::Ripple, "mnuImageRipple", QT_TRANSLATE_NOOP("edit::Catalogue", "Ri&pple..."), "Ripple", QT_TRANSLATE_NOOP("edit::Catalogue", "Ripple"), "", kRandomAccess,
       {{"frequency", 1, 100, Source::TextBox, 1}, {"intensity", 1, 100, Source::TextBox, 2},
        {"direction", 1, 2, Source::Option}},
       [](const Image& i, const Arguments& a) {
         return ops::Ripple(i, N(a, 0), N(a, 1), static_cast<ops::RippleDirection>(N(a, 2) - 1));
       }},
      {Id::Swirl, "mnuImageSwirl", QT_TRANSLATE_NOOP("edit::Catalogue", "S&wirl..."), "Swirl", QT_TRANSLATE_NOOP("edit::Catalogue", "Swirl"), "", kRandomAccess, {{"angle", -1000, 1000}},
       [](const Image& i, const Arguments& a) { return ops::Swirl(i, N(a, 0)); }},
      {Id::Blend, "mnuImageFiltersBlend", QT_TRANSLATE_NOOP("edit::Catalogue", "&Blend..."), "Blend", QT_TRANSLATE_NOOP("edit::Catalogue", "Blend"), "", kNoTrait, {{"value", 0, 100}},
       [](const Image& i, const Arguments& a) { return ops::Blend(i, N(a, 0)); }},
      {Id::Blur, "mnuImageFiltersBlur", QT_TRANSLATE_NOOP("edit::Catalogue", "B&lur"), "", QT_TRANSLATE_NOOP("edit::Catalogue", "Blur"), "", kNoTrait, {}, [](const Image& i, const Arguments&) { return ops::Blur(i); }},
      {Id::Diffuse, "mnuImageFiltersDiffuse", QT_TRANSLATE_NOOP("edit::Catalogue", "&Diffuse"), "", QT_TRANSLATE_NOOP("edit::Catalogue", "Diffuse"), "", kRandomAccess, {}, [](const Image& i, const Arguments&) { return ops::Diffuse(i); }},
      {Id::Dilate, "mnuImageFiltersDilate", QT_TRANSLATE_NOOP("edit::Catalogue", "D&ilate"), "", QT_TRANSLATE_NOOP("edit::Catalogue", "Dilate"), "", kNoTrait, {}, [](const Image& i, const Arguments&) { return ops::Dilate(i); }},
      {Id::Erode, "mnuImageFiltersErode", QT_TRANSLATE_NOOP("edit::Catalogue", "&Erode"), "", QT_TRANSLATE_NOOP("edit::Catalogue", "Erode"), "", kNoTrait, {}, [](const Image& i, const Arguments&) { return ops::Erode(i); }},
      {Id::Median, "mnuImageFiltersMedian", QT_TRANSLATE_NOOP("edit::Catalogue", "Medi&an"), "", QT_TRANSLATE_NOOP("edit::Catalogue", "Median"), "", kNoTrait, {}, [](const Image& i, const Arguments&) { return ops::Median(i); }},
      {Id::Mosaic, "mnuImageFiltersMosaic", QT_TRANSLATE_NOOP("edit::Catalogue", "&Mosaic..."), "Mosaic", QT_TRANSLATE_NOOP("edit::Catalogue", "Mosaic"), "", kNoTrait, {{"block size", 1, 63}},
       [](const Image& i, const Arguments& a) { return ops::Mosaic(i, N(a, 0)); }},
      {Id::MotionBlur, "mnuImageFiltersMotionBlur", QT_TRANSLATE_NOOP("edit::Catalogue", "Mo&tion Blur..."), "MotionBlur", QT_TRANSLATE_NOOP("edit::Catalogue", "Motion Blur"), "", kNoTrait,
       {{"horizontal speed", -10, 10, Source::TextBox, 1}, {"vertical speed", -10, 10, Source::TextBox, 2},
        {"intensity", 1, 25, Source::TextBox, 3}},
       [](const Image& i, const Arguments& a) { return ops::MotionBlur(i, N(a, 0), N(a, 1), N(a, 2)); }},
      {Id::Noise, "mnuImageFiltersNoise", QT_TRANSLATE_NOOP("edit::Catalogue", "&Noise..."), "Noise", QT_TRANSLATE_NOOP("edit::Catalogue", "Noise"), "", kNoTrait,
       {{"frequency", 1, 20, Source::TextBox, 1}, {"intensity", 1, 128, Source::TextBox, 2}},
       [](const Image& i, const Arguments& a) { return ops::Noise(i, N(a, 0), N(a, 1)); }},
      {Id::Sharpen, "mnuImageFiltersSharpen", QT_TRANSLATE_NOOP("edit::Catalogue", "&Sharpen..."), "Sharpen", QT_TRANSLATE_NOOP("edit::Catalogue", "Sharpen"), "", kNoTrait, kLevel,
       [](const Image& i, const Arguments& a) { return ops::Sharpen(i, N(a, 0)); }},
      {Id::Soften, "mnuImageFiltersSoften", QT_TRANSLATE_NOOP("edit::Catalogue", "S&often..."), "Soften", QT_TRANSLATE_NOOP("edit::Catalogue", "Soften"), "", kNoTrait, kLevel,
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
