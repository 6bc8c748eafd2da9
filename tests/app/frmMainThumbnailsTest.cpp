// The Thumbnails view in the main window: pages of twelve from the folder's list, filled
// off the UI thread, a click opening the entry and a double-click going full screen.
#include "browse/ThumbnailsView.h"
#include "support/MainWindowTest.h"
#include "view/frmFull.h"

#include <QLabel>
#include <QPushButton>
#include <QTreeView>
#include <QtTest/QTest>

namespace {

class frmMainThumbnailsTest : public testing_support::MainWindowTest {
 protected:
  frmMainThumbnailsTest() {
    for (int i = 0; i < 12; ++i) pictures_.WritePng(QStringLiteral("p%1.png").arg(i, 2, 10, QLatin1Char('0')), 40, 30);
    pictures_.WriteBytes(QStringLiteral("zz-broken.png"), "not a picture");
    Start(pictures_.Path());
    Trigger("mnuViewThumbnails");
    view_ = Child<browse::ThumbnailsView>("picFondoThumbnails");
  }
  bool Filled() { return QTest::qWaitFor([this] { return view_->PageComplete(); }, 10000); }
  QPoint CellCentre(int index) const {
    const browse::ThumbnailGeometry& g = view_->Geometry();
    return {(index % 4) * g.Cell.width() + g.Cell.width() / 2, browse::kPageStripPixels + (index / 4) * g.Cell.height() + g.Cell.height() / 2};
  }

  browse::ThumbnailsView* view_ = nullptr;
};

TEST_F(frmMainThumbnailsTest, PagesOfTwelveFillWithPicturesAndCaptions) {
  EXPECT_TRUE(view_->isVisible());
  EXPECT_EQ(Pane("lblPagina"), QStringLiteral("Page 1 of 2"));
  ASSERT_TRUE(Filled());
  ASSERT_EQ(view_->Cells().size(), 12u);
  EXPECT_EQ(view_->Cells()[0].ImageSize, QSize(40, 30));
  const QSize picture = view_->Cells()[0].Picture.size();  // enlarged to fill its box, 4:3 kept
  EXPECT_EQ(picture.width(), view_->Geometry().Box.width());
  EXPECT_NEAR(picture.height() * 4.0 / 3, picture.width(), 2);
  QTest::mouseClick(Child<QPushButton>("picBoton(2)"), Qt::LeftButton);  // Next >
  EXPECT_EQ(Pane("lblPagina"), QStringLiteral("Page 2 of 2"));
  ASSERT_TRUE(Filled());
  ASSERT_EQ(view_->Cells().size(), 1u);
  EXPECT_TRUE(view_->Cells()[0].ImageSize.isEmpty());  // a file that does not open: no picture
  // Every picture went to the desktop's thumbnail cache, the failure too.
  const browse::ThumbnailCache cache = browse::ThumbnailCache::ForUser();
  const int side = browse::ThumbnailCache::SideFor(view_->Geometry().Box);
  EXPECT_TRUE(cache.Find(pictures_.File(QStringLiteral("p00.png")), side).has_value());
  EXPECT_TRUE(cache.IsKnownFailure(pictures_.File(QStringLiteral("zz-broken.png"))));
  QTest::mouseClick(Child<QPushButton>("picBoton(0)"), Qt::LeftButton);  // << First
  EXPECT_EQ(view_->Page(), 1);
  EXPECT_FALSE(Command("mnuColorsNegative")->isEnabled());  // no editing here
}

TEST_F(frmMainThumbnailsTest, AClickOpensTheEntryAndADoubleClickGoesFullScreen) {
  QWidget* page = Child<QWidget>("picThumbnails");
  QTest::mouseClick(page, Qt::LeftButton, {}, CellCentre(5));
  EXPECT_EQ(Doc().ShownRow(), 5);
  EXPECT_EQ(Child<QTreeView>("lisLista")->currentIndex().row(), 5);
  int fullScreens = 0;
  window_->SetFullScreenRunner([&](view::frmFull&) { ++fullScreens; });
  QTest::mouseDClick(page, Qt::LeftButton, {}, CellCentre(6));
  EXPECT_EQ(Doc().ShownRow(), 6);
  EXPECT_EQ(fullScreens, 1);
}

}  // namespace
