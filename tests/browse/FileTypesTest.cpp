#include "browse/FileTypes.h"

#include <gtest/gtest.h>

namespace {

using browse::FileTypeDescription;

TEST(FileTypeDescription, IgnoresCaseAndBlanksAndNamesAnUnknownOne) {
  EXPECT_EQ(FileTypeDescription(QStringLiteral("XYZ")), QStringLiteral("XYZ file"));
  EXPECT_EQ(FileTypeDescription(QString()), QStringLiteral("File"));
  EXPECT_EQ(FileTypeDescription(QStringLiteral(" Jif ")), QStringLiteral("Jpeg image"));
}

}  // namespace
