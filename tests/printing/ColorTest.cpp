// The colors of the number.

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/printing/PrintedJob.h"
#include "tests/support/Documents.h"

namespace {

// Which components are at their full: 'R', 'G' and 'B'; none is black's.
struct NamedColor {
  const char *name;
  const char *components;
};
constexpr NamedColor kColors[] = {{"Black", ""},  {"Red", "R"},      {"Green", "G"},  {"Blue", "B"},
                                  {"Cyan", "GB"}, {"Magenta", "RB"}, {"Yellow", "RG"}};

constexpr const char *kDensities[] = {"Light", "Medium", "Dark"};

PrintedJob JobOfColor(const std::string &color, const std::string &density) {
  return PrintedJob(On({{"VQBNDensity", density}, {"VQBNColor", color}}), TextPdf(2));
}

int Palest(Color color) { return std::min({color.red, color.green, color.blue}); }

bool IsGray(Color color) { return color.red == color.green && color.green == color.blue; }

}  // namespace

TEST(NumberColor, EachHasItsHueAtEachDensity) {
  std::vector<PrintedJob> jobs;
  for (const NamedColor &named : kColors) {
    for (const char *density : kDensities) jobs.push_back(JobOfColor(named.name, density));
  }
  auto job = jobs.begin();
  for (const NamedColor &named : kColors) {
    for (const char *density : kDensities) {
      SCOPED_TRACE(std::string(named.name) + ' ' + density);
      const Color color = NumberColor((job++)->Pages().front());
      const std::pair<char, int> components[] = {
          {'R', color.red}, {'G', color.green}, {'B', color.blue}};
      const int palest = Palest(color);
      EXPECT_LE(palest, 225) << "hardly any color";
      for (const auto &[name, value] : components) {
        const bool is_full = std::string(named.components).find(name) != std::string::npos;
        EXPECT_NEAR(value, is_full ? 255 : palest, 1) << name;
      }
    }
  }
}

TEST(NumberColor, BrighterColorsAreLaidOnMoreStronglyAtTheSameDensity) {
  for (const char *density : kDensities) {
    int darker = 256;
    for (const char *name : {"Blue", "Green", "Cyan", "Yellow"}) {
      const int palest = Palest(NumberColor(JobOfColor(name, density).Pages().front()));
      EXPECT_LE(palest, darker - 4) << name << ' ' << density;
      darker = palest;
    }
  }
}

TEST(NumberColor, EveryPageOfAJobHasTheSame) {
  for (const PrintedPage &page : JobOfColor("Magenta", "Dark").Pages()) {
    EXPECT_EQ(NumberColor(page), NumberColor(JobOfColor("Magenta", "Dark").Pages().front()));
  }
}

TEST(NumberColor, BlackUnlessChosen) {
  const PrintedJob job(On({{"VQBNDensity", "Dark"}}), TextPdf(2));
  ExpectSamePages(JobOfColor("Black", "Dark").Pages(), job.Pages());
}

TEST(NumberColor, TheContentOfThePageKeepsItsOwn) {
  const std::string red =
      Document({"1 0 0 setrgbcolor 240 360 120 120 rectfill", "240 360 120 120 rectfill"});
  const PrintedJob job(On({{"VQBNColor", "Blue"}}), red);
  const Box square = {0.42, 0.45, 0.58, 0.55};
  const auto is = [](Color wanted) { return [wanted](Color color) { return color == wanted; }; };
  EXPECT_EQ(job.Pages()[0].picture().ShareOf(is({255, 0, 0}), square), 1);
  EXPECT_EQ(job.Pages()[1].picture().ShareOf(is(kBlackInk), square), 1);
}

TEST(NumberColor, GrayOnAMonochromePrinterWhateverTheJobAsksFor) {
  const TemporaryFolder folder;
  const PrintedJob job({"lp", "-d", "Mono", "-o", "VQBackgroundNumbering=On", "-o", "VQBNColor=Red",
                        folder.Write("document.ps", TextDocument(1))});
  EXPECT_EQ(job.Numbers(), "1");
  EXPECT_TRUE(IsGray(NumberColor(job.Pages().front())));
}

TEST(NumberColor, GrayOnAMonochromePrinterWhateverTheTicketStores) {
  const TemporaryFolder folder;
  const std::string ticket =
      folder.Write("ticket.plist",
                   "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\"><dict>"
                   "<key>VQBackgroundNumbering</key><string>On</string>"
                   "<key>VQBNColor</key><string>Red</string></dict></plist>\n");
  // What it says of the color is of no interest here.
  const PrintedJob job({"sh", "-c", "exec \"$@\" 2>/dev/null", "sh", kPdeprint, "print", "-d",
                        "Mono", "--ticket", ticket, folder.Write("document.ps", TextDocument(1))});
  EXPECT_EQ(job.Numbers(), "1");
  EXPECT_TRUE(IsGray(NumberColor(job.Pages().front())));
}

TEST(NumberColor, AMonochromePrinterDrawsTheSameBlackAsAColorPrinter) {
  const PrintedJob mono(On(), TextDocument(3), "Mono");
  const PrintedJob color(On(), TextDocument(3));
  ExpectSamePages(color.Pages(), mono.Pages());
}
