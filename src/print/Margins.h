#pragma once
// Print margins in inches or centimetres. Every conversion keeps two decimals, and an
// inch is 2.540003 centimetres, so a value converted there and back may end one hundredth
// away from the one typed.

#include <array>

namespace print {

constexpr float kCentimetresPerInch = 2.540003f;

// Two decimals: the value times 100, plus a half, cut to a whole number, over 100.
float TwoDecimals(double value);
float InchesFromCentimetres(float centimetres);
float CentimetresFromInches(float inches);

// One margin in both units, as the Margins dialog keeps it.
struct MarginValue {
  float Inches = 0;
  float Centimetres = 0;
  static MarginValue From(float value, bool centimetres);
};

// The four stored margins (left, right, top, bottom) in points (1/72 inch).
std::array<double, 4> MarginsInPoints(const std::array<float, 4>& margins, int units);

}  // namespace print
