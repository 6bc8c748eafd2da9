// vistrel-cli's streaming path gives exactly the pixels of the in-memory path for every
// operation it takes, on a photo larger than libvips' sequential read-ahead.
#include "edit/Catalogue.h"
#include "imaging/Loader.h"
#include "imaging/Saver.h"
#include "imaging/Streaming.h"
#include "support/ImageCompare.h"
#include "support/TestFiles.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace {

using testing_support::CorpusPath;

// One representative set of values per operation, inside every range.
edit::Arguments ValuesFor(const edit::CatalogueCommand& command) {
  edit::Arguments values;
  for (const edit::Parameter& p : command.Parameters) values.push_back(p.Maximum > 1e6 ? p.Minimum + 40 : (p.Minimum + p.Maximum * 2) / 3);
  return values;
}

TEST(Streaming, EveryOperationThatReadsInOrderGivesTheInMemoryPixels) {
  const QString photo = CorpusPath(QStringLiteral("exif-orientation/Landscape_1.jpg"));
  const imaging::Image inMemory = imaging::LoadFile(photo).value();
  testing_support::TempFolder folder;
  int streamed = 0;
  for (const edit::CatalogueCommand& command : edit::Catalogue()) {
    if (!command.ReadsSourceInOrder()) continue;
    const edit::Arguments values = ValuesFor(command);
    const QString out = folder.File(QLatin1String(command.Command) + QStringLiteral(".png"));
    {
      const imaging::StreamingScope scope;
      const auto source = imaging::OpenForStreaming(photo);
      ASSERT_TRUE(source.has_value());
      ASSERT_TRUE(imaging::SaveStreaming(edit::Apply(command, *source, values), out)) << command.Command;
    }
    const imaging::Image expected = edit::Apply(command, inMemory, values);
    EXPECT_EQ(testing_support::MeanAbsoluteDifference(imaging::LoadFile(out).value(), expected), 0) << command.Command;
    ++streamed;
  }
  EXPECT_EQ(streamed, 28);
}

TEST(Streaming, DeclinesWhatItCannotDoAndLeavesTheTargetAlone) {
  testing_support::TempFolder folder;
  EXPECT_FALSE(imaging::OpenForStreaming(CorpusPath(QStringLiteral("exif-orientation/Landscape_6.jpg"))));  // needs turning
  EXPECT_FALSE(imaging::OpenForStreaming(CorpusPath(QStringLiteral("formats/hopper.gif"))));  // comes in on white
  EXPECT_FALSE(imaging::OpenForStreaming(CorpusPath(QStringLiteral("formats/pil184.pcx"))));  // not libvips' own
  const QString target = folder.WriteBytes(QStringLiteral("keep.tga"), "old");
  const imaging::StreamingScope scope;
  const auto source = imaging::OpenForStreaming(CorpusPath(QStringLiteral("formats/hopper.png")));
  ASSERT_TRUE(source.has_value());
  EXPECT_FALSE(imaging::SaveStreaming(*source, target));  // TGA is written by the helper, not libvips
  EXPECT_EQ(testing_support::ReadAll(target), QByteArray("old"));
}

// A streamed save leaves nothing beside its file but the file, with the mode the umask
// gives.
TEST(Streaming, LeavesOnlyItsFileWithTheUsualMode) {
  testing_support::TempFolder folder;
  const QString target = folder.File(QStringLiteral("out.tif"));
  {
    const imaging::StreamingScope scope;
    const auto source = imaging::OpenForStreaming(CorpusPath(QStringLiteral("formats/hopper.png")));
    ASSERT_TRUE(source.has_value());
    ASSERT_TRUE(imaging::SaveStreaming(*source, target));
  }
  EXPECT_EQ(QDir(folder.Path()).entryList(QDir::Files | QDir::Hidden), QStringList{"out.tif"});
  const mode_t mask = ::umask(0);
  ::umask(mask);
  struct stat info {};
  ASSERT_EQ(::stat(QFile::encodeName(target).constData(), &info), 0);
  EXPECT_EQ(info.st_mode & 0777, 0666 & ~mask);
}

}  // namespace
