// `pdeprint queues`, `check` and `settings` on the queues of a real print server.

#include <gmock/gmock.h>

#include <chrono>
#include <nlohmann/json.hpp>

#include "tests/host/command/ServedProgram.h"
#include "tests/support/NumberingPPD.h"
#include "tests/support/Patience.h"
#include "tests/support/SilentServer.h"
#include "tests/support/TestPPD.h"

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using testing::HasSubstr;

namespace {

using Clock = std::chrono::steady_clock;
using Json = nlohmann::ordered_json;

const char kNoPPD[] = "the queue has no PPD file, in which a printer declares what extensions need";
const char kNotDeclared[] = "no attribute VQBackgroundNumberingSupport";

// The file of the queue Plain.
const char kNotHere[] =
    "; nor can it be done on this computer: the file does not say whether it is a color printer: "
    "*ColorDevice must be True or False";

Json Parsed(const std::string &text) {
  Json json = Json::parse(text, nullptr, false);
  EXPECT_FALSE(json.is_discarded()) << text;
  return json;
}

class QueueVerbs : public ServedProgram {
 protected:
  static void SetUpTestSuite() {
    StartServer();
    const TemporaryFolder folder;
    const fs::path color = folder.Write("color.ppd", NumberingPPDText(/*color=*/true));
    const fs::path mono = folder.Write("mono.ppd", NumberingPPDText(/*color=*/false));
    server().AddQueue({.name = "Color",
                       .ppd = color,
                       .description = "Ann's \"big\" printer, Größe A3",
                       .location = "Upstairs",
                       .is_default = true});
    server().AddQueue({.name = "Mono", .ppd = mono});
    server().AddQueue({.name = "Plain", .ppd = folder.Write("plain.ppd", TestPPD::Text(""))});
    server().AddQueue({.name = "Raw"});
    server().AddQueue({.name = "Rejecting", .ppd = color, .rejecting = "Gone for lunch"});
    server().AddQueue({.name = "Stopped", .ppd = color, .stopped = "Out of paper"});
  }

  // The results of a run without a message.
  static std::string ResultOf(const Arguments &arguments, int status = 0) {
    const RunResult result = Run(arguments);
    EXPECT_EQ(result.status, status);
    EXPECT_EQ(result.err, "");
    return result.out;
  }

  // The message of a run without results.
  static std::string Refusal(int status, const Arguments &arguments,
                             const EnvironmentChanges &changes = {}) {
    const RunResult result = Run(arguments, changes);
    EXPECT_EQ(result.status, status);
    EXPECT_EQ(result.out, "");
    return result.err;
  }
};

}  // namespace

// queues

TEST_F(QueueVerbs, QueuesSaysOfEachQueueWhetherPanelsAreOffered) {
  EXPECT_EQ(ResultOf({"queues"}),
            std::string("* Color: Background Numbering, by the printer\n"
                        "  Mono: Background Numbering, by the printer\n"
                        "  Plain: no panel: ") +
                kNotDeclared + kNotHere + "\n  Raw: no panel: " + kNoPPD +
                "\n  Rejecting: Background Numbering, by the printer (does not accept jobs)\n"
                "  Stopped: Background Numbering, by the printer (stopped)\n");
}

TEST_F(QueueVerbs, QueuesAnswersInJson) {
  const Json json = Parsed(ResultOf({"queues", "--json"}));
  ASSERT_EQ(json.size(), 6u);
  EXPECT_EQ(
      json[0],
      Json({{"name", "Color"},
            {"default", true},
            {"description", "Ann's \"big\" printer, Größe A3"},
            {"location", "Upstairs"},
            {"model", "Test"},
            {"state", "idle"},
            {"acceptsJobs", true},
            {"offered", true},
            {"panels", {"Background Numbering"}},
            {"applied", Json::array({{{"bundle", "Background Numbering"}, {"by", "printer"}}})},
            {"reason", nullptr}}));
  EXPECT_EQ(json[3]["name"], "Raw");
  EXPECT_EQ(json[3]["default"], false);
  EXPECT_EQ(json[3]["offered"], false);
  EXPECT_EQ(json[3]["panels"], Json::array());
  EXPECT_EQ(json[3]["reason"], kNoPPD);
  EXPECT_EQ(json[4]["acceptsJobs"], false);
  EXPECT_EQ(json[5]["state"], "stopped");
}

TEST_F(QueueVerbs, QueuesListsInstancesAndTheUsersDefault) {
  server().Run({"lpoptions", "-p", "Mono/draft", "-o", "VQBNSize=Small"});
  server().Run({"lpoptions", "-d", "Mono/draft"});
  const std::string list = ResultOf({"queues"});
  EXPECT_THAT(list, HasSubstr("  Color: Background Numbering, by the printer\n"
                              "  Mono: Background Numbering, by the printer\n"
                              "* Mono/draft: Background Numbering, by the printer\n"));
}

TEST_F(QueueVerbs, QueuesGoesOnAfterAQueueWhosePPDCannotBeRead) {
  const TemporaryFolder folder;
  server().AddQueue({.name = "Damaged", .ppd = folder.Write("color.ppd", NumberingPPDText(true))});
  const fs::path ppd = server().home().parent_path() / "root/ppd/Damaged.ppd";
  ASSERT_TRUE(fs::exists(ppd));
  std::ofstream(ppd) << "rubbish\n";
  const RunResult result = Run({"queues"});
  server().Run({"/usr/sbin/lpadmin", "-x", "Damaged"});
  EXPECT_EQ(result.status, 0);
  EXPECT_THAT(result.out,
              HasSubstr("  Damaged: no panel: cannot read the PPD file of Damaged from "));
  EXPECT_THAT(result.out, HasSubstr("  Mono: Background Numbering, by the printer\n"));
}

// check

TEST_F(QueueVerbs, CheckSaysOfAQueueWhetherPanelsAreOffered) {
  EXPECT_EQ(ResultOf({"check", "-d", "Color"}),
            "Color: panel offered, color printer, by the printer\n");
  EXPECT_EQ(ResultOf({"check", "-d", "Mono"}),
            "Mono: panel offered, monochrome printer, by the printer\n");
  EXPECT_EQ(ResultOf({"check", "-d", "Raw"}), std::string("Raw: no panel: ") + kNoPPD + '\n');
}

TEST_F(QueueVerbs, CheckTakesFilesAndSeveralQueues) {
  const std::string ppd = folder_.Write("mono.ppd", NumberingPPDText(/*color=*/false));
  EXPECT_EQ(ResultOf({"check", "-d", "Stopped", ppd, "-d", "Rejecting"}),
            ppd +
                ": panel offered, monochrome printer, by the printer\n"
                "Stopped: panel offered, color printer, by the printer\n"
                "Rejecting: panel offered, color printer, by the printer\n");
}

TEST_F(QueueVerbs, CheckAnswersInJson) {
  EXPECT_EQ(Parsed(ResultOf({"check", "--json", "-d", "Color", "-d", "Raw"})),
            Json::array({{{"file", "Color"},
                          {"readable", true},
                          {"offered", true},
                          {"color", true},
                          {"panels", {"Background Numbering"}},
                          {"applied",
                           Json::array({{{"bundle", "Background Numbering"}, {"by", "printer"}}})},
                          {"reason", nullptr}},
                         {{"file", "Raw"},
                          {"readable", true},
                          {"offered", false},
                          {"color", false},
                          {"panels", Json::array()},
                          {"applied", Json::array()},
                          {"reason", kNoPPD}}}));
}

TEST_F(QueueVerbs, CheckGoesOnAfterAQueueThatIsNotThere) {
  EXPECT_EQ(ResultOf({"check", "-d", "Colour", "-d", "Mono"}, 1),
            "Colour: cannot be read: the print server " + server().address() +
                " has no queue \"Colour\"; there is Color, Mono, Plain, Raw, Rejecting, Stopped\n"
                "Mono: panel offered, monochrome printer, by the printer\n");
}

TEST_F(QueueVerbs, CheckTakesAnInstance) {
  server().Run({"lpoptions", "-p", "Color/draft", "-o", "VQBNSize=Small"});
  EXPECT_EQ(ResultOf({"check", "-d", "Color/draft"}),
            "Color/draft: panel offered, color printer, by the printer\n");
}

TEST_F(QueueVerbs, CheckDoesNotKnowAnInstanceThatTheUserHasNotMade) {
  const std::string result = ResultOf({"check", "-d", "Color/draft"}, 1);
  EXPECT_THAT(result, HasSubstr(" has no queue \"Color/draft\"; there is Color, "));
}

// settings

TEST_F(QueueVerbs, SettingsChangesATicketForAQueue) {
  const std::string ticket = folder_.path() / "job.plist";
  const std::string report =
      "Panel: Background Numbering\n"
      "Summary:\n"
      "  Size: Medium\n"
      "  Density: Medium\n"
      "  Color: Blue\n"
      "  Start Number: 25\n"
      "Job options:\n"
      "  Duplex=DuplexTumble\n"
      "  VQBNColor=Blue\n"
      "  VQBNDensity=Medium\n"
      "  VQBNSize=Medium\n"
      "  VQBackgroundNumbering=On\n"
      "  VQStartNumber=25\n"
      "Ticket: " +
      ticket + '\n';
  EXPECT_EQ(ResultOf({"settings", "-d", "Color", "--ticket", ticket, "--set", "Valid=On", "--set",
                      "Color=Blue", "--set", "StartNumber=25", "--set", "Duplex=DuplexTumble"}),
            report);
  EXPECT_EQ(ResultOf({"settings", "-d", "Color", "--ticket", ticket}), report);
}

TEST_F(QueueVerbs, SettingsBeginsWithWhatTheQueueGivesEachJob) {
  WriteLpoptions("Dest Color VQBNSize=Large VQStartNumber=7\n");
  const Json options = Parsed(ResultOf({"settings", "-d", "Color", "--json"}))["options"];
  EXPECT_EQ(options["VQBNSize"], "Large");
  EXPECT_EQ(options["VQStartNumber"], "7");
  EXPECT_EQ(options["VQBNDensity"], "Medium");
}

TEST_F(QueueVerbs, SettingsOfAnInstanceBeginWithItsOptions) {
  server().Run({"lpoptions", "-p", "Color", "-o", "VQBNSize=Large"});
  server().Run({"lpoptions", "-p", "Color/draft", "-o", "VQBNSize=Small"});
  EXPECT_EQ(Parsed(ResultOf({"settings", "-d", "Color/draft", "--json"}))["options"]["VQBNSize"],
            "Small");
}

TEST_F(QueueVerbs, SettingsWithoutAQueueAreForTheDefaultQueue) {
  EXPECT_TRUE(Parsed(ResultOf({"settings", "--json"}))["options"].contains("VQBNColor"));
  EXPECT_EQ(Refusal(1, {"settings"}, {{"LPDEST", "Raw"}}),
            std::string("pdeprint: no panel for Raw: ") + kNoPPD + '\n');
}

TEST_F(QueueVerbs, SettingsRefusesAColorForAMonochromeQueue) {
  const std::string ticket = Ticket({{"VQBNSize", "Small"}});
  EXPECT_EQ(Refusal(2, {"settings", "-d", "Mono", "--ticket", ticket, "--set", "Color=Red"}),
            "pdeprint: Color cannot be \"Red\": this printer has no VQBNColor \"Red\"; it has "
            "Black\n");
  EXPECT_EQ(ContentOf(ticket), TicketText({{"VQBNSize", "Small"}}));
}

TEST_F(QueueVerbs, SettingsNeedsAPanel) {
  const std::string ticket = folder_.path() / "job.plist";
  EXPECT_EQ(Refusal(1, {"settings", "-d", "Plain", "--ticket", ticket}),
            std::string("pdeprint: no panel for Plain: ") + kNotDeclared + kNotHere + '\n');
  EXPECT_FALSE(fs::exists(ticket));
}

TEST_F(QueueVerbs, SettingsDoesNotMindAQueueThatDoesNotPrintNow) {
  for (const char *queue : {"Stopped", "Rejecting"}) {
    EXPECT_EQ(Parsed(ResultOf({"settings", "-d", queue, "--json", "--set",
                               "Valid=On"}))["options"]["VQBackgroundNumbering"],
              "On");
  }
}

// Servers that do not answer

TEST_F(QueueVerbs, WhereNothingListensEachVerbSaysSo) {
  const LocalPort port;
  const EnvironmentChanges changes = {{"CUPS_SERVER", port.address()}};
  const std::string reason = "no print server at " + port.address() +
                             ": Connection refused; is it running? CUPS_SERVER names another\n";
  EXPECT_EQ(Refusal(1, {"queues"}, changes), "pdeprint: " + reason);
  EXPECT_EQ(Refusal(1, {"settings", "-d", "Color"}, changes), "pdeprint: " + reason);
  const RunResult check = Run({"check", "-d", "Color"}, changes);
  EXPECT_EQ(check.status, 1);
  EXPECT_EQ(check.out, "Color: cannot be read: " + reason);
}

TEST_F(QueueVerbs, ASilentServerIsNotWaitedForLongerThanTheTimeout) {
  const SilentServer silent;
  const EnvironmentChanges changes = {{"CUPS_SERVER", silent.address()}};
  const std::string reason =
      "the print server " + silent.address() + " does not answer within 0.3 s\n";
  const auto begin = Clock::now();
  EXPECT_EQ(Refusal(1, {"queues", "--timeout", "0.3"}, changes), "pdeprint: " + reason);
  EXPECT_EQ(Refusal(1, {"settings", "--timeout", "0.3"}, changes), "pdeprint: " + reason);
  const RunResult check = Run({"check", "-d", "Color", "--timeout", "0.3"}, changes);
  EXPECT_LT(Clock::now() - begin, kSoon);
  EXPECT_EQ(check.status, 1);
  EXPECT_EQ(check.out, "Color: cannot be read: " + reason);
}

TEST(QueuesVerb, AServerWithoutQueuesIsAFailure) {
  const PrivateServer server;
  RunOptions options;
  options.environment = server.Environment();
  const RunResult result = RunPdeprint({"queues"}, options);
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.out, "");
  EXPECT_EQ(result.err, "pdeprint: the print server " + server.address() + " has no queues\n");
}
