#include "browse/ListOrder.h"

#include <QStringList>

#include <algorithm>

#include <gtest/gtest.h>

namespace {

TEST(ListOrder, IgnoresCaseAndComparesNumbersByValue) {
  QStringList names = {"img10.jpg", "Img2.jpg", "b.png", "A.png", "img1.jpg", "img02.jpg"};
  std::sort(names.begin(), names.end(), browse::ListTextLess);
  // img02 and Img2 are equal by value and case; the plain comparison orders them.
  EXPECT_EQ(names, QStringList({"A.png", "b.png", "img1.jpg", "Img2.jpg", "img02.jpg", "img10.jpg"}));
}

TEST(ListOrder, IsTotalForNamesEqualButForCase) {
  EXPECT_NE(browse::CompareListText(QStringLiteral("a.jpg"), QStringLiteral("A.jpg")), 0);
  EXPECT_EQ(browse::CompareListText(QStringLiteral("a.jpg"), QStringLiteral("a.jpg")), 0);
  EXPECT_LT(browse::CompareListText(QStringLiteral("a"), QStringLiteral("a1")), 0);
}

}  // namespace
