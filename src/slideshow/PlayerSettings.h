#pragma once
// What the player takes from the setup dialog when Start is pressed.

#include "slideshow/SlideShowList.h"

#include <QColor>

namespace slideshow {

struct PlayerSettings {
  QString Folder;
  std::vector<SlideShowRow> Rows;
  int SelectedRow = -1;  // -1 for none
  bool Random = false, Repeat = false, FitToWindow = false, ShowFileName = false;
  double Seconds = -1;  // per image in automatic advance; -1 in manual advance
  QColor Background = Qt::black;
};

}  // namespace slideshow
