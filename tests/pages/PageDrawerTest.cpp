// Pictures by a program that was there before it was needed.

#include <gmock/gmock.h>

#include <csignal>
#include <thread>

#include "host/pages/PdfPages.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/Patience.h"
#include "tests/support/RawPdf.h"
#include "tests/support/SupervisedPrograms.h"
#include "tests/support/TemporaryFolder.h"

using testing::ElementsAre;
using testing::SizeIs;

namespace {

class PageDrawerTest : public testing::Test {
 protected:
  bool Draw() {
    const std::string pdf =
        folder_.Write("page.pdf", RawPdf({{.content = "", .entries = "/MediaBox [0 0 90 90]"}}));
    const auto out = folder_.path() / "page.ppm";
    return drawer_.Draw({.room = {}, .dpi = 72}, pdf, 1, out, cancel_) &&
           std::filesystem::file_size(out) > size_t{90} * 90 * 3;
  }
  // The process that waits for the program begins before it.
  void AwaitBegun() {
    EXPECT_TRUE(Becomes([] { return SupervisedPrograms().size() == 1; }));
  }

  TemporaryFolder folder_;
  PageDrawer drawer_;
  std::atomic<bool> cancel_ = false;
};

bool HasEnded(int process) {
  const char state = StatusOf(process).state;
  return state == 'X' || state == 'Z';
}

}  // namespace

TEST_F(PageDrawerTest, HasAProgramReadyBeforeThereIsAPage) {
  drawer_.Begin();
  AwaitBegun();
  EXPECT_TRUE(Draw());
  EXPECT_THAT(SupervisedPrograms(), SizeIs(0));
}

TEST_F(PageDrawerTest, TheProgramOutlivesTheThreadThatHasBegunIt) {
  std::thread([this] { drawer_.Begin(); }).join();
  AwaitBegun();
  const std::vector<int> begun = SupervisedPrograms();
  std::thread([this] { drawer_.Begin(); }).join();
  EXPECT_THAT(SupervisedPrograms(), ElementsAre(begun.at(0)));
  EXPECT_TRUE(Draw());
}

TEST_F(PageDrawerTest, DrawsWithAnotherProgramWhereTheOneThatWasReadyHasEnded) {
  drawer_.Begin();
  AwaitBegun();
  for (const int program : SupervisedPrograms()) kill(program, SIGKILL);
  EXPECT_TRUE(Becomes([] { return SupervisedPrograms().empty(); }));
  EXPECT_TRUE(Draw());
}

TEST_F(PageDrawerTest, TheProgramEndsWithTheObject) {
  drawer_.Begin();
  AwaitBegun();
  drawer_.End();
  EXPECT_THAT(SupervisedPrograms(), SizeIs(0));
}

TEST_F(PageDrawerTest, TheProgramEndsWithThisOne) {
  const std::string begun = InChild([this] {
    drawer_.Begin();
    AwaitBegun();
    return std::to_string(SupervisedPrograms().at(0));
  });
  EXPECT_TRUE(Becomes([&begun] { return HasEnded(std::stoi(begun)); }));
}
