// The editing commands' table: names, dialogs, parameters against the descriptions, the
// value reading with its fallbacks, and vistrel-cli's operation words.
#include "edit/Catalogue.h"
#include "edit/DialogDescription.h"
#include "edit/DialogDescriptions.h"


#include <gtest/gtest.h>

namespace {

using edit::Catalogue;
using edit::CommandFor;
using Id = edit::OperationId;
using edit::ParseOperationChain;

QStringList Words(const char* text) { return QString::fromLatin1(text).split(u' ', Qt::SkipEmptyParts); }

edit::DialogValues AtLoad(Id command, const edit::DialogContext& context = {800 * 15, 600 * 15, 15, 15}) {
  edit::DialogModel model(edit::ParseDialogDescription(edit::DialogDescriptionFor(command)), context);
  model.Initialize();
  return model.Values();
}

TEST(Catalogue, ArgumentsComeFromTheBoxesTheOptionAndTheSelectionWithinTheRange) {
  edit::DialogValues values = AtLoad(Id::Perspective);
  values.Numbers = {40};
  values.SelectedOption = 3;
  EXPECT_EQ(edit::ArgumentsFrom(CommandFor(Id::Perspective), values), (edit::Arguments{40, 3}));
  EXPECT_EQ(edit::ArgumentsFrom(CommandFor(Id::Resize), AtLoad(Id::Resize)),
            (edit::Arguments{800, 600}));
  EXPECT_EQ(edit::ArgumentsFrom(CommandFor(Id::Crop), {}, QRect(3, 4, 5, 6)),
            (edit::Arguments{3, 4, 5, 6}));
  EXPECT_EQ(edit::ArgumentsFrom(CommandFor(Id::Gamma), AtLoad(Id::Gamma)),
            (edit::Arguments{100}));
  edit::DialogValues emptied;  // Gamma's box, emptied, reads 0: the preview clamps it into the range
  emptied.Numbers = {0};
  EXPECT_EQ(edit::ArgumentsFrom(CommandFor(Id::Gamma), emptied), (edit::Arguments{1}));
}

TEST(OperationChain, ReadsSeveralOperationsByUndoNameOrClassInAnyCase) {
  const edit::OperationChain chain = ParseOperationChain(
      Words("Brightness 20 negative Rotate 12.5 Resize 800 600 Crop 10 10 100 50 hsl 1 2 3 Hue/Saturation/Luminance 4 5 6"));
  ASSERT_TRUE(chain.Error.isEmpty()) << chain.Error.toStdString();
  ASSERT_EQ(chain.Steps.size(), 7u);
  EXPECT_EQ(chain.Steps[1].Command->Id, Id::Negative);
  EXPECT_EQ(chain.Steps[2].Values, (edit::Arguments{12.5}));
  EXPECT_EQ(chain.Steps[4].Values, (edit::Arguments{10, 10, 100, 50}));
  EXPECT_EQ(chain.Steps[5].Command->Id, Id::Hsl);
  EXPECT_EQ(chain.Steps[6].Command->Id, Id::Hsl);
  EXPECT_EQ(ParseOperationChain(Words("colordepth 4")).Steps.at(0).Command->Id, Id::ColorDepth4);  // by its bits
}

TEST(OperationChain, BadWordsGetAMessageNamingWhatIsAllowed) {
  EXPECT_EQ(ParseOperationChain(Words("Gamma 0")).Error,
            QStringLiteral("Gamma: value in hundredths must be from 1 to 1000, not 0"));
  EXPECT_EQ(ParseOperationChain(Words("Brightness 2.5")).Error,
            QStringLiteral("Brightness: value must be a whole number, not 2.5"));
  EXPECT_EQ(ParseOperationChain(Words("Noise 5")).Error,
            QStringLiteral("Noise takes 2 value(s): frequency (from 1 to 20), intensity (from 1 to 128)"));
  EXPECT_EQ(ParseOperationChain(Words("Crop 0 0 0 5")).Error, QStringLiteral("Crop: width must be at least 1, not 0"));
  EXPECT_EQ(ParseOperationChain(Words("ColorDepth 5")).Error, QStringLiteral("ColorDepth takes 1 value: bits (1, 4, 8 or 24)"));
  EXPECT_EQ(ParseOperationChain(Words("Sharpen x")).Error, QStringLiteral("Sharpen: \"x\" is not a number"));
  EXPECT_TRUE(ParseOperationChain(Words("Sepia")).Error.startsWith(QStringLiteral("Unknown operation \"Sepia\"; known: Brightness")));
  EXPECT_FALSE(ParseOperationChain({}).Error.isEmpty());
  EXPECT_TRUE(ParseOperationChain(Words("Negative Sepia")).Steps.empty());
}

}  // namespace
