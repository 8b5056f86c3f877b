#include "portal/Chosen.h"

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;
using testing::Pair;

}  // namespace

TEST(ReadResult, ReadsWhatThePrintDialogSays) {
  const DialogResult result = ReadResult(R"({"outcome": "accepted", "queue": "Office",
      "paper": {"name": "A4", "width": 210, "height": 297.04,
                "margins": {"top": 4.2, "bottom": 5, "left": 6, "right": 7}},
      "orientation": "portrait", "settings": {"Duplex": "None", "copies": "2"}})");
  EXPECT_EQ(Outcome::kAccepted, result.outcome);
  EXPECT_EQ("Office", result.chosen.queue);
  ASSERT_TRUE(result.chosen.paper);
  EXPECT_EQ("A4", result.chosen.paper->name);
  EXPECT_EQ(297.04, result.chosen.paper->height);
  EXPECT_EQ(4.2, result.chosen.paper->top);
  EXPECT_EQ(7, result.chosen.paper->right);
  EXPECT_THAT(result.chosen.settings, ElementsAre(Pair("Duplex", "None"), Pair("copies", "2")));
}

TEST(ReadResult, KnowsAllEnds) {
  EXPECT_EQ(Outcome::kPrinted, ReadResult(R"({"outcome": "printed", "job": 5})").outcome);
  EXPECT_EQ(Outcome::kSaved, ReadResult(R"({"outcome": "saved", "files": ["a.pdf"]})").outcome);
  EXPECT_EQ(Outcome::kCanceled, ReadResult(R"({"outcome": "canceled"})").outcome);
  EXPECT_EQ(Outcome::kFailed, ReadResult(R"({"outcome": "failed", "reason": "x"})").outcome);
}

TEST(ReadResult, TakesAnythingElseForAFailure) {
  for (const char *other : {"", "canceled", "[]", "null", "{", R"({"outcome": 5})",
                            R"({"outcome": "done"})", R"(["accepted"])"}) {
    EXPECT_EQ(Outcome::kFailed, ReadResult(other).outcome) << other;
  }
}

TEST(ReadResult, KnowsNoPaperWithoutASize) {
  for (const char *other : {R"({"outcome": "accepted"})", R"({"paper": null})",
                            R"({"paper": {"name": "A4"}})", R"({"paper": {"width": "210"}})"}) {
    EXPECT_FALSE(ReadResult(other).chosen.paper) << other;
  }
}
