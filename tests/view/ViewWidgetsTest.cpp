// The view's widgets on the offscreen platform: the full-screen view (fitted up to 1000 %,
// closed only by a deliberate key or click once ready), the Zoom dialog typed into as a
// user would, and the image control's outline, stand-in and drawings drawn again.
#include "support/DialogAnswerer.h"
#include "support/ImageCompare.h"
#include "imaging/Drawing.h"
#include "imaging/Loader.h"
#include "support/TestFiles.h"
#include "view/ImageCanvas.h"
#include "view/frmFull.h"
#include "view/frmZoom.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QtTest/QTest>

#include <gtest/gtest.h>

namespace {

using testing_support::Retype;

imaging::Image Grey(int width, int height) {
  return testing_support::Painted(width, height, [](int, int) { return QColor(90, 90, 90); });
}

view::frmFull* Opened(const imaging::Image& image) {
  auto* full = new view::frmFull(image, base::NaturalSize::FromPixels(image.Width(), image.Height(), {}), {}, Qt::black);
  full->resize(800, 600);
  full->show();
  return full;
}

TEST(frmFull, OnlyADeliberateKeyOrClickClosesItOnceReady) {
  std::unique_ptr<view::frmFull> full(Opened(Grey(40, 30)));
  QTest::keyClick(full.get(), Qt::Key_A);  // the key that opened it, still down
  EXPECT_TRUE(full->isVisible());
  ASSERT_TRUE(QTest::qWaitFor([&] { return full->IsReady(); }, 5000));
  QTest::keyClick(full.get(), Qt::Key_A, Qt::ShiftModifier);
  QTest::keyClick(full.get(), Qt::Key_A, Qt::ControlModifier);
  EXPECT_TRUE(full->isVisible());
  QSignalSpy steps(full.get(), &view::frmFull::StepRequested);
  QTest::keyClick(full.get(), Qt::Key_Space);  // steps, and stays
  EXPECT_EQ(steps.count(), 1);
  EXPECT_TRUE(full->isVisible());
  QTest::keyClick(full.get(), Qt::Key_Escape);
  EXPECT_FALSE(full->isVisible());

  std::unique_ptr<view::frmFull> clicked(Opened(Grey(40, 30)));
  QWidget* canvas = clicked->findChild<QWidget*>(QStringLiteral("imaImagen"));
  QTest::mouseClick(canvas, Qt::LeftButton);
  EXPECT_TRUE(clicked->isVisible());
  ASSERT_TRUE(QTest::qWaitFor([&] { return clicked->IsReady(); }, 5000));
  QTest::mouseClick(canvas, Qt::LeftButton);
  EXPECT_FALSE(clicked->isVisible());
}

QLineEdit* Box(view::frmZoom& dialog) { return dialog.findChild<QComboBox*>(QStringLiteral("cboZoom"))->lineEdit(); }

// Typed as a user types: into the combo box, which forwards the keys to its text.
TEST(frmZoom, RefusesLettersAndASeventhCharacterHoweverTheyArrive) {
  view::frmZoom dialog(100);
  dialog.show();
  auto* combo = dialog.findChild<QComboBox*>(QStringLiteral("cboZoom"));
  for (const auto& [typed, kept] : {std::pair{"ab0150%x", "0150%"}, std::pair{"12345678", "123456"}}) {
    Box(dialog)->selectAll();
    QTest::keyClicks(combo, QLatin1String(typed));
    EXPECT_EQ(Box(dialog)->text(), QLatin1String(kept)) << typed;
  }
}

TEST(frmZoom, OutOfRangeValuesAreRefusedAndEnterAcceptsTheLeadingNumber) {
  view::frmZoom dialog(100);
  dialog.show();
  Retype(Box(dialog), QStringLiteral("5"));  // never completed to "50%"
  testing_support::DialogAnswerer answerer;
  QTest::mouseClick(dialog.findChild<QPushButton*>(QStringLiteral("cmdAceptar")), Qt::LeftButton);
  EXPECT_EQ(answerer.LastText(), QStringLiteral("Please enter a value between 10% and 1000%"));
  EXPECT_EQ(answerer.LastTitle(), QStringLiteral("Zoom Functions"));
  EXPECT_TRUE(dialog.isVisible());
  EXPECT_EQ(Box(dialog)->selectedText(), QStringLiteral("5"));
  Retype(Box(dialog), QStringLiteral("0150%"));  // Enter accepts the leading number
  QTest::keyClick(Box(dialog), Qt::Key_Return);
  EXPECT_EQ(dialog.result(), QDialog::Accepted);
  EXPECT_EQ(dialog.Value(), 150);
}

// A stand-in a quarter the size of the image it stands for fills the same place: at 10 %
// and at 100 %, its left half red and its right half blue land on the canvas's halves.
TEST(ImageCanvas, AStandInFillsThePlaceOfTheWholeImage) {
  const imaging::Image standIn = testing_support::Painted(100, 50, [](int x, int) { return x < 50 ? Qt::red : Qt::blue; });
  for (const int percentage : {10, 100}) {
    QWidget parent;
    view::ImageCanvas canvas(&parent);
    canvas.SetImage(standIn, 0.25);
    canvas.SetZoom(percentage);
    canvas.resize(400 * percentage / 100, 200 * percentage / 100);
    const QImage shown = canvas.grab().toImage();
    const int w = shown.width(), h = shown.height();
    EXPECT_EQ(QColor(shown.pixel(w / 4, h / 2)), QColor(Qt::red)) << percentage;
    EXPECT_EQ(QColor(shown.pixel(3 * w / 4, h / 2)), QColor(Qt::blue)) << percentage;
    EXPECT_EQ(QColor(shown.pixel(w - 1, h - 1)), QColor(Qt::blue)) << percentage;
  }
}

// Transparency shows as a checkerboard, at 100 % and reduced; an opaque picture is as it is.
TEST(ImageCanvas, TransparencyIsDrawnOnACheckerboard) {
  const imaging::Image clear = testing_support::Painted(64, 64, [](int x, int) { return QColor(255, 0, 0, x < 32 ? 0 : 255); }, true);
  for (const int percentage : {100, 50}) {
    QWidget parent;
    view::ImageCanvas canvas(&parent);
    canvas.SetImage(clear);
    canvas.SetZoom(percentage);
    canvas.resize(64 * percentage / 100, 64 * percentage / 100);
    const QImage shown = canvas.grab().toImage();
    EXPECT_NE(QColor(shown.pixel(2, 2)), QColor(shown.pixel(10, 2))) << percentage;  // two squares
    EXPECT_EQ(QColor(shown.pixel(shown.width() - 2, 2)), QColor(Qt::red)) << percentage;
  }
}

// An interim frame shows at once and the exact reduction replaces it; one made for a zoom
// that has changed since never lands, and a frame of the wrong size is ignored.
TEST(ImageCanvas, AnInterimFrameGivesWayToTheExactOne) {
  const imaging::Image photo = testing_support::Hopper();
  QWidget parent;
  view::ImageCanvas canvas(&parent);
  canvas.SetImage(photo);
  canvas.SetZoom(50);
  canvas.grab();
  const QImage exact = canvas.ReducedFrame();
  QImage interim(exact.size(), QImage::Format_RGB32);
  interim.fill(Qt::green);
  canvas.ShowInterimFrame(interim.scaled(3, 3));
  EXPECT_EQ(canvas.ReducedFrame(), exact);
  canvas.ShowInterimFrame(interim);
  EXPECT_EQ(QColor(canvas.grab().toImage().pixel(5, 5)), QColor(Qt::green));
  ASSERT_TRUE(QTest::qWaitFor([&] { return canvas.FrameExact(); }, 5000));
  EXPECT_EQ(canvas.ReducedFrame().convertToFormat(exact.format()), exact);
  canvas.ShowInterimFrame(interim);
  canvas.SetZoom(25);  // before the exact frame for 50 % is made
  QTest::qWait(200);
  EXPECT_TRUE(canvas.ReducedFrame().isNull());  // made again at the next paint, for 25 %
}

// A drawing above 100 % is drawn again at the zoom: its circle's edge is libvips' own at
// that scale, not enlarged pixels.
TEST(ImageCanvas, ADrawingIsDrawnAgainAtTheZoom) {
  testing_support::TempFolder folder;
  const QString svg = folder.WriteBytes(QStringLiteral("ring.svg"),
                                        "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"60\" height=\"40\"><rect width=\"60\" height=\"40\" "
                                        "fill=\"white\"/><circle cx=\"20\" cy=\"20\" r=\"15\" fill=\"none\" stroke=\"red\"/></svg>");
  const auto redraw = [svg](double scale, const QRect& area) { return imaging::DrawnArea(svg, scale, area); };
  view::ImageCanvas canvas(nullptr);
  canvas.SetImage(imaging::LoadFile(svg).value());
  canvas.SetRedraw(redraw);
  canvas.SetZoom(800);
  canvas.resize(480, 320);
  canvas.show();
  const imaging::Image sharp = redraw(8, QRect(0, 0, 480, 320)).value();
  const auto difference = [&] { return testing_support::MeanAbsoluteDifference(imaging::Image::FromQImage(canvas.grab().toImage()), sharp); };
  EXPECT_GT(difference(), 1);  // the enlarged pixels first
  EXPECT_TRUE(QTest::qWaitFor([&] { return difference() < 0.5; }, 5000));
}

}  // namespace
