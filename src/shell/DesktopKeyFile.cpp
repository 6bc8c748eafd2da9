#include "shell/DesktopKeyFile.h"

#include <optional>

namespace shell {

namespace {

bool IsGroupHeader(const QByteArray& line) { return line.startsWith('[') && line.trimmed().endsWith(']'); }

QByteArray KeyOf(const QByteArray& line) {
  const qsizetype equals = line.indexOf('=');
  return equals < 0 || line.startsWith('#') ? QByteArray() : line.left(equals).trimmed();
}

}  // namespace

DesktopKeyFile::DesktopKeyFile(const QByteArray& text) {
  lines_ = text.split('\n');
  endsWithNewline_ = text.isEmpty() || text.endsWith('\n');
  if (!lines_.isEmpty() && lines_.last().isEmpty()) lines_.removeLast();
}

qsizetype DesktopKeyFile::GroupEnd(qsizetype header) const {
  qsizetype i = header + 1;
  while (i < lines_.size() && !IsGroupHeader(lines_[i])) ++i;
  return i;
}

// A group may stand more than once; GLib reads the repeats as one group, so the key is
// looked for in each. `end` is where the first one ends (where a new key goes), and
// `header` the header of the group that holds the key.
qsizetype DesktopKeyFile::KeyLine(const QString& group, const QString& key, qsizetype* end, qsizetype* header) const {
  const QByteArray title = '[' + group.toUtf8() + ']', name = key.toUtf8();
  if (end) *end = -1;
  for (qsizetype i = 0; i < lines_.size(); ++i) {
    if (lines_[i].trimmed() != title) continue;
    const qsizetype groupEnd = GroupEnd(i);
    if (end && *end < 0) *end = groupEnd;
    for (qsizetype k = i + 1; k < groupEnd; ++k) {
      if (KeyOf(lines_[k]) != name) continue;
      if (header) *header = i;
      return k;
    }
    i = groupEnd - 1;
  }
  return -1;
}

std::optional<QString> DesktopKeyFile::Value(const QString& group, const QString& key) const {
  const qsizetype line = KeyLine(group, key);
  if (line < 0) return std::nullopt;
  return QString::fromUtf8(lines_[line].mid(lines_[line].indexOf('=') + 1).trimmed());
}

void DesktopKeyFile::SetValue(const QString& group, const QString& key, const QString& value) {
  qsizetype end = -1;
  const qsizetype line = KeyLine(group, key, &end);
  const QByteArray text = (key + u'=' + value).toUtf8();
  if (line >= 0) {
    lines_[line] = text;
  } else if (end >= 0) {
    qsizetype at = end;
    while (at > 0 && lines_[at - 1].trimmed().isEmpty() && !IsGroupHeader(lines_[at - 1])) --at;  // before trailing blanks
    lines_.insert(at, text);
  } else {
    if (!lines_.isEmpty() && !lines_.last().trimmed().isEmpty()) lines_ << QByteArray();
    lines_ << '[' + group.toUtf8() + ']' << text;
  }
}

// A group left with nothing in it goes too, with the blank line that set it apart.
void DesktopKeyFile::Remove(const QString& group, const QString& key) {
  qsizetype first = -1;
  const qsizetype line = KeyLine(group, key, nullptr, &first);
  if (line < 0) return;
  lines_.removeAt(line);
  const qsizetype end = GroupEnd(first);
  for (qsizetype i = first + 1; i < end; ++i) {
    if (!lines_[i].trimmed().isEmpty()) return;
  }
  if (first > 0 && lines_[first - 1].trimmed().isEmpty()) --first;
  lines_.erase(lines_.begin() + first, lines_.begin() + end);
}

QByteArray DesktopKeyFile::Text() const {
  if (lines_.isEmpty()) return {};
  return lines_.join('\n') + (endsWithNewline_ ? "\n" : "");
}

}  // namespace shell
