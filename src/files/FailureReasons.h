#pragma once
// Why a file could not be opened or saved, in a few words: the detail under "Can't open
// file" or "Can't save file", and what vistrel-cli prints after the file's name.

#include <QString>

namespace files {

// "the file does not exist", "it is a folder", "no permission to read it", "the file is
// empty", or "not an image this program reads".
QString OpenFailureReason(const QString& path);

// "this format cannot be written", "the folder does not exist", "the file is marked as
// read-only", "no permission to write in the folder", or "the disk is full or the write
// failed".
QString SaveFailureReason(const QString& path);
// The same for any file written there (Copy To, Move To), its format aside.
QString WriteFailureReason(const QString& path);

}  // namespace files
