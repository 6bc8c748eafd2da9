#pragma once
// Path routines. On Linux the separator is "/"; on Windows it is "\".

#include <QString>

namespace base {

inline constexpr QChar kSeparator =
#ifdef Q_OS_WIN
    u'\\';
#else
    u'/';
#endif

// folder + name when the folder already ends in the separator, else folder + separator + name.
QString JoinPath(const QString& folder, const QString& name);

// The text after the last point, trimmed and lower-cased; empty when there is no point.
QString FileExtension(const QString& path);

// The text after the last separator; a name entirely in upper case is shown with
// its first character upper case and the rest lower case (IMG_0001.JPG -> Img_0001.jpg).
QString DisplayName(const QString& path);

// Drops trailing separators; the file system root "/" stays "/" (on Windows C:\ becomes C:).
QString StripTrailingBackslashes(const QString& path);

// True when the path names a directory.
bool FolderExists(const QString& path);

// The name part of a path (after the last separator), as it is.
QString FileNamePart(const QString& path);

}  // namespace base
