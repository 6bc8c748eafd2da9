#include "widgets/TextFit.h"

namespace widgets {

QString FitTextToWidth(const QString& text, int width, const QFontMetrics& metrics) {
  if (metrics.horizontalAdvance(text) <= width) return text;
  const QString dots = QStringLiteral("...");
  QString shortened = text;
  while (!shortened.isEmpty() && metrics.horizontalAdvance(shortened + dots) > width) shortened.chop(1);
  return shortened + dots;
}

}  // namespace widgets
