#include "document/StatusText.h"
#include "base/Texts.h"

#include "base/NumberRules.h"

namespace document {

QString FormatFileSize(qint64 bytes) {
  if (bytes < 1024) return Texts::tr("%1 bytes").arg(bytes);
  double value = double(bytes) / 1024.0;
  QString unit = QStringLiteral("KB");
  if (value >= 1024.0) {
    value /= 1024.0;
    unit = QStringLiteral("MB");
  }
  const QString number = value < 10.0 ? numbers::FormatThousandsOneDecimal(value) : numbers::FormatThousands(value);
  return number + u' ' + unit;
}

StatusTexts ComposeStatus(const StatusFacts& facts) {
  if (!facts.Message.isEmpty()) return {facts.Message, {}, {}, {}, {}, {}};
  if (facts.DisplayName.isEmpty()) return {};
  StatusTexts texts;
  texts.Name = facts.DisplayName;
  if (facts.Row >= 0) {
    texts.Position = numbers::FormatThousands(facts.Row + 1) + QStringLiteral(" / ") + numbers::FormatThousands(facts.Count);
  }
  if (facts.Pages > 1) texts.Page = Texts::tr("page %1/%2").arg(facts.Page + 1).arg(facts.Pages);
  if (facts.Frames > 1) texts.Page = Texts::tr("frame %1/%2").arg(facts.Frame + 1).arg(facts.Frames);
  texts.Size = QStringLiteral("%1 x %2").arg(facts.Width).arg(facts.Height);
  texts.Zoom = QStringLiteral("%1%").arg(facts.Percentage);
  if (facts.FileBytes) texts.FileSize = FormatFileSize(*facts.FileBytes);
  return texts;
}

}  // namespace document
