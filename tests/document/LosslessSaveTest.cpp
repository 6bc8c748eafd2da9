// Saving a JPEG that was only turned, flipped and cropped moves its compressed blocks: the
// file has jpegtran's pixels to the last bit; a crop off the block grid, sides that are not
// whole blocks or any other edit encode the picture again, and the status bar says why.
#include "document/Document.h"
#include "edit/Catalogue.h"
#include "imaging/Loader.h"
#include "support/FakePrompts.h"
#include "support/ImageCompare.h"
#include "support/RawFiles.h"
#include "support/TestFiles.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

namespace {

namespace support = testing_support;
using edit::OperationId;

struct Step {
  OperationId Id;
  edit::Arguments Values;
};

QString Exif(const QString& path) {
  return support::Run(QStringLiteral("exiftool"), {"-s3", "-Make", "-DateTimeOriginal", "-ProfileDescription", path}).Output;
}

class LosslessSave : public ::testing::Test {
 protected:
  LosslessSave() : document_(state_, list_, prompts_, [this](const QString& path) { return files::LoadImageFile(path, state_.Metrics); }) {
    state_.LoadDefaultSettings();
  }
  void Apply(const Step& step) {
    const edit::CatalogueCommand& command = edit::CommandFor(step.Id);
    document_.ApplyEdit(edit::Apply(command, *document_.CurrentImage(), step.Values), command.Undo(), command.ChangesGeometry(),
                        edit::BlockStepOf(command, step.Values));
  }
  QString Jpegtran(const QString& photo, const char* arguments) {
    const QString expected = folder_.File(QStringLiteral("expected.jpg"));
    const QString command = QStringLiteral("jpegtran -perfect -copy all %1 \"$1\" > \"$0\"").arg(QLatin1String(arguments));
    return support::Run(QStringLiteral("sh"), {"-c", command, expected, photo}).ExitCode == 0 ? expected : QString();
  }

  document::AppState state_;
  browse::FileListModel list_;
  support::FakePrompts prompts_;
  document::Document document_;
  support::TempFolder folder_;
};

TEST_F(LosslessSave, MovesBlocksWhereTheyCanFollowAndSaysWhyNotWhereTheyCannot) {
  const QString whole = support::MakeCameraJpeg(folder_.File(QStringLiteral("whole.jpg")), QStringLiteral("1024x768!"));
  const QString odd = support::MakeCameraJpeg(folder_.File(QStringLiteral("odd.jpg")), QStringLiteral("1001x751!"));
  ASSERT_FALSE(whole.isEmpty() || odd.isEmpty());
  const Step right{OperationId::RotateRight, {}}, left{OperationId::RotateLeft, {}}, brighter{OperationId::Brightness, {20}};
  const struct {
    const char* what;
    QString photo;
    std::vector<Step> edits;
    int undos;
    const char* jpegtran;  // "": the original's pixels; null: encoded again
    const char* note;
  } cases[] = {
      {"turned", whole, {right}, 0, "-rotate 90", ""},
      {"turned and back", whole, {right, left}, 0, "", ""},
      {"flipped both ways", whole, {{OperationId::FlipHorizontal, {}}, {OperationId::FlipVertical, {}}}, 0, "-rotate 180", ""},
      {"cropped on the grid, then turned", whole, {{OperationId::Crop, {16, 32, 512, 384}}, right}, 0, "-rotate 90 -crop 384x512+352+16", ""},
      {"cropped twice", whole, {{OperationId::Crop, {16, 16, 800, 600}}, {OperationId::Crop, {16, 16, 512, 384}}}, 0, "-crop 512x384+32+32", ""},
      {"an edit undone", whole, {right, brighter}, 1, "-rotate 90", ""},
      {"cropped off the grid", whole, {{OperationId::Crop, {8, 8, 512, 384}}}, 0, nullptr,
       "saved with recompression: the crop does not start on the 16-pixel block grid"},
      {"sides not whole blocks", odd, {right}, 0, nullptr, "saved with recompression: the image is not a multiple of 16 pixels"},
      {"another edit", whole, {brighter, right}, 0, nullptr, ""},
  };
  const QString saved = folder_.File(QStringLiteral("saved.jpg"));
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    ASSERT_TRUE(document_.OpenFile(c.photo));
    for (const Step& step : c.edits) Apply(step);
    for (int i = 0; i < c.undos; ++i) document_.Undo();
    QSignalSpy status(&document_, &document::Document::StatusChanged);
    ASSERT_TRUE(document_.SaveImageTo(saved));
    EXPECT_EQ(status.last().at(0).toString(), QLatin1String(c.note));
    const imaging::Image written = imaging::LoadFile(saved).value();
    EXPECT_EQ(support::SizeOf(written), support::SizeOf(*document_.CurrentImage()));
    if (c.jpegtran) {
      const QString expected = *c.jpegtran ? Jpegtran(c.photo, c.jpegtran) : c.photo;
      EXPECT_EQ(support::MeanAbsoluteDifference(written, imaging::LoadFile(expected).value()), 0.0);
    } else {
      EXPECT_LT(support::MeanAbsoluteDifference(written, *document_.CurrentImage()), 3);  // one more generation
    }
    EXPECT_EQ(Exif(saved), Exif(c.photo));
  }
}

}  // namespace
