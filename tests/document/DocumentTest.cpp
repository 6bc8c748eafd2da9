// The document on real files: what opens at start-up, a click on an entry, stepping,
// renaming and the signals the window follows; and editing: packed undo states, the
// selection rule of size-changing steps, the change level and the save question.
#include "document/Document.h"
#include "imaging/Loader.h"
#include "imaging/Operations.h"
#include "imaging/Palette.h"
#include "imaging/Saver.h"
#include "support/FakePrompts.h"
#include "support/ImageCompare.h"
#include "support/RawFiles.h"
#include "support/TestFiles.h"

#include <QFile>
#include <QFileInfo>
#include <QThread>
#include <QTimer>
#include <QSignalSpy>
#include <QtTest/QTest>

#include <functional>

#include <gtest/gtest.h>

namespace {

using document::Document;
using document::SaveChangesAnswer;
using document::ViewMode;
using settings::kOpenFile;
using settings::kOpenFolder;
using settings::kOpenNothing;
using testing_support::MeanAbsoluteDifference;

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

// A file opened on its own shows alone in the Image view, with its folder behind it: the
// steps go through its neighbours and the file open follows them. A file the scan leaves
// out stays alone.
TEST_F(DocumentTest, AFileOpensInTheImageViewWithItsFolderToStepThrough) {
  for (const char* name : {"a.png", "c.png"}) folder_.WritePng(QLatin1String(name));
  const QString file = folder_.WritePng(QStringLiteral("b.png"), 5, 4);
  document_.OpenAtStartup(file);
  EXPECT_EQ(std::tuple(document_.Open().Kind, document_.View()), std::tuple(kOpenFile, ViewMode::Image));
  EXPECT_EQ(document_.Natural(), (base::NaturalSize{75, 60}));  // 15 twips a pixel
  EXPECT_EQ(std::tuple(list_.Count(), document_.ShownRow()), std::tuple(3, 1));
  for (const auto& [delta, expected] : {std::pair(1, "c.png"), std::pair(1, "c.png"), std::pair(-1, "b.png"),
                                        std::pair(-1, "a.png")}) {
    document_.Step(delta);
    EXPECT_EQ(document_.Open().File, folder_.File(QLatin1String(expected))) << delta;
    EXPECT_EQ(document_.CurrentFilePath(), document_.Open().File);
  }
  EXPECT_EQ(document_.Open().Kind, kOpenFile);
  EXPECT_TRUE(prompts_.messages.isEmpty());

  const QString alone = folder_.WritePng(QStringLiteral("alone.notanimage"));
  ASSERT_TRUE(document_.OpenFile(alone));
  document_.Step(1);
  EXPECT_EQ(std::tuple(document_.ShownRow(), document_.Open().File), std::tuple(-1, alone));
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
    EXPECT_EQ(fresh.Open().Kind, c.expectedKind);
    EXPECT_EQ(prompts_.messages, c.expectedMessages);
    if (!c.expectedMessages.isEmpty()) {
      EXPECT_EQ(prompts_.details.last(), QStringLiteral("not an image this program reads"));
    }
    EXPECT_EQ(fresh.ImageLoaded(), c.expectedImage);
    // Only a folder from the command line joins the recent folders.
    EXPECT_EQ(state_.Settings.RecentFolders[0].isEmpty(), c.commandLine.trimmed().isEmpty() || c.expectedKind != kOpenFolder);
  }
}

TEST_F(DocumentTest, SteppingAnnouncesTheNearestNeighboursFirstAndAClickOnTheShownEntryReloadsNothing) {
  QSignalSpy announced(&document_, &Document::NeighboursAnnounced);
  OpenFolderOf({"a.png", "b.png", "c.png", "d.png"});
  const auto last = [&] { return announced.last().at(0).toStringList(); };
  EXPECT_EQ(last(), QStringList{folder_.File(QStringLiteral("b.png"))});
  document_.ClickEntry(0);  // a click on the entry shown does not reload it
  EXPECT_EQ(loaded_.size(), 1);
  document_.Step(1);
  document_.Step(1);
  EXPECT_EQ(last(), (QStringList{folder_.File(QStringLiteral("d.png")), folder_.File(QStringLiteral("b.png"))}));
  document_.Step(-1);
  EXPECT_EQ(last(), (QStringList{folder_.File(QStringLiteral("a.png")), folder_.File(QStringLiteral("c.png"))}));
  document_.StepTo(9);
  EXPECT_EQ(document_.ShownRow(), 1);  // nothing beyond the end
}

// What another program does to the open folder shows within a second, the entry shown
// kept; the file shown, changed on disk, is read again, and with edits only when asked to.
TEST_F(DocumentTest, TheListAndTheImageFollowWhatOtherProgramsDo) {
  OpenFolderOf({"a.png", "b.png"});
  document_.StepTo(1);
  const auto listed = [this] {
    QStringList names;
    for (int row = 0; row < list_.Count(); ++row) names << list_.Entry(row).FileName;
    return names;
  };
  const auto within = [](const std::function<bool()>& done) { return QTest::qWaitFor(done, 1000); };
  folder_.WritePng(QStringLiteral("c.png"));
  EXPECT_TRUE(within([&] { return listed() == QStringList({"a.png", "b.png", "c.png"}); }));
  QFile::rename(folder_.File(QStringLiteral("a.png")), folder_.File(QStringLiteral("z.png")));
  QFile::remove(folder_.File(QStringLiteral("c.png")));
  EXPECT_TRUE(within([&] { return listed() == QStringList({"b.png", "z.png"}); }));
  EXPECT_EQ(std::pair(document_.ShownRow(), document_.CurrentFilePath()), std::pair(0, folder_.File(QStringLiteral("b.png"))));
  folder_.WritePng(QStringLiteral("b.png"), 5, 4);
  EXPECT_TRUE(within([&] { return document_.CurrentImage() && document_.CurrentImage()->Width() == 5; }));
  document_.ApplyEdit(imaging::ops::Negative(*document_.CurrentImage()), QStringLiteral("Negative"));
  folder_.WritePng(QStringLiteral("b.png"), 7, 4);
  EXPECT_TRUE(within([&] { return prompts_.reloads.size() == 1; }));
  EXPECT_EQ(std::pair(document_.CurrentImage()->Width(), document_.IsChanged()), std::pair(5, true));
  prompts_.reloadAnswer = true;
  folder_.WritePng(QStringLiteral("b.png"), 9, 4);
  EXPECT_TRUE(within([&] { return document_.CurrentImage()->Width() == 9 && !document_.IsChanged(); }));
}

// It stays the current entry, so stepping goes on from it and its neighbour is read ahead.
TEST_F(DocumentTest, AnEntryThatFailsToOpenSaysSoAndStaysCurrent) {
  folder_.WriteBytes(QStringLiteral("a.png"), "broken");
  QSignalSpy announced(&document_, &Document::NeighboursAnnounced);
  QSignalSpy status(&document_, &Document::StatusChanged);
  OpenFolderOf({"b.png"});
  EXPECT_EQ(status.last().at(0).toString(), QStringLiteral("a.png: Can't open file"));
  ASSERT_EQ(announced.count(), 1);
  EXPECT_EQ(announced.last().at(0).toStringList(), QStringList{folder_.File(QStringLiteral("b.png"))});
  EXPECT_FALSE(document_.ImageLoaded());
  EXPECT_EQ(document_.CurrentFilePath(), folder_.File(QStringLiteral("a.png")));
}

// A read that takes a while shows the quick pictures as they come and keeps the window
// alive; one that comes after the image is dropped, and a read of an image the loader has
// at hand goes straight to the image.
TEST_F(DocumentTest, ASlowReadShowsItsQuickPicturesFirst) {
  const QString file = folder_.WritePng(QStringLiteral("big.png"), 40, 30);
  const std::pair<int, QStringList> cases[] = {{400, {"quick 2 of 600", "quick 4 of 600", "image 40"}},
                                               {150, {"quick 2 of 600", "image 40"}},
                                               {0, {"image 40"}}};
  for (const auto& [readMs, expected] : cases) {
    Document document(state_, list_, prompts_, [readMs = readMs, this](const QString& path) {
      QThread::msleep(static_cast<unsigned long>(readMs));
      return files::LoadImageFile(path, state_.Metrics);
    });
    document.SetReadyCheck([readMs = readMs](const QString&) { return readMs == 0; });
    document.SetQuickPictureLoader([](const QString&, QSize, const base::ScreenMetrics&, const files::QuickPictureSink& deliver) {
      const auto red = [](int width, int height) { return testing_support::Painted(width, height, [](int, int) { return QColor(Qt::red); }); };
      deliver({red(2, 1), {600, 450}});
      QThread::msleep(300);
      deliver({red(4, 3), {600, 450}});
    });
    QStringList shown;
    QObject::connect(&document, &Document::StandInShown, [&](const imaging::Image& picture, base::NaturalSize natural) {
      shown << QStringLiteral("quick %1 of %2").arg(picture.Width()).arg(natural.WidthTwips);
    });
    QObject::connect(&document, &Document::ImageShown, [&](const imaging::Image* image) {
      if (image) shown << QStringLiteral("image %1").arg(image->Width());
    });
    int ticks = 0;
    QTimer ticking;
    QObject::connect(&ticking, &QTimer::timeout, [&] { ++ticks; });
    ticking.start(10);
    document.OpenAtStartup(file);
    EXPECT_EQ(ticks > 5, readMs > 0) << readMs;
    QTest::qWait(350);  // what the quick loader still brings
    EXPECT_EQ(shown, expected) << readMs;
  }
}

// The same document with a 40 x 30 photo open, for editing.
class DocumentEditingTest : public DocumentTest {
 protected:
  DocumentEditingTest() { document_.OpenAtStartup(folder_.WritePng(QStringLiteral("photo.png"), 40, 30)); }
  const imaging::Image& Shown() const { return *document_.CurrentImage(); }
  void Edit(const char* name) { document_.ApplyEdit(imaging::ops::Brightness(Shown(), 5), QLatin1String(name)); }
  QString UndoCaption() const { return document_.UndoHistory().UndoCaption(); }
};

TEST_F(DocumentEditingTest, UndoingASizeChangeRestoresTheSizeAndRemovesTheSelectionFirst) {
  QSignalSpy edited(&document_, &Document::ImageEdited);
  document_.ApplyEdit(imaging::Image::FromQImage(Shown().ToQImage().copy(5, 5, 10, 8)), QStringLiteral("Crop"), true);
  document_.Undo();
  EXPECT_TRUE(edited.last().at(1).toBool());
  EXPECT_EQ(document_.Natural(), (base::NaturalSize{600, 450}));
  Edit("Brightness");
  document_.Undo();
  EXPECT_FALSE(edited.last().at(1).toBool());  // a step that keeps the size keeps the selection
  Edit("Brightness");
  document_.SetViewMode(document::ViewMode::Thumbnails);  // nothing is undone in the thumbnails view
  document_.Undo();
  EXPECT_EQ(UndoCaption(), QStringLiteral("&Undo Brightness"));
}

TEST_F(DocumentEditingTest, WithEveryUndoSlotHeldAnEditIsAppliedButNotRecorded) {
  for (int i = 0; i < 7; ++i) Edit("Brightness");  // the base and seven steps hold all eight slots
  document_.Undo();
  const imaging::Image before = Shown();
  document_.ApplyEdit(imaging::ops::Negative(Shown()), QStringLiteral("Negative"));
  EXPECT_GT(MeanAbsoluteDifference(Shown(), before), 0);
  EXPECT_EQ(UndoCaption(), QStringLiteral("&Undo Brightness"));
  EXPECT_EQ(document_.UndoHistory().Count(), 8);
}

// The save question: asked only for a changed image, and each answer's outcome.
TEST_F(DocumentEditingTest, SaveQuestionAnswers) {
  struct Case {
    const char* what;
    bool changed;
    SaveChangesAnswer answer;
    bool saveSucceeds;
    bool goesOn;
    bool changedAfter;
    int questions;
  };
  const Case cases[] = {
      {"unchanged: not asked", false, SaveChangesAnswer::Cancel, true, true, false, 0},
      {"No drops the changes", true, SaveChangesAnswer::No, true, true, false, 1},
      {"Cancel stops", true, SaveChangesAnswer::Cancel, true, false, true, 1},
      {"Yes saves", true, SaveChangesAnswer::Yes, true, true, false, 1},
      {"Yes with a failed save keeps everything", true, SaveChangesAnswer::Yes, false, false, true, 1},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    document_.OpenFile(folder_.File(QStringLiteral("photo.png")));
    if (c.changed) Edit("Brightness");
    prompts_.questions.clear();
    prompts_.answer = c.answer;
    prompts_.saveSucceeds = c.saveSucceeds;
    EXPECT_EQ(document_.ConfirmSaveChanges(), c.goesOn);
    EXPECT_EQ(document_.IsChanged(), c.changedAfter);
    EXPECT_EQ(prompts_.questions.size(), c.questions);
  }
}

// A file stored through a palette is saved through one again while its colours fit, with
// the same pixels; an edit that adds colours saves in 24 bits.
TEST_F(DocumentEditingTest, SavingKeepsAPaletteWhileTheColoursFit) {
  const struct {
    const char* source;
    const char* target;
    bool blur;
    int bits;
  } cases[] = {
      {"bmpsuite-good/pal1.bmp", "bmp", false, 1}, {"bmpsuite-good/pal4.bmp", "bmp", false, 4},
      {"bmpsuite-good/pal8.bmp", "bmp", false, 8}, {"bmpsuite-good/rgb24.bmp", "bmp", false, 0},
      {"formats/pil184.pcx", "pcx", false, 1},     {"formats/01r_00.pcx", "pcx", false, 8},
      {"formats/hopper.gif", "png", false, 8},     {"bmpsuite-good/pal1.bmp", "bmp", true, 0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.source) + " to " + c.target);
    const QString source = folder_.File(QStringLiteral("source.") + QFileInfo(QLatin1String(c.source)).suffix());
    QFile::remove(source);
    ASSERT_TRUE(QFile::copy(testing_support::CorpusPath(QLatin1String(c.source)), source));
    document_.OpenFile(source);
    if (c.blur) document_.ApplyEdit(imaging::ops::Blur(Shown()), QStringLiteral("Blur"));
    const imaging::Image before = Shown();
    const QString target = folder_.File(QStringLiteral("saved.") + QLatin1String(c.target));
    ASSERT_TRUE(document_.SaveImageTo(target));
    EXPECT_EQ(imaging::PaletteBitsOfFile(target), c.bits);
    EXPECT_EQ(MeanAbsoluteDifference(imaging::LoadFile(target).value(), before), 0);
  }
}

}  // namespace

// A camera RAW opens on its embedded preview (here its negative, to tell them apart); the
// whole image is developed in its place when asked, as the base of the history.
TEST_F(DocumentTest, ARawOpensOnItsPreviewAndDevelopsInItsPlace) {
  const QString scene = folder_.File(QStringLiteral("scene.png")), preview = folder_.File(QStringLiteral("preview.jpg"));
  imaging::SaveImage(imaging::ops::RotateQuarter(testing_support::Hopper(), 1).FitWithin(96, 96), scene);
  testing_support::Run(QStringLiteral("convert"), {scene, "-negate", preview});
  const QString dng = testing_support::MakeDng(folder_.File(QStringLiteral("photo.dng")), {scene, 1, preview});
  ASSERT_FALSE(dng.isEmpty());
  ASSERT_TRUE(document_.OpenFile(dng));
  const imaging::Image original = imaging::LoadFile(scene).value();
  EXPECT_TRUE(document_.ShowsPreview());
  EXPECT_LT(MeanAbsoluteDifference(*document_.CurrentImage(), imaging::ops::Negative(original)), 8);
  QSignalSpy shown(&document_, &Document::ImageShown);
  document_.DevelopPreview();
  EXPECT_FALSE(document_.ShowsPreview());
  EXPECT_EQ(shown.count(), 1);
  EXPECT_LT(MeanAbsoluteDifference(*document_.CurrentImage(), original), 30);  // the negative is about 100 away
  EXPECT_FALSE(document_.IsChanged());
  EXPECT_FALSE(document_.UndoHistory().CanUndo());
}
