// The player on a real six-frame GIF of 20 ms frames played twice:
// the frames come in order loop after loop and the last stays; paused, it steps both ways,
// further back than the frames it keeps.
#include "imaging/Loader.h"
#include "support/TestFiles.h"
#include "view/AnimationPlayer.h"

#include <QtTest/QTest>

#include <gtest/gtest.h>

namespace {

class AnimationPlayerTest : public ::testing::Test {
 protected:
  AnimationPlayerTest() {
    const QStringList words = {"-delay", "2", "-size", "8x6", "xc:red", "xc:lime", "xc:blue", "xc:white", "xc:black", "xc:yellow", "-loop", "2", path_};
    EXPECT_EQ(testing_support::Run(QStringLiteral("convert"), words).ExitCode, 0);
    QObject::connect(&player_, &view::AnimationPlayer::FrameShown, [this] {
      shown_ << player_.Current().Index;
      EXPECT_EQ(player_.Current().Picture.ToQImage().pixelColor(1, 1), kColours[player_.Current().Index]);
      EXPECT_EQ(player_.Current().Screen.size(), QSize(4, 3));  // made at the size asked
    });
    player_.SetScreenSize(QSize(4, 3));
    player_.Play(path_, imaging::LoadFile(path_).value());
  }
  bool WaitFor(std::function<bool()> done) { return QTest::qWaitFor(std::move(done), 5000); }

  const QColor kColours[6] = {Qt::red, Qt::green, Qt::blue, Qt::white, Qt::black, Qt::yellow};
  testing_support::TempFolder folder_;
  const QString path_ = folder_.File(QStringLiteral("six.gif"));
  view::AnimationPlayer player_;
  QList<int> shown_;
};

TEST_F(AnimationPlayerTest, PlaysEachLoopInOrderAndEndsOnTheLastFrame) {
  ASSERT_TRUE(WaitFor([this] { return player_.Ended(); }));
  EXPECT_EQ(shown_, QList<int>({1, 2, 3, 4, 5, 0, 1, 2, 3, 4, 5}));
  player_.SetPaused(true);
  player_.SetPaused(false);  // played again, from the first frame
  ASSERT_TRUE(WaitFor([this] { return player_.Ended() && shown_.size() > 11; }));
  EXPECT_EQ(shown_.mid(11), QList<int>({0, 1, 2, 3, 4, 5, 0, 1, 2, 3, 4, 5}));
}

TEST_F(AnimationPlayerTest, PausedItStepsForwardAndBackBeyondTheFramesItKeeps) {
  player_.SetPaused(true);
  ASSERT_FALSE(player_.CanStep(-1));  // on the first frame
  const auto step = [this](int delta) {
    const qsizetype before = shown_.size();
    player_.Step(delta);
    return WaitFor([&] { return shown_.size() == before + 1; });
  };
  for (int i = 0; i < 5; ++i) ASSERT_TRUE(step(+1));
  for (int i = 0; i < 5; ++i) ASSERT_TRUE(step(-1));  // the first of them decoded again
  EXPECT_EQ(shown_, QList<int>({1, 2, 3, 4, 5, 4, 3, 2, 1, 0}));
  EXPECT_FALSE(player_.CanStep(-1));
  QTest::qWait(100);  // paused: nothing moves on its own
  EXPECT_EQ(shown_.size(), 10);
  ASSERT_TRUE(step(+1));
  ASSERT_TRUE(step(+1));
  EXPECT_EQ(shown_.mid(10), QList<int>({1, 2}));
}

}  // namespace
