#include "edit/DialogDescriptions.h"

namespace edit {

const std::vector<CommandDescription>& DialogDescriptions() {
  static const std::vector<CommandDescription> table = {
      {OperationId::Brightness,
       QStringLiteral(
          "cla,Brightness,ven,40,27,Brightness,let,1,1,&Value:,tex,1,3,4,1,let,6,1,-100,let,20,1,"
          "100,con,6,3,16,-100,100,0,1,pre,24,1")},
      {OperationId::Contrast,
       QStringLiteral(
          "cla,Contrast,ven,40,27,Contrast,let,1,1,&Value:,tex,1,3,4,1,let,6,1,-100,let,20,1,100,"
          "con,6,3,16,-100,100,0,1,pre,24,1")},
      {OperationId::Gamma,
       QStringLiteral(
          "cla,Gamma,ven,40,27,Gamma,let,1,1,&Value:,tex,1,3,4,1,let,6,1,1,let,19,1,1000,con,6,3,"
          "16,1,1000,100,1,pre,24,1")},
      {OperationId::Hsl,
       QStringLiteral(
          "cla,Hsl,ven,40,28,Hue / Saturation / Luminance,let,1,1,&Hue:,tex,1,3,4,1,let,6,1,-100,"
          "let,20,1,100,con,6,3,16,-100,100,0,1,let,1,7,&Saturation:,tex,1,9,4,2,con,6,9,16,-100,"
          "100,0,2,let,1,13,&Luminance:,tex,1,15,4,3,con,6,15,16,-100,100,0,3,pre,24,1")},
      {OperationId::Rgb,
       QStringLiteral(
          "cla,Rgb,ven,40,28,Red / Green / Blue,let,1,1,&Red:,tex,1,3,4,1,let,6,1,-100,let,20,1,"
          "100,con,6,3,16,-100,100,0,1,let,1,7,&Green:,tex,1,9,4,2,con,6,9,16,-100,100,0,2,let,1,"
          "13,&Blue:,tex,1,15,4,3,con,6,15,16,-100,100,0,3,pre,24,1")},
      {OperationId::Solarize,
       QStringLiteral(
          "cla,Solarize,ven,40,27,Solarize,let,1,1,&Value:,tex,1,3,4,1,let,6,1,0,let,20,1,255,con,"
          "6,3,16,0,255,0,1,pre,24,1")},
      {OperationId::Blend,
       QStringLiteral(
          "cla,Blend,ven,40,27,Blend,let,1,1,&Value:,tex,1,3,4,1,let,6,1,0,let,20,1,100,con,6,3,16,"
          "0,100,0,1,pre,24,1")},
      {OperationId::Mosaic,
       QStringLiteral(
          "cla,Mosaic,ven,43,27,Mosaic,let,1,1,&Block size:,tex,1,3,4,1,let,9,1,1,let,23,1,63,con,"
          "9,3,16,1,63,1,1,pre,27,1")},
      {OperationId::MotionBlur,
       QStringLiteral(
          "cla,MotionBlur,ven,44,28,Motion Blur,let,1,1,&Horizontal speed:,tex,1,3,4,1,let,12,1,"
          "-10,let,24,1,10,con,12,3,15,-10,10,0,1,let,1,7,&Vertical speed:,tex,1,9,4,2,let,12,7,"
          "-10,let,24,7,10,con,12,9,15,-10,10,0,2,let,1,13,&Intensity:,tex,1,15,4,2,let,12,13,1,"
          "let,24,13,25,con,12,15,15,1,25,1,3,pre,28,1")},
      {OperationId::Noise,
       QStringLiteral(
          "cla,Noise,ven,41,27,Noise,let,1,1,&Frequency:,tex,1,3,4,1,let,9,1,1,let,22,1,20,con,9,3,"
          "14,1,20,1,1,let,1,7,&Intensity:,tex,1,9,4,2,let,9,7,1,let,21,7,128,con,9,9,14,1,128,1,2,"
          "pre,25,1")},
      {OperationId::Sharpen,
       QStringLiteral(
          "cla,Sharpen,ven,40,27,Sharpen,let,1,1,&Value:,tex,1,3,4,1,let,6,1,1,let,21,1,9,con,6,3,"
          "16,1,9,1,1,pre,24,1")},
      {OperationId::Soften,
       QStringLiteral(
          "cla,Soften,ven,40,27,Soften,let,1,1,&Value:,tex,1,3,4,1,let,6,1,1,let,21,1,9,con,6,3,16,"
          "1,9,1,1,pre,24,1")},
      {OperationId::Perspective,
       QStringLiteral(
          "cla,Perspective,ven,40,27.5,Perspective,let,1,1,&Value:,tex,1,3,4,1,let,6,1,0,let,20,1,"
          "100,con,6,3,16,0,100,0,1,opt,1,8,24,&Bottom to top,opt,1,10.5,24,&Top to bottom,opt,1,"
          "13,24,&Left to right,opt,1,15.5,24,&Right to left,pre,24,1")},
      {OperationId::Pinch,
       QStringLiteral(
          "cla,Pinch,ven,40,27,Pinch,let,1,1,&Value:,tex,1,3,4,1,let,6,1,-100,let,20,1,100,con,6,3,"
          "16,-100,100,0,1,pre,24,1")},
      {OperationId::Resize,
       QStringLiteral(
          "cla,Resize,ven,27,27,Resize,let,1,1,Actual width:,tex,1,3,8,0,let,10,1,Actual height:,"
          "tex,10,3,8,0,let,1,7,&New width:,tex,1,9,8,0,let,10,7,N&ew height:,tex,10,9,8,0,che,1,"
          "13,17,&Keep aspect ratio")},
      {OperationId::Ripple,
       QStringLiteral(
          "cla,Ripple,ven,41,28.5,Ripple,let,1,1,&Frequency:,tex,1,3,4,1,let,9,1,1,let,21,1,100,"
          "con,9,3,14,1,100,1,1,let,1,7,&Intensity:,tex,1,9,4,2,con,9,9,14,1,100,1,2,opt,1,14,24,"
          "&Horizontal direction,opt,1,16.5,24,&Vertical direction,pre,25,1")},
      {OperationId::Rotate,
       QStringLiteral(
          "cla,Rotate,ven,40,27,Rotate,let,1,1,&Angle:,tex,1,3,4,1,let,6,1,Left,let,19,1,Right,con,"
          "6,3,16,-180,180,0,1,bot,1,9,5,-90,bot,7,9,5,90,bot,13,9,5,180,pre,24,1")},
      {OperationId::Swirl,
       QStringLiteral(
          "cla,Swirl,ven,42,27,Swirl,let,1,1,&Angle:,tex,1,3,6,1,let,8,1,-1000,let,21,1,1000,con,8,"
          "3,16,-1000,1000,0,1,pre,26,1")},
  };
  return table;
}

QString DialogDescriptionFor(OperationId command) {
  for (const CommandDescription& entry : DialogDescriptions()) {
    if (entry.Command == command) return entry.Description;
  }
  return {};
}

}  // namespace edit
