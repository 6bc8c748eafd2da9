#pragma once
// Every editing command, in menu order.

namespace edit {

enum class OperationId {
  Brightness, Contrast, Gamma, Hsl, Rgb, Solarize, Equalize, Negative, GrayScale,
  ColorDepth1, ColorDepth4, ColorDepth8, ColorDepth24, ConcaveParabolic, ConvexParabolic, RedEye,
  RotateLeft, RotateRight, FlipHorizontal, FlipVertical, Flip, Mirror, Rotate, Resize, Crop, Perspective, Pinch, Ripple, Swirl,
  Blend, Blur, Diffuse, Dilate, Erode, Median, Mosaic, MotionBlur, Noise, Sharpen, Soften,
};

}  // namespace edit
