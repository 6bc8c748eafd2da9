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

qsizetype DesktopKeyFile::GroupLine(const QString& group) const {
  const QByteArray header = '[' + group.toUtf8() + ']';
  for (qsizetype i = 0; i < lines_.size(); ++i) {
    if (lines_[i].trimmed() == header) return i;
  }
  return -1;
}

qsizetype DesktopKeyFile::KeyLine(const QString& group, const QString& key, qsizetype* end) const {
  const qsizetype header = GroupLine(group);
  if (end) *end = -1;
  if (header < 0) return -1;
  qsizetype i = header + 1;
  qsizetype found = -1;
  for (; i < lines_.size() && !IsGroupHeader(lines_[i]); ++i) {
    if (found < 0 && KeyOf(lines_[i]) == key.toUtf8()) found = i;
  }
  if (end) *end = i;
  return found;
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
  qsizetype end = -1;
  const qsizetype line = KeyLine(group, key, &end);
  if (line < 0) return;
  lines_.removeAt(line);
  --end;
  qsizetype first = GroupLine(group);
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
