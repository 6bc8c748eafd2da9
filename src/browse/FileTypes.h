#pragma once
// The folder scan's file types and the list's descriptions, from base::FileFormats().

#include <QString>
#include <QStringList>

namespace browse {

// The extensions of the folder scan, in the table's order: the 21 classic ones ("jpe" and
// "tiff" deliberately absent), and with `modern` today's as well (jpe and tiff among them).
const QStringList& ScanExtensions(bool modern = true);

// "Bitmap image", "Jpeg image", ..., "<EXT> file" for others, "File" for none.
QString FileTypeDescription(const QString& extension);

}  // namespace browse
