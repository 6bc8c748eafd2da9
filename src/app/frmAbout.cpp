#include "app/frmAbout.h"

#include "widgets/Fonts.h"
#include "widgets/Help.h"

#include <QBoxLayout>
#include <QDesktopServices>
#include <QLabel>
#include <QPushButton>
#include <QUrl>

namespace app {

frmAbout::frmAbout(QWidget* parent) : QDialog(parent) {
  setObjectName(QStringLiteral("frmAbout"));
  setWindowTitle(tr("About Vistrel"));
  auto* text = new QLabel(this);
  text->setObjectName(QStringLiteral("lblAbout"));
  text->setTextFormat(Qt::RichText);
  text->setText(tr(
      "<h2>Vistrel %1</h2>"
      "<p>A fast image viewer with light editing: folders and single files, zoom, full screen, "
      "slide shows, colour, filter and geometry operations with undo, saving in a dozen formats, "
      "file management, the wallpaper and printing.</p>"
      "<p>It is built on <b>Qt</b> (LGPL 3), <b>libvips</b> (LGPL 2.1 or later) and <b>libimagequant</b> "
      "(GPL 3 or later), and reads the legacy formats through <b>ImageMagick</b> (ImageMagick License), "
      "run as a separate helper program. The toolbar's own icons are part of Vistrel; the others come "
      "from the desktop's icon theme.</p>"
      "<p>Made by the Vistrel developers, <a href=\"https://github.com/vistrel/vistrel\">github.com/vistrel/vistrel</a>. "
      "Free software under the GNU General Public License, version 3 or later.</p>"
      "<p><a href=\"help:contents\">Read the manual</a></p>")
                    .arg(QStringLiteral(VISTREL_VERSION)));
  text->setWordWrap(true);
  connect(text, &QLabel::linkActivated, this, [](const QString& link) {
    if (link.startsWith(QLatin1String("help:"))) return widgets::ShowHelpTopic({});
    QDesktopServices::openUrl(QUrl(link));
  });
  auto* ok = new QPushButton(tr("OK"), this);
  ok->setObjectName(QStringLiteral("cmdAceptar"));
  ok->setDefault(true);
  connect(ok, &QPushButton::clicked, this, &QDialog::accept);
  auto* page = new QVBoxLayout(this);
  page->addWidget(text);
  page->addWidget(ok, 0, Qt::AlignRight);
  widgets::ApplyTahomaFont(*this);
  setFixedWidth(420);
}

}  // namespace app
