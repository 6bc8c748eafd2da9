#pragma once
// Vistrel on the Linux desktop: the default viewer of chosen image types in the user's
// mimeapps.list, with each type's earlier default kept in a file of our own so that giving
// the type back restores exactly what was there; and "Open with Vistrel" on folders in the
// file managers (the folder type's associations, a Dolphin service menu, a Nautilus script
// and a Nemo action, added and removed together).

#include <QString>
#include <QStringList>

namespace shell {

// The desktop's names of an extension's file types (shared-mime-info), ours where it has
// none: image/x-cals for cal and image/x-dcx for dcx.
QStringList MimeTypesOf(const QString& extension);

// The image types Vistrel offers to open, one row a type, its extensions joined by ";".
const QStringList& FileTypeRows();

class FreedesktopShell {
 public:
  // `program`: the executable the entries start.
  explicit FreedesktopShell(QString program);

  // `iconIndex` picks the document icon the desktop shows for the type (-1 for none); the
  // types shared-mime-info lacks (cal, dcx) are described to the desktop too.
  // False when a file could not be written (mimeapps.list read-only, a full disk).
  bool Associate(const QString& extension, int iconIndex = -1);
  bool Unassociate(const QString& extension);
  // The default the user's and the system's mimeapps.list give its first type.
  bool IsAssociated(const QString& extension) const;

  // "Open with Vistrel" in the folder menus of Dolphin, Nautilus and Nemo, through each
  // file manager's own mechanism; never a folder association, so the file manager stays
  // the folders' opener.
  bool FolderEntryExists() const;
  void AddFolderEntry();
  void RemoveFolderEntry();

 private:
  QString MimeAppsPath() const;
  QString BackupPath() const;
  QStringList FolderEntryFiles() const;
  void EnsureDesktopFile() const;
  // Our MIME package: the icon of each type Vistrel owns, and the types we describe.
  void SetTypeIcon(const QString& type, const QString& icon) const;
  void WriteMimePackage() const;

  QString program_;
};

}  // namespace shell
