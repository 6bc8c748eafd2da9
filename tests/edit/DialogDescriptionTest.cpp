// The dialog descriptions: how one is read when it ends early or bends, and the eighteen of the program, each checked for what a broken one would show the user
// (a dialog without a title, a link to nothing, clashing tab stops, a value outside its
// slider). Where the controls land is judged on the dialogs themselves.
#include "edit/DialogDescription.h"
#include "edit/DialogDescriptions.h"

#include <QSet>

#include <gtest/gtest.h>

namespace {

using edit::ControlKind;
using edit::ParseDialogDescription;
using edit::DialogControl;

TEST(ParseDialogDescription, BlendWithOnlyClassWindowAndPreview) {
  const auto layout = ParseDialogDescription(QStringLiteral("cla,Blend,ven,40,27,Blend,pre,24,1"));
  ASSERT_TRUE(layout.Title && layout.WindowWidth && layout.WindowHeight && layout.HasPreview());
  EXPECT_EQ(std::tuple(layout.DialogClass, *layout.Title, *layout.WindowWidth, *layout.WindowHeight),
            std::tuple(QStringLiteral("Blend"), QStringLiteral("Blend"), 4800, 3240));
  EXPECT_TRUE(layout.Controls.empty());
  EXPECT_EQ(std::tuple(*layout.PreviewX, *layout.PreviewY, layout.OkTabIndex, layout.CancelTabIndex),
            std::tuple(24 * 120, 120, 0, 1));
}

// Short clauses: what the parser makes of descriptions that end or bend early.
TEST(ParseDialogDescription, ShortClauses) {
  const auto preview = [](const char* text) {
    const auto layout = ParseDialogDescription(QLatin1String(text));
    return layout.HasPreview() ? QStringLiteral("%1 %2").arg(*layout.PreviewX).arg(*layout.PreviewY) : QString();
  };
  EXPECT_EQ(preview("CLA,Blend,VEN,40,27,Blend,Pre,24,1,"), QStringLiteral("2880 120"));  // keywords in any case
  EXPECT_EQ(preview("cla,Blend,pre,24"), QStringLiteral("2880 0"));                       // a missing Y reads empty
  EXPECT_EQ(preview("cla,Blend,pre"), QString());  // a keyword without a comma after it ends the text
  const auto bare = ParseDialogDescription(QStringLiteral("let,1,1,x,"));
  EXPECT_FALSE(bare.Title || bare.WindowWidth);
  EXPECT_TRUE(bare.DialogClass.isEmpty());
  EXPECT_TRUE(ParseDialogDescription(QString()).Controls.empty());
  const QString twoBoxes = QStringLiteral("tex,1,3,4,2,tex,1,9,4,2,");
  EXPECT_EQ(ParseDialogDescription(twoBoxes).Controls.back().Index, 2);
  EXPECT_EQ(ParseDialogDescription(twoBoxes).Controls.back().Index, 2);  // each parse counts from one
  EXPECT_EQ(ParseDialogDescription(twoBoxes).Find(ControlKind::TextBox, 1)->Link, 2);  // boxes may share a link
}

TEST(ParseDialogDescription, ControlsAreNumberedPerKindAndTabbedInClauseOrder) {
  const auto layout = ParseDialogDescription(
      QStringLiteral("let,1,1,a,tex,1,3,4,1,let,6,1,b,con,6,3,16,0,10,0,1,opt,1,8,24,o,che,1,9,5,c,bot,1,9,5,90,"));
  EXPECT_EQ(layout.Find(ControlKind::Label, 2)->TabIndex, 2);
  EXPECT_EQ(layout.Find(ControlKind::Slider, 1)->TabIndex, 3);
  EXPECT_EQ(layout.Find(ControlKind::Button, 1)->Caption, QStringLiteral("90"));
  EXPECT_EQ(std::tuple(layout.OkTabIndex, layout.CancelTabIndex), std::tuple(7, 8));
}

TEST(DialogDescriptions, EachDescribesAWholeUsableDialog) {
  ASSERT_EQ(edit::DialogDescriptions().size(), 18u);
  for (const auto& entry : edit::DialogDescriptions()) {
    SCOPED_TRACE(static_cast<int>(entry.Command));
    const edit::DialogLayout layout = edit::ParseDialogDescription(entry.Description);
    EXPECT_FALSE(layout.DialogClass.isEmpty());
    ASSERT_TRUE(layout.Title && layout.WindowWidth && layout.WindowHeight);
    EXPECT_FALSE(layout.Title->isEmpty());
    QSet<int> tabs{layout.OkTabIndex, layout.CancelTabIndex};
    for (const DialogControl& c : layout.Controls) {
      if (c.Kind != ControlKind::Label) {
        EXPECT_FALSE(tabs.contains(c.TabIndex)) << "tab " << c.TabIndex;
        tabs.insert(c.TabIndex);
      }
      if (c.Kind == ControlKind::Slider) {
        EXPECT_LE(c.Minimum, c.Value);
        EXPECT_LE(c.Value, c.Maximum);
      }
      if ((c.Kind == ControlKind::TextBox || c.Kind == ControlKind::Slider) && c.Link != 0) {
        const ControlKind other = c.Kind == ControlKind::TextBox ? ControlKind::Slider : ControlKind::TextBox;
        const DialogControl* partner = layout.Find(other, c.Link);
        EXPECT_NE(partner, nullptr);  // Motion Blur's third box drives slider 2, as written
      }
    }
  }
}

}  // namespace
