#include "app/CliShell.h"

#include "app/CliOutput.h"

#include "shell/FreedesktopShell.h"
#include "shell/frmTiposArchivo.h"

#include <cstdio>

namespace cli {

int Associate(const QStringList& words, const QString& viewer) {
  shell::FreedesktopShell desktop(viewer);
  if (words == QStringList{QStringLiteral("--list")}) {
    for (const QString& row : shell::FileTypeRows()) {
      for (const QString& extension : row.split(u';')) {
        Print(extension + u'\t' + (desktop.IsAssociated(extension) ? QStringLiteral("vistrel") : QStringLiteral("other")));
      }
    }
    return 0;
  }
  const bool remove = words.value(0) == QLatin1String("--remove");
  const QStringList extensions = words.mid(remove ? 1 : 0);
  if (extensions.isEmpty()) return 2;
  for (const QString& extension : extensions) {
    if (shell::MimeTypesOf(extension).isEmpty()) {
      Complain(QStringLiteral("Unknown file type: ") + extension);
      return 2;
    }
  }
  for (const QString& extension : extensions) {
    if (!(remove ? desktop.Unassociate(extension) : desktop.Associate(extension))) {
      Complain(QStringLiteral("Can't save file: the desktop's list of default programs (mimeapps.list) could not be written"));
      return 1;
    }
  }
  return 0;
}

int FolderEntry(const QStringList& words, const QString& viewer) {
  shell::FreedesktopShell desktop(viewer);
  const QString verb = words.value(0);
  if (words.size() != 1) return 2;
  if (verb == QLatin1String("add")) {
    desktop.AddFolderEntry();
  } else if (verb == QLatin1String("remove")) {
    desktop.RemoveFolderEntry();
  } else if (verb == QLatin1String("status")) {
    Print(desktop.FolderEntryExists() ? QStringLiteral("present") : QStringLiteral("absent"));
  } else {
    return 2;
  }
  return 0;
}

}  // namespace cli
