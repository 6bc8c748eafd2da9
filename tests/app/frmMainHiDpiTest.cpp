// The main window on a screen at 200 % desktop scaling (QT_SCALE_FACTOR=2): at 100 % an
// image pixel is one device pixel, while the zoom and the selection speak image pixels.
#include "browse/ThumbnailsView.h"
#include "support/ImageCompare.h"
#include "support/MainWindowTest.h"
#include "view/Viewport.h"

#include <QLineEdit>
#include <QtTest/QTest>

namespace {

class frmMainHiDpiTest : public testing_support::MainWindowTest {
 protected:
  frmMainHiDpiTest() {
    const imaging::Image photo = testing_support::Painted(400, 300, [](int x, int y) { return QColor(x % 256, y % 256, (x * y) % 251); });
    photo.ToQImage().save(pictures_.File(QStringLiteral("photo.png")));
    original_ = photo.ToQImage();
    Start(pictures_.File(QStringLiteral("photo.png")), /*alwaysFit=*/false);
  }
  QImage original_;
};

TEST_F(frmMainHiDpiTest, OneHundredPercentIsOneImagePixelPerDevicePixel) {
  ASSERT_EQ(Canvas()->devicePixelRatioF(), 2.0);
  EXPECT_EQ(Pane("lblStatusZoom"), QStringLiteral("100%"));
  EXPECT_EQ(Canvas()->size(), QSize(200, 150));
  const QImage painted = Canvas()->grab().toImage().convertToFormat(QImage::Format_RGB32);
  ASSERT_EQ(painted.size(), QSize(400, 300));
  for (const QPoint at : {QPoint(0, 0), QPoint(1, 0), QPoint(0, 1), QPoint(123, 77), QPoint(399, 299)}) {
    EXPECT_EQ(painted.pixel(at), original_.pixel(at)) << at.x() << "," << at.y();
  }
  Trigger("mnuViewZoomOut");  // 80 %: a reduced copy made at device pixels, 320 wide
  EXPECT_EQ(Canvas()->grab().toImage().width(), 320);
}

TEST_F(frmMainHiDpiTest, TheSelectionAndTheDialogsSpeakImagePixels) {
  testing_support::Drag(Canvas(), {10, 10}, {19, 14});
  EXPECT_EQ(window_->ImageView().Selection().Pixels(7.5f, 7.5f), QRect(20, 20, 20, 10));
  QString shownSize;
  parameters_ = [&](edit::frmDiseno& dialog) {
    shownSize = dialog.findChild<QLineEdit*>(QStringLiteral("txtTexto(1)"))->text() + u'x' +
                dialog.findChild<QLineEdit*>(QStringLiteral("txtTexto(2)"))->text();
    return false;
  };
  Trigger("mnuImageResize");
  EXPECT_EQ(shownSize, QStringLiteral("400x300"));
  Trigger("mnuImageCrop");
  EXPECT_EQ(Pane("lblStatusSize"), QStringLiteral("20 x 10"));
  EXPECT_EQ(Shown().ToQImage().pixel(0, 0), original_.pixel(20, 20));
}

TEST_F(frmMainHiDpiTest, ThumbnailsAreDrawnAtDevicePixels) {
  Doc().OpenChosenFolder(pictures_.Path());
  Trigger("mnuViewThumbnails");
  auto* view = Child<browse::ThumbnailsView>("picFondoThumbnails");
  ASSERT_TRUE(QTest::qWaitFor([view] { return view->PageComplete(); }, 10000));
  const QImage& picture = view->Cells().at(0).Picture;
  EXPECT_EQ(picture.devicePixelRatio(), 2.0);
  EXPECT_EQ(picture.width(), 2 * view->Geometry().Box.width());
}

}  // namespace
