#pragma once
// The table of image file types: extensions, descriptions and which the scan lists.

#include <QString>
#include <QStringList>

namespace browse {

// The 21 extensions of the folder scan, in the scan's order. "jpe" and "tiff" are
// deliberately absent.
const QStringList& ScanExtensions();

// True when the lower-cased extension is one of the 21 scan extensions.
bool IsScanExtension(const QString& lowerCaseExtension);

// "Bitmap image", "Jpeg image", ..., "<EXT> file" for others, "File" for none.
QString FileTypeDescription(const QString& extension);

}  // namespace browse
