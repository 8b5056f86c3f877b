// Files and results that there is no room for, or that must not be written.

#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include "tests/host/command/OptionsBundle.h"
#include "tests/host/command/ServedProgram.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/MarkOptions.h"
#include "tests/support/NumberingPPD.h"

namespace fs = std::filesystem;
using testing::EndsWith;
using testing::HasSubstr;

namespace {

const char kNoDisk[] = "(this machine allows no disk of a test's own)";

using Names = std::vector<std::string>;

const std::string kTicket = TicketText({{"VQBNSize", "Small"}});

Names NamesIn(const fs::path &folder) {
  Names names;
  for (const fs::directory_entry &entry : fs::directory_iterator(folder)) {
    names.push_back(entry.path().filename().string());
  }
  return names;
}

class NoRoom : public ServedProgram {
 protected:
  static void SetUpTestSuite() {
    StartServer();
    const TemporaryFolder folder;
    server().AddQueue({.name = "Office",
                       .ppd = folder.Write("color.ppd", NumberingPPDText(/*color=*/true)),
                       .is_default = true});
    server().AddQueue({.name = "Laser", .ppd = folder.Write("laser.ppd", PrinterText())});
  }

  // The exit status and what is written to standard error, "1: pdeprint: ...\n".
  RunResult RunHere(Arguments arguments, const EnvironmentChanges &changes = {}) const {
    arguments.insert(arguments.begin(), program_.path().string());
    RunOptions options = Options(changes);
    options.folder = folder_.path().string();
    return RunProgram(arguments, options);
  }
  std::string MessageOf(const Arguments &arguments) const {
    const RunResult result = RunHere(arguments);
    return std::to_string(result.status) + ": " + result.err;
  }
  std::string MessageInAReadOnlyFolder(const Arguments &arguments) const {
    if (chmod(folder_.path().c_str(), 0555) != 0) return "(the folder can be written)";
    std::string message = InChild([&]() -> std::string {
      return LosePrivilegesOfPrograms() ? MessageOf(arguments) : "(privileges stay)";
    });
    chmod(folder_.path().c_str(), 0755);
    return message;
  }

  // Beside the programs' own folder.
  std::string PPDWithNumbering() const {
    return ppds_.Write("color.ppd", NumberingPPDText(/*color=*/true));
  }
  std::string PPDToEnable() const { return ppds_.Write("in.ppd", PrinterText()); }

  ProgramWithOptions program_;
  TemporaryFolder ppds_;
  const std::string kSampleColor = SOURCE_DIRECTORY "/tests/support/SampleColor.ppd";
  const std::string plugin_ = BINARY_DIRECTORY "/BackgroundNumbering.plugin";
};

// Only a disk of the test's own can be filled without harm. Containers may forbid to mount one,
// even to root: what a write does that fails is seen there by the limit of a file's size.
class FullDisk : public NoRoom {
 protected:
  void SetUp() override {
    const std::string allowed =
        InChild([this]() -> std::string { return MountSmallDisk(folder_.path()) ? "yes" : "no"; });
    // Only a disk of its own can be filled without harm; containers may forbid to mount one.
    if (allowed != "yes") GTEST_SKIP() << kNoDisk;
  }

  // On a full disk on which there is nothing else than the one file.
  std::string OnAFullDisk(const std::string &name, const std::string &content,
                          const Arguments &arguments) const {
    return InChild([&]() -> std::string {
      if (!MountSmallDisk(folder_.path())) return kNoDisk;
      if (!name.empty()) folder_.Write(name, content);
      FillDisk(folder_.path());
      std::string message = MessageOf(arguments);
      Names names = NamesIn(folder_.path());
      std::erase(names, "filler");
      const Names expected = name.empty() ? Names{} : Names{name};
      if (names != expected) message += "something else is there\n";
      if (!name.empty() && ContentOf(folder_.path() / name) != content)
        message += "it is changed\n";
      return message;
    });
  }
};

}  // namespace

TEST_F(FullDisk, TheOldTicketStays) {
  const std::string ticket = folder_.path() / "ticket.plist";
  const std::string message =
      OnAFullDisk("ticket.plist", kTicket,
                  {"settings", "--plugin", plugin_, "--ppd", PPDWithNumbering(), "--ticket", ticket,
                   "--set", "Size=Large"});
  EXPECT_EQ("1: pdeprint: cannot write " + ticket + ": No space left on device\n", message);
}

TEST_F(NoRoom, TheOldTicketStaysInAReadOnlyFolder) {
  const std::string ticket = folder_.Write("ticket.plist", kTicket);
  EXPECT_EQ("1: pdeprint: cannot write " + ticket + ": Permission denied\n",
            MessageInAReadOnlyFolder({"settings", "--plugin", plugin_, "--ppd", PPDWithNumbering(),
                                      "--ticket", ticket, "--set", "Size=Large"}));
  EXPECT_EQ(kTicket, ContentOf(ticket));
}

// Not by its end, without a word.
TEST_F(NoRoom, AFileThatGetsLargerThanItMayIsAFailure) {
  const std::string ticket = folder_.Write("ticket.plist", kTicket);
  const std::string message = InChild([&]() -> std::string {
    const rlimit limit = {300, 300};
    if (setrlimit(RLIMIT_FSIZE, &limit) != 0) return "(there is no limit)";
    return MessageOf({"settings", "--plugin", plugin_, "--ppd", kSampleColor, "--ticket", ticket,
                      "--set", "Size=Large"});
  });
  EXPECT_EQ("1: pdeprint: cannot write " + ticket + ": File too large\n", message);
  EXPECT_EQ(kTicket, ContentOf(ticket));
  EXPECT_EQ(Names{"ticket.plist"}, NamesIn(folder_.path()));
}

TEST_F(FullDisk, TheOldPPDFileStays) {
  const std::string out = folder_.path() / "out.ppd";
  for (const char *verb : {"enable", "disable"}) {
    const std::string message = OnAFullDisk("out.ppd", "earlier", {verb, PPDToEnable(), "-o", out});
    EXPECT_THAT(message, EndsWith("pdeprint: cannot write " + out + ": No space left on device\n"));
  }
}

TEST_F(NoRoom, TheOldPPDFileStaysInAReadOnlyFolder) {
  const std::string out = folder_.Write("out.ppd", "earlier");
  for (const char *verb : {"enable", "disable"}) {
    EXPECT_THAT(MessageInAReadOnlyFolder({verb, PPDToEnable(), "-o", out}),
                HasSubstr("pdeprint: cannot write " + out + ": Permission denied\n"));
    EXPECT_EQ("earlier", ContentOf(out));
  }
}

TEST_F(NoRoom, AQueuesPPDFileThatCannotBeWrittenHereIsNamedAndLeavesNothing) {
  EXPECT_EQ("1: pdeprint: cannot write Laser.ppd: Permission denied\n",
            MessageInAReadOnlyFolder({"enable", "-d", "Laser"}));
  EXPECT_EQ(Names{}, NamesIn(folder_.path()));
}

TEST_F(FullDisk, AQueuesPPDFileIsNamedAndLeavesNothing) {
  EXPECT_EQ("1: pdeprint: cannot write Laser.ppd: No space left on device\n",
            OnAFullDisk("", "", {"enable", "-d", "Laser"}));
}

// Results that reach nobody are no success.
TEST_F(NoRoom, ResultsThatCannotBeWrittenAreAFailureOfEveryVerb) {
  const std::string ppd = PPDWithNumbering();
  const std::string file = folder_.Write("page.ps", "%!PS\nshowpage\n");
  for (const Arguments &arguments : {
           Arguments{"--help"},
           Arguments{"--version"},
           Arguments{"print", "--help"},
           Arguments{"check", ppd},
           Arguments{"check", "--json", ppd},
           Arguments{"check", "-d", "Office"},
           Arguments{"queues"},
           Arguments{"queues", "--json"},
           Arguments{"settings", "--ppd", ppd, "--plugin", plugin_},
           Arguments{"settings", "--json", "--ppd", ppd, "--plugin", plugin_},
           Arguments{"print", "--plugin", plugin_, file},
           Arguments{"enable", PPDToEnable(), "-o", folder_.path() / "out.ppd"},
           Arguments{"disable", PPDToEnable(), "-o", folder_.path() / "out.ppd"},
           Arguments{"enable", "-d", "Laser", "-o", folder_.path() / "out.ppd"},
       }) {
    for (const auto &[out, why] :
         {std::pair("/dev/full", "No space left on device"), {"-", "Bad file descriptor"}}) {
      RunOptions options = Options();
      options.out = out;
      Arguments command = {program_.path().string()};
      const RunResult result = RunProgram(command + arguments, options);
      EXPECT_EQ(1, result.status) << testing::PrintToString(arguments) << " to " << out;
      EXPECT_THAT(result.err,
                  HasSubstr(std::string("pdeprint: cannot write the results to standard output: ") +
                            why + '\n'))
          << testing::PrintToString(arguments) << ": " << result.err;
    }
  }
}

// A script that only saw a failure would print again.
TEST_F(NoRoom, AJobWhoseNumberCannotBeWrittenIsToldAsSent) {
  RunOptions options = Options();
  options.out = "/dev/full";
  const RunResult result = RunProgram({program_.path().string(), "print", "--plugin", plugin_,
                                       folder_.Write("page.ps", "%!PS\nshowpage\n").string()},
                                      options);
  EXPECT_EQ(1, result.status);
  EXPECT_THAT(result.err, HasSubstr("pdeprint: request id is Office-"));
}

TEST_F(NoRoom, NoVerbNeedsAFolderForTemporaryFiles) {
  const TemporaryFolder empty;
  const std::string locked = empty.path() / "locked";
  fs::create_directory(locked);
  ASSERT_EQ(0, chmod(locked.c_str(), 0555));
  const std::string file = folder_.Write("page.ps", "%!PS\nshowpage\n");
  const std::string statuses = InChild([&]() -> std::string {
    if (!LosePrivilegesOfPrograms()) return "(privileges stay)";
    std::string text;
    for (const std::string &folder : {locked, std::string("/nowhere")}) {
      for (const Arguments &arguments :
           {Arguments{"print", "--plugin", plugin_, "--wait", "-d", "Office", file},
            Arguments{"settings", "--plugin", plugin_, "-d", "Office", "--ticket",
                      folder_.path() / "t.plist"},
            Arguments{"check", "-d", "Office"}, Arguments{"queues"},
            Arguments{"enable", "-d", "Laser", "--apply"},
            Arguments{"disable", "-d", "Laser", "--apply"},
            Arguments{"enable", "-d", "Laser", "-o", folder_.path() / "l.ppd"}}) {
        const RunResult result = RunHere(arguments, {{"TMPDIR", folder}, {"TEMP", folder}});
        text += std::to_string(result.status) + result.err;
      }
    }
    return text;
  });
  EXPECT_EQ("00000000000000", statuses);
  EXPECT_TRUE(fs::is_empty(locked));
}
