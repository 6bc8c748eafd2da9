#pragma once
// The one fixture of the main-window tests: an 800 x 600 window on the offscreen platform
// with its settings file in a fresh folder, the file dialogs answered by `fileAnswer_`
// (every request recorded) and the parameter dialog by `parameters_` (Cancel when unset).
#include "app/frmMain.h"
#include "edit/frmDiseno.h"
#include "support/DialogAnswerer.h"
#include "support/TestFiles.h"

#include <QAction>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <vector>

namespace testing_support {

class MainWindowTest : public ::testing::Test {
 protected:
  void Start(const QString& commandLine, bool alwaysFit = true);
  QAction* Command(const char* name) const;
  void Trigger(const char* name) const { Command(name)->trigger(); }
  document::Document& Doc() const { return window_->CurrentDocument(); }
  const imaging::Image& Shown() const { return *Doc().CurrentImage(); }
  bool NothingToUndo() const { return !Doc().UndoHistory().CanUndo(); }
  QString Pane(const char* name) const;
  QWidget* Canvas() const { return Child<QWidget>("imaImagen"); }
  template <typename T>
  T* Child(const char* name) const {
    return window_->findChild<T*>(QLatin1String(name));
  }
  QString SettingsPath() const { return config_.File(QStringLiteral("Ini.in")); }

  TempFolder config_;
  TempFolder pictures_;
  std::unique_ptr<app::frmMain> window_;
  std::vector<widgets::FileDialogRequest> requests_;
  widgets::FileDialogAnswer fileAnswer_;
  std::function<bool(edit::frmDiseno&)> parameters_;
  std::function<void(files::frmSaveOptions&)> saveOptions_;  // sets the Save Options dialog's values
  int dialogsShown_ = 0;
};

}  // namespace testing_support
