#include "support/MainWindowTest.h"

#include "settings/SettingsFile.h"

#include <QLabel>

namespace testing_support {

void MainWindowTest::Start(const QString& commandLine, bool alwaysFit) {
  settings::SettingsStore stored = settings::DefaultSettings({});
  stored.FitToWindow = alwaysFit;
  settings::WriteSettingsFile(SettingsPath(), settings::WriteSettingsText(stored, {}, {0, 0, 800, 600, false}));
  window_ = std::make_unique<app::frmMain>(SettingsPath());
  window_->SetFileChooser([this](QWidget*, const widgets::FileDialogRequest& request) {
    requests_.push_back(request);
    return fileAnswer_;
  });
  window_->SetParameterDialogRunner([this](edit::frmDiseno& dialog) {
    ++dialogsShown_;
    return parameters_ ? parameters_(dialog) : false;
  });
  window_->SetSaveOptionsAsker([this](QWidget*, const QString& extension, settings::SettingsStore& settings) {
    if (!files::HasSaveOptions(extension)) return true;
    files::frmSaveOptions dialog(extension, settings);
    if (saveOptions_) saveOptions_(dialog);
    dialog.Store(settings);
    return true;
  });
  window_->RunStartup(commandLine);
}

QAction* MainWindowTest::Command(const char* name) const {
  QAction* action = window_->findChild<QAction*>(QLatin1String(name));
  EXPECT_NE(action, nullptr) << name;
  return action;
}

QString MainWindowTest::Pane(const char* name) const { return Child<QLabel>(name)->text(); }

}  // namespace testing_support
