// The dialog on a queue that cannot number.

#include <gmock/gmock.h>

#include <chrono>

#include "tests/pages/PreparedServer.h"
#include "tests/support/RawPdf.h"

namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::HasSubstr;

class ShowHere : public UnpreparedQueues {
 protected:
  RunOptions OnScreen() const {
    RunOptions options = Options();
    options.environment.erase("DISPLAY");
    options.environment["XDG_CONFIG_HOME"] = folder_.path().string();
    return options;
  }
};

}  // namespace

TEST_F(ShowHere, PrintsWithNumbersThatAreChosenThere) {
  const std::string file = File("three.pdf", PlainPdf(3));
  RunningProgram program({kPdeprint, "show", "-d", "Pdf", file}, OnScreen());
  const std::string find =
      "window=$(xdotool search --onlyvisible --name '^Print' 2>/dev/null | tail -n 1)\n"
      "[ -n \"$window\" ] && timeout 5 xdotool windowactivate --sync \"$window\" && ";
  ASSERT_TRUE(Becomes([&] { return RunProgram({"sh", "-c", find + "true"}).status == 0; }));
  // The panel's first control, its switch: Tab leads there from the printers.
  Becomes([&] {
    if (program.HasEnded(500ms)) return true;
    RunProgram({"sh", "-c", find + "xdotool key Tab Tab Tab Tab Tab space Return"});
    return program.HasEnded(3s);
  });
  const RunResult result = program.Wait(1ms);
  EXPECT_EQ(result.status, 0) << result.err;
  ASSERT_THAT(result.out, HasSubstr("request id is Pdf-"));
  const int job = std::stoi(result.out.substr(result.out.rfind('-') + 1));
  ASSERT_TRUE(Becomes([&] { return server().JobAttributes(job)["job-state"] == "completed"; }));
  EXPECT_EQ(server().JobAttributes(job)["document-format"], "application/vnd.cups-pdf");
}
