// The image view on the real main window: zoom commands, the selection drag, Zoom to
// Selection, Always Fit, stepping with keys, buttons and the wheel, the toolbar.
#include "document/StatusText.h"
#include "files/FileDialogs.h"
#include "support/MainWindowTest.h"
#include "view/Viewport.h"
#include "view/frmFull.h"

#include <QApplication>
#include <QFileInfo>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTreeView>
#include <QWheelEvent>
#include <QtTest/QTest>

namespace {

class frmMainViewTest : public testing_support::MainWindowTest {
 protected:
  // Always Fit off, a 2000 x 1500 image first in a folder of three.
  frmMainViewTest() {
    pictures_.WritePng(QStringLiteral("big.png"), 2000, 1500);
    pictures_.WritePng(QStringLiteral("c.png"), 40, 30);
    pictures_.WritePng(QStringLiteral("d.png"), 40, 30);
    Start(pictures_.Path(), /*alwaysFit=*/false);
  }
  view::Viewport& View() { return window_->ImageView(); }
  QScrollBar* Bar(const char* name) { return Child<QScrollBar>(name); }
};

TEST_F(frmMainViewTest, TheStatusBarTellsNamePlaceSizeZoomAndFileSize) {
  EXPECT_EQ(Pane("lblStatusName"), QStringLiteral("big.png"));
  EXPECT_EQ(window_->windowTitle(), QStringLiteral("big.png - Vistrel"));
  EXPECT_EQ(Pane("lblStatusSize"), QStringLiteral("2000 x 1500"));
  EXPECT_EQ(Pane("lblStatusFileSize"), document::FormatFileSize(QFileInfo(pictures_.File(QStringLiteral("big.png"))).size()));
  Trigger("mnuViewZoomOut");
  EXPECT_EQ(Pane("lblStatusZoom"), QStringLiteral("80%"));
  Trigger("mnuViewAlwaysFit");
  window_->resize(500, 400);  // Always Fit follows the window, and so does the status bar
  QApplication::processEvents();
  EXPECT_EQ(Pane("lblStatusZoom"), QString::number(View().Percentage()) + u'%');
  QTest::keyClick(&View(), Qt::Key_End);
  EXPECT_EQ(Pane("lblStatusName"), QStringLiteral("d.png"));
  EXPECT_EQ(Pane("lblStatusPosition"), QStringLiteral("3 / 3"));
}

TEST_F(frmMainViewTest, AnEditOrUndoThatKeepsTheSizeKeepsTheView) {
  Bar("hscImagen")->setValue(300);
  Bar("vscImagen")->setValue(200);
  Trigger("mnuColorsNegative");
  Trigger("mnuEditUndo");
  EXPECT_EQ(Bar("hscImagen")->value(), 300);
  EXPECT_EQ(Bar("vscImagen")->value(), 200);
  EXPECT_EQ(Canvas()->x(), -300);
}

// Full Screen from the menu shows the selection alone, but not a click's one-pixel
// selection; a double-click shows the whole image.
TEST_F(frmMainViewTest, FullScreenShowsTheSelectionFromTheMenuAndTheWholeImageOnADoubleClick) {
  QSize shown;
  window_->SetFullScreenRunner([&](view::frmFull& full) {
    full.resize(800, 600);
    shown = full.findChild<QWidget*>(QStringLiteral("imaImagen"))->size() * 100 / full.Percentage();
  });
  testing_support::Drag(Canvas(), {100, 100}, {139, 119});
  Trigger("mnuViewFullScreen");
  EXPECT_EQ(shown, QSize(40, 20));
  QTest::mouseClick(Canvas(), Qt::LeftButton, {}, QPoint(30, 40));
  EXPECT_EQ(View().Selection().Pixels(15, 15), QRect(30, 40, 1, 1));
  Trigger("mnuViewFullScreen");
  EXPECT_EQ(shown, QSize(2000, 1500));
  QTest::mouseDClick(Canvas(), Qt::LeftButton, {}, QPoint(100, 100));
  EXPECT_EQ(shown, QSize(2000, 1500));
}

TEST_F(frmMainViewTest, KeysStepThroughTheFolderAndArrowsScrollAlongAShownBar) {
  View().setFocus();
  QTest::keyClick(&View(), Qt::Key_PageDown);
  EXPECT_EQ(Doc().ShownRow(), 1);
  QTest::keyClick(&View(), Qt::Key_End);
  EXPECT_EQ(Doc().ShownRow(), 2);
  QTest::keyClick(&View(), Qt::Key_Space);  // nothing beyond the last
  EXPECT_EQ(Doc().ShownRow(), 2);
  QTest::keyClick(&View(), Qt::Key_Backspace);
  EXPECT_EQ(Doc().ShownRow(), 1);
  QTest::keyClick(&View(), Qt::Key_Home);
  EXPECT_EQ(Doc().ShownRow(), 0);
  EXPECT_EQ(Child<QTreeView>("lisLista")->currentIndex().row(), 0);
  QTest::keyClick(&View(), Qt::Key_Right);  // the 2000-pixel image has a horizontal bar at 100 %
  EXPECT_EQ(Bar("hscImagen")->value(), Bar("hscImagen")->singleStep());
  EXPECT_EQ(Doc().ShownRow(), 0);
  QTest::keyClick(&View(), Qt::Key_Down);
  EXPECT_EQ(Bar("vscImagen")->value(), Bar("vscImagen")->singleStep());
  Trigger("mnuViewFit");  // no bars: the arrows step
  QTest::keyClick(&View(), Qt::Key_Right);
  EXPECT_EQ(Doc().ShownRow(), 1);
  QTest::keyClick(&View(), Qt::Key_Down);  // the 40 x 30 image never needs bars
  EXPECT_EQ(Doc().ShownRow(), 2);
  QTest::keyClick(&View(), Qt::Key_Left);
  QTest::keyClick(&View(), Qt::Key_Up);
  EXPECT_EQ(Doc().ShownRow(), 0);
}

TEST_F(frmMainViewTest, TheMouseButtonsStepTheWheelDoesWhatOptionsSayAndTheMiddleButtonPansOrGoesFullScreen) {
  QTest::mouseClick(Canvas(), Qt::ForwardButton);
  EXPECT_EQ(Doc().ShownRow(), 1);
  QTest::mouseClick(Canvas(), Qt::BackButton);
  EXPECT_EQ(Doc().ShownRow(), 0);
  const auto wheel = [this](Qt::KeyboardModifiers modifiers, int delta) {
    QWheelEvent event(QPointF(10, 10), Canvas()->mapToGlobal(QPointF(10, 10)), QPoint(), QPoint(0, delta),
                      Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
    QApplication::sendEvent(Canvas(), &event);
  };
  wheel(Qt::NoModifier, -120);
  EXPECT_EQ(Bar("vscImagen")->value(), Bar("vscImagen")->pageStep());
  for (int i = 0; i < 4; ++i) wheel(Qt::NoModifier, -30);  // a touchpad's small steps add up
  EXPECT_EQ(Bar("vscImagen")->value(), 2 * Bar("vscImagen")->pageStep());
  wheel(Qt::ControlModifier, 120);
  EXPECT_EQ(View().Percentage(), 120);
  Trigger("mnuViewOriginalSize");  // the middle button pans
  const QPoint before(Bar("hscImagen")->value(), Bar("vscImagen")->value());
  QTest::mousePress(Canvas(), Qt::MiddleButton, {}, QPoint(300, 300));
  QMouseEvent move(QEvent::MouseMove, QPointF(200, 250), Canvas()->mapToGlobal(QPointF(200, 250)), Qt::NoButton,
                   Qt::MiddleButton, Qt::NoModifier);
  QApplication::sendEvent(Canvas(), &move);
  QTest::mouseRelease(Canvas(), Qt::MiddleButton, {}, QPoint(200, 250));
  EXPECT_EQ(QPoint(Bar("hscImagen")->value(), Bar("vscImagen")->value()) - before, QPoint(100, 50));
  int fullScreens = 0;  // a middle click that does not pan shows the picture full screen
  window_->SetFullScreenRunner([&](view::frmFull&) { ++fullScreens; });
  QTest::mouseClick(Canvas(), Qt::MiddleButton, {}, QPoint(300, 300));
  EXPECT_EQ(fullScreens, 1);
  // Ctrl and a drag of the left button hand the picture out instead of selecting (the drag
  // itself, a loop of the platform's, is left out here).
  QObject::disconnect(&View(), &view::Viewport::DragOutRequested, nullptr, nullptr);
  QSignalSpy handedOut(&View(), &view::Viewport::DragOutRequested);
  QTest::mousePress(Canvas(), Qt::LeftButton, Qt::ControlModifier, QPoint(100, 100));
  QMouseEvent drag(QEvent::MouseMove, QPointF(160, 140), Canvas()->mapToGlobal(QPointF(160, 140)), Qt::NoButton, Qt::LeftButton,
                   Qt::ControlModifier);
  QApplication::sendEvent(Canvas(), &drag);
  QTest::mouseRelease(Canvas(), Qt::LeftButton, Qt::ControlModifier, QPoint(160, 140));
  EXPECT_EQ(std::pair(int(handedOut.count()), View().Selection().Exists()), std::pair(1, false));
  // Options can have the wheel zoom, or step through the folder (turned down: the next).
  window_->State().Settings.WheelAction = 1;
  wheel(Qt::NoModifier, 120);
  EXPECT_EQ(View().Percentage(), 120);
  window_->State().Settings.WheelAction = 2;
  wheel(Qt::NoModifier, -120);
  EXPECT_EQ(Doc().ShownRow(), 1);
}


// An animated GIF (red, lime, blue; 20 ms each, for ever) plays as it opens and counts its
// frames in the status bar; P pauses it, period steps it, and an edit works on the frame on
// screen and stops the playing until it is undone.
using frmMainAnimationTest = testing_support::MainWindowTest;

TEST_F(frmMainAnimationTest, PlaysPausesStepsAndEditsTheFrameShown) {
  const QString gif = pictures_.File(QStringLiteral("moving.gif"));
  ASSERT_EQ(testing_support::Run(QStringLiteral("convert"), {"-delay", "2", "-size", "40x30", "xc:red", "xc:lime", "xc:blue", gif}).ExitCode, 0);
  Start(gif);
  const auto pane = [&] { return Pane("lblStatusPage"); };
  const auto shownColour = [&] { return Canvas()->grab().toImage().pixelColor(5, 5); };
  EXPECT_TRUE(QTest::qWaitFor([&] { return pane().endsWith(QStringLiteral("/3")); }, 5000));  // once its timing is read
  for (const char* frame : {"frame 2/3", "frame 3/3", "frame 1/3"}) {
    EXPECT_TRUE(QTest::qWaitFor([&] { return pane() == QLatin1String(frame); }, 5000)) << frame;
  }
  Canvas()->setFocus();
  QTest::keyClick(Canvas(), Qt::Key_P);
  ASSERT_TRUE(Command("mnuViewPlayAnimation")->isChecked());
  const QString pausedAt = pane();
  QTest::qWait(100);
  EXPECT_EQ(pane(), pausedAt);
  QTest::keyClick(Canvas(), Qt::Key_Period);
  ASSERT_TRUE(QTest::qWaitFor([&] { return pane() != pausedAt; }, 5000));
  const QColor stepped = shownColour();
  Trigger("mnuColorsNegative");
  EXPECT_EQ(shownColour(), QColor(255 - stepped.red(), 255 - stepped.green(), 255 - stepped.blue()));
  EXPECT_FALSE(Command("mnuViewPlayAnimation")->isEnabled());
  Trigger("mnuEditUndo");
  EXPECT_TRUE(Command("mnuViewPlayAnimation")->isEnabled());
  fileAnswer_ = {pictures_.File(QStringLiteral("moving.webp")), files::SaveAsFilterIndex(QStringLiteral("webp"))};
  Trigger("mnuFileSaveAs");  // unedited, as WebP: every frame
  EXPECT_EQ(testing_support::Run(QStringLiteral("identify"), {fileAnswer_.Path}).Output.count(QStringLiteral("WEBP 40x30")), 3);
}

}  // namespace
