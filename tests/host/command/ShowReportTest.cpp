#include "host/command/ShowReport.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

namespace {

using Json = nlohmann::ordered_json;
using Outcome = ShowReport::Outcome;

ShownJob Office() {
  return {.queue = "Office",
          .paper = NamedPaper{"A4", {.size = {595, 842}, .top = 72, .bottom = 36}},
          .is_landscape = true,
          .settings = {{"Duplex", "None"}}};
}

}  // namespace

TEST(ShowReport, OfAPrintedJobSaysAllThatIsKnown) {
  const ShowReport report{.outcome = Outcome::kPrinted, .job = 7, .shown = Office()};
  EXPECT_EQ(Json::parse(R"({
    "outcome": "printed", "queue": "Office", "job": 7,
    "paper": {"name": "A4", "width": 209.9, "height": 297.04,
              "margins": {"top": 25.4, "bottom": 12.7, "left": 0.0, "right": 0.0}},
    "orientation": "landscape",
    "settings": {"Duplex": "None"}
  })")
                .dump(),
            Json::parse(report.Json(), nullptr, false).dump());
  EXPECT_TRUE(report.Json().ends_with("}\n"));
}

TEST(ShowReport, LeavesOutWhatIsNotKnown) {
  const ShowReport saved{
      .outcome = Outcome::kSaved, .files = {"/a.pdf"}, .shown = ShownJob{.settings = {}}};
  EXPECT_EQ(R"({"outcome":"saved","files":["/a.pdf"],"orientation":"portrait","settings":{}})",
            Json::parse(saved.Json(), nullptr, false).dump());
  EXPECT_EQ(R"({"outcome":"canceled"})",
            Json::parse(ShowReport{.outcome = Outcome::kCanceled}.Json(), nullptr, false).dump());
  const ShowReport failed{.outcome = Outcome::kFailed, .reason = "kein \xfc", .job = 8};
  EXPECT_EQ("{\"outcome\":\"failed\",\"reason\":\"kein \uFFFD\",\"job\":8}",
            Json::parse(failed.Json(), nullptr, false).dump());
}
