#pragma once
// File names as the file system stores them: bytes, usually UTF-8. A name from an old
// disk may hold bytes that are not UTF-8 (a Latin-1 "café.png"); Qt's own decoding turns
// them into replacement characters and the file can no longer be opened. Here every byte
// that is not part of valid UTF-8 becomes one lone low surrogate (U+DC80..U+DCFF), so
// the text goes back to exactly the bytes it came from.

#include <QByteArray>
#include <QByteArrayView>
#include <QFile>
#include <QString>

namespace base {

QString DecodeFileName(QByteArrayView bytes);
QByteArray EncodeFileName(const QString& name);

// True when the name holds bytes that are not UTF-8.
bool HasRawBytes(const QString& name);

// The name for people: bytes that are not UTF-8 are read as Windows-1252, the code page
// such names usually come from.
QString ReadableFileName(const QString& name);

// Opens the file for reading by its exact bytes.
bool OpenForReading(QFile& file, const QString& path);

// The file's size in bytes, or -1 when there is no such file.
qint64 FileSizeOf(const QString& path);

}  // namespace base
