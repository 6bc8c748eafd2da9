#pragma once
// Temporary folders, small image files and the programs tests run.

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

namespace testing_support {

// A fresh folder, removed with the object.
class TempFolder {
 public:
  TempFolder();
  QString Path() const { return dir_.path(); }
  QString File(const QString& name) const;
  // Writes an empty (not an image) file.
  QString Touch(const QString& name) const;
  QString WriteBytes(const QString& name, const QByteArray& bytes) const;
  // Writes a real PNG of the given size.
  QString WritePng(const QString& name, int width = 8, int height = 6) const;
  QString MakeFolder(const QString& name) const;
  // A PNG whose name is exactly these bytes (which need not be UTF-8); returns its path.
  QString WritePngNamedByBytes(const QByteArray& name) const;

 private:
  QTemporaryDir dir_;
};

QByteArray ReadAll(const QString& path);

// What a program said, run to its end (a minute at most) with `environment` ("NAME=value")
// added to ours.
struct ProgramRun {
  int ExitCode = -1;
  QString Output;
  QString Errors;
};
ProgramRun Run(const QString& program, const QStringList& arguments, const QStringList& environment = {});

// The CRLF lines of a settings text.
QStringList CrLfLines(const QByteArray& text);

}  // namespace testing_support
