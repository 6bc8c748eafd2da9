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

// The text after the last separator, exactly as the file is named: on a case-sensitive
// file system IMG_0001.JPG and Img_0001.jpg are two files.
QString DisplayName(const QString& path);

// Drops trailing separators; the file system root "/" stays "/" (on Windows C:\ becomes C:).
QString StripTrailingBackslashes(const QString& path);

// True when the path names a directory.
bool FolderExists(const QString& path);

// The name part of a path (after the last separator), as it is.
QString FileNamePart(const QString& path);
// The characters of a file name before its extension: "photo" of "photo.jpg", all of
// "README" and of ".profile".
int BaseNameLength(const QString& name);

}  // namespace base
