#pragma once
// Colours are stored as VB Longs in &HBBGGRR order.

#include <QColor>

#include <cstdint>

namespace app {

inline QColor ColorFromLong(std::int32_t value) {
  return QColor(value & 0xFF, (value >> 8) & 0xFF, (value >> 16) & 0xFF);
}

}  // namespace app
