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

TEST(ShowVerb, ToldInJsonAFailureHasItsReason) {
  const RunResult result = RunPdeprint({"show", "--json", "--ppd", "/absent.ppd"});
  EXPECT_EQ(1, result.status);
  EXPECT_EQ(Json::parse(R"({"outcome": "failed",
                            "reason": "cannot read /absent.ppd: no such file"})"),
            Parsed(result.out));
  const RunResult no_display = RunPdeprint({"show", "--json", "--alert", "--ppd", kColorPPD});
  EXPECT_EQ(1, no_display.status);
  EXPECT_THAT(Parsed(no_display.out)["reason"], HasSubstr("there is no display"));
}

TEST(ShowVerb, AParentThatIsNoWindowIsWrongUsage) {
  for (const char *parent : {"1a2b", "x11:", "x11:0", "x11:window", "x11:123456789", "x12:1"}) {
    const RunResult result = RunPdeprint({"show", "--parent", parent});
    EXPECT_EQ(2, result.status) << parent;
    EXPECT_THAT(result.err, HasSubstr("--parent: must be x11: and the number of a window"))
        << parent;
  }
}

TEST(ShowVerb, FailsBeforeItNeedsADisplayIfAFileIsWrong) {
  const RunResult result = RunPdeprint({"show", "--ppd", "/absent.ppd"});
  EXPECT_EQ(1, result.status);
  EXPECT_EQ("pdeprint: cannot read /absent.ppd: no such file\n", result.err);
}
