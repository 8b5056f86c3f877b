// The display that the tests of one run of ctest share.

#include <gmock/gmock.h>

#include <csignal>
#include <fstream>
#include <set>
#include <sstream>

#include "tests/support/Patience.h"
#include "tests/support/RunProgram.h"

using testing::HasSubstr;
using testing::StartsWith;

namespace {

const std::string kScript = SOURCE_DIRECTORY "/scripts/lib/on-shared-display";

// Runs lines in a shell, which is the parent of what they call; `share` shows a display's number.
std::vector<std::string> Shell(const std::string &lines) {
  return {"bash", "-c", "share() { " + kScript + " \"$1\" sh -c 'echo $DISPLAY'; }\n" + lines};
}

// The same as a command of its own: in the background it has the shell as its parent, too.
const std::string kShareA = kScript + " a sh -c 'echo $DISPLAY'";

std::vector<std::string> LinesOf(const RunResult &result) {
  EXPECT_EQ(0, result.status) << result.err;
  std::istringstream text(result.out);
  std::vector<std::string> lines;
  for (std::string line; std::getline(text, line);) lines.push_back(line);
  return lines;
}

bool IsUp(const std::string &display) {
  return RunProgram({"xprop", "-display", display, "-root", "_NET_SUPPORTED"}).status == 0;
}

void ExpectEnds(const std::string &display) {
  EXPECT_THAT(display, StartsWith(":"));
  EXPECT_TRUE(Becomes([&display] { return !IsUp(display); })) << display << " stays";
}

}  // namespace

TEST(SharedDisplay, IsOneForAllCommandsOfAParentAndEndsWithIt) {
  const auto displays =
      LinesOf(RunProgram(Shell(kShareA + '\n' + kShareA + " & " + kShareA + " & wait")));
  ASSERT_EQ(3u, displays.size());
  EXPECT_EQ(displays[0], displays[1]);
  EXPECT_EQ(displays[0], displays[2]);
  ExpectEnds(displays[0]);
}

TEST(SharedDisplay, IsAnotherUnderAnotherNameAndForAnotherParent) {
  const auto displays = LinesOf(RunProgram(Shell("share a\nshare b\n(share a; true)")));
  ASSERT_EQ(3u, displays.size());
  EXPECT_EQ(3u, (std::set<std::string>(displays.begin(), displays.end()).size()));
  for (const std::string &display : displays) ExpectEnds(display);
}

TEST(SharedDisplay, EndsWithAParentThatIsKilledAndSoDoTheCommandsOnIt) {
  const TemporaryFolder folder;
  const std::string seen = folder.path() / "seen";
  RunningProgram parent({"bash", "-c",
                         kScript +
                             " a sh -c 'echo $DISPLAY $$ >\"$0.new\"; mv \"$0.new\" \"$0\"; "
                             "exec sleep 1000' " +
                             seen + "\ntrue"});
  ASSERT_TRUE(Becomes([&seen] { return std::filesystem::exists(seen); }));
  std::istringstream line(ContentOf(seen));
  std::string display;
  pid_t command = 0;
  line >> display >> command;
  EXPECT_TRUE(IsUp(display));
  parent.Signal(SIGKILL);
  parent.Wait();
  ExpectEnds(display);
  EXPECT_TRUE(Becomes([command] { return kill(command, 0) != 0; }));
}

TEST(SharedDisplay, IsStartedAnewWhereItHasEndedByItself) {
  const auto displays = LinesOf(RunProgram(
      Shell("share a\nread -r display folder keeper </tmp/numbering-display.$$.*.a/display\n"
            "kill $keeper\nwhile [ -e $folder ]; do sleep 0.05; done\nshare a")));
  ASSERT_EQ(2u, displays.size());
  ExpectEnds(displays[1]);
}

TEST(SharedDisplay, AnswersWhatTheCommandDoes) {
  const RunResult result =
      RunProgram({"bash", "-c", kScript + " a sh -c 'echo said; exit 7'; exit $?"});
  EXPECT_EQ(7, result.status);
  EXPECT_EQ("said\n", result.out);
}

// Stands before the real one on the path, and fails as often as it is told to.
std::string WindowManagerThatFails(const TemporaryFolder &folder, int times) {
  const std::filesystem::path program = folder.path() / "openbox";
  std::ofstream(program) << "#!/bin/sh\necho failed >>\"${0%/*}/failures\"\n"
                         << "[ $(wc -l <\"${0%/*}/failures\") -le " << times
                         << " ] && { echo 'no display for me' >&2; exit 1; }\n"
                         << "PATH=${PATH#*:} exec openbox\n";
  std::filesystem::permissions(program, std::filesystem::perms::owner_all);
  return "PATH=" + folder.path().string() + ":$PATH\n";
}

TEST(SharedDisplay, IsTriedAgainWhereTheWindowManagerFailsAtFirst) {
  const TemporaryFolder folder;
  const auto displays = LinesOf(RunProgram(Shell(WindowManagerThatFails(folder, 2) + "share a")));
  ASSERT_EQ(1u, displays.size());
  ExpectEnds(displays[0]);
}

TEST(SharedDisplay, SaysWhyNoneComesUp) {
  const TemporaryFolder folder;
  const RunResult result = RunProgram(Shell(WindowManagerThatFails(folder, 1000) + "share a"));
  EXPECT_EQ(1, result.status);
  EXPECT_THAT(result.err, HasSubstr("no display for me"));
  EXPECT_THAT(result.err, HasSubstr("no display with a window manager comes up, tried 3 times"));
}
