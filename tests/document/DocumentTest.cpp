// The document on real files: what opens at start-up, a click on an entry, stepping,
// renaming, and the signals the window follows.
#include "document/Document.h"
#include "imaging/Operations.h"
#include "support/FakePrompts.h"
#include "support/ImageCompare.h"
#include "support/TestFiles.h"

#include <QFile>
#include <QKeyEvent>
#include <QThread>
#include <QTimer>
#include <QWidget>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace {

using document::Document;
using document::ViewMode;
using settings::kOpenFile;
using settings::kOpenFolder;
using settings::kOpenNothing;

class DocumentTest : public ::testing::Test {
 protected:
  DocumentTest()
      : document_(state_, list_, prompts_, [this](const QString& path) {
          loaded_ << path;
          return files::LoadImageFile(path, state_.Metrics);
        }) {
    state_.LoadDefaultSettings();
  }
  void OpenFolderOf(std::initializer_list<const char*> names) {
    for (const char* name : names) folder_.WritePng(QLatin1String(name));
    document_.OpenAtStartup(folder_.Path());
  }

  document::AppState state_;
  browse::FileListModel list_;
  testing_support::FakePrompts prompts_;
  QStringList loaded_;
  Document document_;
  testing_support::TempFolder folder_;
};

TEST_F(DocumentTest, AQuotedFolderOpensInListAndImageWithItsFirstEntryByItsRealName) {
  folder_.WritePng(QStringLiteral("b.png"));
  folder_.WritePng(QStringLiteral("A.PNG"));
  QSignalSpy selected(&document_, &Document::ListRowSelected);
  document_.OpenAtStartup(u'"' + folder_.Path() + QStringLiteral("/\""));
  EXPECT_EQ(state_.Settings.LastOpenKind, kOpenFolder);
  EXPECT_EQ(state_.Settings.LastFolder, folder_.Path());
  EXPECT_EQ(state_.Settings.RecentFolders[0], folder_.Path());
  EXPECT_EQ(document_.View(), ViewMode::ListAndImage);
  EXPECT_EQ(list_.Entry(0).DisplayName, QStringLiteral("A.png"));
  EXPECT_EQ(loaded_, QStringList{folder_.File(QStringLiteral("A.PNG"))});
  EXPECT_EQ(selected.last().at(0).toInt(), 0);
  EXPECT_TRUE(document_.ImageLoaded());
}

TEST_F(DocumentTest, AFileOpensAloneWithItsSizeInTwips) {
  const QString file = folder_.WritePng(QStringLiteral("my photo.png"), 5, 4);
  document_.OpenAtStartup(file);
  EXPECT_EQ(state_.Settings.LastOpenKind, kOpenFile);
  EXPECT_EQ(document_.View(), ViewMode::Image);
  EXPECT_EQ(document_.Natural(), (base::NaturalSize{75, 60}));  // 15 twips a pixel
  EXPECT_TRUE(prompts_.messages.isEmpty());
}

// What is left open after start-up, from the command line or the start option.
TEST_F(DocumentTest, StartUpCases) {
  const QString png = folder_.WritePng(QStringLiteral("a.png"));
  const QString broken = folder_.WriteBytes(QStringLiteral("broken.png"), "not a png");
  struct Case {
    const char* what;
    QString commandLine;
    int startOption;
    int lastKind;
    QString last;
    int expectedKind;
    bool expectedImage;
    QStringList expectedMessages;
    document::StartupEnd expectedEnd = document::StartupEnd::Normal;
  };
  const QString gone = folder_.File(QStringLiteral("gone"));
  const Case cases[] = {
      {"broken file", broken, 0, kOpenNothing, {}, kOpenNothing, false, {"Can't open file"}},
      {"the root is a folder", QStringLiteral("/"), 0, kOpenNothing, {}, kOpenFolder, false, {}},
      {"option 0 forgets", {}, 0, kOpenFolder, folder_.Path(), kOpenNothing, false, {}},
      {"option 1 reopens the folder", {}, 1, kOpenFolder, folder_.Path(), kOpenFolder, true, {}},
      {"option 1 reopens the file", {}, 1, kOpenFile, png, kOpenFile, true, {}},
      {"option 1, folder gone, is silent", {}, 1, kOpenFolder, gone, kOpenNothing, false, {}},
      {"option 1, file gone, is silent", {}, 1, kOpenFile, gone, kOpenNothing, false, {}},
      {"option 2 asks for a folder", QStringLiteral("   "), 2, kOpenFolder, folder_.Path(), kOpenNothing, false, {},
       document::StartupEnd::OpenFolderDialogWanted},
      {"a command line beats option 2", folder_.Path(), 2, kOpenNothing, {}, kOpenFolder, true, {}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    state_.LoadDefaultSettings();
    prompts_.messages.clear();
    prompts_.details.clear();
    Document fresh(state_, list_, prompts_, [this](const QString& path) { return files::LoadImageFile(path, state_.Metrics); });
    state_.Settings.StartOption = c.startOption;
    state_.Settings.LastOpenKind = c.lastKind;
    (c.lastKind == kOpenFile ? state_.Settings.LastFile : state_.Settings.LastFolder) = c.last;
    EXPECT_EQ(fresh.OpenAtStartup(c.commandLine), c.expectedEnd);
    EXPECT_EQ(state_.Settings.LastOpenKind, c.expectedKind);
    EXPECT_EQ(prompts_.messages, c.expectedMessages);
    if (!c.expectedMessages.isEmpty()) {
      EXPECT_EQ(prompts_.details.last(), QStringLiteral("not an image this program reads"));
    }
    EXPECT_EQ(fresh.ImageLoaded(), c.expectedImage);
    // Only a folder from the command line joins the recent folders.
    EXPECT_EQ(state_.Settings.RecentFolders[0].isEmpty(), c.commandLine.trimmed().isEmpty() || c.expectedKind != kOpenFolder);
  }
}

TEST_F(DocumentTest, UndoReturnsAnEntryOpenedFromTheListToItsLoadedPixels) {
  OpenFolderOf({"a.png", "b.png"});
  document_.ClickEntry(1);
  const imaging::Image loaded = *document_.CurrentImage();
  for (int i = 0; i < 2; ++i) document_.ApplyEdit(imaging::ops::Negative(*document_.CurrentImage()), QStringLiteral("Negative"));
  document_.Undo();
  document_.Undo();
  EXPECT_EQ(testing_support::MeanAbsoluteDifference(*document_.CurrentImage(), loaded), 0);
  EXPECT_FALSE(document_.UndoHistory().CanUndo());
  EXPECT_EQ(document_.ChangeLevel(), 2);  // undoing is a change too
}

TEST_F(DocumentTest, AClickOnTheEntryShownDoesNotReloadIt) {
  OpenFolderOf({"a.png", "b.png"});
  document_.ClickEntry(0);
  EXPECT_EQ(loaded_.size(), 1);
  document_.ClickEntry(1);
  EXPECT_EQ(loaded_.size(), 2);
  EXPECT_EQ(document_.ShownRow(), 1);
}

TEST_F(DocumentTest, CancellingTheSaveQuestionKeepsTheEntryAndItsChanges) {
  OpenFolderOf({"a.png", "b.png"});
  document_.ApplyEdit(*document_.CurrentImage(), QStringLiteral("Negative"));
  prompts_.answer = document::SaveChangesAnswer::Cancel;
  QSignalSpy selected(&document_, &Document::ListRowSelected);
  document_.ClickEntry(1);
  EXPECT_EQ(prompts_.questions, QStringList{"'a.png' has changed. Do you want to save changes?"});
  EXPECT_EQ(loaded_.size(), 1);
  EXPECT_EQ(document_.ShownRow(), 0);
  EXPECT_EQ(selected.last().at(0).toInt(), 0);
  EXPECT_EQ(document_.ChangeLevel(), 1);
}

TEST_F(DocumentTest, SteppingAnnouncesTheNeighboursNearestInTheDirectionOfTravelFirst) {
  QSignalSpy announced(&document_, &Document::NeighboursAnnounced);
  OpenFolderOf({"a.png", "b.png", "c.png", "d.png"});
  const auto last = [&] { return announced.last().at(0).toStringList(); };
  EXPECT_EQ(last(), QStringList{folder_.File(QStringLiteral("b.png"))});
  document_.Step(1);
  document_.Step(1);
  EXPECT_EQ(last(), (QStringList{folder_.File(QStringLiteral("d.png")), folder_.File(QStringLiteral("b.png"))}));
  document_.Step(-1);
  EXPECT_EQ(last(), (QStringList{folder_.File(QStringLiteral("a.png")), folder_.File(QStringLiteral("c.png"))}));
  document_.StepTo(9);
  EXPECT_EQ(document_.ShownRow(), 1);  // nothing beyond the end
}

TEST_F(DocumentTest, AnEntryThatFailsToOpenSaysSoAndAnnouncesNothing) {
  folder_.WriteBytes(QStringLiteral("a.png"), "broken");
  QSignalSpy announced(&document_, &Document::NeighboursAnnounced);
  QSignalSpy status(&document_, &Document::StatusChanged);
  OpenFolderOf({"b.png"});
  EXPECT_EQ(status.last().at(0).toString(), QStringLiteral("a.png: Can't open file"));
  EXPECT_EQ(announced.count(), 0);
  EXPECT_FALSE(document_.ImageLoaded());
  EXPECT_TRUE(document_.CurrentFilePath().isEmpty());
}

// A folder that takes long to read (a slow network share) keeps the window alive, and Esc
// stops the scan.
TEST_F(DocumentTest, EscStopsASlowFolderScan) {
  document_.SetScanner([](const QString&, bool, const std::atomic_bool* cancel) {
    for (int i = 0; i < 1000 && !cancel->load(); ++i) QThread::msleep(5);
    return std::vector<browse::FileEntry>{{QStringLiteral("a.png"), QStringLiteral("a.png")}};
  });
  QWidget window;
  int painted = 0;
  QTimer ticking;  // what the window's own timers and repaints need keeps running
  QObject::connect(&ticking, &QTimer::timeout, [&] { ++painted; });
  ticking.start(10);
  QTimer::singleShot(100, [&] {
    QCoreApplication::postEvent(&window, new QKeyEvent(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier));
  });
  QSignalSpy status(&document_, &Document::StatusChanged);
  document_.OpenAtStartup(folder_.Path());
  EXPECT_GT(painted, 3);
  EXPECT_EQ(list_.Count(), 0);
  EXPECT_EQ(status.last().at(0).toString(), QStringLiteral("Folder scan cancelled"));
}

TEST_F(DocumentTest, RenamingGuardsTheUsersFiles) {
  OpenFolderOf({"a.png", "b.png"});
  EXPECT_FALSE(document_.RenameEntry(0, QStringLiteral("a?.png")));
  EXPECT_EQ(prompts_.messages,
            QStringList{"The file name can't include any of the following characters: \\ / : ? \" < > |"});
  EXPECT_FALSE(document_.RenameEntry(0, QStringLiteral("b.png")));  // never replaces another file
  EXPECT_TRUE(QFile::exists(folder_.File(QStringLiteral("a.png"))));
  EXPECT_EQ(list_.Count(), 2);

  EXPECT_TRUE(document_.RenameEntry(0, QStringLiteral("  c.png ")));
  EXPECT_FALSE(QFile::exists(folder_.File(QStringLiteral("a.png"))));
  EXPECT_EQ(list_.Entry(1).FileName, QStringLiteral("c.png"));
  EXPECT_EQ(document_.ShownRow(), 1);
  EXPECT_EQ(document_.CurrentFilePath(), folder_.File(QStringLiteral("c.png")));
}

}  // namespace
