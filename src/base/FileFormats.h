#pragma once
// The one table of file types this program knows: each extension's description, MIME
// type, helper coder, whether the folder scan lists it, how the dialogs and the file
// types dialog group it, and how it is saved. The folder scan, the Open File and Save As
// filters, the file types dialog, the MIME associations and the loader's helper choice
// are all read from it.

#include <QString>
#include <QStringList>

#include <vector>

namespace base {

// The helper coder of camera RAW files: our own LibRaw helper reads them, not the converter.
inline constexpr char kCameraRaw[] = "LIBRAW";

struct FileFormat {
  const char* Extension;    // lower case: "jpg"
  const char* Description;  // the list's Type column: "Jpeg image"
  const char* MimeType;     // "image/jpeg"
  const char* HelperCoder;  // the converter's name for it when the helper reads it; "" when it never does
  bool Scanned;             // the folder scan lists it
  // On the first extension of a group: the group's extensions, as Open File, the file
  // types dialog and the associations show them together ("jpg;jpeg;jpe;jif"). Null on the others.
  const char* Group;
  const char* SaveAs;  // the Save As entry that writes this type ("Jpeg (*.jpg)"), or null
  bool Writable;       // Save can write it
  const char* SavedLike = nullptr;  // without an entry: the type whose entry Save As preselects
  bool HoldsPages = false;          // a file may hold several pages or an animation's frames
  // A type of today's folders (HEIC, WebP...) rather than of the classic list: the scan lists
  // it unless Options asks for the classic types only.
  bool Modern = false;
};

// Every row: the classic types in the folder scan's order (jpe, which the classic scan
// leaves out, before jpg), then today's.
const std::vector<FileFormat>& FileFormats();
// The row of a lower-case extension, or null.
const FileFormat* FindFileFormat(const QString& lowerCaseExtension);

// Whether the file's name says it is a JPEG.
bool HasJpegName(const QString& path);

// The groups' first rows, in order.
std::vector<const FileFormat*> FormatGroups();
// A group's extensions.
QStringList GroupExtensions(const FileFormat& head);
// The rows with a Save As entry of their own, in order.
std::vector<const FileFormat*> SaveAsFormats();

}  // namespace base
