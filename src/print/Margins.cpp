#include "print/Margins.h"

#include <cmath>

namespace print {

float TwoDecimals(double value) { return static_cast<float>(std::floor(double(float(value)) * 100 + 0.5) / 100); }

float InchesFromCentimetres(float centimetres) { return TwoDecimals(double(centimetres) / double(kCentimetresPerInch)); }

float CentimetresFromInches(float inches) { return TwoDecimals(double(inches) * double(kCentimetresPerInch)); }

MarginValue MarginValue::From(float value, bool centimetres) {
  return centimetres ? MarginValue{InchesFromCentimetres(value), value} : MarginValue{value, CentimetresFromInches(value)};
}

std::array<double, 4> MarginsInPoints(const std::array<float, 4>& margins, int units) {
  std::array<double, 4> points{};
  const double perUnit = units == 1 ? 72.0 / 2.54 : 72.0;
  for (size_t i = 0; i < margins.size(); ++i) points[i] = double(margins[i]) * perUnit;
  return points;
}

}  // namespace print
