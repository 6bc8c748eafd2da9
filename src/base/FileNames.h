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

#include <optional>

namespace base {

QString DecodeFileName(QByteArrayView bytes);
QByteArray EncodeFileName(const QString& name);

// True when the name holds bytes that are not UTF-8.
bool HasRawBytes(const QString& name);

// The name for people: bytes that are not UTF-8 are read as Windows-1252, the code page
// such names usually come from.
QString ReadableFileName(const QString& name);

// Opens a regular file for reading by its exact bytes. A FIFO, a device or a socket is
// refused without blocking, checked on the open file, so a name swapped in between does
// not slip through. The descriptor (or -1) is the caller's to close.
int OpenRegularFile(const QString& path);
bool OpenForReading(QFile& file, const QString& path);
// The file's bytes up to the size it had when opened (a file that grows meanwhile is not
// read past that); empty when it was larger than `largest`.
QByteArray ReadWhole(QFile& file, qint64 largest);
// True for a FIFO, a device or a socket.
bool IsSpecialFile(const QString& path);

// Where a write that replaces `path` goes, one rule for every file the program writes for
// the user: a symbolic link is written through (the link stays, the file it names
// changes). nullopt when the target must not be written: a folder, a FIFO or a device, a
// link to no file, a file marked read-only (even for a user whom the system would let).
std::optional<QString> WritableTarget(const QString& path);

// The file's size in bytes, or -1 when there is no such file.
qint64 FileSizeOf(const QString& path);

}  // namespace base
