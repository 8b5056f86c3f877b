#include "host/base/Expected.h"

#include <gtest/gtest.h>

TEST(Expected, AFailureInOtherWordsStaysUnanswered) {
  const Failure silence = {.message = "no answer", .is_unanswered = true};
  const Failure reworded = silence.Reworded("cannot print: " + silence.message);
  EXPECT_EQ("cannot print: no answer", reworded.message);
  EXPECT_TRUE(reworded.is_unanswered);
}

TEST(Expected, AFailureInOtherWordsStaysAnAnswer) {
  EXPECT_FALSE(Failure{"refused"}.Reworded("cannot print: refused").is_unanswered);
}
