#include "support/TestFiles.h"

#include "base/FileNames.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QProcess>

#include <cstdio>

namespace testing_support {

TempFolder::TempFolder() : dir_(QDir::tempPath() + QStringLiteral("/vistrel-test-XXXXXX")) {}

QString TempFolder::File(const QString& name) const { return dir_.filePath(name); }

QString TempFolder::Touch(const QString& name) const { return WriteBytes(name, {}); }

QString TempFolder::WriteBytes(const QString& name, const QByteArray& bytes) const {
  QFile file(File(name));
  if (file.open(QIODevice::WriteOnly)) file.write(bytes);
  return file.fileName();
}

QString TempFolder::WritePng(const QString& name, int width, int height) const {
  QImage image(width, height, QImage::Format_RGB32);
  image.fill(Qt::darkCyan);
  image.save(File(name), "PNG");
  return File(name);
}

QString TempFolder::WritePngNamedByBytes(const QByteArray& name) const {
  const QString written = WritePng(QStringLiteral("written.png"));
  const QByteArray target = QFile::encodeName(dir_.path()) + '/' + name;
  std::rename(QFile::encodeName(written).constData(), target.constData());
  return base::DecodeFileName(target);
}

QString TempFolder::MakeFolder(const QString& name) const {
  QDir(dir_.path()).mkpath(name);
  return File(name);
}

QByteArray ReadAll(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

ProgramRun Run(const QString& program, const QStringList& arguments, const QStringList& environment) {
  QProcess process;
  QProcessEnvironment added = QProcessEnvironment::systemEnvironment();
  for (const QString& setting : environment) added.insert(setting.section(u'=', 0, 0), setting.section(u'=', 1));
  process.setProcessEnvironment(added);
  process.start(program, arguments);
  if (!process.waitForFinished(60000)) {  // a hang is a failure, never a pass
    process.kill();
    process.waitForFinished();
    return {-1, {}, QStringLiteral("still running after a minute")};
  }
  return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
          QString::fromLocal8Bit(process.readAllStandardOutput()), QString::fromLocal8Bit(process.readAllStandardError())};
}

QStringList CrLfLines(const QByteArray& text) {
  QStringList lines = QString::fromUtf8(text).split(QStringLiteral("\r\n"));
  if (!lines.isEmpty() && lines.last().isEmpty()) lines.removeLast();
  return lines;
}

}  // namespace testing_support
