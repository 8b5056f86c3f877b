#include "host/command/CheckReport.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

namespace {

using Json = nlohmann::ordered_json;

const CheckResult kColorOffered = {
    "c.ppd",   true, true,
    {"Panel"}, "",   {{"One", Application::By::kPrinter}, {"Other", Application::By::kServer}}};
const CheckResult kMonoOffered = {"m.ppd", true, false, {"Panel", "Other"}, ""};
const CheckResult kRefused = {"n.ppd", true, true, {}, "no attribute X"};
const CheckResult kUnreadable = {"u.ppd", false, false, {}, "no such file"};

}  // namespace

TEST(CheckReport, TextHasALineForEachFileInTheirOrder) {
  EXPECT_EQ(
      "c.ppd: panel offered, color printer, One by the printer, Other by the print server\n"
      "m.ppd: panel offered, monochrome printer\n"
      "n.ppd: no panel: no attribute X\n"
      "u.ppd: cannot be read: no such file\n",
      CheckText({kColorOffered, kMonoOffered, kRefused, kUnreadable}));
}

TEST(CheckReport, TextOfNoFilesIsEmpty) { EXPECT_EQ("", CheckText({})); }

TEST(CheckReport, JsonIsAnArrayWithNullsWhereThereIsNothingToSay) {
  const Json expected = Json::parse(R"([
    {"file": "c.ppd", "readable": true, "offered": true, "color": true, "panels": ["Panel"],
     "applied": [{"bundle": "One", "by": "printer"}, {"bundle": "Other", "by": "server"}],
     "reason": null},
    {"file": "m.ppd", "readable": true, "offered": true, "color": false,
     "panels": ["Panel", "Other"], "applied": [], "reason": null},
    {"file": "n.ppd", "readable": true, "offered": false, "color": true, "panels": [],
     "applied": [], "reason": "no attribute X"},
    {"file": "u.ppd", "readable": false, "offered": false, "color": null, "panels": [],
     "applied": [], "reason": "no such file"}
  ])");
  const std::string text = CheckJson({kColorOffered, kMonoOffered, kRefused, kUnreadable});
  EXPECT_EQ(expected.dump(), Json::parse(text, nullptr, false).dump());
  EXPECT_EQ('\n', text.back());
}

TEST(CheckReport, JsonOfNoFilesIsAnEmptyArray) { EXPECT_EQ("[]\n", CheckJson({})); }

TEST(CheckReport, JsonQuotesAndReplacesWhatIsNoText) {
  const std::string text = CheckJson(
      {{"a\"\\\n.ppd", true, false, {}, "X is \"tr\xfc"}, {"\xff.ppd", false, {}, {}, ""}});
  const Json json = Json::parse(text, nullptr, false);
  ASSERT_FALSE(json.is_discarded()) << text;
  EXPECT_EQ("a\"\\\n.ppd", json[0]["file"]);
  EXPECT_EQ("X is \"tr\uFFFD", json[0]["reason"]);
  EXPECT_EQ("\uFFFD.ppd", json[1]["file"]);
}
