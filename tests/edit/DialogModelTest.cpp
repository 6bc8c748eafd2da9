// The parameter dialog's runtime on the model alone: linking, clamping, aspect lock, validation.
#include "edit/DialogDescriptions.h"
#include "edit/DialogModel.h"

#include <gtest/gtest.h>

namespace {

using edit::DialogModel;

DialogModel Dialog(edit::OperationId command, edit::DialogContext context = {}) {
  DialogModel model(edit::ParseDialogDescription(edit::DialogDescriptionFor(command)), context);
  model.Initialize();
  return model;
}

// An 800 x 600 pixel image at 15 twips per pixel.
const edit::DialogContext k800x600{800 * 15, 600 * 15, 15, 15};

TEST(DialogModel, AnEmptyBoxMovesTheSliderToItsMinimumAndOkAsksForAValue) {
  DialogModel brightness = Dialog(edit::OperationId::Brightness);
  brightness.TextChanged(1, QString());
  EXPECT_EQ(std::tuple(brightness.Text(1), brightness.SliderValue(1)), std::tuple(QString(), -100));
  const auto failure = brightness.Validate();
  ASSERT_TRUE(failure.has_value());
  EXPECT_EQ(std::tuple(failure->Message, failure->TextBox), std::tuple(QStringLiteral("Please enter a value"), 1));
  brightness.TextChanged(1, QStringLiteral("-"));
  EXPECT_EQ(brightness.SliderValue(1), -100);
  EXPECT_FALSE(brightness.Validate().has_value());  // "-" is a value; it reads 0
  EXPECT_EQ(brightness.Values().Number(1), 0);
}

// Resize shows the size with only the new size editable; what the other box of the new size
// holds after typing into one, aspect locked or not.
TEST(DialogModel, ResizeKeepsTheAspectWhenLocked) {
  DialogModel shown = Dialog(edit::OperationId::Resize, k800x600);
  EXPECT_EQ(std::tuple(shown.Text(1), shown.Text(2)), std::tuple(QStringLiteral("800"), QStringLiteral("600")));
  EXPECT_FALSE(shown.TextEnabled(1) || shown.TextEnabled(2));
  EXPECT_TRUE(shown.TextEnabled(3) && shown.Checked(1));
  struct Case {
    const char* what;
    int width, height;  // the image, in pixels
    bool locked;
    int box;  // 3 width, 4 height
    const char* typed;
    const char* other;
  };
  const Case cases[] = {
      {"width", 800, 600, true, 3, "400", "300"},
      {"height", 800, 600, true, 4, "150", "200"},
      {"halves round to even", 4, 1, true, 3, "10", "2"},
      {"blanks empty the other", 5, 3, true, 3, "  ", ""},
      {"a lone sign empties the other", 5, 3, true, 4, "+", ""},
      {"unlocked leaves it", 800, 600, false, 3, "400", "600"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    DialogModel resize = Dialog(edit::OperationId::Resize, {c.width * 15.0, c.height * 15.0, 15, 15});
    if (!c.locked) resize.CheckClicked(1, false);
    resize.TextChanged(c.box, QLatin1String(c.typed));
    EXPECT_EQ(resize.Text(7 - c.box), QLatin1String(c.other));
  }
  DialogModel relocked = Dialog(edit::OperationId::Resize, k800x600);
  relocked.CheckClicked(1, false);
  relocked.TextChanged(3, QStringLiteral("400"));
  relocked.CheckClicked(1, true);  // switching the lock on recomputes the height
  EXPECT_EQ(relocked.Text(4), QStringLiteral("300"));
}

}  // namespace
