#pragma once
// The one order of the file list, used by the scan and after every rename:
// case-insensitive and natural (digit runs compare by value, so img2 comes before
// img10), as file managers sort today. Names equal but for case or leading zeros
// fall back to a plain comparison so that the order is total.

#include <QString>

namespace browse {

// Negative, zero or positive, as a comes before, with or after b.
int CompareListText(const QString& a, const QString& b);

inline bool ListTextLess(const QString& a, const QString& b) { return CompareListText(a, b) < 0; }

}  // namespace browse
