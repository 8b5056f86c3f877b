#include "host/job/CommonOptions.h"

#include <gtest/gtest.h>

TEST(CommonOptions, TwoNamesMaySayTheSame) {
  EXPECT_TRUE(IsSameThing("landscape", "orientation-requested"));
  EXPECT_TRUE(IsSameThing("fit-to-page", "print-scaling"));
  EXPECT_TRUE(IsSameThing("Collate", "multiple-document-handling")) << "whatever the case";
  EXPECT_TRUE(IsSameThing("output-order", "outputorder"));
  EXPECT_FALSE(IsSameThing("landscape", "print-scaling"));
  EXPECT_FALSE(IsSameThing("copies", "copies")) << "it has one name";
  EXPECT_FALSE(IsSameThing("", ""));
}
