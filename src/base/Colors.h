#pragma once
// Colours are stored as 32-bit numbers in &HBBGGRR order (blue in the high byte).

#include <QColor>

#include <cstdint>

namespace base {

inline QColor ColorFromBgr(std::int32_t value) {
  return QColor(value & 0xFF, (value >> 8) & 0xFF, (value >> 16) & 0xFF);
}

inline std::int32_t BgrFromColor(const QColor& color) {
  return color.red() | (color.green() << 8) | (color.blue() << 16);
}

// Text that reads on a background: white on dark colours, black on light ones.
inline QColor TextColorOn(const QColor& background) {
  return background.lightness() < 128 ? QColor(Qt::white) : QColor(Qt::black);
}

}  // namespace base
