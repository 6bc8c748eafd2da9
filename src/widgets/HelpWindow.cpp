#include "widgets/HelpWindow.h"

#include "widgets/Help.h"

#include <QApplication>
#include <QBoxLayout>
#include <QPointer>
#include <QPushButton>
#include <QTextBrowser>

#include <map>

namespace widgets {

QUrl HelpTopicUrl(const QString& topic) {
  static const std::map<QString, QString> kPages = {
      {QStringLiteral("Options"), QStringLiteral("tools.html#options")},
      {QStringLiteral("Zoom Functions"), QStringLiteral("view.html#zoom")},
      {QStringLiteral("Colors Menu"), QStringLiteral("colors.html#colors-menu")},
      {QStringLiteral("Image Filters"), QStringLiteral("filters.html#image-filters")},
      {QStringLiteral("Image Menu"), QStringLiteral("image.html#image-menu")},
      {QStringLiteral("File Types"), QStringLiteral("tools.html#file-types")},
  };
  const auto found = kPages.find(topic);
  return QUrl(QStringLiteral("qrc:/help/") + (found == kPages.end() ? QStringLiteral("index.html") : found->second));
}

HelpWindow::HelpWindow(QWidget* parent) : QDialog(parent) {
  setObjectName(QStringLiteral("frmHelp"));
  setWindowTitle(tr("Vistrel Help"));
  resize(640, 560);
  browser_ = new QTextBrowser(this);
  browser_->setObjectName(QStringLiteral("txtHelp"));
  browser_->setOpenExternalLinks(true);
  auto* contents = new QPushButton(tr("&Contents"), this);
  auto* back = new QPushButton(tr("&Back"), this);
  auto* forward = new QPushButton(tr("&Forward"), this);
  connect(contents, &QPushButton::clicked, this, [this] { ShowTopic({}); });
  connect(back, &QPushButton::clicked, browser_, &QTextBrowser::backward);
  connect(forward, &QPushButton::clicked, browser_, &QTextBrowser::forward);
  connect(browser_, &QTextBrowser::backwardAvailable, back, &QPushButton::setEnabled);
  connect(browser_, &QTextBrowser::forwardAvailable, forward, &QPushButton::setEnabled);
  back->setEnabled(false);
  forward->setEnabled(false);
  auto* buttons = new QHBoxLayout;
  for (QPushButton* button : {contents, back, forward}) buttons->addWidget(button);
  buttons->addStretch();
  auto* page = new QVBoxLayout(this);
  page->addLayout(buttons);
  page->addWidget(browser_);
}

void HelpWindow::ShowTopic(const QString& topic) {
  browser_->setSource(HelpTopicUrl(topic));
  show();
  raise();
  activateWindow();
}

QUrl HelpWindow::Shown() const { return browser_->source(); }

void InstallHelpWindow(QWidget* parent) {
  SetHelpHandler([parent = QPointer<QWidget>(parent)](const QString& topic) {
    static QPointer<HelpWindow> window;
    // Over an open dialog the window belongs to that dialog, which would otherwise hold
    // back its clicks and keys.
    QWidget* owner = QApplication::activeModalWidget() ? QApplication::activeModalWidget() : parent.data();
    if (!window) window = new HelpWindow(owner);
    if (window->parentWidget() != owner) window->setParent(owner, window->windowFlags());
    window->ShowTopic(topic);
    // When that dialog closes, the manual stays open, over the window again.
    if (auto* dialog = qobject_cast<QDialog*>(owner); dialog && owner != parent.data()) {
      QObject::connect(dialog, &QDialog::finished, window, [parent, shown = window] {
        if (!shown || !parent) return;
        const bool open = !shown->isHidden();
        shown->setParent(parent, shown->windowFlags());
        if (open) shown->show();
      }, Qt::SingleShotConnection);
    }
  });
}

}  // namespace widgets
