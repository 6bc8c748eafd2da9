#pragma once
// Why a file could not be opened or saved, in a few words: the detail under "Can't open
// file" or "Can't save file", and what vistrel-cli prints after the file's name.

#include <QSize>
#include <QString>

namespace files {

// "the file does not exist", "it is a folder", "not a regular file" (a FIFO, a device),
// "no permission to read it", "the file is empty", or "not an image this program reads".
QString OpenFailureReason(const QString& path);

// "this format cannot be written", "the image is too large for this format", or what
// WriteFailureReason says.
QString SaveFailureReason(const QString& path, QSize imageSize = {});
// "the folder does not exist", "it is a folder", "the link points to no file", "not a
// regular file", "the file is marked as read-only", "no permission to write in the
// folder", or "the disk is full or the write failed", for any file written there.
QString WriteFailureReason(const QString& path);

}  // namespace files
