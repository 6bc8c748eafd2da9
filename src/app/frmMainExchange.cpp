// Files and pictures coming into the window and going out of it: what a file manager drops
// on the window opens (a folder as a folder, one file as a file, several files as a list of
// just those), and Copy hands other programs the picture and the file.
#include "app/frmMain.h"

#include "browse/Dropped.h"
#include "imaging/Operations.h"
#include "view/Viewport.h"

#include <QClipboard>
#include <QDrag>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMimeData>
#include <QUrl>

namespace app {

void frmMain::dragEnterEvent(QDragEnterEvent* event) {
  if (browse::WhatToOpen(event->mimeData()->urls()).What != browse::DroppedOpen::Kind::Nothing) event->acceptProposedAction();
}

void frmMain::dropEvent(QDropEvent* event) {
  const browse::DroppedOpen dropped = browse::WhatToOpen(event->mimeData()->urls());
  if (dropped.What == browse::DroppedOpen::Kind::Nothing) return;
  event->acceptProposedAction();
  activateWindow();
  OpenDropped(dropped);
}

void frmMain::OpenDropped(const browse::DroppedOpen& dropped) {
  if (!document_.ConfirmSaveChanges()) return;
  switch (dropped.What) {
    case browse::DroppedOpen::Kind::Folder: document_.OpenChosenFolder(dropped.Path); break;
    case browse::DroppedOpen::Kind::File: document_.OpenFile(dropped.Path); break;
    case browse::DroppedOpen::Kind::Files: {
      QSet<QString> names;
      for (const QString& file : dropped.Files) names.insert(QFileInfo(file).fileName());
      document_.OpenChosenFolder(dropped.Path, names);
      break;
    }
    case browse::DroppedOpen::Kind::Nothing: break;
  }
}

// Edit > Paste: files copied in a file manager open as if dropped; a picture opens as a new
// unnamed image, which Save asks a name for.
void frmMain::Paste() {
  const QMimeData* pasted = QGuiApplication::clipboard()->mimeData();
  if (!pasted) return;
  const browse::DroppedOpen files = browse::WhatToOpen(pasted->urls());
  if (files.What != browse::DroppedOpen::Kind::Nothing) return OpenDropped(files);
  const QImage picture = qvariant_cast<QImage>(pasted->imageData());
  if (picture.isNull() || !document_.ConfirmSaveChanges()) return;
  document_.OpenPasted(imaging::Image::FromQImage(picture));
}

// Edit > Copy: the selection, or the whole image, as image data (PNG for the programs that
// ask for it), with the file's URL when the whole unedited file is what was copied.
void frmMain::CopyToClipboard() {
  if (QMimeData* copied = PictureToHandOut()) QGuiApplication::clipboard()->setMimeData(copied);
}

// Ctrl and a drag on the picture hand it out as Copy does: a file manager copies the file,
// an editor takes the pixels.
void frmMain::DragPictureOut() {
  QMimeData* picture = PictureToHandOut();
  if (!picture) return;
  auto* drag = new QDrag(picFondo_);
  drag->setMimeData(picture);
  drag->setPixmap(QPixmap::fromImage(qvariant_cast<QImage>(picture->imageData()).scaled(96, 96, Qt::KeepAspectRatio)));
  drag->exec(Qt::CopyAction);
}

QMimeData* frmMain::PictureToHandOut() {
  SettleImage();
  if (!document_.CurrentImage()) return nullptr;
  const QRect selection = SelectionPixels();
  const imaging::Image& image = *document_.CurrentImage();
  auto* picture = new QMimeData;
  picture->setImageData((selection.isEmpty() ? image : imaging::ops::Crop(image, selection)).ToQImage().copy());
  const QString file = document_.CurrentFilePath();
  if (selection.isEmpty() && !document_.IsChanged() && !file.isEmpty()) picture->setUrls({QUrl::fromLocalFile(file)});
  return picture;
}

// Edit > Copy Path: the file's full path as text.
void frmMain::CopyPath() {
  const QString file = document_.CurrentFilePath();
  if (!file.isEmpty()) QGuiApplication::clipboard()->setText(QFileInfo(file).absoluteFilePath());
}

}  // namespace app
