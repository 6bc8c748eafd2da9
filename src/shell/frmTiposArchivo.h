#pragma once
// frmTiposArchivo, "Associate File Types with Vistrel": the image types Vistrel opens, one
// row a type with its extensions, ticked when Vistrel is their default viewer. OK makes
// Vistrel the viewer of every ticked type and gives every unticked one back. Rows the
// platform records under one name (bmp and dib are both image/bmp on Linux) are one
// choice: they tick together and are applied once.

#include <QDialog>

#include <functional>

class QButtonGroup;
class QListWidget;

namespace shell {

// How the platform hands image types to a viewer, and takes them back.
struct FileTypeOwner {
  std::function<bool(const QString& extension)> IsAssociated;
  std::function<void(const QString& extension, int iconIndex, const QString& description)> Associate;
  std::function<void(const QString& extension)> Unassociate;
  // The names the platform records an extension's viewer under (MIME types on Linux).
  std::function<QStringList(const QString& extension)> RecordedAs;
};

class frmTiposArchivo : public QDialog {
  Q_OBJECT

 public:
  // `fileTypeIcon`: the document icon chosen for the types (the FileTypeIcon setting).
  frmTiposArchivo(FileTypeOwner owner, int& fileTypeIcon, QWidget* parent = nullptr);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void CheckAll(bool checked);
  QStringList NamesOf(const QString& extension) const;
  QStringList RecordedAs(int row) const;
  void TickInStep(int row);
  void Accept();

  FileTypeOwner owner_;
  int& fileTypeIcon_;
  QButtonGroup* picIcono_ = nullptr;
  QListWidget* lisLista_ = nullptr;
  bool inStep_ = false;
};

}  // namespace shell
