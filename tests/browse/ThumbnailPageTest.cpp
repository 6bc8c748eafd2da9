// The Thumbnails view's arithmetic with its worked numbers, and the Go to Page dialog.
#include "browse/ThumbnailPage.h"
#include "support/DialogAnswerer.h"
#include "widgets/frmTexto.h"

#include <QLineEdit>
#include <QPushButton>
#include <QtTest/QTest>

#include <gtest/gtest.h>

namespace {

TEST(ThumbnailPage, ScaleCellsAndBoxesFollowTheScreenHeight) {
  struct Case {
    int screenPixels;
    QSize cell, box;
  };
  const Case cases[] = {
      {768, {230, 180}, {130, 130}},  // scale 1
      {1024, {320, 250}, {181, 181}},
      {600, {170, 133}, {96, 96}},  // scale 0.743 ...
      {480, {170, 133}, {96, 96}},  // ... and no smaller
  };
  for (const Case& c : cases) {
    const browse::ThumbnailGeometry g = browse::ThumbnailGeometryFor(c.screenPixels * 15.0f, 15);
    EXPECT_EQ(g.Cell, c.cell) << c.screenPixels;
    EXPECT_EQ(g.Box, c.box) << c.screenPixels;
  }
}

TEST(ThumbnailPage, PicturesAreDrawnInTheirBoxByWayOfTwips) {
  struct Case {
    QSize image, drawn;
    bool resample;
  };
  const Case cases[] = {
      {{13, 13}, {130, 130}, true},     // small pictures are enlarged
      {{4000, 3000}, {130, 97}, true},  // 1462.5 twips round to 1462, and 1462 \ 15 is 97
      {{2000, 20}, {130, 1}, false},    // too thin to resample
  };
  for (const Case& c : cases) {
    const browse::DrawnSize d = browse::DrawnSizeInBox(c.image, {130, 130}, 15, 15);
    EXPECT_EQ(d.Size, c.drawn) << c.image.width();
    EXPECT_EQ(d.Resample, c.resample) << c.image.width();
  }
  EXPECT_EQ(browse::SizeCaption({1024, 768}), QStringLiteral("1,024 x 768"));
}

TEST(ThumbnailPage, PagesHoldTwelveInListOrder) {
  EXPECT_EQ(std::tuple(browse::PageCount(12), browse::PageCount(13), browse::PageCount(0)), std::tuple(1, 2, 0));
  const browse::PageRows second = browse::RowsOfPage(2, 13);
  EXPECT_EQ(std::tuple(second.First, second.Last, browse::PageOfRow(12)), std::tuple(12, 13, 2));
  EXPECT_EQ(browse::PageLabel(3, 1204), QStringLiteral("Page 3 of 1,204"));
}

TEST(frmTexto, GoToPageTakesOnlyAPageThereIs) {
  const auto shown = widgets::GoToPageDialog(7);
  widgets::frmTexto& dialog = *shown;
  dialog.show();
  auto* box = dialog.findChild<QLineEdit*>(QStringLiteral("txtTexto"));
  auto* ok = dialog.findChild<QPushButton*>(QStringLiteral("cmdAceptar"));
  QTest::keyClicks(box, QStringLiteral("a9b"));
  EXPECT_EQ(box->text(), QStringLiteral("9"));
  {
    testing_support::DialogAnswerer answerer;
    QTest::mouseClick(ok, Qt::LeftButton);
    EXPECT_EQ(answerer.LastText(), QStringLiteral("Please enter a number between 1 and 7"));
  }
  EXPECT_TRUE(dialog.isVisible());
  box->setText(QStringLiteral("4"));
  QTest::mouseClick(ok, Qt::LeftButton);
  EXPECT_EQ(dialog.result(), QDialog::Accepted);
  EXPECT_EQ(dialog.Text(), QStringLiteral("4"));
}

}  // namespace
