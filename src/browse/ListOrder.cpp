#include "browse/ListOrder.h"

namespace browse {

namespace {

bool IsDigit(QChar c) { return c >= u'0' && c <= u'9'; }

// Case folding with a fast path for ASCII, which most file names are.
char16_t Folded(QChar c) {
  const char16_t u = c.unicode();
  if (u < 128) return (u >= u'A' && u <= u'Z') ? static_cast<char16_t>(u - u'A' + u'a') : u;
  return c.toCaseFolded().unicode();
}

qsizetype DigitRunEnd(const QString& s, qsizetype pos) {
  while (pos < s.size() && IsDigit(s[pos])) ++pos;
  return pos;
}

// Compares the digit runs [a0, a1) and [b0, b1) by value.
int CompareDigitRuns(const QString& a, qsizetype a0, qsizetype a1, const QString& b, qsizetype b0,
                     qsizetype b1) {
  while (a0 < a1 - 1 && a[a0] == u'0') ++a0;
  while (b0 < b1 - 1 && b[b0] == u'0') ++b0;
  if (a1 - a0 != b1 - b0) return (a1 - a0) < (b1 - b0) ? -1 : 1;
  for (; a0 < a1; ++a0, ++b0) {
    if (a[a0] != b[b0]) return a[a0] < b[b0] ? -1 : 1;
  }
  return 0;
}

int CompareNatural(const QString& a, const QString& b) {
  qsizetype i = 0;
  qsizetype j = 0;
  while (i < a.size() && j < b.size()) {
    if (IsDigit(a[i]) && IsDigit(b[j])) {
      const qsizetype iEnd = DigitRunEnd(a, i);
      const qsizetype jEnd = DigitRunEnd(b, j);
      if (const int c = CompareDigitRuns(a, i, iEnd, b, j, jEnd); c != 0) return c;
      i = iEnd;
      j = jEnd;
      continue;
    }
    const char16_t ca = Folded(a[i]);
    const char16_t cb = Folded(b[j]);
    if (ca != cb) return ca < cb ? -1 : 1;
    ++i;
    ++j;
  }
  if (i < a.size()) return 1;
  if (j < b.size()) return -1;
  return 0;
}

}  // namespace

int CompareListText(const QString& a, const QString& b) {
  if (const int c = CompareNatural(a, b); c != 0) return c;
  return a.compare(b);
}

}  // namespace browse
