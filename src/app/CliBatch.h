#pragma once
// vistrel-cli's `convert` of many files: IN... --to DIR [--format FMT] [--fit WxH] [--jobs N]
// [--name PATTERN] [--existing skip|replace|rename] [--quality Q] [--compression C]
// [OPERATION VALUE...]..., with a one-line progress on a terminal and a report at the end.

#include <QSize>
#include <QStringList>

#include <optional>

namespace cli {

inline constexpr int kLargestBoxSide = 16384;

// "320x240": both sides whole numbers from 1 to kLargestBoxSide.
std::optional<QSize> ParseBox(const QString& text);

// The words after `convert`; the exit code: 0 when every file was written or skipped as
// asked, 1 when any failed, 2 for bad words, 130 when stopped by Ctrl+C.
int ConvertMany(const QStringList& words);

}  // namespace cli
