// Print-settings calls that fail, each in its turn, while a verb works.

#include <gmock/gmock.h>

#include "host/command/Commands.h"
#include "tests/host/command/ServedProgram.h"
#include "tests/support/Interposed.h"
#include "tests/support/NumberingPPD.h"

using testing::HasSubstr;
using testing::StartsWith;

namespace {

constexpr int kOutOfScope = -30871;
constexpr int kItemIsLocked = -9586;
const char kBuiltBundle[] = BINARY_DIRECTORY "/BackgroundNumbering.plugin";

struct Outcome {
  int status = -1;
  std::string out;
  std::string err;
  int calls = 0;
  std::string failed;  // the call
};

// The verb in this process, with one call that fails.
template <typename Verb>
Outcome WithFailingCall(int call, int failure, Verb verb) {
  Outcome outcome;
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  interposed::FailCall(call, failure);
  outcome.status = verb();
  outcome.calls = interposed::CallsCounted();
  outcome.failed = interposed::FailedCall();
  interposed::FailCall(0, 0);
  outcome.out = testing::internal::GetCapturedStdout();
  outcome.err = testing::internal::GetCapturedStderr();
  return outcome;
}

// Without the summary, which a panel makes of what it can read.
std::string JobOptionsIn(const std::string &report) {
  const size_t begin = report.find("Job options:\n");
  return begin == std::string::npos ? "" : report.substr(begin, report.find("Ticket:") - begin);
}

const std::map<std::string, std::string> kTicket = {{"VQBNSize", "Large"},
                                                    {"VQBackgroundNumbering", "On"},
                                                    {"page-ranges", "3,1"},
                                                    {"number-up", "2"}};

class SettingsFaults : public ServedProgram {
 protected:
  static void SetUpTestSuite() {
    StartServer();
    const TemporaryFolder folder;
    server().AddQueue({.name = "Office",
                       .ppd = folder.Write("color.ppd", NumberingPPDText(/*color=*/true)),
                       .stopped = "Paused",
                       .is_default = true});
  }

  JobSource Source() {
    JobSource source;
    source.plugin = kBuiltBundle;
    source.preset = "Draft";
    source.ticket = folder_.Write("ticket.plist", TicketText(kTicket));
    return source;
  }

  TemporaryFolder config_;
  const EnvironmentVariable variable_{"XDG_CONFIG_HOME", config_.path().string()};
  const std::string preset_ = config_.Write(
      "pdeprint/presets/Draft.plist",
      TicketText({{"VQBNSize", "Small"}, {"VQBNColor", "Red"}, {"Duplex", "DuplexTumble"}}));
};

}  // namespace

TEST_F(SettingsFaults, ATicketIsWrittenWholeOrNotAtAll) {
  const std::string ppd = folder_.Write("color.ppd", NumberingPPDText(/*color=*/true));
  std::string written;
  const auto settings = [&](int call, int failure) {
    SettingsOptions options;
    static_cast<JobSource &>(options) = Source();
    options.ppd = ppd;
    options.set = {"StartNumber=25", "InputSlot=Tray1"};
    const Outcome outcome = WithFailingCall(call, failure, [&] { return Settings(options); });
    written = ContentOf(options.ticket);
    return outcome;
  };
  const Outcome whole = settings(0, 0);
  ASSERT_EQ(0, whole.status) << whole.err;
  const std::string expected = written;
  for (const char *line : {"VQStartNumber=25", "InputSlot=Tray1", "VQBNSize=Large", "VQBNColor=Red",
                           "page-ranges=1,3"}) {
    ASSERT_THAT(JobOptionsIn(whole.out), HasSubstr("  " + std::string(line) + '\n')) << whole.out;
  }
  ASSERT_GT(whole.calls, 80);
  int failures = 0;
  for (int call = 1; call <= whole.calls; ++call) {
    const Outcome outcome = settings(call, kOutOfScope);
    SCOPED_TRACE("call " + std::to_string(call) + ": " + outcome.failed + ": " + outcome.err);
    ASSERT_NE("", outcome.failed);
    if (outcome.status == 0) {
      EXPECT_EQ(expected, written);
      EXPECT_EQ(JobOptionsIn(whole.out), JobOptionsIn(outcome.out));
      continue;
    }
    ++failures;
    EXPECT_EQ(1, outcome.status);
    EXPECT_THAT(outcome.err, StartsWith("pdeprint: "));
    EXPECT_EQ("", outcome.out);
    EXPECT_EQ(TicketText(kTicket), written);
  }
  EXPECT_GT(failures, 40);
}

TEST_F(SettingsFaults, AJobIsSentAsItShouldBeOrNotAtAll) {
  const ServerEnvironment environment(server());
  const std::string file = folder_.Write("page.ps", "%!PS\nshowpage\n");
  const auto print = [&](int call, int failure) {
    PrintOptions options;
    static_cast<JobSource &>(options) = Source();
    options.queue = "Office";
    options.set = {"StartNumber=25", "InputSlot=Tray1"};
    options.files = {file};
    return WithFailingCall(call, failure, [&] { return Print(options); });
  };
  const auto job_of = [](const Outcome &outcome) {
    std::map<std::string, std::string> sent;
    const int number = std::atoi(outcome.out.substr(outcome.out.find('-') + 1).c_str());
    for (auto &[name, value] : server().JobAttributes(number)) {
      for (const char *option : {"VQ", "Duplex", "InputSlot", "number-up", "page-ranges"}) {
        if (name.starts_with(option)) sent[name] = value;
      }
    }
    return sent;
  };
  const Outcome whole = print(0, 0);
  ASSERT_EQ(0, whole.status) << whole.err;
  const std::map<std::string, std::string> expected = job_of(whole);
  EXPECT_EQ("25", expected.at("VQStartNumber"));
  EXPECT_EQ("Large", expected.at("VQBNSize"));
  EXPECT_EQ("DuplexTumble", expected.at("Duplex"));
  size_t jobs = server().LiveJobs().size();
  for (int call = 1; call <= whole.calls; ++call) {
    const Outcome outcome = print(call, kOutOfScope);
    SCOPED_TRACE("call " + std::to_string(call) + ": " + outcome.failed + ": " + outcome.err);
    if (outcome.status == 0) {
      EXPECT_EQ(expected, job_of(outcome));
      ++jobs;
    } else {
      EXPECT_THAT(outcome.err, StartsWith("pdeprint: "));
    }
    EXPECT_EQ(jobs, server().LiveJobs().size());
  }
}

// As by an extension that has locked the keys of its settings.
TEST_F(SettingsFaults, AChangeOfALockedSettingIsNeverLostWithoutAWord) {
  const std::string ppd = folder_.Write("color.ppd", NumberingPPDText(/*color=*/true));
  const auto settings = [&](int call, int failure) {
    SettingsOptions options;
    options.plugin = kBuiltBundle;
    options.ppd = ppd;
    options.set = {"StartNumber=25", "InputSlot=Tray1", "Valid=On"};
    return WithFailingCall(call, failure, [&] { return Settings(options); });
  };
  const Outcome whole = settings(0, 0);
  ASSERT_EQ(0, whole.status) << whole.err;
  for (int call = 1; call <= whole.calls; ++call) {
    const Outcome outcome = settings(call, kItemIsLocked);
    SCOPED_TRACE("call " + std::to_string(call) + ": " + outcome.failed);
    if (outcome.status != 0) {
      EXPECT_THAT(outcome.err, StartsWith("pdeprint: "));
      continue;
    }
    for (const char *line :
         {"  VQStartNumber=25\n", "  InputSlot=Tray1\n", "  VQBackgroundNumbering=On\n"}) {
      EXPECT_THAT(outcome.out, HasSubstr(line));
    }
  }
}
