#pragma once
// The command line: the whole line is one path, no switches.

#include <QString>
#include <QStringList>

namespace document {

// The program's arguments joined back into one line, so that an unquoted path with
// blanks still names one path.
QString JoinArguments(const QStringList& argumentsAfterProgram);

// Trims blanks, removes one double quote at each end (trimming again after each) and
// the trailing separators. Empty means "no command line".
QString CommandLinePath(const QString& commandLine);

// The path made absolute against `workingFolder` before anything keeps it, so the
// settings and the recent folders work wherever the program starts next time. A
// file:// URI, as desktop launchers pass, becomes its local path.
QString ResolveCommandLinePath(const QString& path, const QString& workingFolder);

}  // namespace document
