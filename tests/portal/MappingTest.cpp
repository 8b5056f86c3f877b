#include "portal/Mapping.h"

#include <gmock/gmock.h>

#include <set>
#include <sstream>

#include "tests/support/TemporaryFolder.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Key;
using testing::Not;
using testing::Pair;

JobWords Settings(Dictionary settings) { return {.settings = std::move(settings)}; }
JobWords PageSetup(Dictionary page_setup) { return {.page_setup = std::move(page_setup)}; }

const Paper kA4 = {.name = "A4",
                   .width = 209.9,
                   .height = 297.04,
                   .top = 4.2,
                   .bottom = 5,
                   .left = 6.35,
                   .right = 7};

Dictionary AnsweredSettings(Dictionary sent, const Chosen &chosen = {.queue = "Office"}) {
  return AnswerTo(Settings(std::move(sent)), chosen).settings;
}

// One row of the table: what is sent under its key, which option the dialog begins with, and what
// the application is answered (empty: nothing under this key).
struct RowCase {
  std::string key, sent, option, value, answered;
};

class MappingOfSetting : public testing::TestWithParam<RowCase> {};

TEST_P(MappingOfSetting, TakesAndAnswersIt) {
  const RowCase &row = GetParam();
  Dictionary sent = {{row.key, row.sent}};
  if (row.key == "page-ranges") sent["print-pages"] = "ranges";
  if (row.key == "paper-format") sent.insert({{"paper-width", "210"}, {"paper-height", "297"}});
  if (row.key == "paper-width") sent["paper-height"] = "300.5";
  const JobOptions options = OptionsOf(Settings(sent));
  if (row.option.empty()) {
    EXPECT_THAT(options, IsEmpty());
  } else {
    EXPECT_THAT(options, ElementsAre(Pair(row.option, row.value)));
  }
  const Dictionary answered = AnsweredSettings(sent);
  if (row.answered.empty()) {
    EXPECT_THAT(answered, Not(Contains(Key(row.key))));
  } else {
    EXPECT_THAT(answered, Contains(Pair(row.key, Value(row.answered))));
  }
}

const RowCase kRows[] = {
    {"n-copies", "2", "copies", "2", "1"},
    {"collate", "true", "collate", "true", "false"},
    {"collate", "false", "collate", "false", "false"},
    {"print-pages", "all", "", "", "all"},
    {"print-pages", "ranges", "", "", "all"},
    {"print-pages", "selection", "", "", "selection"},
    {"print-pages", "current", "", "", "current"},
    {"page-ranges", "0-2,4", "page-ranges", "1-3,5", ""},
    {"page-set", "odd", "page-set", "odd", "all"},
    {"page-set", "even", "page-set", "even", "all"},
    {"reverse", "true", "outputorder", "reverse", "false"},
    {"number-up", "2", "number-up", "2", "1"},
    {"number-up-layout", "tbrl", "number-up-layout", "tbrl", ""},
    {"duplex", "simplex", "sides", "one-sided", "simplex"},
    {"duplex", "horizontal", "sides", "two-sided-long-edge", "horizontal"},
    {"duplex", "vertical", "sides", "two-sided-short-edge", "vertical"},
    {"use-color", "false", "print-color-mode", "monochrome", "false"},
    {"use-color", "true", "print-color-mode", "color", "true"},
    {"quality", "draft", "print-quality", "3", "draft"},
    {"quality", "low", "print-quality", "3", "low"},
    {"quality", "normal", "print-quality", "4", "normal"},
    {"quality", "high", "print-quality", "5", "high"},
    {"paper-format", "iso_a4", "media", "iso_a4_210x297mm", "iso_a4"},
    {"paper-width", "200", "media", "Custom.200x300.5mm", "200"},
    {"paper-height", "297", "", "", "297"},
    {"orientation", "landscape", "", "", "landscape"},
    {"scale", "70", "", "", "70"},
    {"default-source", "Tray2", "", "", "Tray2"},
    {"media-type", "stationery", "", "", "stationery"},
    {"output-bin", "face-up", "", "", "face-up"},
    {"finishings", "4", "", "", "4"},
    {"resolution", "600", "", "", "600"},
    {"resolution-x", "600", "", "", "600"},
    {"resolution-y", "600", "", "", "600"},
    {"printer-lpi", "60", "", "", "60"},
    {"dither", "fine", "", "", "fine"},
    {"output-uri", "file:///home/me/out.pdf", "", "", ""},
    {"output-basename", "out", "", "", ""},
    {"output-dir", "/home/me", "", "", ""},
    {"output-file-format", "pdf", "", "", ""},
    {"printer", "Laser", "", "", "Office"},
};
INSTANTIATE_TEST_SUITE_P(Rows, MappingOfSetting, testing::ValuesIn(kRows),
                         [](const auto &row) { return std::to_string(row.index); });

}  // namespace

TEST(Mapping, HasATestForEveryKeyOfSettings) {
  std::set<std::string, std::less<>> tested;
  for (const RowCase &row : kRows) tested.insert(row.key);
  for (const MappingRow &row : MappingTable()) {
    if (row.place == MappingRow::Place::kSettings) {
      EXPECT_TRUE(tested.contains(row.key)) << row.key;
    }
  }
}

TEST(Mapping, StandsInTheDocument) {
  std::vector<std::string> documented, known;
  std::istringstream text(ContentOf(SOURCE_DIRECTORY "/docs/portal.md"));
  bool is_table = false;
  for (std::string line; std::getline(text, line);) {
    if (line.starts_with("| Key |")) is_table = true;
    if (line.empty()) is_table = false;
    if (is_table && line.starts_with("| `")) {
      documented.push_back(line.substr(3, line.find('`', 3) - 3));
      // The option is the first word of the second column.
      const size_t second = line.find('|', 3) + 2;
      if (line[second] == '`') {
        documented.back() += " " + line.substr(second + 1, line.find('`', second + 1) - second - 1);
      }
    }
  }
  for (const MappingRow &row : MappingTable()) {
    known.push_back(std::string(row.key) +
                    (row.option.empty() ? "" : " " + std::string(row.option)));
  }
  EXPECT_EQ(known, documented);
}

TEST(Mapping, AnswersWhatDoesNothingAlsoWhereNothingWasSent) {
  EXPECT_EQ((Dictionary{{"n-copies", "1"},
                        {"collate", "false"},
                        {"print-pages", "all"},
                        {"page-set", "all"},
                        {"reverse", "false"},
                        {"number-up", "1"},
                        {"printer", "Office"}}),
            AnsweredSettings({}));
}

TEST(Mapping, AnswersTheSidesThatWereChosen) {
  const Dictionary sent = {{"duplex", "simplex"}};
  for (const auto &[option, value, word] : {std::tuple("Duplex", "DuplexNoTumble", "horizontal"),
                                            {"Duplex", "DuplexTumble", "vertical"},
                                            {"Duplex", "None", "simplex"},
                                            {"sides", "two-sided-long-edge", "horizontal"},
                                            {"sides", "two-sided-short-edge", "vertical"}}) {
    EXPECT_EQ(Value(word), AnsweredSettings(sent, {.settings = {{option, value}}}).at("duplex"))
        << value;
  }
}

TEST(Mapping, AnswersThePaperThatWasChosenWithItsMargins) {
  const JobWords answer =
      AnswerTo({.settings = {{"paper-format", "na_letter"}, {"orientation", "landscape"}},
                .page_setup = {{"PPDName", "Letter"},
                               {"Width", 215.9},
                               {"Height", 279.4},
                               {"MarginTop", 1.0},
                               {"Orientation", "landscape"}}},
               {.queue = "Office", .paper = kA4});
  EXPECT_EQ((Dictionary{{"PPDName", "A4"},
                        {"Name", "iso_a4_210x297mm"},
                        {"DisplayName", "A4"},
                        {"Width", 209.9},
                        {"Height", 297.04},
                        {"MarginTop", 4.2},
                        {"MarginBottom", 5.0},
                        {"MarginLeft", 6.35},
                        {"MarginRight", 7.0},
                        {"Orientation", "landscape"}}),
            answer.page_setup);
  EXPECT_EQ(Value("iso_a4_210x297mm"), answer.settings.at("paper-format"));
  EXPECT_EQ(Value("209.9"), answer.settings.at("paper-width"));
  EXPECT_EQ(Value("297.04"), answer.settings.at("paper-height"));
  EXPECT_EQ(Value("landscape"), answer.settings.at("orientation"));
}

TEST(Mapping, NamesPaperAsTheStandardAndAsPpdFilesDo) {
  for (const auto &[name, standard, of_ppd] :
       {std::tuple("Letter", "na_letter_8.5x11in", "Letter"),
        {"na_letter_8.5x11in", "na_letter_8.5x11in", "Letter"},
        {"Letter.Borderless", "na_letter_8.5x11in", "Letter.Borderless"}}) {
    const Paper letter = {.name = name, .width = 215.9, .height = 279.4};
    const JobWords answer = AnswerTo({}, {.paper = letter});
    EXPECT_EQ(Value(standard), answer.page_setup.at("Name")) << name;
    EXPECT_EQ(Value(of_ppd), answer.page_setup.at("PPDName")) << name;
  }
}

TEST(Mapping, NamesPaperOfAnySizeByItsSize) {
  const JobWords answer =
      AnswerTo({}, {.paper = Paper{.name = "Custom.123x234.25mm", .width = 123, .height = 234.25}});
  EXPECT_EQ(Value("custom_123x234.25mm_123x234.25mm"), answer.page_setup.at("Name"));
  EXPECT_EQ(Value("123 x 234.25 mm"), answer.page_setup.at("DisplayName"));
  EXPECT_THAT(answer.page_setup, Not(Contains(Key("PPDName"))));
}

TEST(Mapping, LeavesThePaperWhereTheQueueDoesNotSayIt) {
  const Dictionary sent = {{"PPDName", "Letter"}, {"Width", 215.9}, {"Height", 279.4}};
  EXPECT_EQ(sent, AnswerTo(PageSetup(sent), {.queue = "Office"}).page_setup);
}

TEST(Mapping, TakesThePaperOfThePageSetupBeforeThatOfTheSettings) {
  JobWords sent = {.settings = {{"paper-format", "na_letter_8.5x11in"}},
                   .page_setup = {{"PPDName", "A3"},
                                  {"Name", "iso_a3"},
                                  {"Width", 297.0},
                                  {"Height", 420.0},
                                  {"Orientation", "landscape"}}};
  EXPECT_THAT(OptionsOf(sent), ElementsAre(Pair("media", "A3")));
  sent.page_setup.erase("PPDName");
  EXPECT_THAT(OptionsOf(sent), ElementsAre(Pair("media", "iso_a3_297x420mm")));
  sent.page_setup.erase("Name");
  EXPECT_THAT(OptionsOf(sent), ElementsAre(Pair("media", "Custom.297x420mm")));
  sent.page_setup.clear();
  EXPECT_THAT(OptionsOf(sent), ElementsAre(Pair("media", "na_letter_8.5x11in")));
}

TEST(Mapping, TakesNoRangesThatAreNotToBePrinted) {
  EXPECT_THAT(OptionsOf(Settings({{"page-ranges", "0-2"}})), IsEmpty());
  EXPECT_THAT(OptionsOf(Settings({{"page-ranges", "0-2"}, {"print-pages", "all"}})), IsEmpty());
}

TEST(Mapping, MakesNoOptionOfWhatNoJobCanHave) {
  for (const auto &[key, value] :
       std::vector<std::pair<std::string, std::string>>{{"n-copies", "0"},
                                                        {"n-copies", "10000"},
                                                        {"n-copies", "2 job-hold-until=indefinite"},
                                                        {"n-copies", "two"},
                                                        {"collate", "perhaps"},
                                                        {"page-ranges", "3-1"},
                                                        {"page-ranges", "-1"},
                                                        {"page-ranges", "1,"},
                                                        {"page-ranges", "1 2"},
                                                        {"page-ranges", "0-99999999999"},
                                                        {"page-set", "odd raw"},
                                                        {"reverse", "1"},
                                                        {"number-up", "3"},
                                                        {"number-up-layout", "lr"},
                                                        {"duplex", "both"},
                                                        {"use-color", ""},
                                                        {"quality", "best"},
                                                        {"paper-format", "A4 raw"},
                                                        {"paper-width", "nan"},
                                                        {"paper-width", "-1"},
                                                        {"paper-width", "1e9"}}) {
    const JobWords sent =
        Settings({{key, value}, {key == "page-ranges" ? "print-pages" : "x", "ranges"}});
    EXPECT_THAT(OptionsOf(sent), IsEmpty()) << key << '=' << value;
  }
  EXPECT_THAT(OptionsOf(PageSetup({{"PPDName", "A4 raw=true"}})), IsEmpty());
  EXPECT_THAT(OptionsOf(PageSetup({{"Width", 1e300}, {"Height", 5.0}})), IsEmpty());
}

TEST(Mapping, TakesNoOptionOfTheApplicationsOwn) {
  const Dictionary sent = {{"cups-job-hold-until", "indefinite"},
                           {"job-sheets", "secret"},
                           {"raw", "true"},
                           {"VQStartNumber", "5"},
                           {"copies", "7"},
                           {"document-format", "application/vnd.cups-raw"}};
  EXPECT_THAT(OptionsOf(Settings(sent)), IsEmpty());
  EXPECT_THAT(OptionsOf(PageSetup(sent)), IsEmpty());
}

TEST(Mapping, GivesBackWhatItDoesNotKnowButForThePrintSystemsOwn) {
  const Dictionary answered =
      AnsweredSettings({{"cups-Duplex", "None"}, {"of-mine", "5"}, {"number", int32_t{3}}});
  EXPECT_THAT(answered, Not(Contains(Key("cups-Duplex"))));
  EXPECT_EQ(Value("5"), answered.at("of-mine"));
  EXPECT_EQ(Value(int32_t{3}), answered.at("number"));
}

TEST(Mapping, TakesValuesOfOtherKindsForNone) {
  EXPECT_THAT(OptionsOf(Settings({{"n-copies", uint32_t{2}}, {"collate", true}})), IsEmpty());
  EXPECT_EQ("", QueueOf(Settings({{"printer", 5.0}})));
}

TEST(Mapping, BeginsWithTheQueueOfBeforeIfThatCanBeOne) {
  EXPECT_EQ("Laser_2", QueueOf(Settings({{"printer", "Laser_2"}})));
  EXPECT_EQ("", QueueOf(Settings({{"printer", "Print to File"}})));
  EXPECT_EQ("", QueueOf(Settings({{"printer", "--ppd=/etc/passwd"}})));
  EXPECT_EQ("", QueueOf(Settings({{"printer", "../x"}})));
  EXPECT_EQ("", QueueOf({}));
}
