#pragma once
// The desktop's small INI-style files (mimeapps.list and our list of earlier defaults):
// groups in brackets, "key=value" lines. Values are read and changed in place, and the
// lines are kept as bytes, so every other line of a user's file (comments, another
// program's entry in another encoding) stays byte for byte as it was.

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace shell {

class DesktopKeyFile {
 public:
  explicit DesktopKeyFile(const QByteArray& text = {});

  // Nothing when the group or the key is missing.
  std::optional<QString> Value(const QString& group, const QString& key) const;
  // Replaces the key's value, or adds the key (and the group) at the group's end.
  void SetValue(const QString& group, const QString& key, const QString& value);
  // Removes the key, and its group when nothing else is left in it.
  void Remove(const QString& group, const QString& key);
  QByteArray Text() const;

 private:
  // The line after the group whose header is at `header`: the next header, or the end.
  qsizetype GroupEnd(qsizetype header) const;
  // The index of the key's line within the group, or -1.
  qsizetype KeyLine(const QString& group, const QString& key, qsizetype* end = nullptr, qsizetype* header = nullptr) const;

  QList<QByteArray> lines_;
  bool endsWithNewline_ = true;
};

}  // namespace shell
