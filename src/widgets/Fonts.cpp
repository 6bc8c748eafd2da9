#include "widgets/Fonts.h"

#include <QFontDatabase>
#include <QWidget>

namespace widgets {

namespace {

void RegisterTahomaOnce() {
  static const bool registered = [] {
    if (QFontDatabase::families().contains(QStringLiteral("Tahoma"))) return true;
    return QFontDatabase::addApplicationFont(QStringLiteral("/usr/share/wine/fonts/tahoma.ttf")) >= 0;
  }();
  (void)registered;
}

}  // namespace

void ApplyTahomaFont(QWidget& form, int pointSize) {
  RegisterTahomaOnce();
  QFont font = form.font();
  font.setFamilies({QStringLiteral("Tahoma"), font.family()});
  if (pointSize > 0) font.setPointSize(pointSize);
  form.setFont(font);
}

}  // namespace widgets
