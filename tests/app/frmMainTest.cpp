// The main window on the offscreen platform: start-up, placement, shut-down and its menus.
#include "settings/SettingsFile.h"
#include "app/frmMain.h"
#include "settings/SettingsSchema.h"
#include "support/MainWindowTest.h"
#include "browse/FolderChoice.h"
#include "edit/DialogDescriptions.h"
#include "edit/frmDiseno.h"
#include "widgets/Translations.h"

#include <QAction>
#include <QGuiApplication>
#include <QScopeGuard>
#include <QMenu>
#include <QMenuBar>
#include <QTranslator>
#include <QTreeView>
#include <QtTest/QTest>

#include <gtest/gtest.h>

namespace {

using testing_support::CrLfLines;
using testing_support::ReadAll;

// Windows of its own rather than the fixture's, which starts from a written settings file.
class frmMainTest : public testing_support::MainWindowTest {
 protected:
  QTreeView* List(app::frmMain& window) { return window.findChild<QTreeView*>(QStringLiteral("lisLista")); }
};

TEST_F(frmMainTest, WithoutASettingsFileStartsMaximizedWithNothingToEdit) {
  app::frmMain window(SettingsPath());
  window.RunStartup(QString());
  for (const char* name : {"mnuColorsBrightness", "mnuFileSave", "mnuEditUndo", "mnuViewZoomIn", "mnuFileCopyTo"}) {
    EXPECT_FALSE(window.findChild<QAction*>(QLatin1String(name))->isEnabled()) << name;
  }
  EXPECT_TRUE(window.findChild<QAction*>(QStringLiteral("mnuFileOpenFolder"))->isEnabled());
  EXPECT_TRUE(window.isVisible() && window.isMaximized());
  EXPECT_EQ(window.CurrentDocument().View(), document::ViewMode::Image);
  EXPECT_FALSE(window.State().StartingUp || List(window)->isVisible());
}

TEST_F(frmMainTest, AFolderOnTheCommandLineIsListedWithTheFirstEntryOpen) {
  pictures_.WritePng(QStringLiteral("b.png"));
  pictures_.WritePng(QStringLiteral("A.png"));
  pictures_.Touch(QStringLiteral("notes.txt"));
  pictures_.WritePngNamedByBytes("caf\xE9.png");  // Latin-1, from an old disk
  app::frmMain window(SettingsPath());
  window.RunStartup(pictures_.Path());
  QTreeView* list = List(window);
  EXPECT_TRUE(list->isVisible());
  ASSERT_EQ(list->model()->rowCount(), 3);
  EXPECT_EQ(list->model()->index(0, 0).data().toString(), QStringLiteral("A.png"));
  EXPECT_EQ(list->currentIndex().row(), 0);
  EXPECT_TRUE(window.CurrentDocument().ImageLoaded());
  window.CurrentDocument().StepTo(2);
  EXPECT_EQ(list->model()->index(2, 0).data().toString(), QStringLiteral("caf\u00e9.png"));
  EXPECT_TRUE(window.CurrentDocument().ImageLoaded());
  EXPECT_EQ(window.windowTitle(), QStringLiteral("caf\u00e9.png - Vistrel"));
}

TEST_F(frmMainTest, WritingWhileMaximizedStoresTheRestoredRectangle) {
  app::frmMain window(SettingsPath());
  window.RunStartup(QString());
  window.showNormal();
  window.setGeometry(40, 50, 700, 500);
  window.showMaximized();
  QTest::qWait(20);
  ASSERT_TRUE(window.isMaximized());
  window.close();
  const QStringList lines = CrLfLines(ReadAll(SettingsPath()));
  ASSERT_EQ(lines.size(), qsizetype(settings::SettingsLines().size()));
  EXPECT_EQ(lines.mid(settings::LineIndex(QStringLiteral("WindowLeft")), 5), QStringList({"40", "50", "700", "500", "1"}));
}

// A normal window opens at its stored rectangle, or comes back onto a screen when that
// rectangle lies off every one.
TEST_F(frmMainTest, ANormalWindowIsPlacedAtTheStoredRectangleOnAScreen) {
  const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
  for (const QRect stored : {QRect(30, 40, 640, 480), QRect(9000, -4000, 640, 480)}) {
    const settings::SettingsStore defaults = settings::DefaultSettings({});
    const settings::WindowPlacement placement{stored.x(), stored.y(), stored.width(), stored.height(), false};
    ASSERT_TRUE(settings::WriteSettingsFile(SettingsPath(), settings::WriteSettingsText(defaults, {}, placement)));
    app::frmMain window(SettingsPath());
    window.RunStartup(QString());
    EXPECT_FALSE(window.isMaximized());
    EXPECT_TRUE(screen.contains(window.geometry())) << window.geometry().x() << "," << window.geometry().y();
    EXPECT_EQ(window.geometry().size(), QSize(640, 480).boundedTo(screen.size()));
    EXPECT_TRUE(!screen.contains(stored) || window.geometry() == stored);
  }
}

// Back to the English source texts.
void RemoveTranslators() {
  for (QTranslator* translator : QCoreApplication::instance()->findChildren<QTranslator*>()) {
    QCoreApplication::removeTranslator(translator);
    delete translator;
  }
}

// In English and in every translation, each menu gives every command its own access key,
// so that a key press always runs it.
TEST_F(frmMainTest, AccessKeysAreUniqueWithinEachMenuInEveryLanguage) {
  const QStringList languages = QStringList{QStringLiteral("en")} + widgets::TranslatedLanguages();
  ASSERT_TRUE(languages.contains(QStringLiteral("de")));
  for (const QString& language : languages) {
    const auto restore = qScopeGuard(RemoveTranslators);
    ASSERT_EQ(widgets::InstallTranslations(QLocale(language)), language == QLatin1String("en") ? QString() : language);
    app::frmMain window(SettingsPath());
    std::vector<QList<QAction*>> menus = {window.menuBar()->actions()};
    for (const QMenu* menu : window.findChildren<QMenu*>()) menus.push_back(menu->actions());
    for (const QList<QAction*>& actions : menus) {
      QSet<QChar> keys;
      for (const QAction* action : actions) {
        const QString text = action->text();
        const qsizetype amp = text.indexOf(u'&');
        if (action->isSeparator() || amp < 0 || amp + 1 >= text.size()) continue;
        const QChar key = text[amp + 1].toLower();
        EXPECT_FALSE(keys.contains(key)) << language.toStdString() << ": " << text.toStdString();
        keys.insert(key);
      }
    }
  }
}

// A German desktop reads the menus, the catalogue's commands, their dialogs and the
// messages of the floors below in German.
TEST_F(frmMainTest, AGermanDesktopReadsGermanTextsFromEveryFloor) {
  const auto restore = qScopeGuard(RemoveTranslators);
  ASSERT_EQ(widgets::InstallTranslations(QLocale(QStringLiteral("de_DE"))), QStringLiteral("de"));
  app::frmMain window(SettingsPath());
  EXPECT_EQ(window.findChild<QMenu*>(QStringLiteral("mnuFile"))->title(), QStringLiteral("&Datei"));
  EXPECT_EQ(window.findChild<QMenu*>(QStringLiteral("mnuViewSortBy"))->title(), QStringLiteral("&Sortieren nach"));
  EXPECT_EQ(window.findChild<QAction*>(QStringLiteral("mnuColorsBrightness"))->text(), QStringLiteral("&Helligkeit..."));
  const edit::frmDiseno dialog(edit::DialogDescriptionFor(edit::OperationId::Rotate), {}, std::nullopt, {});
  EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Drehen"));
  EXPECT_EQ(browse::FolderProblemMessage(browse::FolderProblem::NotFound), QStringLiteral("Ordner nicht gefunden"));
}

}  // namespace
