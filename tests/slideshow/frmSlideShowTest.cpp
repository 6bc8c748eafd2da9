// The setup dialog and the player on the offscreen platform, with real keys, mouse and
// timers, on a folder of small pictures.
#include "slideshow/frmSlideShow.h"
#include "slideshow/frmSlideShow2.h"
#include "support/DialogAnswerer.h"
#include "support/TestFiles.h"

#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QtTest/QTest>

#include <gtest/gtest.h>

namespace {

using slideshow::PlayerSettings;
using testing_support::Child;
using testing_support::DialogAnswerer;

class SlideShowTest : public ::testing::Test {
 protected:
  SlideShowTest() {
    for (const char* name : {"a.png", "b.png", "c.png", "d.png"}) folder_.WritePng(QLatin1String(name), 40, 30);
  }
  std::unique_ptr<slideshow::frmSlideShow> Setup(int selectedRow = -1, QString folder = QStringLiteral("*")) {
    auto setup = std::make_unique<slideshow::frmSlideShow>(
        folder == QLatin1String("*") ? folder_.Path() : folder, QStringList{"a.png", "b.png", "c.png", "d.png"},
        selectedRow, Qt::black, [this](QWidget*, const widgets::FileDialogRequest&) { return answer_; },
        [this](const PlayerSettings& settings, QWidget*) { started_.push_back(settings); });
    setup->show();
    return setup;
  }
  // A number as typed where the user's decimal separator is the locale's.
  static QString Localised(const char* number) { return QString::fromLatin1(number).replace(u'.', QLocale().decimalPoint()); }
  static void Click(QWidget& parent, const char* name) { QTest::mouseClick(Child<QWidget>(parent, name), Qt::LeftButton); }
  PlayerSettings Settings(double seconds, bool repeat = false) const {
    return {folder_.Path(), {{"a.png", true}, {"b.png", true}, {"c.png", true}}, -1, false, repeat, false, false, seconds, Qt::black};
  }

  testing_support::TempFolder folder_;
  widgets::FileDialogAnswer answer_;
  std::vector<PlayerSettings> started_;
};

// Start refuses in this order, then plays with the seconds rounded to one decimal.
TEST_F(SlideShowTest, StartRefusesWhatCannotPlay) {
  {
    auto empty = Setup(-1, QString());
    DialogAnswerer answerer;
    Click(*empty, "cmdStart");
    EXPECT_TRUE(answerer.LastText().startsWith(QStringLiteral("No images. You may:\r\n1. Close this dialog")));
  }
  auto setup = Setup(2);
  Click(*setup, "cmdNinguno");
  DialogAnswerer answerer;
  Click(*setup, "cmdStart");
  EXPECT_EQ(answerer.LastText(), QStringLiteral("No image selected"));
  Click(*setup, "cmdTodos");
  Click(*setup, "optModo(1)");
  auto* seconds = Child<QLineEdit>(*setup, "txtVelocidad");
  for (const auto& [typed, accepted] : {std::pair{"0.04", false}, std::pair{"0.05", true}, std::pair{"9999.95", false}}) {
    seconds->selectAll();
    QTest::keyClicks(seconds, Localised(typed) + QStringLiteral("s"));  // the letter is dropped
    Click(*setup, "cmdStart");
    EXPECT_EQ(started_.size(), accepted ? 1u : 0u) << typed;
    started_.clear();
  }
  EXPECT_EQ(answerer.LastText(), QStringLiteral("Please enter a number between 0.1 and 9999.9 seconds"));
  seconds->selectAll();
  QTest::keyClicks(seconds, Localised("0.05"));
  Click(*setup, "cmdStart");
  ASSERT_EQ(started_.size(), 1u);
  EXPECT_DOUBLE_EQ(started_[0].Seconds, 0.1);
  EXPECT_EQ(started_[0].SelectedRow, -1);  // Select All cleared the selection
}

TEST_F(SlideShowTest, ManualAdvanceStepsByKeysAndMouseAndEscEnds) {
  slideshow::frmSlideShow2 player(Settings(-1));
  player.resize(400, 300);
  player.show();
  ASSERT_TRUE(QTest::qWaitFor([&] { return player.Shown() == QStringLiteral("a.png"); }, 2000));
  QTest::keyClick(&player, Qt::Key_PageUp);  // the first, no repeat: stays
  EXPECT_EQ(player.Shown(), QStringLiteral("a.png"));
  QTest::keyClick(&player, Qt::Key_PageDown);
  QTest::mouseClick(&player, Qt::LeftButton);
  EXPECT_EQ(player.Shown(), QStringLiteral("c.png"));
  QTest::keyClick(&player, Qt::Key_PageUp);
  EXPECT_EQ(player.Shown(), QStringLiteral("b.png"));
  EXPECT_FALSE(player.Playing());  // manual: the timer stopped after the first image
  QTest::keyClick(&player, Qt::Key_Escape);
  EXPECT_FALSE(player.isVisible());
}

TEST_F(SlideShowTest, AutomaticAdvancePlaysPausesAndEndsAfterTheLast) {
  QFile::remove(folder_.File(QStringLiteral("b.png")));  // gone since the list was made
  slideshow::frmSlideShow2 player(Settings(0.1));
  player.resize(400, 300);
  QStringList seen;
  QTimer watch;
  QObject::connect(&watch, &QTimer::timeout, [&] {
    if (seen.isEmpty() || seen.last() != player.Shown()) seen << player.Shown();
  });
  watch.start(5);
  auto* pause = player.findChild<QAction*>(QStringLiteral("mnuSlideShowAutoPause"));
  player.show();
  ASSERT_TRUE(QTest::qWaitFor([&] { return player.Shown() == QStringLiteral("a.png"); }, 2000));
  pause->trigger();
  QTest::qWait(400);
  EXPECT_EQ(player.Shown(), QStringLiteral("a.png"));  // paused
  pause->trigger();
  EXPECT_TRUE(QTest::qWaitFor([&] { return !player.isVisible(); }, 3000));
  EXPECT_EQ(seen, QStringList({"", "a.png", "c.png"}));  // b.png leaves a.png on screen
}

}  // namespace
