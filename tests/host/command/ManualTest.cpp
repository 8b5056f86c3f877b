// The manual page, as groff formats it.

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <nlohmann/json.hpp>

#include "host/command/ChangeReport.h"
#include "host/command/CheckReport.h"
#include "host/command/PanelReport.h"
#include "host/command/QueuesReport.h"
#include "host/command/ShowReport.h"
#include "host/extension/BundleSearch.h"
#include "host/presets/PresetStore.h"
#include "tests/host/command/HelpText.h"

namespace fs = std::filesystem;

namespace {

using Json = nlohmann::ordered_json;
using Names = std::set<std::string>;

const char kManual[] = SOURCE_DIRECTORY "/docs/pdeprint.1";

RunResult Formatted() {
  // Long lines without hyphens, for what is looked up here.
  return RunProgram(
      {"groff", "-mandoc", "-Tascii", "-P-cbou", "-wall", "-rLL=300n", "-rHY=0", kManual});
}

// The text below each heading, subheadings included.
std::map<std::string, std::string> Sections() {
  std::map<std::string, std::string> sections;
  std::istringstream lines(Formatted().out);
  std::string heading;
  std::smatch match;
  for (std::string line; std::getline(lines, line);) {
    if (std::regex_match(line, match, std::regex("(?:   )?([A-Za-z].*)"))) {
      heading = match[1];
    } else {
      sections[heading] += line + '\n';
    }
  }
  return sections;
}

std::string Section(const std::string &heading) {
  const auto sections = Sections();
  const auto section = sections.find(heading);
  if (section != sections.end()) return section->second;
  ADD_FAILURE() << "the manual has no section " << heading;
  return "";
}

Names LongOptions(const std::string &text) {
  return Matches(text, "--[a-z][a-z-]*(?: [A-Z][A-Z=]+)?");
}

Names ShortOptions(const std::string &text) { return Matches(text, "[ \n](-[A-Za-z])\\b"); }

bool Says(const std::string &section, const std::string &words) {
  const std::string text = Section(section);
  return text.find(words) != std::string::npos;
}

// The JSON texts that the section shows, in their order.
std::vector<Json> JsonIn(const std::string &section) {
  std::vector<Json> values;
  std::istringstream lines(section);
  std::string text;
  for (std::string line; std::getline(lines, line);) {
    const std::string shown = line.substr(std::min(line.find_first_not_of(' '), line.size()));
    const bool begins = text.empty() && (shown == "{" || shown == "[");
    if (begins || !text.empty()) text += shown + '\n';
    if (text.empty() || !Json::accept(text)) continue;
    values.push_back(Json::parse(text));
    text.clear();
  }
  EXPECT_EQ("", text) << "this is no JSON";
  return values;
}

// The value with its texts, numbers and truth values made alike: what is left is its shape.
Json Shape(Json value) {
  if (value.is_structured()) {
    for (Json &part : value) part = Shape(part);
    return value;
  }
  return Json(value.type_name());
}

}  // namespace

TEST(Manual, IsFormattedWithoutWarnings) {
  const RunResult result = Formatted();
  EXPECT_EQ(0, result.status);
  EXPECT_EQ("", result.err);
}

TEST(Manual, GivesTheUsageOfEachVerb) {
  EXPECT_EQ(Verbs(), Matches(Section("SYNOPSIS"), "pdeprint ([a-z]+)"));
}

TEST(Manual, NamesTheOptionsWithoutAVerb) {
  const std::string synopsis = Section("SYNOPSIS");
  EXPECT_EQ(LongOptions(OptionsHelp()), LongOptions(synopsis));
  EXPECT_EQ(ShortOptions(OptionsHelp()), ShortOptions(synopsis));
}

TEST(Manual, NamesTheOptionsOfEachVerbAndTheirValuesInItsSection) {
  for (const std::string &verb : Verbs()) {
    SCOPED_TRACE(verb);
    const std::string help = OptionsHelp(verb);
    const std::string section = Section(verb);
    EXPECT_EQ(LongOptions(help), LongOptions(section));
    EXPECT_EQ(ShortOptions(help), ShortOptions(section));
  }
}

TEST(Manual, ExplainsTheOptionsThatEveryVerbHas) {
  Names common = LongOptions(OptionsHelp(*Verbs().begin()));
  for (const std::string &verb : Verbs()) {
    if (verb == "portal") continue;
    const Names options = LongOptions(OptionsHelp(verb));
    std::erase_if(common, [&](const std::string &option) { return !options.contains(option); });
  }
  EXPECT_EQ(common, LongOptions(Section("Options of every verb")));
}

TEST(Manual, ShowsTheShapeOfEachAnswerInJson) {
  const std::vector<Json> shown = JsonIn(Section("Answers in JSON"));
  ASSERT_EQ(5u, shown.size());
  const PanelReport settings{.panel = "Panel",
                             .summary = {{"Title", "Value"}},
                             .options = {{"VQBNSize", "Small"}},
                             .ticket = "ticket"};
  EXPECT_EQ(Shape(Json::parse(settings.Json())), Shape(shown[0]));
  const std::string check = CheckJson({{.file = "file",
                                        .readable = true,
                                        .color = true,
                                        .panels = {"Panel"},
                                        .applications = {{"Bundle", Application::By::kPrinter}}}});
  EXPECT_EQ(Shape(Json::parse(check)), Shape(shown[1]));
  const std::string changes = ChangesJson({{.queue = "A", .state = ChangeState::kChanged}});
  EXPECT_EQ(Shape(Json::parse(changes)), Shape(shown[2]));
  QueueResult queue;
  queue.panels = {"Panel"};
  queue.applications = {{"Bundle", Application::By::kPrinter}};
  EXPECT_EQ(Shape(Json::parse(QueuesJson({queue}))), Shape(shown[3]));
  // All that there can be.
  ShowReport ended{.outcome = ShowReport::Outcome::kFailed,
                   .reason = "reason",
                   .job = 1,
                   .files = {"file"},
                   .shown = ShownJob{.queue = "A",
                                     .paper = NamedPaper{"A4", {.size = {595, 842}}},
                                     .settings = {{"VQBNSize", "Small"}}}};
  EXPECT_EQ(Shape(Json::parse(ended.Json())), Shape(shown[4]));
}

TEST(Manual, NamesTheFoldersOfBundles) {
  for (const fs::path &folder : BundleFolders()) {
    // The program's own folders, and the user's, depend on where they are.
    if (folder.native().starts_with("/usr/")) {
      EXPECT_TRUE(Says("FILES", folder.string())) << folder;
    }
  }
}

TEST(Manual, NamesTheFileOfThePresetLastUsed) {
  const PresetStore store("~/.config/pdeprint/presets", {});
  EXPECT_TRUE(Says("FILES", " " + store.LastUsedPath().string() + "\n"));
}

TEST(Manual, GivesExamplesThatAreNoWrongUsage) {
  TemporaryFolder folder;
  fs::copy(BINARY_DIRECTORY "/printer/VelmoraNumbering.ppd", folder.path());
  const Names examples = Matches(Section("EXAMPLES"), "\n +(pdeprint .*)");
  EXPECT_LE(5u, examples.size());
  for (const std::string &example : examples) {
    const RunResult result = RunProgram(
        {"sh", "-c", example}, {.environment = {{"PATH", BINARY_DIRECTORY ":/usr/bin:/bin"},
                                                {"CUPS_SERVER", "127.0.0.1:1"},
                                                {"DISPLAY", std::nullopt}},
                                .folder = folder.path().string()});
    EXPECT_TRUE(result.status == 0 || result.status == 1) << example << ": " << result.err;
  }
}

TEST(Manual, IsInstalledWhereManLooksForIt) {
  TemporaryFolder prefix;
  const RunResult result = RunProgram(
      {CMAKE_PROGRAM, "--install", BINARY_DIRECTORY, "--prefix", prefix.path().string()});
  ASSERT_EQ(0, result.status) << result.err;
  EXPECT_EQ(ContentOf(kManual), ContentOf(prefix.path() / "share/man/man1/pdeprint.1"));
}
