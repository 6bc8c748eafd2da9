// The preview off the UI thread: a fresh reduced copy, the operation with the current
// values, and only the latest request shown.
#include "edit/DialogDescriptions.h"
#include "edit/PreviewRenderer.h"
#include "edit/frmDiseno.h"

#include <QAtomicInt>
#include <QLabel>
#include <QSlider>
#include <QThread>
#include <QtTest/QTest>

#include <gtest/gtest.h>

namespace {

imaging::Image Solid(int width, int height, QColor color) {
  QImage image(width, height, QImage::Format_RGB32);
  image.fill(color);
  return imaging::Image::FromQImage(image);
}

// Paints the whole image with red = the first value, slowly, and counts its runs.
edit::Operation SlowMarker(QAtomicInt& runs) {
  return [&runs](const imaging::Image& image, const edit::DialogValues& values) {
    runs.fetchAndAddRelaxed(1);
    QThread::msleep(30);
    return Solid(image.Width(), image.Height(), QColor(values.Number(1) & 0xFF, 0, 0));
  };
}

edit::DialogValues WithNumber(int value) { return edit::DialogValues{{value}, 0, {}}; }

TEST(PreviewRenderer, ShowsOnlyTheLatestOfManyRequests) {
  QAtomicInt runs;
  edit::PreviewRenderer renderer(Solid(20, 10, Qt::white), SlowMarker(runs));
  QImage last;
  int shown = 0;
  QObject::connect(&renderer, &edit::PreviewRenderer::Rendered, [&](const QImage& image) {
    last = image;
    ++shown;
  });
  for (int value = 1; value <= 20; ++value) renderer.Request(WithNumber(value));
  ASSERT_TRUE(QTest::qWaitFor([&] { return renderer.IsIdle() && shown > 0; }, 5000));
  EXPECT_EQ(QColor(last.pixel(3, 3)).red(), 20);
  EXPECT_LT(runs.loadRelaxed(), 20);  // requests overtaken by a later one never run
}

TEST(PreviewRenderer, WithoutAnOperationShowsTheImageUnchanged) {
  edit::PreviewRenderer renderer(Solid(4, 4, QColor(10, 20, 30)), {});
  QImage last;
  QObject::connect(&renderer, &edit::PreviewRenderer::Rendered, [&](const QImage& image) { last = image; });
  renderer.Request({});
  ASSERT_TRUE(QTest::qWaitFor([&] { return !last.isNull(); }, 5000));
  EXPECT_EQ(QColor(last.pixel(1, 1)), QColor(10, 20, 30));
}

TEST(frmDisenoPreview, ShowsTheOperationOnACopyReducedToThePanel) {
  QAtomicInt runs;
  const imaging::Image photo = Solid(800, 600, Qt::white);
  edit::frmDiseno dialog(edit::DialogDescriptionFor(QStringLiteral("mnuColorsSolarize")), {800 * 15, 600 * 15, 15, 15},
                         photo, SlowMarker(runs));
  dialog.show();
  auto* preview = dialog.findChild<QLabel*>(QStringLiteral("picPreview"));
  ASSERT_TRUE(QTest::qWaitFor([&] { return dialog.PreviewIdle() && !preview->pixmap().isNull(); }, 5000));
  const QImage first = preview->pixmap().toImage();
  EXPECT_LE(first.width(), preview->width());
  EXPECT_EQ(first.width() * 600, first.height() * 800);
  EXPECT_EQ(QColor(first.pixel(5, 5)).red(), 0);  // the slider starts at 0
  QTest::keyClick(dialog.findChild<QSlider*>(QStringLiteral("sliControl(1)")), Qt::Key_End);
  ASSERT_TRUE(QTest::qWaitFor([&] { return dialog.PreviewIdle() && QColor(preview->pixmap().toImage().pixel(5, 5)).red() == 255; }, 5000));
  EXPECT_EQ(photo.Width(), 800);  // effects never touch the source
}

}  // namespace
