// Editing on the document with real images: packed undo states, the selection rule of
// size-changing steps, the change level and the save question.
#include "document/Document.h"
#include "imaging/Loader.h"
#include "imaging/Palette.h"
#include "imaging/Operations.h"
#include "support/FakePrompts.h"
#include "support/ImageCompare.h"
#include "support/TestFiles.h"

#include <QFile>
#include <QFileInfo>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace {

using document::Document;
using document::SaveChangesAnswer;
using testing_support::MeanAbsoluteDifference;

class DocumentEditingTest : public ::testing::Test {
 protected:
  DocumentEditingTest()
      : document_(state_, list_, prompts_, [this](const QString& path) { return files::LoadImageFile(path, state_.Metrics); }) {
    state_.LoadDefaultSettings();
    document_.OpenAtStartup(folder_.WritePng(QStringLiteral("photo.png"), 40, 30));
  }
  const imaging::Image& Shown() const { return *document_.CurrentImage(); }
  void Edit(const char* name) { document_.ApplyEdit(imaging::ops::Brightness(Shown(), 5), QLatin1String(name)); }
  QString UndoCaption() const { return document_.UndoHistory().UndoCaption(); }

  testing_support::TempFolder folder_;
  document::AppState state_;
  browse::FileListModel list_;
  testing_support::FakePrompts prompts_;
  Document document_;
};

TEST_F(DocumentEditingTest, UndoingASizeChangeRestoresTheSizeAndRemovesTheSelectionFirst) {
  QSignalSpy edited(&document_, &Document::ImageEdited);
  document_.ApplyEdit(imaging::Image::FromQImage(Shown().ToQImage().copy(5, 5, 10, 8)), QStringLiteral("Crop"));
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
    int changeLevelAfter;
    int questions;
  };
  const Case cases[] = {
      {"unchanged: not asked", false, SaveChangesAnswer::Cancel, true, true, 0, 0},
      {"No drops the changes", true, SaveChangesAnswer::No, true, true, 0, 1},
      {"Cancel stops", true, SaveChangesAnswer::Cancel, true, false, 1, 1},
      {"Yes saves", true, SaveChangesAnswer::Yes, true, true, 0, 1},
      {"Yes with a failed save keeps everything", true, SaveChangesAnswer::Yes, false, false, 1, 1},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    document_.OpenFile(folder_.File(QStringLiteral("photo.png")));
    if (c.changed) Edit("Brightness");
    prompts_.questions.clear();
    prompts_.answer = c.answer;
    prompts_.saveSucceeds = c.saveSucceeds;
    EXPECT_EQ(document_.ConfirmSaveChanges(), c.goesOn);
    EXPECT_EQ(document_.ChangeLevel(), c.changeLevelAfter);
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
