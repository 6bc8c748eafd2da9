// Part 4.1: each of the eighteen descriptions checked in full, as a readable model.
#include "edit/DialogDescription.h"
#include "edit/DialogDescriptions.h"

#include <gtest/gtest.h>

namespace {

using edit::ControlKind;
using edit::DialogControl;

QString Number(double value) { return QString::number(value, 'g', 10); }

QString DescribeControl(const DialogControl& c) {
  const QString at = QStringLiteral("(%1,%2)").arg(Number(c.X), Number(c.Y));
  const QString tab = QStringLiteral(" tab %1").arg(c.TabIndex);
  const QString caption = QStringLiteral(" \"%1\"").arg(c.Caption);
  switch (c.Kind) {
    case ControlKind::Label:
      return QStringLiteral("label %1 %2").arg(c.Index).arg(at) + caption + tab;
    case ControlKind::TextBox:
      return QStringLiteral("text %1 %2 w%3 link %4").arg(c.Index).arg(at, Number(c.Width)).arg(c.Link) + tab;
    case ControlKind::Slider:
      return QStringLiteral("slider %1 %2 w%3 %4..%5 value %6 tick %7 link %8")
                 .arg(c.Index).arg(at, Number(c.Width)).arg(c.Minimum).arg(c.Maximum).arg(c.Value)
                 .arg(c.TickFrequency).arg(c.Link) + tab;
    case ControlKind::Check:
    case ControlKind::Option:
    case ControlKind::Button: {
      const char* kind = c.Kind == ControlKind::Check ? "check" : c.Kind == ControlKind::Option ? "option" : "button";
      return QStringLiteral("%1 %2 %3 w%4").arg(QLatin1String(kind)).arg(c.Index).arg(at, Number(c.Width)) +
             caption + tab;
    }
  }
  return {};
}

// The whole model, one line a clause, in clause order.
QString Describe(const edit::DialogLayout& layout) {
  QString text;
  if (!layout.DialogClass.isEmpty()) text += QStringLiteral("class %1\n").arg(layout.DialogClass);
  if (layout.Title) {
    text += QStringLiteral("window %1 x %2 \"%3\"\n").arg(Number(*layout.WindowWidth), Number(*layout.WindowHeight), *layout.Title);
  }
  for (const DialogControl& c : layout.Controls) text += DescribeControl(c) + u'\n';
  if (layout.HasPreview()) text += QStringLiteral("preview (%1,%2)\n").arg(Number(*layout.PreviewX), Number(*layout.PreviewY));
  text += QStringLiteral("ok tab %1, cancel tab %2\n").arg(layout.OkTabIndex).arg(layout.CancelTabIndex);
  return text;
}

// The preview clause always comes last in the table, so it is written there last too.
struct Expected {
  const char* Command;
  const char* Model;
};

const Expected kExpected[] = {
    {"mnuColorsBrightness",
       "class Brightness\n"
       "window 4800 x 3240 \"Brightness\"\n"
       "label 1 (120,120) \"&Value:\" tab 0\n"
       "text 1 (120,360) w480 link 1 tab 1\n"
       "label 2 (720,120) \"-100\" tab 2\n"
       "label 3 (2400,120) \"100\" tab 3\n"
       "slider 1 (720,360) w1920 -100..100 value 0 tick 50 link 1 tab 4\n"
       "preview (2880,120)\n"
       "ok tab 5, cancel tab 6\n"},
    {"mnuColorsContrast",
       "class Contrast\n"
       "window 4800 x 3240 \"Contrast\"\n"
       "label 1 (120,120) \"&Value:\" tab 0\n"
       "text 1 (120,360) w480 link 1 tab 1\n"
       "label 2 (720,120) \"-100\" tab 2\n"
       "label 3 (2400,120) \"100\" tab 3\n"
       "slider 1 (720,360) w1920 -100..100 value 0 tick 50 link 1 tab 4\n"
       "preview (2880,120)\n"
       "ok tab 5, cancel tab 6\n"},
    {"mnuColorsGamma",
       "class Gamma\n"
       "window 4800 x 3240 \"Gamma\"\n"
       "label 1 (120,120) \"&Value:\" tab 0\n"
       "text 1 (120,360) w480 link 1 tab 1\n"
       "label 2 (720,120) \"1\" tab 2\n"
       "label 3 (2280,120) \"1000\" tab 3\n"
       "slider 1 (720,360) w1920 1..1000 value 100 tick 250 link 1 tab 4\n"
       "preview (2880,120)\n"
       "ok tab 5, cancel tab 6\n"},
    {"mnuColorsHSL",
       "class Hsl\n"
       "window 4800 x 3360 \"Hue / Saturation / Luminance\"\n"
       "label 1 (120,120) \"&Hue:\" tab 0\n"
       "text 1 (120,360) w480 link 1 tab 1\n"
       "label 2 (720,120) \"-100\" tab 2\n"
       "label 3 (2400,120) \"100\" tab 3\n"
       "slider 1 (720,360) w1920 -100..100 value 0 tick 50 link 1 tab 4\n"
       "label 4 (120,840) \"&Saturation:\" tab 5\n"
       "text 2 (120,1080) w480 link 2 tab 6\n"
       "slider 2 (720,1080) w1920 -100..100 value 0 tick 50 link 2 tab 7\n"
       "label 5 (120,1560) \"&Luminance:\" tab 8\n"
       "text 3 (120,1800) w480 link 3 tab 9\n"
       "slider 3 (720,1800) w1920 -100..100 value 0 tick 50 link 3 tab 10\n"
       "preview (2880,120)\n"
       "ok tab 11, cancel tab 12\n"},
    {"mnuColorsRGB",
       "class Rgb\n"
       "window 4800 x 3360 \"Red / Green / Blue\"\n"
       "label 1 (120,120) \"&Red:\" tab 0\n"
       "text 1 (120,360) w480 link 1 tab 1\n"
       "label 2 (720,120) \"-100\" tab 2\n"
       "label 3 (2400,120) \"100\" tab 3\n"
       "slider 1 (720,360) w1920 -100..100 value 0 tick 50 link 1 tab 4\n"
       "label 4 (120,840) \"&Green:\" tab 5\n"
       "text 2 (120,1080) w480 link 2 tab 6\n"
       "slider 2 (720,1080) w1920 -100..100 value 0 tick 50 link 2 tab 7\n"
       "label 5 (120,1560) \"&Blue:\" tab 8\n"
       "text 3 (120,1800) w480 link 3 tab 9\n"
       "slider 3 (720,1800) w1920 -100..100 value 0 tick 50 link 3 tab 10\n"
       "preview (2880,120)\n"
       "ok tab 11, cancel tab 12\n"},
    {"mnuColorsSolarize",
       "class Solarize\n"
       "window 4800 x 3240 \"Solarize\"\n"
       "label 1 (120,120) \"&Value:\" tab 0\n"
       "text 1 (120,360) w480 link 1 tab 1\n"
       "label 2 (720,120) \"0\" tab 2\n"
       "label 3 (2400,120) \"255\" tab 3\n"
       "slider 1 (720,360) w1920 0..255 value 0 tick 64 link 1 tab 4\n"
       "preview (2880,120)\n"
       "ok tab 5, cancel tab 6\n"},
    {"mnuImageFiltersBlend",
       "class Blend\n"
       "window 4800 x 3240 \"Blend\"\n"
       "label 1 (120,120) \"&Value:\" tab 0\n"
       "text 1 (120,360) w480 link 1 tab 1\n"
       "label 2 (720,120) \"0\" tab 2\n"
       "label 3 (2400,120) \"100\" tab 3\n"
       "slider 1 (720,360) w1920 0..100 value 0 tick 25 link 1 tab 4\n"
       "preview (2880,120)\n"
       "ok tab 5, cancel tab 6\n"},
    {"mnuImageFiltersMosaic",
       "class Mosaic\n"
       "window 5160 x 3240 \"Mosaic\"\n"
       "label 1 (120,120) \"&Block size:\" tab 0\n"
       "text 1 (120,360) w480 link 1 tab 1\n"
       "label 2 (1080,120) \"1\" tab 2\n"
       "label 3 (2760,120) \"63\" tab 3\n"
       "slider 1 (1080,360) w1920 1..63 value 1 tick 16 link 1 tab 4\n"
       "preview (3240,120)\n"
       "ok tab 5, cancel tab 6\n"},
    {"mnuImageFiltersMotionBlur",
       "class MotionBlur\n"
       "window 5280 x 3360 \"Motion Blur\"\n"
       "label 1 (120,120) \"&Horizontal speed:\" tab 0\n"
       "text 1 (120,360) w480 link 1 tab 1\n"
       "label 2 (1440,120) \"-10\" tab 2\n"
       "label 3 (2880,120) \"10\" tab 3\n"
       "slider 1 (1440,360) w1800 -10..10 value 0 tick 5 link 1 tab 4\n"
       "label 4 (120,840) \"&Vertical speed:\" tab 5\n"
       "text 2 (120,1080) w480 link 2 tab 6\n"
       "label 5 (1440,840) \"-10\" tab 7\n"
       "label 6 (2880,840) \"10\" tab 8\n"
       "slider 2 (1440,1080) w1800 -10..10 value 0 tick 5 link 2 tab 9\n"
       "label 7 (120,1560) \"&Intensity:\" tab 10\n"
       "text 3 (120,1800) w480 link 2 tab 11\n"
       "label 8 (1440,1560) \"1\" tab 12\n"
       "label 9 (2880,1560) \"25\" tab 13\n"
       "slider 3 (1440,1800) w1800 1..25 value 1 tick 6 link 3 tab 14\n"
       "preview (3360,120)\n"
       "ok tab 15, cancel tab 16\n"},
    {"mnuImageFiltersNoise",
       "class Noise\n"
       "window 4920 x 3240 \"Noise\"\n"
       "label 1 (120,120) \"&Frequency:\" tab 0\n"
       "text 1 (120,360) w480 link 1 tab 1\n"
       "label 2 (1080,120) \"1\" tab 2\n"
       "label 3 (2640,120) \"20\" tab 3\n"
       "slider 1 (1080,360) w1680 1..20 value 1 tick 5 link 1 tab 4\n"
       "label 4 (120,840) \"&Intensity:\" tab 5\n"
       "text 2 (120,1080) w480 link 2 tab 6\n"
       "label 5 (1080,840) \"1\" tab 7\n"
       "label 6 (2520,840) \"128\" tab 8\n"
       "slider 2 (1080,1080) w1680 1..128 value 1 tick 32 link 2 tab 9\n"
       "preview (3000,120)\n"
       "ok tab 10, cancel tab 11\n"},
    {"mnuImageFiltersSharpen",
       "class Sharpen\n"
       "window 4800 x 3240 \"Sharpen\"\n"
       "label 1 (120,120) \"&Value:\" tab 0\n"
       "text 1 (120,360) w480 link 1 tab 1\n"
       "label 2 (720,120) \"1\" tab 2\n"
       "label 3 (2520,120) \"9\" tab 3\n"
       "slider 1 (720,360) w1920 1..9 value 1 tick 2 link 1 tab 4\n"
       "preview (2880,120)\n"
       "ok tab 5, cancel tab 6\n"},
    {"mnuImageFiltersSoften",
       "class Soften\n"
       "window 4800 x 3240 \"Soften\"\n"
       "label 1 (120,120) \"&Value:\" tab 0\n"
       "text 1 (120,360) w480 link 1 tab 1\n"
       "label 2 (720,120) \"1\" tab 2\n"
       "label 3 (2520,120) \"9\" tab 3\n"
       "slider 1 (720,360) w1920 1..9 value 1 tick 2 link 1 tab 4\n"
       "preview (2880,120)\n"
       "ok tab 5, cancel tab 6\n"},
    {"mnuImagePerspective",
       "class Perspective\n"
       "window 4800 x 3300 \"Perspective\"\n"
       "label 1 (120,120) \"&Value:\" tab 0\n"
       "text 1 (120,360) w480 link 1 tab 1\n"
       "label 2 (720,120) \"0\" tab 2\n"
       "label 3 (2400,120) \"100\" tab 3\n"
       "slider 1 (720,360) w1920 0..100 value 0 tick 25 link 1 tab 4\n"
       "option 1 (120,960) w2880 \"&Bottom to top\" tab 5\n"
       "option 2 (120,1260) w2880 \"&Top to bottom\" tab 6\n"
       "option 3 (120,1560) w2880 \"&Left to right\" tab 7\n"
       "option 4 (120,1860) w2880 \"&Right to left\" tab 8\n"
       "preview (2880,120)\n"
       "ok tab 9, cancel tab 10\n"},
    {"mnuImagePinch",
       "class Pinch\n"
       "window 4800 x 3240 \"Pinch\"\n"
       "label 1 (120,120) \"&Value:\" tab 0\n"
       "text 1 (120,360) w480 link 1 tab 1\n"
       "label 2 (720,120) \"-100\" tab 2\n"
       "label 3 (2400,120) \"100\" tab 3\n"
       "slider 1 (720,360) w1920 -100..100 value 0 tick 50 link 1 tab 4\n"
       "preview (2880,120)\n"
       "ok tab 5, cancel tab 6\n"},
    {"mnuImageResize",
       "class Resize\n"
       "window 3240 x 3240 \"Resize\"\n"
       "label 1 (120,120) \"Actual width:\" tab 0\n"
       "text 1 (120,360) w960 link 0 tab 1\n"
       "label 2 (1200,120) \"Actual height:\" tab 2\n"
       "text 2 (1200,360) w960 link 0 tab 3\n"
       "label 3 (120,840) \"&New width:\" tab 4\n"
       "text 3 (120,1080) w960 link 0 tab 5\n"
       "label 4 (1200,840) \"N&ew height:\" tab 6\n"
       "text 4 (1200,1080) w960 link 0 tab 7\n"
       "check 1 (120,1560) w2040 \"&Keep aspect ratio\" tab 8\n"
       "ok tab 9, cancel tab 10\n"},
    {"mnuImageRipple",
       "class Ripple\n"
       "window 4920 x 3420 \"Ripple\"\n"
       "label 1 (120,120) \"&Frequency:\" tab 0\n"
       "text 1 (120,360) w480 link 1 tab 1\n"
       "label 2 (1080,120) \"1\" tab 2\n"
       "label 3 (2520,120) \"100\" tab 3\n"
       "slider 1 (1080,360) w1680 1..100 value 1 tick 25 link 1 tab 4\n"
       "label 4 (120,840) \"&Intensity:\" tab 5\n"
       "text 2 (120,1080) w480 link 2 tab 6\n"
       "slider 2 (1080,1080) w1680 1..100 value 1 tick 25 link 2 tab 7\n"
       "option 1 (120,1680) w2880 \"&Horizontal direction\" tab 8\n"
       "option 2 (120,1980) w2880 \"&Vertical direction\" tab 9\n"
       "preview (3000,120)\n"
       "ok tab 10, cancel tab 11\n"},
    {"mnuImageRotate",
       "class Rotate\n"
       "window 4800 x 3240 \"Rotate\"\n"
       "label 1 (120,120) \"&Angle:\" tab 0\n"
       "text 1 (120,360) w480 link 1 tab 1\n"
       "label 2 (720,120) \"Left\" tab 2\n"
       "label 3 (2280,120) \"Right\" tab 3\n"
       "slider 1 (720,360) w1920 -180..180 value 0 tick 90 link 1 tab 4\n"
       "button 1 (120,1080) w600 \"-90\" tab 5\n"
       "button 2 (840,1080) w600 \"90\" tab 6\n"
       "button 3 (1560,1080) w600 \"180\" tab 7\n"
       "preview (2880,120)\n"
       "ok tab 8, cancel tab 9\n"},
    {"mnuImageSwirl",
       "class Swirl\n"
       "window 5040 x 3240 \"Swirl\"\n"
       "label 1 (120,120) \"&Angle:\" tab 0\n"
       "text 1 (120,360) w720 link 1 tab 1\n"
       "label 2 (960,120) \"-1000\" tab 2\n"
       "label 3 (2520,120) \"1000\" tab 3\n"
       "slider 1 (960,360) w1920 -1000..1000 value 0 tick 500 link 1 tab 4\n"
       "preview (3120,120)\n"
       "ok tab 5, cancel tab 6\n"},
};

class EveryDescription : public ::testing::TestWithParam<Expected> {};

TEST_P(EveryDescription, ParsesToItsFullModel) {
  const QString description = edit::DialogDescriptionFor(QLatin1String(GetParam().Command));
  ASSERT_FALSE(description.isEmpty());
  EXPECT_EQ(Describe(edit::ParseDialogDescription(description)), QString::fromUtf8(GetParam().Model));
}

INSTANTIATE_TEST_SUITE_P(Table, EveryDescription, ::testing::ValuesIn(kExpected),
                         [](const ::testing::TestParamInfo<Expected>& param) { return std::string(param.param.Command); });

TEST(DialogDescriptions, AreTheEighteenOfTheTable) {
  EXPECT_EQ(edit::DialogDescriptions().size(), 18u);
  EXPECT_EQ(std::size(kExpected), 18u);
  EXPECT_TRUE(edit::DialogDescriptionFor(QStringLiteral("mnuImageResize")).endsWith(u"&Keep aspect ratio"));
  EXPECT_TRUE(edit::DialogDescriptionFor(QStringLiteral("mnuNothing")).isEmpty());
}

}  // namespace
