// Neighbour preloading: a prefetched file is handed over without a second decode, and
// anything it cannot vouch for (not prefetched, changed since, over budget) is decoded
// on the spot, so the image shown is always what a fresh load gives.
#include "files/Prefetcher.h"
#include "support/TestFiles.h"

#include <QImage>
#include <QThread>

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <future>

namespace {

using testing_support::TempFolder;

class PrefetcherTest : public ::testing::Test {
 protected:
  files::Prefetcher::Decode CountingDecode() {
    return [this](const QString& path) {
      ++decodes_;
      return files::LoadImageFile(path, {});
    };
  }

  TempFolder folder_;
  std::atomic<int> decodes_{0};
};

TEST_F(PrefetcherTest, APrefetchedFileIsHandedOverWithoutASecondDecodeUnlessItChangedSince) {
  const QString next = folder_.WritePng(QStringLiteral("next.png"), 30, 20);
  files::Prefetcher prefetcher(CountingDecode(), 1 << 20);
  prefetcher.Prefetch({next});
  prefetcher.WaitForIdle();
  EXPECT_EQ(decodes_, 1);
  EXPECT_TRUE(prefetcher.Holds(next));
  const auto loaded = prefetcher.Take(next);
  ASSERT_TRUE(loaded);
  EXPECT_EQ(loaded->Picture.Width(), 30);
  EXPECT_EQ(decodes_, 1);
  EXPECT_EQ(prefetcher.PrefetchedCount(), 0);  // handed over, not kept twice
  prefetcher.Prefetch({next});  // a file changed after its prefetch is decoded again
  prefetcher.WaitForIdle();
  QImage(12, 9, QImage::Format_RGB32).save(next, "PNG");  // another size, so another file length
  EXPECT_FALSE(prefetcher.Holds(next));
  const auto changed = prefetcher.Take(next);
  ASSERT_TRUE(changed);
  EXPECT_EQ(changed->Picture.Width(), 12);
  EXPECT_EQ(decodes_, 3);
}

// Stepping back while the image ahead is still being decoded: the one behind, still
// waiting its turn, is decoded on the spot at once.
TEST_F(PrefetcherTest, AFileStillWaitingItsTurnIsDecodedOnTheSpot) {
  const QString ahead = folder_.WritePng(QStringLiteral("ahead.png"), 30, 20);
  const QString behind = folder_.WritePng(QStringLiteral("behind.png"), 20, 10);
  std::atomic_bool aheadBegan{false}, release{false};
  files::Prefetcher prefetcher([&](const QString& path) {
    if (path == ahead) {
      aheadBegan = true;
      while (!release) QThread::msleep(1);
    }
    return files::LoadImageFile(path, {});
  }, 1 << 20);
  prefetcher.Prefetch({ahead, behind});
  while (!aheadBegan) QThread::msleep(1);
  auto taken = std::async(std::launch::async, [&] { return prefetcher.Take(behind); });
  const bool atOnce = taken.wait_for(std::chrono::seconds(5)) == std::future_status::ready;
  release = true;
  EXPECT_TRUE(atOnce);
  ASSERT_TRUE(taken.get().has_value());
  prefetcher.WaitForIdle();
  const auto aheadImage = prefetcher.Take(ahead);
  ASSERT_TRUE(aheadImage.has_value());
  EXPECT_EQ(aheadImage->Picture.Width(), 30);
}

TEST_F(PrefetcherTest, AnImageOverItsShareOfTheBudgetIsNeverDecodedAhead) {
  const QString big = folder_.WritePng(QStringLiteral("big.png"), 100, 100);  // 40,000 bytes decoded
  files::Prefetcher prefetcher(CountingDecode(), 30000);
  prefetcher.Prefetch({big});
  prefetcher.WaitForIdle();
  EXPECT_EQ(decodes_, 0);
  EXPECT_FALSE(prefetcher.Holds(big));
  EXPECT_TRUE(prefetcher.Take(big));
  EXPECT_EQ(decodes_, 1);
}

TEST_F(PrefetcherTest, ANewNeighbourhoodForgetsTheOldOneAndKeepsWhatItShares) {
  const QString a = folder_.WritePng(QStringLiteral("a.png"));
  const QString b = folder_.WritePng(QStringLiteral("b.png"));
  const QString c = folder_.WritePng(QStringLiteral("c.png"));
  files::Prefetcher prefetcher(CountingDecode(), 1 << 20);
  prefetcher.Prefetch({a, b});
  prefetcher.WaitForIdle();
  prefetcher.Prefetch({b, c});
  prefetcher.WaitForIdle();
  EXPECT_EQ(decodes_, 3);  // b was not decoded twice
  EXPECT_EQ(prefetcher.PrefetchedCount(), 2);
  (void)prefetcher.Take(a);
  EXPECT_EQ(decodes_, 4);  // a was forgotten
}

}  // namespace
