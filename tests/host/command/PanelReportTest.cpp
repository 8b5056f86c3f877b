#include "host/command/PanelReport.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

namespace {

using Json = nlohmann::ordered_json;

PanelReport FullReport() {
  return {"Numbering",
          {{"Size", "Large"}, {"Color", "Blue"}, {"A", "last"}},
          {{"VQBNSize", "Large"}, {"VQBNColor", "Blue"}},
          "job.plist",
          "panel.png"};
}

}  // namespace

TEST(PanelReport, TextKeepsTheOrderOfTheSummaryAndSortsTheOptions) {
  EXPECT_EQ(
      "Panel: Numbering\n"
      "Summary:\n"
      "  Size: Large\n"
      "  Color: Blue\n"
      "  A: last\n"
      "Job options:\n"
      "  VQBNColor=Blue\n"
      "  VQBNSize=Large\n"
      "Ticket: job.plist\n"
      "Picture: panel.png\n",
      FullReport().Text());
}

TEST(PanelReport, TextNamesNoFilesThatWereNotWritten) {
  EXPECT_EQ("Panel: P\nSummary:\nJob options:\n", (PanelReport{"P", {}, {}, "", ""}).Text());
}

TEST(PanelReport, JsonKeepsTheOrderOfTheSummary) {
  const Json expected = Json::parse(R"({
    "panel": "Numbering",
    "summary": [{"title": "Size", "value": "Large"}, {"title": "Color", "value": "Blue"},
                {"title": "A", "value": "last"}],
    "options": {"VQBNColor": "Blue", "VQBNSize": "Large"},
    "ticket": "job.plist"
  })");
  const std::string text = FullReport().Json();
  EXPECT_EQ(expected.dump(), Json::parse(text, nullptr, false).dump());
  EXPECT_EQ('\n', text.back());
}

TEST(PanelReport, JsonOfNothingKeepsItsShape) {
  const Json expected =
      Json::parse(R"({"panel": "", "summary": [], "options": {}, "ticket": null})");
  EXPECT_EQ(expected.dump(), Json::parse(PanelReport{}.Json(), nullptr, false).dump());
}

TEST(PanelReport, JsonReplacesWhatIsNoText) {
  PanelReport report;
  report.panel = "\xfc";
  report.summary = {{"t\xff", "日本 😀"}};
  report.options = {{"k\xfe", "a\"b\n"}};
  report.ticket = "Z\xfcrich.plist";
  const Json json = Json::parse(report.Json(), nullptr, false);
  ASSERT_FALSE(json.is_discarded());
  EXPECT_EQ("\uFFFD", json["panel"]);
  EXPECT_EQ("t\uFFFD", json["summary"][0]["title"]);
  EXPECT_EQ("日本 😀", json["summary"][0]["value"]);
  EXPECT_EQ("a\"b\n", json["options"]["k\uFFFD"]);
  EXPECT_EQ("Z\uFFFDrich.plist", json["ticket"]);
}
