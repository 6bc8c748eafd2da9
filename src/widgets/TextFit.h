#pragma once
// FitTextToWidth: a caption shortened to a width, ending in "..." when it had to be cut.

#include <QFontMetrics>
#include <QString>

namespace widgets {

QString FitTextToWidth(const QString& text, int width, const QFontMetrics& metrics);

}  // namespace widgets
