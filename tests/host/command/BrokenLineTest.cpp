// The print server goes away between any two requests of a verb, or in the middle of one.

#include <gmock/gmock.h>

#include "tests/host/command/ServedProgram.h"
#include "tests/support/CuttingRelay.h"
#include "tests/support/MarkOptions.h"
#include "tests/support/NumberingPPD.h"
#include "tests/support/Slowdown.h"

namespace fs = std::filesystem;
using testing::AnyOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace {

// The head of an answer is shorter than this, and so is the head of a request.
constexpr size_t kIntoTheBody = 290;

// Where the line may break within a request, and what comes afterwards.
const std::vector<CutPlan> kBreaks = {
    {.cut = Cut::kReset},
    {.cut = Cut::kReset, .afterwards = Afterwards::kRefused},
    {.cut = Cut::kReset, .bytes = kIntoTheBody},
    {.cut = Cut::kReset, .bytes = kIntoTheBody, .afterwards = Afterwards::kSame},
    {.cut = Cut::kHalfAnswer},
    {.cut = Cut::kHalfAnswer, .afterwards = Afterwards::kSame},
    {.cut = Cut::kHalfAnswer, .bytes = kIntoTheBody},
    {.cut = Cut::kHalfAnswer, .bytes = kIntoTheBody, .afterwards = Afterwards::kRefused},
    {.cut = Cut::kSilence, .afterwards = Afterwards::kSame},
};
// The two that differ most.
const std::vector<CutPlan> kSomeBreaks = {kBreaks[0], kBreaks[1]};

std::string Described(const CutPlan &plan) {
  return "cut " + std::to_string(static_cast<int>(plan.cut)) + " at request " +
         std::to_string(plan.at) + " after " + std::to_string(plan.bytes) + " bytes, afterwards " +
         std::to_string(static_cast<int>(plan.afterwards));
}

class BrokenLine : public ServedProgram {
 protected:
  static void SetUpTestSuite() {
    StartServer();
    const TemporaryFolder folder;
    const fs::path color = folder.Write("color.ppd", NumberingPPDText(/*color=*/true));
    server().AddQueue({.name = "Office", .ppd = color, .is_default = true});
    server().AddQueue({.name = "Laser", .ppd = folder.Write("laser.ppd", PrinterText())});
    server().AddQueue({.name = "Raw"});
    server().AddQueue({.name = "Stopped", .ppd = color, .stopped = "Wait"});
  }

  RunResult RunCut(const Arguments &arguments, const CutPlan &plan) {
    relay_.Use(plan);
    const std::string limit = plan.cut == Cut::kSilence ? std::to_string(0.3 * kSlowdown) : "20";
    return Run(arguments + Arguments{"--timeout", limit}, {{"CUPS_SERVER", relay_.address()}});
  }

  // What the verb does when nothing happens, and in how many requests.
  RunResult RunWhole(const Arguments &arguments) {
    RunResult whole = RunCut(arguments, {});
    EXPECT_EQ(whole.status, 0) << whole.err;
    return whole;
  }

  // Runs the verb with every break at every request from the first one on. It must fail and say
  // that the server is away, or have done its work as if nothing had happened: the latter is for
  // the check to look at, which is run after every run.
  void BreakEverywhere(const Arguments &verb, int first, const std::vector<CutPlan> &breaks,
                       const std::function<void(const RunResult &, const CutPlan &)> &check) {
    RunWhole(verb);
    const int requests = relay_.requests();
    ASSERT_GT(requests, first);
    check({.status = 0}, {});
    for (CutPlan plan : breaks) {
      for (plan.at = first; plan.at < requests; ++plan.at) {
        SCOPED_TRACE(Described(plan));
        const RunResult result = RunCut(verb, plan);
        ExpectWhole(result, plan);
        check(result, plan);
      }
    }
  }

  void ExpectWhole(const RunResult &result, const CutPlan &plan) const {
    EXPECT_FALSE(result.timed_out);
    if (!relay_.has_cut()) {
      EXPECT_EQ(result.status, 0) << "nothing was cut: " << result.err;
      return;
    }
    ASSERT_TRUE(result.status == 0 || result.status == 1) << result.status;
    if (result.status == 0) {
      // Where libcups has simply asked again.
      EXPECT_EQ(plan.afterwards, Afterwards::kWhole) << result.out;
      EXPECT_EQ(result.err, "");
      return;
    }
    const std::string said = result.out + result.err;
    const std::string server = "print server " + relay_.address();
    EXPECT_THAT(
        said, AnyOf(HasSubstr("the connection to the " + server + " broke off: "),
                    HasSubstr("the " + server + " does not answer within "),
                    HasSubstr("no print server at " + relay_.address() + ": Connection refused")));
    EXPECT_THAT(said, Not(HasSubstr("Invalid argument")));
  }

  // What printing has left on the stopped queue, where jobs stay; takes it away. A job that was
  // reported must be there with all documents; of one that failed nothing may be there that prints,
  // unless the message says so.
  void ExpectNoHalfJob(const RunResult &result, const CutPlan &plan, const std::string &documents) {
    const std::vector<int> jobs = server().LiveJobs();
    EXPECT_LE(jobs.size(), 1u) << "sent twice";
    if (result.status == 0) EXPECT_EQ(jobs.size(), 1u);
    for (const int job : jobs) {
      auto attributes = server().JobAttributes(job);
      const std::string number = std::to_string(job);
      if (result.status == 0) {
        EXPECT_EQ(attributes["number-of-documents"], documents);
      } else if (attributes["number-of-documents"] != "0") {
        EXPECT_THAT(result.err, HasSubstr("; job " + number + " is still there: "));
        EXPECT_NE(plan.afterwards, Afterwards::kWhole) << "it could have been taken back";
      }
      server().Run({"cancel", number});
    }
  }

  void ExpectNoHalfJobOf(const Arguments &verb, int first, const std::string &documents,
                         const std::vector<CutPlan> &breaks) {
    BreakEverywhere(verb, first, breaks, [&](const RunResult &result, const CutPlan &plan) {
      ExpectNoHalfJob(result, plan, documents);
    });
  }

  std::string Page(const std::string &name) const {
    return folder_.Write(name,
                         "%!PS-Adobe-3.0\n%%Pages: 1\n%%EndComments\n%%Page: 1 1\nshowpage\n"
                         "%%EOF\n" +
                             std::string(2 * kIntoTheBody, '\n'));
  }

  static std::string PPDOf(const std::string &queue) {
    return ContentOf(server().home().parent_path() / "root/ppd" / (queue + ".ppd"));
  }

  CuttingRelay relay_{server().address()};
};

// Every verb that is about a queue begins with so many requests: for the queues, for their options
// (two), for the default, for the PPD file.
constexpr int kForThePrinter = 5;

}  // namespace

TEST_F(BrokenLine, CheckFailsOrAnswersAsEver) {
  const Arguments verb = {"check", "-d", "Office"};
  const std::string whole = RunWhole(verb).out;
  EXPECT_EQ(relay_.requests(), kForThePrinter);
  BreakEverywhere(verb, 0, kBreaks, [&](const RunResult &result, const CutPlan &plan) {
    if (result.status == 0 && plan.cut != Cut::kNone) EXPECT_EQ(result.out, whole);
  });
}

TEST_F(BrokenLine, CheckDoesNotTakeAQueueWithoutPPDFileForOneThatIsNotThere) {
  const Arguments verb = {"check", "-d", "Raw"};
  const std::string whole = RunWhole(verb).out;
  BreakEverywhere(verb, kForThePrinter, kBreaks, [&](const RunResult &result, const CutPlan &plan) {
    if (plan.cut == Cut::kNone) return;
    if (result.status == 0) EXPECT_EQ(result.out, whole);
    EXPECT_THAT(result.out, Not(HasSubstr("has no queue")));
  });
}

TEST_F(BrokenLine, SettingsFailsOrAnswersAsEver) {
  const Arguments verb = {"settings"};
  const std::string whole = RunWhole(verb).out;
  BreakEverywhere(verb, 0, kSomeBreaks, [&](const RunResult &result, const CutPlan &plan) {
    if (plan.cut != Cut::kNone) EXPECT_EQ(result.out, result.status == 0 ? whole : "");
  });
}

TEST_F(BrokenLine, QueuesAnswersAsEverOrFailsWithWhatItKnows) {
  const Arguments verb = {"queues"};
  const std::string whole = RunWhole(verb).out;
  BreakEverywhere(verb, 0, kSomeBreaks, [&](const RunResult &result, const CutPlan &plan) {
    if (result.status == 0 && plan.cut != Cut::kNone) EXPECT_EQ(result.out, whole);
  });
}

TEST_F(BrokenLine, QueuesAsksASilentServerOnlyOnce) {
  const RunResult result =
      RunCut({"queues"},
             {.cut = Cut::kSilence, .at = kForThePrinter - 1, .afterwards = Afterwards::kSame});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(relay_.requests(), kForThePrinter);
  EXPECT_THAT(result.out, HasSubstr("  Stopped: no panel: the print server "));
}

TEST_F(BrokenLine, PrintOnTheDefaultQueueFailsBeforeThereIsAJobWithoutTheDefault) {
  const RunResult result = RunCut({"print", Page("a.ps")}, {.cut = Cut::kHalfAnswer, .at = 3});
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.err, Not(HasSubstr("no default queue")));
}

TEST_F(BrokenLine, PrintLeavesNoHalfJobAndNoneTwice) {
  const Arguments verb = {"print", "-d", "Stopped", Page("a.ps")};
  ExpectNoHalfJobOf(verb, 0, "1", kSomeBreaks);
  ExpectNoHalfJobOf(verb, kForThePrinter, "1", kBreaks);
}

TEST_F(BrokenLine, PrintOfTwoFilesLeavesNoHalfJob) {
  ExpectNoHalfJobOf({"print", "-d", "Stopped", Page("a.ps"), Page("b.ps")}, kForThePrinter + 1, "2",
                    kBreaks);
}

TEST_F(BrokenLine, PrintAndWaitFailsWhereTheServerDoesNotComeBack) {
  const int first_question = kForThePrinter + 2;
  const RunResult result =
      RunCut({"print", "--wait", "-d", "Stopped", Page("a.ps")},
             {.cut = Cut::kReset, .at = first_question, .afterwards = Afterwards::kRefused});
  const std::vector<int> jobs = server().LiveJobs();
  ASSERT_EQ(jobs.size(), 1u);
  const std::string id = std::to_string(jobs.front());
  server().Run({"cancel", id});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.err, "pdeprint: Stopped-" + id + " was sent, but: no print server at " +
                            relay_.address() +
                            ": Connection refused; is it running? CUPS_SERVER names another\n");
}

TEST_F(BrokenLine, PrintAndWaitGoesOnWhereTheServerComesBack) {
  const int first_question = kForThePrinter + 2;
  const Arguments verb = {"print", "--wait", Page("a.ps")};
  for (const CutPlan &plan :
       {CutPlan{.cut = Cut::kReset, .at = first_question},
        CutPlan{.cut = Cut::kHalfAnswer, .at = first_question, .bytes = kIntoTheBody}}) {
    SCOPED_TRACE(Described(plan));
    const RunResult result = RunCut(verb, plan);
    EXPECT_TRUE(relay_.has_cut());
    EXPECT_EQ(result.status, 0) << result.err;
  }
}

TEST_F(BrokenLine, EnableWritesTheWholeFileOrNone) {
  const fs::path file = folder_.path() / "new.ppd";
  const Arguments verb = {"enable", "-d", "Laser", "-o", file.string()};
  RunWhole(verb);
  const std::string whole = ContentOf(file);
  ASSERT_THAT(whole, StartsWith(PrinterText()));
  BreakEverywhere(verb, kForThePrinter - 1, kSomeBreaks,
                  [&](const RunResult &result, const CutPlan &) {
                    EXPECT_EQ(fs::exists(file), result.status == 0);
                    if (fs::exists(file)) EXPECT_EQ(ContentOf(file), whole);
                    fs::remove(file);
                  });
}

TEST_F(BrokenLine, EnableGivesTheQueueTheWholeFileOrNone) {
  const fs::path before = folder_.Write("before.ppd", PPDOf("Laser"));
  const Arguments verb = {"enable", "-d", "Laser", "--apply"};
  RunWhole(verb);
  const std::string whole = PPDOf("Laser");
  ASSERT_THAT(whole, HasSubstr("VQBackgroundNumbering"));
  const std::string old = ContentOf(before);
  const auto put_back = [&] { server().AddQueue({.name = "Laser", .ppd = before}); };
  put_back();
  BreakEverywhere(verb, kForThePrinter, kBreaks, [&](const RunResult &result, const CutPlan &plan) {
    const std::string now = PPDOf("Laser");
    // An answer that is lost comes after the work.
    const bool may_be_done = result.status == 0 || plan.cut == Cut::kHalfAnswer;
    EXPECT_TRUE((now == old && result.status != 0) || (now == whole && may_be_done));
    if (now != old) put_back();
  });
}
