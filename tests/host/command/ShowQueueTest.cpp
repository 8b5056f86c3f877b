// The built program's dialog on a queue of a real server.

#include <gmock/gmock.h>

#include <algorithm>
#include <memory>

#include "tests/support/NumberingPPD.h"
#include "tests/support/Patience.h"
#include "tests/support/PrivateServer.h"

namespace fs = std::filesystem;

namespace {

using namespace std::chrono_literals;
using testing::StartsWith;
using Arguments = std::vector<std::string>;

class ShowQueue : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    folder_ = new TemporaryFolder;
    server_ = new PrivateServer;
    server_->AddQueue({.name = "Office",
                       .ppd = folder_->Write("color.ppd", NumberingPPDText(true)),
                       .is_default = true});
  }
  static void TearDownTestSuite() {
    delete server_;
    delete folder_;
  }

  ShowQueue() : file_(config_.Write("page.ps", "%!PS-Adobe-3.0\nshowpage\n")) {}

  RunOptions Options() const {
    RunOptions options{.environment = server_->Environment()};
    options.environment["XDG_CONFIG_HOME"] = config_.path().string();
    options.environment["LANGUAGE"] = "en";
    return options;
  }

  // Presses the key again and again until the program has ended: a dialog that has no printer yet
  // does not print.
  RunResult ShowAndPress(const Arguments &arguments, const std::string &key) const {
    Arguments command = {kPdeprint, "show"};
    command.insert(command.end(), arguments.begin(), arguments.end());
    RunningProgram program(command, Options());
    Becomes([&] {
      if (program.HasEnded(250ms)) return true;
      RunProgram({"sh", "-c",
                  "window=$(xdotool search --onlyvisible --name '^Print' 2>/dev/null | tail -n 1)\n"
                  "[ -n \"$window\" ] && timeout 5 xdotool windowactivate --sync \"$window\" "
                  "2>/dev/null && xdotool key " +
                      key});
      return false;
    });
    return program.Wait(1ms);
  }

  RunResult Run(const Arguments &arguments) const { return RunPdeprint(arguments, Options()); }

  fs::path presets() const { return config_.path() / "pdeprint/presets"; }

  static PrivateServer *server_;
  static TemporaryFolder *folder_;
  TemporaryFolder config_;
  const std::string file_;
};

PrivateServer *ShowQueue::server_ = nullptr;
TemporaryFolder *ShowQueue::folder_ = nullptr;

int JobOf(const RunResult &result) {
  const std::string start = "request id is Office-";
  if (!result.out.starts_with(start)) return 0;
  return std::stoi(result.out.substr(start.size()));
}

}  // namespace

TEST_F(ShowQueue, PrintsTheRequestIdAndKeepsTheSettingsAsLastUsed) {
  const std::string ticket = (config_.path() / "ticket.plist").string();
  RunResult result = Run({"settings", "-d", "Office", "--ticket", ticket, "--set", "Valid=On",
                          "--set", "StartNumber=25", "--set", "Duplex=DuplexTumble"});
  ASSERT_EQ(0, result.status) << result.err;
  result = ShowAndPress({"--ticket", ticket, file_}, "Return");
  EXPECT_EQ(0, result.status) << result.err;
  const int job = JobOf(result);
  EXPECT_EQ("request id is Office-" + std::to_string(job) + "\n", result.out);
  auto attributes = server_->JobAttributes(job);
  EXPECT_EQ("On", attributes["VQBackgroundNumbering"]);
  EXPECT_EQ("25", attributes["VQStartNumber"]);
  EXPECT_EQ("DuplexTumble", attributes["Duplex"]);

  result = Run({"print", "-P", "Last Used", file_});
  EXPECT_EQ(0, result.status) << result.err;
  EXPECT_EQ("25", server_->JobAttributes(JobOf(result))["VQStartNumber"]);
}

TEST_F(ShowQueue, BeginsWithAPreset) {
  ASSERT_EQ(0, Run({"settings", "-d", "Office", "--set", "Size=Large", "--ticket",
                    (config_.path() / "pdeprint-large.plist").string()})
                   .status);
  fs::create_directories(presets());
  fs::rename(config_.path() / "pdeprint-large.plist", presets() / "large.plist");
  const RunResult result = ShowAndPress({"-P", "large", file_}, "Return");
  EXPECT_EQ(0, result.status) << result.err;
  EXPECT_EQ("Large", server_->JobAttributes(JobOf(result))["VQBNSize"]);
}

TEST_F(ShowQueue, CancelChangesNothingAnywhere) {
  const std::string ticket = (config_.path() / "ticket.plist").string();
  const RunResult result = ShowAndPress({"--ticket", ticket, file_}, "Escape");
  EXPECT_EQ(1, result.status);
  EXPECT_EQ("", result.out);
  EXPECT_EQ("pdeprint: canceled; nothing was printed or saved\n", result.err);
  EXPECT_FALSE(fs::exists(ticket));
  EXPECT_FALSE(fs::exists(config_.path() / "pdeprint"));
}

TEST_F(ShowQueue, WithoutFilesTheChoicesAreSaidAndNothingIsPrinted) {
  const RunResult result = ShowAndPress({}, "Return");
  EXPECT_EQ(0, result.status) << result.err;
  EXPECT_THAT(result.out, StartsWith("Panel: Background Numbering\n"));
  EXPECT_FALSE(fs::exists(config_.path() / "pdeprint"));
}

TEST_F(ShowQueue, RefusesFilesThatCannotBePrintedBeforeItsWindowOpens) {
  const RunResult result = Run({"show", file_, "/absent.pdf"});
  EXPECT_EQ(1, result.status);
  EXPECT_EQ("pdeprint: cannot print /absent.pdf: no such file\n", result.err);
}

TEST_F(ShowQueue, RefusesAPresetThatIsNotThereAndNamesThoseThatAre) {
  fs::create_directories(presets());
  fs::copy_file(file_, presets() / "draft.plist");
  const RunResult result = Run({"show", "-P", "dratf", file_});
  EXPECT_EQ(1, result.status);
  EXPECT_EQ("pdeprint: there is no preset \"dratf\"; there are: draft\n", result.err);
}

// A convenience: the job is printed.
TEST_F(ShowQueue, SaysWhereTheSettingsCannotBeKeptAsLastUsed) {
  config_.Write("pdeprint", "a file where the folder should be");
  const RunResult result = ShowAndPress({file_}, "Return");
  EXPECT_EQ(0, result.status);
  EXPECT_NE(0, JobOf(result)) << result.out;
  EXPECT_THAT(
      result.err,
      StartsWith(
          "pdeprint: note: the settings are not kept as \"Last Used\": cannot make the folder " +
          presets().parent_path().string() + ": "));
}
