#pragma once
// The lines of "Ini.in", each declared once: what it holds, how it is written and read,
// and which of the file's layouts have it. The reader, the writer and every caller that
// needs a line's place ask this table; adding a setting is one row.

#include "settings/SettingsFile.h"

#include <functional>
#include <vector>

namespace settings {

// The layouts a line appears in, as bits; the current layout has every line.
enum LayoutBits : unsigned {
  kCurrentLayout = 1,
  kLayout61 = 2,
  kLayout41 = 4,
  kOldestLayout = 8,
  kEveryLayout = 15,
};

struct SettingsLine {
  QString Name;  // the setting, or the text of a header, title or empty line
  unsigned Layouts = kEveryLayout;
  // The line's text; a fixed line writes its name.
  std::function<QString(const SettingsStore&, const base::ScreenMetrics&, const WindowPlacement&)> Write;
  // Reads the line into the store; none for a fixed line, which is passed over.
  std::function<void(const QString& line, const base::ScreenMetrics&, SettingsStore&)> Read;
  // When set and false for what has been read so far, the line is not in the file.
  std::function<bool(const SettingsStore&)> PresentWhen;
  // A line added after the file's format was fixed: a file that ends before it leaves the
  // setting at its default (rather than reading the last line again).
  bool Added = false;
};

// The current layout's lines, in order.
const std::vector<SettingsLine>& SettingsLines();

// The 0-based place of the named line in the current layout; -1 for an unknown name.
int LineIndex(const QString& name);

}  // namespace settings
