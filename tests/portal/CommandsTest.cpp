#include "portal/Commands.h"

#include <gmock/gmock.h>

#include <cerrno>

#include "tests/support/RunProgram.h"

namespace {

using testing::ElementsAre;

}  // namespace

TEST(PortalCommands, ShowTheDialog) {
  EXPECT_THAT(
      ShowCommand("/bin/pdeprint", {"x11:5", "Report", "Editor", "Print"}, "Office", "/t"),
      ElementsAre("/bin/pdeprint", "show", "--json", "--alert", "--parent=x11:5", "--title=Report",
                  "--app=Editor", "--accept-label=Print", "--queue=Office", "--ticket=/t"));
}

TEST(PortalCommands, LeaveOutWhatIsNotKnown) {
  EXPECT_THAT(ShowCommand("/bin/pdeprint", {}, "", "/t", "/d"),
              ElementsAre("/bin/pdeprint", "show", "--json", "--alert", "--ticket=/t", "/d"));
}

TEST(PortalCommands, TakeNoTextForAnOption) {
  EXPECT_THAT(PrintCommand("/bin/pdeprint", "--help", "Office", "/t", "/d"),
              ElementsAre("/bin/pdeprint", "print", "--alert", "--title=--help", "--queue=Office",
                          "--ticket=/t", "/d"));
}

TEST(PortalCommands, SayWhyADocumentCannotBePrinted) {
  const RunResult result =
      RunProgram(ComplainCommand(kPdeprint, "Report", ENODATA),
                 {.environment = {{"DISPLAY", std::nullopt}, {"LANGUAGE", "en"}}});
  EXPECT_EQ(1, result.status);
  EXPECT_EQ("pdeprint: cannot print \"Report\": No data available\n", result.err);
}

TEST(PortalCommands, RunTheProgramBesideThisOne) {
  // The tests' own folder has none.
  EXPECT_EQ(BINARY_DIRECTORY "/tests/bin/pdeprint", FindPdeprint());
}
