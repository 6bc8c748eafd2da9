#include "files/NaturalSize.h"

#include "app/Vb.h"

namespace files {

QString NaturalSizeRecord(int widthPixels, int heightPixels, const app::ScreenMetrics& metrics) {
  const auto width = vb::CLng(widthPixels * double(metrics.TwipsPerPixelX)).value_or(0);
  const auto height = vb::CLng(heightPixels * double(metrics.TwipsPerPixelY)).value_or(0);
  return QStringLiteral("%1 %2").arg(width).arg(height);
}

NaturalSize ReadNaturalSizeRecord(const QString& record) {
  const qsizetype blank = record.indexOf(u' ');
  if (blank < 0) return {};
  return {vb::CSng(vb::Val(record.left(blank))), vb::CSng(vb::Val(record.mid(blank + 1)))};
}

}  // namespace files
