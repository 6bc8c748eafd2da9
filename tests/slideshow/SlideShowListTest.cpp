// The slide show list file and the player's order as plain logic.
#include "slideshow/Sequence.h"
#include "slideshow/SlideShowList.h"

#include <QSet>

#include <gtest/gtest.h>

namespace {

using slideshow::SlideShowList;
using slideshow::SlideShowRow;

const QLocale kGerman(QLocale::German, QLocale::Germany);

QByteArray File(const QStringList& lines) { return (lines.join(QStringLiteral("\r\n")) + QStringLiteral("\r\n")).toUtf8(); }

TEST(SlideShowList, WhatIsWrittenReadsBack) {
  SlideShowList list{QStringLiteral("/home/ana/Fotos"),
                     {{QStringLiteral("b.jpg"), true}, {QStringLiteral("caf\u00e9.png"), false}},
                     true, false, true, true, false, QStringLiteral("2,46")};
  const QByteArray text = slideshow::WriteSlideShowText(list, kGerman).value();
  EXPECT_EQ(text, QByteArray("Vistrel 6.2 SlideShow\r\n/home/ana/Fotos\r\n2\r\n.b.jpg\r\n caf\xe9.png\r\n1\r\n0\r\n1\r\n1\r\n0\r\n2.5\r\n"));
  list.Seconds = QStringLiteral("2,5");  // read back in the same locale, rounded
  const auto back = slideshow::ReadSlideShowText(text, kGerman);
  ASSERT_TRUE(back.has_value());
  EXPECT_EQ(back->Folder, list.Folder);
  EXPECT_EQ(back->Rows, list.Rows);
  EXPECT_EQ(std::tuple(back->Random, back->Repeat, back->FitToWindow, back->ShowFileName, back->ManualAdvance, back->Seconds),
            std::tuple(list.Random, list.Repeat, list.FitToWindow, list.ShowFileName, list.ManualAdvance, list.Seconds));
  list.Rows[0].Name = QStringLiteral("\u65e5\u672c.jpg");  // no place in Windows-1252: UTF-8
  EXPECT_TRUE(slideshow::WriteSlideShowText(list, kGerman).value().contains(list.Rows[0].Name.toUtf8()));
  // What a list of lines cannot name is refused, never written as another name.
  for (const QString& name : {QStringLiteral("two\nlines.jpg"), QStringLiteral("cr\r.jpg"), QStringLiteral("raw\xdcff.jpg")}) {
    SlideShowList unwritable = list;
    unwritable.Rows[1].Name = name;
    EXPECT_FALSE(slideshow::WriteSlideShowText(unwritable, kGerman).has_value()) << name.toStdString();
  }
  list.Folder += QStringLiteral("\nx");
  EXPECT_FALSE(slideshow::WriteSlideShowText(list, kGerman).has_value());
}

// Each generation's header, and what the reader makes of the lines after it.
TEST(SlideShowList, ReadsThreeGenerations) {
  const QLocale english(QLocale::English);
  struct Case {
    const char* what;
    QStringList lines;
    bool read;
    std::optional<bool> showName;
    std::optional<bool> manual;
    std::optional<QString> seconds;
    int rows;
  };
  const Case cases[] = {
      {"current", {"Vistrel 6.2 SlideShow", "/f", "1", ".a.jpg", "0", "0", "0", "1", "0", "2.5x"}, true, true, false, "2.5", 1},
      {"older, in capitals with blanks: no file-name line",
       {"  SLIDESHOW50 ", "/f", "1", ".a.jpg", "0", "0", "0", "1", "2,5"}, true, false, true, "2", 1},
      {"oldest keeps the seconds as written", {"SlideShow", "/f", "0", "0", "0", "0", "0", "2,5"}, true, false, false, "2,5", 0},
      {"a foreign file", {"Something else", "/f"}, false, {}, {}, {}, 0},
      {"ending in the rows keeps what it read", {"SlideShow50", "/f", "3", ".a.jpg"}, true, {}, {}, {}, 1},
      {"a count that is no number", {"SlideShow50", "/f", "many", "1"}, true, false, std::nullopt, {}, 0},
      {"seconds beyond the box", {"SlideShow50", "/f", "0", "0", "0", "0", "0", "1e300"}, true, false, false, "9,999.9", 0},
      {"more rows than a folder holds", {"SlideShow50", "/f", "100001", ".a.jpg"}, false, {}, {}, {}, 0},
      {"a file larger than a list", {"SlideShow50", "/f", "0", QString(4 << 20, u'x')}, false, {}, {}, {}, 0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    const auto list = slideshow::ReadSlideShowText(File(c.lines), english);
    ASSERT_EQ(list.has_value(), c.read);
    if (!list) continue;
    EXPECT_EQ(list->ShowFileName, c.showName);
    EXPECT_EQ(list->ManualAdvance, c.manual);
    EXPECT_EQ(list->Seconds, c.seconds);
    EXPECT_EQ(int(list->Rows.size()), c.rows);
  }
  // Any first character is the mark, one outside the BMP too (found by the fuzzer).
  const auto marks = slideshow::ReadSlideShowText(
      File({"SlideShow", "/f", "4", "xa.jpg", " b.jpg", ".c.jpg", QStringLiteral("\U0001F600d.jpg")}), english);
  EXPECT_EQ(marks->Rows,
            (std::vector<SlideShowRow>{{"a.jpg", true}, {"b.jpg", false}, {"c.jpg", true}, {"d.jpg", true}}));
}

TEST(SlideShowSequence, StartsAtTheSelectedCheckedRowAndWraps) {
  std::mt19937 generator(7);
  const std::vector<SlideShowRow> rows = {{"1", true}, {"2", false}, {"3", true}, {"4", true}, {"5", true}, {"6", true}};
  EXPECT_EQ(slideshow::BuildSequence(rows, 4, false, generator), QStringList({"5", "6", "1", "3", "4"}));
  EXPECT_EQ(slideshow::BuildSequence(rows, 1, false, generator), QStringList({"1", "3", "4", "5", "6"}));  // unchecked
  const QStringList shuffled = slideshow::BuildSequence(rows, 4, true, generator);
  EXPECT_EQ(QSet<QString>(shuffled.begin(), shuffled.end()), QSet<QString>({"1", "3", "4", "5", "6"}));
  EXPECT_NE(shuffled, QStringList({"1", "3", "4", "5", "6"}));
}

TEST(SlideShowSequence, StepsEndRepeatOrWrap) {
  std::mt19937 generator(7);
  slideshow::PlayOrder once(QStringList{"a", "b"}, false, false, generator);
  EXPECT_EQ(once.Back(), slideshow::PlayOrder::Step::Nothing);
  EXPECT_EQ(once.Forward(), slideshow::PlayOrder::Step::Show);
  EXPECT_EQ(once.Forward(), slideshow::PlayOrder::Step::End);
  slideshow::PlayOrder repeating(QStringList{"a", "b"}, false, true, generator);
  EXPECT_EQ(repeating.Back(), slideshow::PlayOrder::Step::Show);
  EXPECT_EQ(repeating.Current(), QStringLiteral("b"));
  EXPECT_EQ(repeating.Forward(), slideshow::PlayOrder::Step::Show);
  EXPECT_EQ(repeating.Current(), QStringLiteral("a"));
  slideshow::PlayOrder single(QStringList{"a"}, true, true, generator);
  EXPECT_EQ(single.Back(), slideshow::PlayOrder::Step::Nothing);  // random: no way back from the first
  EXPECT_EQ(single.Forward(), slideshow::PlayOrder::Step::Show);
}

}  // namespace
