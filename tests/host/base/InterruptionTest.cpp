#include "host/base/Interruption.h"

#include <gtest/gtest.h>

#include <csignal>

TEST(Interruption, ASignalSetsTheFlagAndEndsNothing) {
  std::atomic<bool> flag = false;
  const Interruption interruption(flag);
  raise(SIGTERM);
  EXPECT_TRUE(flag);
  EXPECT_TRUE(Interruption::Came());
}

// As with nohup, and in the background of a shell without job control.
TEST(Interruption, ASignalThatWasIgnoredBeforeStaysIgnored) {
  const auto before = signal(SIGHUP, SIG_IGN);
  std::atomic<bool> flag = false;
  {
    const Interruption interruption(flag);
    raise(SIGHUP);
  }
  EXPECT_FALSE(flag);
  EXPECT_FALSE(Interruption::Came());
  EXPECT_EQ(SIG_IGN, signal(SIGHUP, before));
}

TEST(Interruption, ASignalSetsTheFlagsOfAllThatLive) {
  std::atomic<bool> outer_flag = false;
  const Interruption outer(outer_flag);
  {
    std::atomic<bool> flag = false;
    const Interruption inner(flag);
    raise(SIGTERM);
    EXPECT_TRUE(flag);
    EXPECT_TRUE(outer_flag);
  }
  outer_flag = false;
  raise(SIGTERM);
  EXPECT_TRUE(outer_flag);
  EXPECT_TRUE(Interruption::Came());
}
