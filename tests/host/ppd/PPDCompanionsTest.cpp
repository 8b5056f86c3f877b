// What a PPD file says belongs to choices: others in their place, and job options that go with
// them.

#include <gtest/gtest.h>

#include "tests/host/ppd/OpenedPPD.h"

namespace {

const std::string kPlace =
    WithOption("Place", "*DefaultPlace: Behind\n*Place Behind: \"\"\n*Place Over: \"\"\n");

PPDFile With(const std::string &attribute, const std::string &value) {
  return OpenLines(kPlace + "*" + attribute + ": \"" + value + "\"\n");
}

}  // namespace

TEST(PPDCompanions, AChoiceThatThePrinterLacksHasTheNamedOneInItsPlace) {
  const PPDFile ppd = With("PDESubstituteChoice", "Place Automatic Over");
  EXPECT_EQ("Over", ppd.SubstituteFor("Place", "Automatic"));
  EXPECT_EQ(std::nullopt, ppd.SubstituteFor("Place", "Elsewhere"));
  EXPECT_EQ(std::nullopt, ppd.SubstituteFor("PageSize", "Automatic"));
}

TEST(PPDCompanions, AChoiceThatThePrinterHasIsTakenAsItIs) {
  EXPECT_EQ(std::nullopt,
            With("PDESubstituteChoice", "Place Behind Over").SubstituteFor("Place", "Behind"));
}

TEST(PPDCompanions, OneInThePlaceMustBeThere) {
  for (const char *value : {"Place Automatic Nowhere", "Place Automatic", "Place", ""}) {
    EXPECT_EQ(std::nullopt, With("PDESubstituteChoice", value).SubstituteFor("Place", "Automatic"))
        << value;
  }
}

TEST(PPDCompanions, AJobOptionGoesWithTheChoiceThatTheJobComesTo) {
  const PPDFile over = With("PDEJobOption", "Place Over renderer=best");
  EXPECT_EQ((JobOptions{{"renderer", "best"}}), over.GoingWith({{"Place", "Over"}}));
  EXPECT_EQ(JobOptions(), over.GoingWith({{"Place", "Behind"}}));
  EXPECT_EQ(JobOptions(), over.GoingWith({}));
  EXPECT_EQ((JobOptions{{"renderer", "best"}}),
            With("PDEJobOption", "Place Behind renderer=best").GoingWith({}))
      << "the default";
}

TEST(PPDCompanions, WhatIsNoJobOptionGoesWithNothing) {
  for (const char *value : {"Place Over renderer", "Place Over =best", "Place Over", ""}) {
    EXPECT_EQ(JobOptions(), With("PDEJobOption", value).GoingWith({{"Place", "Over"}})) << value;
  }
}
