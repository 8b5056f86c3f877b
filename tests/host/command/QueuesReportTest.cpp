#include "host/command/QueuesReport.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

namespace {

QueueResult Offered() {
  QueueResult result;
  result.queue.name = "Office";
  result.queue.description = "Office printer";
  result.queue.location = "2nd floor";
  result.queue.model = "Generic";
  result.queue.is_default = true;
  result.panels = {"Background Numbering", "Watermark"};
  result.applications = {{"Background Numbering", Application::By::kThisComputer}};
  return result;
}

QueueResult NotOffered() {
  QueueResult result;
  result.queue.name = "Raw";
  result.queue.state = QueueState::kStopped;
  result.queue.accepts_jobs = false;
  result.reason = "no PPD file";
  return result;
}

}  // namespace

TEST(QueuesReport, TextHasALineAQueueAndAStarForTheDefaultOne) {
  EXPECT_EQ(
      "* Office: Background Numbering, Watermark, on this computer\n"
      "  Raw: no panel: no PPD file (stopped) (does not accept jobs)\n",
      QueuesText({Offered(), NotOffered()}));
}

TEST(QueuesReport, TextStaysOnOneLineAQueue) {
  QueueResult result = NotOffered();
  result.queue.name = "two\nlines";
  result.reason = "first\nsecond";
  const std::string text = QueuesText({result});
  EXPECT_EQ(1, std::count(text.begin(), text.end(), '\n')) << text;
}

TEST(QueuesReport, JsonHasTheDocumentedMembers) {
  const auto json = nlohmann::json::parse(QueuesJson({Offered(), NotOffered()}));
  EXPECT_EQ((nlohmann::json{{"name", "Office"},
                            {"default", true},
                            {"description", "Office printer"},
                            {"location", "2nd floor"},
                            {"model", "Generic"},
                            {"state", "idle"},
                            {"acceptsJobs", true},
                            {"offered", true},
                            {"panels", {"Background Numbering", "Watermark"}},
                            {"applied", {{{"bundle", "Background Numbering"}, {"by", "computer"}}}},
                            {"reason", nullptr}}),
            json[0]);
  EXPECT_EQ("stopped", json[1]["state"]);
  EXPECT_EQ(false, json[1]["acceptsJobs"]);
  EXPECT_EQ(false, json[1]["offered"]);
  EXPECT_EQ(nlohmann::json::array(), json[1]["panels"]);
  EXPECT_EQ("no PPD file", json[1]["reason"]);
}

TEST(QueuesReport, JsonOfTextThatIsNotUnicodeCanBeRead) {
  QueueResult result = Offered();
  result.queue.description = "B\xFCro";
  EXPECT_NO_THROW((void)nlohmann::json::parse(QueuesJson({result})));
}
