#include "tests/printing/PrintedJob.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <stdexcept>
#include <tuple>

#include "tests/support/Arguments.h"
#include "tests/support/NumberingPPD.h"
#include "tests/support/Patience.h"

namespace fs = std::filesystem;

namespace {

const TemporaryFolder &Folder() {
  static const TemporaryFolder folder;
  return folder;
}

fs::path BuiltPPD(const std::string &name) { return BINARY_DIRECTORY "/printer/" + name; }

// The built PPD file with an option before numbering in it, whose default does this.
fs::path PPDWithOption(const std::string &option, const std::string &postscript) {
  std::string text = ContentOf(BuiltPPD("VelmoraNumbering.ppd"));
  const std::string lines = "*OpenUI *" + option + ": PickOne\n*OrderDependency: 40 AnySetup *" +
                            option + "\n*Default" + option + ": On\n*" + option + " On: \"" +
                            postscript + "\"\n*End\n*CloseUI: *" + option + "\n\n";
  const size_t place = text.find("*OpenGroup: BackgroundNumbering");
  EXPECT_NE(place, std::string::npos);
  return Folder().Write(option + ".ppd", text.insert(place, lines));
}

// It begins as our own procedures do, with a dictionary that holds others.
const char kMarks[] =
    "<< /BeginPage [ << /BeginPage {pop} /EndPage {exch pop 2 ne} >> /pop cvx\n"
    "{ pop gsave 1 0 0 setrgbcolor 197 300 40 240 rectfill grestore } /exec cvx ] cvx\n"
    "/EndPage { exch pop 2 ne dup { gsave initgraphics 0 1 0 setrgbcolor\n"
    "535 20 40 40 rectfill grestore } if } >> setpagedevice";

// Each second page completes a sheet side.
const char kTwoUp[] =
    "<< /BeginPage { 2 mod 0 eq { 0 421 translate } if .5 .5 scale }\n"
    "/EndPage { 2 ne exch 2 mod 1 eq and } >> setpagedevice";

std::map<std::string, TestQueue> Queues() {
  const fs::path color = BuiltPPD("VelmoraNumbering.ppd");
  const std::string renderer = "pdftops-renderer-default";
  const TestQueue queues[] = {
      {.name = "Color", .ppd = color},
      {.name = "Mono", .ppd = BuiltPPD("VelmoraNumberingMono.ppd")},
      {.name = "Plain", .ppd = Folder().Write("plain.ppd", NumberingPPDText(true))},
      {.name = "Pdftops", .ppd = color, .options = {{renderer, "pdftops"}}},
      {.name = "Pdftocairo", .ppd = color, .options = {{renderer, "pdftocairo"}}},
      {.name = "Hybrid", .ppd = color, .options = {{renderer, "hybrid"}}},
      {.name = "Marked", .ppd = PPDWithOption("Marks", kMarks)},
      {.name = "TwoUp", .ppd = PPDWithOption("TwoUp", kTwoUp)}};
  std::map<std::string, TestQueue> by_name;
  for (const TestQueue &queue : queues) by_name.emplace(queue.name, queue);
  return by_name;
}

// Adds one of our queues when it is first needed: most tests need one alone.
void NeedQueue(const PrivateServer &server, const std::string &name) {
  static std::map<std::string, TestQueue> left = Queues();
  if (const auto queue = left.extract(name)) server.AddQueue(queue.mapped());
}

RunOptions ServersOptions() {
  RunOptions options;
  options.environment = Server().Environment();
  options.environment.merge(
      EnvironmentChanges{{"XDG_CONFIG_HOME", std::nullopt}, {"XDG_CONFIG_DIRS", "/nowhere"}});
  return options;
}

// 0, and a failure of the test, where there is none.
int RequestedJob(const RunResult &result) {
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(result.err, "");
  const std::string said = "request id is ";
  const size_t dash = result.out.find('-');
  EXPECT_TRUE(result.out.starts_with(said) && dash != std::string::npos) << result.out;
  return dash == std::string::npos ? 0 : std::atoi(result.out.c_str() + dash + 1);
}

int SentJob(const std::string &queue, const Settings &settings,
            const std::vector<std::string> &documents) {
  using Key = std::tuple<std::string, Settings, std::vector<std::string>>;
  static std::map<Key, int> jobs;
  int &job = jobs[Key{queue, settings, documents}];
  if (job != 0) return job;
  NeedQueue(Server(), queue);
  Arguments arguments = {"print", "-d", queue};
  for (const auto &[name, value] : settings)
    arguments = arguments + Arguments{"--set", name + '=' + value};
  for (const std::string &document : documents) {
    arguments.push_back(
        Folder().Write("document" + std::to_string(arguments.size()), document).string());
  }
  return job = RequestedJob(RunPdeprint(arguments, ServersOptions()));
}

}  // namespace

Settings On(const Settings &more) {
  Settings settings = more;
  settings.merge(Settings{{"VQBackgroundNumbering", "On"}, {"VQStartNumber", "25"}});
  return settings;
}

PrivateServer &Server() {
  static PrivateServer server;
  NeedQueue(server, "Color");
  return server;
}

PrintedJob::PrintedJob(const Settings &settings, const std::string &document,
                       const std::string &queue)
    : PrintedJob(settings, std::vector{document}, queue) {}

PrintedJob::PrintedJob(const Settings &settings, const std::vector<std::string> &documents,
                       const std::string &queue)
    : number_(SentJob(queue, settings, documents)) {}

PrintedJob::PrintedJob(const std::vector<std::string> &command) {
  const auto destination = std::ranges::find(command, "-d");
  if (destination != command.end()) NeedQueue(Server(), *std::next(destination));
  number_ = RequestedJob(RunProgram(command, ServersOptions()));
}

const std::string &PrintedJob::Output() const {
  static std::map<int, std::string> outputs;
  std::string &output = outputs[number_];
  if (!output.empty()) return output;
  std::string state;
  const auto has_ended = [&] {
    state = Server().JobAttributes(number_)["job-state"];
    return state == "completed" || state == "aborted" || state == "canceled" || state.empty();
  };
  EXPECT_TRUE(Becomes(has_ended)) << "job " << number_ << " does not end";
  EXPECT_EQ(state, "completed");
  return output = Server().OutputOf(number_);
}

const std::vector<PrintedPage> &PrintedJob::Pages() const {
  static std::map<int, std::vector<PrintedPage>> jobs;
  std::vector<PrintedPage> &pages = jobs[number_];
  if (pages.empty()) pages = PagesOf(Output());
  if (pages.empty()) throw std::runtime_error("job " + std::to_string(number_) + " has no pages");
  return pages;
}

Color NumberColor(const PrintedPage &page) {
  const std::optional<Color> color = page.picture().MainColor();
  EXPECT_TRUE(color) << "nothing is drawn but black on white";
  return color.value_or(kWhitePaper);
}

Box NumberBox(const PrintedPage &page) {
  const Color number = NumberColor(page);
  return page.picture().BoundsOf([number](Color color) { return color == number; }).value_or(Box{});
}

void ExpectInTheMiddle(const PrintedPage &page) {
  const Box box = NumberBox(page);
  EXPECT_NEAR(box.center_x(), 0.5, 0.01);
  EXPECT_NEAR(box.center_y(), 0.5, 0.01);
}

void ExpectAwayFromTheEdges(const PrintedPage &page) {
  const Box box = NumberBox(page);
  const double across = 0.05 - 1.0 / page.picture().width();
  const double down = 0.05 - 1.0 / page.picture().height();
  EXPECT_GE(box.left, across);
  EXPECT_LE(box.right, 1 - across);
  EXPECT_GE(box.top, down);
  EXPECT_LE(box.bottom, 1 - down);
}

void ExpectContentUnchanged(const PrintedPage &numbered, const PrintedPage &plain) {
  const Picture &with = numbered.picture();
  const Picture &without = plain.picture();
  ASSERT_EQ(with.width(), without.width());
  ASSERT_EQ(with.height(), without.height());
  int content = 0, changed = 0;
  for (int y = 0; y < with.height(); ++y) {
    for (int x = 0; x < with.width(); ++x) {
      if (without.at(x, y) == kWhitePaper) continue;
      ++content;
      if (with.at(x, y) != without.at(x, y)) ++changed;
    }
  }
  EXPECT_GT(content, 0) << "the page is empty";
  EXPECT_EQ(changed, 0) << "of " << content << " pixels of the content";
}

void ExpectSamePages(const std::vector<PrintedPage> &expected,
                     const std::vector<PrintedPage> &actual) {
  ASSERT_EQ(expected.size(), actual.size());
  for (size_t at = 0; at < expected.size(); ++at) {
    EXPECT_TRUE(expected[at].pictures == actual[at].pictures) << "page " << at + 1 << " differs";
  }
}
