#pragma once
// vistrel-cli print FILE... [--printer NAME | --pdf OUT.pdf] [--copies N] [--fit | --original]
// [--center]: one image a page, with the margins and units stored by the viewer.

#include <QStringList>

namespace cli {

// Exit code: 0 printed, 1 a file or the printer failed, 2 wrong words.
int Print(const QStringList& words, const QString& settingsPath);

}  // namespace cli
