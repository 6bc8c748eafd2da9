#pragma once
// The manual: HTML pages built into the program, one per menu plus the topics the dialogs
// ask for, shown in a window of its own with the contents and back and forward. Every F1
// reaches it through ShowHelpTopic.

#include <QDialog>
#include <QUrl>

class QTextBrowser;

namespace widgets {

// The page (and place in it) of a topic; the contents for an empty or unknown one.
QUrl HelpTopicUrl(const QString& topic);

class HelpWindow : public QDialog {
  Q_OBJECT

 public:
  explicit HelpWindow(QWidget* parent = nullptr);
  void ShowTopic(const QString& topic);
  QUrl Shown() const;

 private:
  QTextBrowser* browser_ = nullptr;
};

// Makes every help request open the one help window, created over `parent` when first needed.
void InstallHelpWindow(QWidget* parent);

}  // namespace widgets
