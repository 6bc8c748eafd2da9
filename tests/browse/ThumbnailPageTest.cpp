// The Thumbnails view's arithmetic with its worked numbers, and the Go to Page dialog.
#include "browse/ThumbnailPage.h"
#include "support/DialogAnswerer.h"
#include "widgets/frmTexto.h"
#include "support/UsLocale.h"

#include <QLineEdit>
#include <QPushButton>
#include <QtTest/QTest>

#include <gtest/gtest.h>

namespace {

TEST(ThumbnailPage, PicturesAreDrawnInTheirBoxByWayOfTwips) {
  const testing_support::UsLocale us;
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
