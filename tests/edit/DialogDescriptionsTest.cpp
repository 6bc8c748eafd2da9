// The eighteen dialog descriptions, each checked for what a broken one would show the
// user: a dialog without a title, a link to nothing, clashing tab stops, a value outside
// its slider. Where the controls land is judged on the dialogs themselves.
#include "edit/DialogDescription.h"
#include "edit/DialogDescriptions.h"

#include <QSet>

#include <gtest/gtest.h>

namespace {

using edit::ControlKind;
using edit::DialogControl;

TEST(DialogDescriptions, EachDescribesAWholeUsableDialog) {
  ASSERT_EQ(edit::DialogDescriptions().size(), 18u);
  for (const auto& entry : edit::DialogDescriptions()) {
    const QString command = QLatin1String(entry.Command);
    SCOPED_TRACE(command.toStdString());
    const edit::DialogLayout layout = edit::ParseDialogDescription(edit::DialogDescriptionFor(command));
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
