#pragma once
// Text files written on Windows in its ANSI code page (Windows-1252) and files written
// in UTF-8 both read correctly.

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

namespace base {

// The text in Windows-1252; nullopt when a character has no place in it.
std::optional<QByteArray> EncodeWindows1252(const QString& text);

// UTF-8 when the bytes are valid UTF-8, otherwise Windows-1252.
QString DecodeUtf8OrWindows1252(const QByteArray& bytes);

// Windows-1252 to text; the five bytes that code page leaves undefined map to
// the control characters of the same value, as Windows does.
QString DecodeWindows1252(const QByteArray& bytes);

// Lines ended by CR LF, CR or LF; a final line without an ending counts, an
// ending at the very end of the text adds no empty line.
QStringList SplitLines(const QString& text);

}  // namespace base
