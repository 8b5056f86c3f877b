// What printers get of queues that were enabled, to the last byte: PCL, and very long documents.

#include <algorithm>
#include <iterator>
#include <set>
#include <sstream>

#include "tests/host/command/FilterServer.h"
#include "tests/support/Documents.h"
#include "tests/support/PclPages.h"
#include "tests/support/RawPdf.h"

namespace fs = std::filesystem;
namespace {

// As the print system's own driver for it has them.
constexpr char kPcl[] =
    "*cupsFilter: \"application/vnd.cups-raster 0 rastertohp\"\n"
    "*OpenUI *Resolution/Resolution: PickOne\n*OrderDependency: 10 AnySetup *Resolution\n"
    "*DefaultResolution: 75dpi\n*Resolution 75dpi/75 dpi: \"<</HWResolution[75 75]/cupsColorSpace "
    "3/cupsBitsPerColor 1/cupsColorOrder 0/cupsCompression 2>>setpagedevice\"\n*CloseUI: "
    "*Resolution\n";
constexpr char kPdf[] = "*cupsFilter2: \"application/vnd.cups-pdf application/pdf 0 -\"\n";

using PrinterLanguages = FilterServer;

// The lines of A4 paper, and those of them where there is nothing but the number.
constexpr size_t kHeight = 842 * 75 / 72, kThird = kHeight / 3;

using Lines = std::vector<std::string>;

// Those below the last dot are not sent.
Lines AllOf(Lines lines) {
  EXPECT_LE(lines.size(), kHeight);
  lines.resize(kHeight);
  return lines;
}

Lines Middle(const PclPage &page) {
  const Lines lines = AllOf(page.lines);
  return {lines.begin() + kThird, lines.end() - kThird};
}

Lines Rest(const PclPage &page) {
  Lines lines = AllOf(page.lines);
  lines.erase(lines.begin() + kThird, lines.end() - kThird);
  return lines;
}

bool IsWhite(const Lines &lines) { return std::ranges::all_of(lines, &std::string::empty); }

std::vector<std::set<std::string>> WordsOfPages(const fs::path &pdf) {
  std::istringstream text(RunProgram({"pdftotext", pdf, "-"}).out);
  std::vector<std::set<std::string>> pages;
  for (std::string page; std::getline(text, page, '\f');) {
    std::istringstream words(page);
    pages.emplace_back(std::istream_iterator<std::string>(words),
                       std::istream_iterator<std::string>());
  }
  return pages;
}

}  // namespace

TEST_F(PrinterLanguages, PclHasTheNumbersAndNoOtherDifference) {
  AddQueue("Pcl", kPcl);
  Enable("Pcl");
  for (const auto &[type, file] : DocumentOfEachKind(folder_)) {
    SCOPED_TRACE(type);
    int on = 0, off = 0;
    const std::vector<PclPage> with = PclPages(Printed("Pcl", file, kOn, &on));
    const std::vector<PclPage> without = PclPages(Printed("Pcl", file, {}, &off));
    EXPECT_EQ(without.size(), type.starts_with("application/") ? 2u : 1u);
    ASSERT_EQ(with.size(), without.size());
    for (size_t page = 0; page < with.size(); ++page) {
      EXPECT_TRUE(IsWhite(Middle(without[page])));
      EXPECT_FALSE(IsWhite(Middle(with[page])));
      EXPECT_FALSE(IsWhite(Rest(without[page])));
      EXPECT_EQ(Rest(with[page]), Rest(without[page]));
      EXPECT_EQ(with[page].setup, without[page].setup);
    }
    if (with.size() > 1) EXPECT_NE(Middle(with[0]), Middle(with[1]));
    EXPECT_EQ(server().JobAttributes(on)["job-media-sheets-completed"],
              server().JobAttributes(off)["job-media-sheets-completed"]);
  }
}

TEST_F(PrinterLanguages, FiveThousandPagesHaveTheirNumbers) {
  constexpr size_t kPages = 5000;
  AddQueue("Long", kPdf);
  Enable("Long");
  std::vector<RawPage> pages;
  for (size_t page = 1; page <= kPages; ++page) {
    pages.push_back({"BT /F 12 Tf 50 750 Td (p" + std::to_string(page) + ") Tj ET"});
  }
  int job = 0;
  const std::string out = Printed("Long", folder_.Write("long.pdf", RawPdf(pages)), kOn, &job);
  EXPECT_EQ(server().JobAttributes(job)["job-media-sheets-completed"], std::to_string(kPages));
  const std::vector<std::set<std::string>> words = WordsOfPages(folder_.Write("out.pdf", out));
  ASSERT_EQ(words.size(), kPages);
  for (size_t page = 1; page <= kPages; ++page) {
    const std::set<std::string> expected = {'p' + std::to_string(page), std::to_string(page + 24)};
    ASSERT_EQ(words[page - 1], expected);
  }
}
