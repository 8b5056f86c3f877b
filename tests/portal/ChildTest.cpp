#include "portal/Child.h"

#include <gtest/gtest.h>
#include <poll.h>
#include <sys/wait.h>

#include <csignal>
#include <fstream>

#include "tests/support/Patience.h"
#include "tests/support/TemporaryFolder.h"

namespace {

class ChildTest : public testing::Test {
 protected:
  static int EndOf(Child &child) {
    pollfd end = {child.end(), POLLIN, 0};
    poll(&end, 1, static_cast<int>(std::chrono::milliseconds(kPatience).count()));
    return child.TakeStatus().value_or(-1);
  }
  std::filesystem::path out() const { return folder_.path() / "out"; }
  Child Shell(const std::string &commands) const {
    return Child::Run({"/bin/sh", "-c", commands}, out());
  }

  TemporaryFolder folder_;
};

}  // namespace

TEST_F(ChildTest, SaysItsStatusAndKeepsWhatItWrote) {
  Child child = Shell("echo here; exit 3");
  EXPECT_EQ(3, EndOf(child));
  EXPECT_EQ("here\n", ContentOf(out()));
  EXPECT_EQ(std::nullopt, child.TakeStatus());
}

TEST_F(ChildTest, HasNoInput) {
  Child child = Shell("wc -c");
  EXPECT_EQ(0, EndOf(child));
  EXPECT_EQ("0\n", ContentOf(out()));
}

TEST_F(ChildTest, SaysThatAProgramCannotBeRun) {
  Child child = Child::Run({"/nowhere/at/all"}, out());
  EXPECT_EQ(127, EndOf(child));
}

TEST_F(ChildTest, SaysWhichSignalEndedIt) {
  Child child = Shell("kill -9 $$");
  EXPECT_EQ(128 + SIGKILL, EndOf(child));
}

TEST_F(ChildTest, HearsSignalsThatAreBlockedHere) {
  sigset_t signals, before;
  sigemptyset(&signals);
  sigaddset(&signals, SIGTERM);
  sigprocmask(SIG_BLOCK, &signals, &before);
  Child child = Shell("exec sleep 1000");
  sigprocmask(SIG_SETMASK, &before, nullptr);
  child.Signal(SIGTERM);
  EXPECT_EQ(128 + SIGTERM, EndOf(child));
}

TEST_F(ChildTest, WorksInACopyOfTheProcess) {
  int here = 1;
  Child child = Child::Work([&here] { return here = 5; });
  EXPECT_EQ(5, EndOf(child));
  EXPECT_EQ(1, here);
}

TEST_F(ChildTest, EndsWithItsParent) {
  const auto number = folder_.path() / "number";
  const pid_t parent = fork();
  if (parent == 0) {
    const Child child = Shell("echo $$ >" + number.string() + "; exec sleep 1000");
    pause();
    _exit(0);
  }
  ASSERT_TRUE(Becomes([&] { return ContentOf(number).ends_with('\n'); }));
  const pid_t process = std::stoi(ContentOf(number));
  kill(parent, SIGKILL);
  waitpid(parent, nullptr, 0);
  EXPECT_TRUE(Becomes([process] { return kill(process, 0) != 0; }));
}
