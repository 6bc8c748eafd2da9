#include "shell/FreedesktopShell.h"
#include "base/FileFormats.h"

#include "base/FileNames.h"
#include "shell/DesktopKeyFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QSaveFile>
#include <QStandardPaths>

#include <algorithm>
#include <map>

namespace shell {

namespace {

const QString kDesktopId = QStringLiteral("vistrel.desktop");
const QString kDefaults = QStringLiteral("Default Applications");
const QString kAdded = QStringLiteral("Added Associations");
const QString kFolderType = QStringLiteral("inode/directory");

QString DataHome() { return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation); }

DesktopKeyFile Read(const QString& path) {
  QFile file(path);
  return DesktopKeyFile(file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray());
}

bool Write(const QString& path, const QByteArray& text, QFileDevice::Permissions permissions = {}) {
  QDir().mkpath(QFileInfo(path).path());
  const auto target = base::WritableTarget(path);
  if (!target) return false;
  QSaveFile file(*target);
  if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size() || !file.commit()) return false;
  if (permissions) QFile::setPermissions(path, permissions);
  return true;
}

// The program as a desktop entry's Exec names it: quoted only when it has to be, since
// some tools do not find a quoted program.
QString ExecProgram(const QString& program) {
  static const QString kReserved = QStringLiteral(" \t\n\"'\\><~|&;$*?#()`");
  if (std::none_of(program.begin(), program.end(), [](QChar c) { return kReserved.contains(c); })) return program;
  QString quoted = program;
  for (const char* special : {"\\", "\"", "`", "$"}) quoted.replace(QLatin1String(special), u'\\' + QLatin1String(special));
  return u'"' + quoted + u'"';
}

QStringList Entries(const std::optional<QString>& value) {
  return value ? value->split(u';', Qt::SkipEmptyParts) : QStringList();
}

}  // namespace

const QStringList& FileTypeRows() {
  static const QStringList kRows = [] {
    QStringList rows;
    for (const base::FileFormat* head : base::FormatGroups()) rows << QLatin1String(head->Group);
    return rows;
  }();
  return kRows;
}

QStringList MimeTypesOf(const QString& extension) {
  const base::FileFormat* format = base::FindFileFormat(extension.trimmed().toLower());
  return format ? QStringList{QLatin1String(format->MimeType)} : QStringList();
}

FreedesktopShell::FreedesktopShell(QString program) : program_(std::move(program)) {}

QString FreedesktopShell::MimeAppsPath() const {
  return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + QStringLiteral("/mimeapps.list");
}

QString FreedesktopShell::BackupPath() const { return DataHome() + QStringLiteral("/vistrel/defaults-before-vistrel"); }

// An installed program brings its own vistrel.desktop; otherwise one is written for the
// user, claiming every type the program knows.
void FreedesktopShell::EnsureDesktopFile() const {
  if (!QStandardPaths::locate(QStandardPaths::ApplicationsLocation, kDesktopId).isEmpty()) return;
  QStringList types;
  for (const base::FileFormat& format : base::FileFormats()) {
    if (!types.contains(QLatin1String(format.MimeType))) types << QLatin1String(format.MimeType);
  }
  Write(DataHome() + QStringLiteral("/applications/") + kDesktopId,
        QStringLiteral("[Desktop Entry]\nType=Application\nName=Vistrel\nComment=View and edit images\n"
                       "Exec=%1 %f\nIcon=vistrel\nTerminal=false\nCategories=Graphics;Viewer;\n"
                       "MimeType=%2;\n")
            .arg(ExecProgram(program_), types.join(u';'))
            .toUtf8());
}

bool FreedesktopShell::Associate(const QString& extension, int iconIndex) {
  EnsureDesktopFile();
  const bool showsItself = extension == QLatin1String("cur") || extension == QLatin1String("ico");
  const QString icon = iconIndex < 0 || showsItself ? QString() : QStringLiteral("vistrel-document-%1").arg(iconIndex, 3, 10, QChar(u'0'));
  for (const QString& type : MimeTypesOf(extension)) SetTypeIcon(type, icon);
  DesktopKeyFile mimeApps = Read(MimeAppsPath());
  DesktopKeyFile backups = Read(BackupPath());
  for (const QString& type : MimeTypesOf(extension)) {
    const std::optional<QString> previous = mimeApps.Value(kDefaults, type);
    // A second association keeps the first backup: our own entry is never kept as "earlier".
    if (!previous || !previous->startsWith(kDesktopId)) backups.SetValue(kDefaults, type, previous.value_or(QString()));
    mimeApps.SetValue(kDefaults, type, kDesktopId + u';');
  }
  return Write(BackupPath(), backups.Text()) && Write(MimeAppsPath(), mimeApps.Text());
}

bool FreedesktopShell::Unassociate(const QString& extension) {
  DesktopKeyFile mimeApps = Read(MimeAppsPath());
  DesktopKeyFile backups = Read(BackupPath());
  const bool ours = IsAssociated(extension);
  for (const QString& type : MimeTypesOf(extension)) {
    if (ours) {
      const QString previous = backups.Value(kDefaults, type).value_or(QString());
      previous.isEmpty() ? mimeApps.Remove(kDefaults, type) : mimeApps.SetValue(kDefaults, type, previous);
    }
    backups.Remove(kDefaults, type);
    SetTypeIcon(type, {});  // also when another viewer took the type in the meantime
  }
  if (ours && !Write(MimeAppsPath(), mimeApps.Text())) return false;
  return Write(BackupPath(), backups.Text());
}

// The icon goes to the user's hicolor theme; the package to the user's MIME database.
void FreedesktopShell::SetTypeIcon(const QString& type, const QString& icon) const {
  const QString icons = DataHome() + QStringLiteral("/vistrel/type-icons");
  DesktopKeyFile chosen = Read(icons);
  if (chosen.Value(QStringLiteral("Icons"), type).value_or(QString()) == icon) return;
  icon.isEmpty() ? chosen.Remove(QStringLiteral("Icons"), type) : chosen.SetValue(QStringLiteral("Icons"), type, icon);
  Write(icons, chosen.Text());
  if (!icon.isEmpty()) {
    QFile source(QStringLiteral(":/document-icons/") + icon + QStringLiteral(".svg"));
    if (source.open(QIODevice::ReadOnly)) {
      Write(DataHome() + QStringLiteral("/icons/hicolor/scalable/mimetypes/") + icon + QStringLiteral(".svg"), source.readAll());
    }
  }
  WriteMimePackage();
}

void FreedesktopShell::WriteMimePackage() const {
  const DesktopKeyFile chosen = Read(DataHome() + QStringLiteral("/vistrel/type-icons"));
  // The installed package describes the types shared-mime-info lacks; the user's copy adds the icons.
  QFile installed(QStringLiteral(":/packaging/vistrel-mime.xml"));
  installed.open(QIODevice::ReadOnly);
  QString xml = QString::fromUtf8(installed.readAll()).remove(QStringLiteral("</mime-info>\n"));
  QStringList written;
  for (const QString& row : FileTypeRows()) {
    for (const QString& extension : row.split(u';')) {
      for (const QString& type : MimeTypesOf(extension)) {
        const auto icon = chosen.Value(QStringLiteral("Icons"), type);
        if (written.contains(type) || !icon) continue;
        written << type;
        xml += QStringLiteral("  <mime-type type=\"%1\"><icon name=\"%2\"/></mime-type>\n").arg(type, *icon);
      }
    }
  }
  xml += QStringLiteral("</mime-info>\n");
  const QString database = DataHome() + QStringLiteral("/mime");
  Write(database + QStringLiteral("/packages/vistrel.xml"), xml.toUtf8());
  QProcess::execute(QStringLiteral("update-mime-database"), {database});
}

bool FreedesktopShell::IsAssociated(const QString& extension) const {
  const QStringList types = MimeTypesOf(extension);
  if (types.isEmpty()) return false;
  QStringList files = {MimeAppsPath()};
  for (const QString& folder : QStandardPaths::standardLocations(QStandardPaths::GenericConfigLocation)) {
    files << folder + QStringLiteral("/mimeapps.list");
  }
  for (const QString& path : files) {
    const QStringList entries = Entries(Read(path).Value(kDefaults, types.front()));
    if (!entries.isEmpty()) return entries.front() == kDesktopId;
  }
  return false;
}

QStringList FreedesktopShell::FolderEntryFiles() const {
  return {DataHome() + QStringLiteral("/kio/servicemenus/vistrel-open-folder.desktop"),
          DataHome() + QStringLiteral("/nautilus/scripts/Open with Vistrel"),
          DataHome() + QStringLiteral("/nemo/actions/vistrel-open-folder.nemo_action")};
}

bool FreedesktopShell::FolderEntryExists() const {
  const QStringList files = FolderEntryFiles();
  return std::all_of(files.begin(), files.end(), [](const QString& file) { return QFile::exists(file); });
}

void FreedesktopShell::AddFolderEntry() {
  EnsureDesktopFile();
  const QStringList files = FolderEntryFiles();
  const QString exec = ExecProgram(program_);
  const QString quoted = u'\'' + QString(program_).replace(u'\'', QStringLiteral("'\\''")) + u'\'';  // for the shell
  const auto executable = QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner |
                          QFileDevice::ReadGroup | QFileDevice::ExeGroup | QFileDevice::ReadOther | QFileDevice::ExeOther;
  Write(files[0], QStringLiteral("[Desktop Entry]\nType=Service\nMimeType=inode/directory;\nActions=openWithVistrel;\n"
                                 "X-KDE-Priority=TopLevel\n\n[Desktop Action openWithVistrel]\nName=Open with Vistrel\n"
                                 "Icon=vistrel\nExec=%1 %f\n").arg(exec).toUtf8(), executable);
  Write(files[1], QStringLiteral("#!/bin/sh\nexec %1 \"$1\"\n").arg(quoted).toUtf8(), executable);
  Write(files[2], QStringLiteral("[Nemo Action]\nName=Open with Vistrel\nIcon-Name=vistrel\nExec=%1 %F\n"
                                 "Selection=s\nExtensions=dir;\n").arg(exec).toUtf8());
}

// Also takes back the folder association earlier versions added, which made Vistrel the
// folder opener on desktops with no default of their own.
void FreedesktopShell::RemoveFolderEntry() {
  for (const QString& file : FolderEntryFiles()) QFile::remove(file);
  DesktopKeyFile mimeApps = Read(MimeAppsPath());
  QStringList added = Entries(mimeApps.Value(kAdded, kFolderType));
  if (!added.removeAll(kDesktopId)) return;
  added.isEmpty() ? mimeApps.Remove(kAdded, kFolderType) : mimeApps.SetValue(kAdded, kFolderType, added.join(u';') + u';');
  Write(MimeAppsPath(), mimeApps.Text());
}

}  // namespace shell
