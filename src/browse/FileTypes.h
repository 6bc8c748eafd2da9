#pragma once
// The folder scan's file types and the list's descriptions, from base::FileFormats().

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
