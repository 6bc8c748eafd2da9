// The program's entry: builds frmMain, the start-up object, and hands it the command line.
#include "document/CommandLine.h"
#include "settings/SettingsFile.h"
#include "app/frmMain.h"
#include "base/FileNames.h"
#include "imaging/Loader.h"
#include "widgets/Translations.h"

#include <QApplication>

int main(int argc, char* argv[]) {
  QApplication application(argc, argv);  // removes Qt's own options from argv
  QApplication::setApplicationName(QStringLiteral("Vistrel"));
  widgets::InstallTranslations();
  imaging::Initialize();
  QStringList arguments;
  for (int i = 1; i < argc; ++i) arguments << base::DecodeFileName(argv[i]);
  app::frmMain window(settings::ProgramSettingsPath());
  window.RunStartup(document::JoinArguments(arguments));
  return QApplication::exec();
}
