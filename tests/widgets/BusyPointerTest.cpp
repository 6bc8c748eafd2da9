// The busy pointer as scopes: nested work keeps it until the outermost ends, and a
// question in the middle gives the normal pointer back only while it is asked.
#include "widgets/BusyPointer.h"

#include <gtest/gtest.h>

namespace {

TEST(BusyPointer, NestedScopesAndAQuestionInTheMiddle) {
  EXPECT_FALSE(widgets::IsBusyPointer());
  {
    widgets::BusyPointerGuard outer;
    {
      widgets::BusyPointerGuard inner;
      {
        widgets::NormalPointerGuard question;
        EXPECT_FALSE(widgets::IsBusyPointer());
      }
      EXPECT_TRUE(widgets::IsBusyPointer());
    }
    EXPECT_TRUE(widgets::IsBusyPointer());  // the inner work's end leaves the outer work busy
  }
  EXPECT_FALSE(widgets::IsBusyPointer());
  widgets::NormalPointerGuard idle;  // with nothing busy a question changes nothing
  EXPECT_FALSE(widgets::IsBusyPointer());
}

}  // namespace
