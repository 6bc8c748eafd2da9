#pragma once
// What a drop on the window opens: the file URLs a file manager or a browser hands over
// (Nautilus, Dolphin and the rest give text/uri-list), sorted into one folder, one file or
// several files of one folder.

#include <QList>
#include <QString>
#include <QStringList>
#include <QUrl>

namespace browse {

struct DroppedOpen {
  enum class Kind { Nothing, Folder, File, Files };
  Kind What = Kind::Nothing;
  QString Path;       // the folder, or the one file
  QStringList Files;  // several files: their paths, all in the folder of the first
};

// Local files and folders that exist count; a folder counts only when nothing else was
// dropped with it, and of several files those outside the first one's folder are left out.
DroppedOpen WhatToOpen(const QList<QUrl>& urls);

}  // namespace browse
