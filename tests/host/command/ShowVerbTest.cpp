// `pdeprint show` without a display.

#include <gmock/gmock.h>

#include "tests/host/command/BuiltProgram.h"

namespace fs = std::filesystem;
using testing::HasSubstr;

TEST(ShowVerb, FailsWithoutADisplayAndLeavesTheTicket) {
  TemporaryFolder folder;
  const fs::path ticket = folder.Write("ticket.plist", Ticket(Entry("VQBNSize", "Small")));
  const std::string before = ContentOf(ticket);
  for (const std::optional<std::string> &display :
       {std::optional<std::string>(), std::optional<std::string>(""),
        std::optional<std::string>(":9876"), std::optional<std::string>("nonsense")}) {
    const std::string picture = (folder.path() / "panel.png").string();
    const RunResult result = RunPdeprint(
        {"show", "--ppd", kColorPPD, "--ticket", ticket.string(), "--snapshot", picture},
        {.environment = {{"DISPLAY", display}}});
    EXPECT_EQ(1, result.status);
    EXPECT_EQ("", result.out);
    EXPECT_THAT(result.err,
                HasSubstr("pdeprint: there is no display to show a window on; set DISPLAY, or use "
                          "`pdeprint print` or `pdeprint settings`, which need none\n"));
    EXPECT_EQ(before, ContentOf(ticket));
    EXPECT_FALSE(fs::exists(picture));
  }
}

TEST(ShowVerb, FailsBeforeItNeedsADisplayIfAFileIsWrong) {
  const RunResult result = RunPdeprint({"show", "--ppd", "/absent.ppd"});
  EXPECT_EQ(1, result.status);
  EXPECT_EQ("pdeprint: cannot read /absent.ppd: no such file\n", result.err);
}
