// The full-screen view on the offscreen platform: fitted up to 1000 %, and closed only by
// a deliberate key or click once it is ready.
#include "support/ImageCompare.h"
#include "view/frmFull.h"

#include <QtTest/QTest>

#include <gtest/gtest.h>

namespace {

imaging::Image Grey(int width, int height) {
  return testing_support::Painted(width, height, [](int, int) { return QColor(90, 90, 90); });
}

view::frmFull* Opened(const imaging::Image& image) {
  auto* full = new view::frmFull(image, base::NaturalSize::FromPixels(image.Width(), image.Height(), {}), {}, Qt::black);
  full->resize(800, 600);
  full->show();
  return full;
}

TEST(frmFull, FitsTheScreenAndEnlargesATinyImageUpTo1000) {
  std::unique_ptr<view::frmFull> tiny(Opened(Grey(10, 8)));
  EXPECT_EQ(tiny->Percentage(), 1000);
  std::unique_ptr<view::frmFull> large(Opened(Grey(1600, 600)));
  EXPECT_EQ(large->Percentage(), 50);
}

TEST(frmFull, OnlyADeliberateKeyOrClickClosesItOnceReady) {
  std::unique_ptr<view::frmFull> full(Opened(Grey(40, 30)));
  QTest::keyClick(full.get(), Qt::Key_A);  // the key that opened it, still down
  EXPECT_TRUE(full->isVisible());
  ASSERT_TRUE(QTest::qWaitFor([&] { return full->IsReady(); }, 5000));
  QTest::keyClick(full.get(), Qt::Key_A, Qt::ShiftModifier);
  QTest::keyClick(full.get(), Qt::Key_A, Qt::ControlModifier);
  EXPECT_TRUE(full->isVisible());
  QTest::keyClick(full.get(), Qt::Key_Space);
  EXPECT_FALSE(full->isVisible());

  std::unique_ptr<view::frmFull> clicked(Opened(Grey(40, 30)));
  QWidget* canvas = clicked->findChild<QWidget*>(QStringLiteral("imaImagen"));
  QTest::mouseClick(canvas, Qt::LeftButton);
  EXPECT_TRUE(clicked->isVisible());
  ASSERT_TRUE(QTest::qWaitFor([&] { return clicked->IsReady(); }, 5000));
  QTest::mouseClick(canvas, Qt::LeftButton);
  EXPECT_FALSE(clicked->isVisible());
}

}  // namespace
