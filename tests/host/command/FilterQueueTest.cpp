// `pdeprint enable` on queues whose printers know no PostScript: a real print server runs the
// filter, and what the printers get has the numbers.

#include <cups/cups.h>
#include <cups/raster.h>
#include <fcntl.h>
#include <unistd.h>

#include "host/chain/FilterChain.h"
#include "host/ppd/PPDSource.h"
#include "tests/host/command/BuiltProgram.h"
#include "tests/host/command/FilterServer.h"
#include "tests/support/Documents.h"
#include "tests/support/RawPdf.h"
#include "tests/support/TestPPD.h"

namespace fs = std::filesystem;
using testing::Each;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

namespace {

constexpr char kRaster[] =
    "*cupsFilter: \"application/vnd.cups-raster 0 -\"\n"
    "*OpenUI *Resolution/Resolution: PickOne\n*OrderDependency: 10 AnySetup *Resolution\n"
    "*DefaultResolution: 72dpi\n*Resolution 72dpi/72 dpi: \"<</HWResolution[72 72]/cupsColorSpace "
    "3/cupsBitsPerColor 8/cupsColorOrder 0>>setpagedevice\"\n*CloseUI: *Resolution\n";
constexpr char kPdf[] = "*cupsFilter2: \"application/vnd.cups-pdf application/pdf 0 -\"\n";
constexpr char kDriverless[] =
    "*cupsFilter2: \"application/vnd.cups-pdf application/pdf 10 -\"\n"
    "*cupsFilter2: \"image/jpeg image/jpeg 0 -\"\n"
    "*cupsFilter2: \"image/urf image/urf 100 -\"\n";
constexpr char kRemote[] = "*cupsFilter2: \"application/pdf application/pdf 0 -\"\n";

// How dark each page is where its number stands, from the pixels that a printer got.
std::vector<long> InkInTheMiddle(const std::string &raster, const TemporaryFolder &folder) {
  const fs::path path = folder.Write("raster", raster);
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  cups_raster_t *pages = cupsRasterOpen(file, CUPS_RASTER_READ);
  std::vector<long> inks;
  cups_page_header2_t header;
  while (pages != nullptr && cupsRasterReadHeader2(pages, &header) != 0) {
    std::vector<unsigned char> line(header.cupsBytesPerLine);
    long ink = 0;
    for (unsigned y = 0; y < header.cupsHeight; ++y) {
      cupsRasterReadPixels(pages, line.data(), header.cupsBytesPerLine);
      if (y < header.cupsHeight / 3 || y > 2 * header.cupsHeight / 3) continue;
      for (const unsigned char value : line) {
        ink += header.cupsColorSpace == CUPS_CSPACE_K ? value : 255 - value;
      }
    }
    inks.push_back(ink);
  }
  if (pages != nullptr) cupsRasterClose(pages);
  close(file);
  return inks;
}

class FilterQueue : public FilterServer {
 protected:
  fs::path FileOf(const std::string &queue) const {
    return server().programs().parent_path() / "root/ppd" / (queue + ".ppd");
  }

  static std::string Refusal(const std::string &queue) {
    const RunResult result = Pdeprint({"enable", "-d", queue, "--apply"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, "");
    return result.err;
  }
};

}  // namespace

TEST_F(FilterQueue, EverythingPrintedAsPixelsIsNumbered) {
  AddQueue("Raster", kRaster);
  Enable("Raster");
  for (const auto &[type, file] : DocumentOfEachKind(folder_)) {
    SCOPED_TRACE(type);
    const std::vector<long> with = InkInTheMiddle(Printed("Raster", file, kOn), folder_);
    const std::vector<long> without = InkInTheMiddle(Printed("Raster", file, {}), folder_);
    ASSERT_EQ(with.size(), without.size());
    EXPECT_EQ(with.size(), type == "application/pdf" || type == "application/postscript" ? 2u : 1u);
    for (size_t page = 0; page < with.size(); ++page) EXPECT_GT(with[page], without[page] + 100000);
  }
}

TEST_F(FilterQueue, PicturesAreSentAsThePixelsThatThePrinterTakes) {
  std::string lines = kRaster;
  const std::string line = "*cupsFilter: \"application/vnd.cups-raster 0 -\"\n";
  lines.replace(lines.find(line), line.size(),
                "*cupsFilter2: \"application/vnd.cups-raster image/pwg-raster 0 -\"\n");
  AddQueue("Pwg", lines);
  Enable("Pwg");
  const fs::path picture = DocumentOfEachKind(folder_)["image/png"];
  const std::string with = Printed("Pwg", picture, kOn), without = Printed("Pwg", picture, {});
  EXPECT_THAT(with, StartsWith("RaS2PwgRaster"));
  EXPECT_THAT(without, StartsWith("RaS2PwgRaster"));
  EXPECT_GT(InkInTheMiddle(with, folder_).at(0), InkInTheMiddle(without, folder_).at(0) + 100000);
}

TEST_F(FilterQueue, EverythingPrintedAsPdfIsNumbered) {
  for (const auto &[name, lines] :
       std::map<std::string, std::string>{{"Pdf", kPdf}, {"Driverless", kDriverless}}) {
    AddQueue(name, lines);
    Enable(name);
    for (const auto &[type, file] : DocumentOfEachKind(folder_)) {
      SCOPED_TRACE(name + ' ' + type);
      const std::string out = Printed(name, file, kOn);
      EXPECT_THAT(out, StartsWith("%PDF-"));
      EXPECT_THAT(TextOfPdf(out), HasSubstr("25"));
      EXPECT_THAT(TextOfPdf(Printed(name, file, {})), Not(HasSubstr("25")));
    }
  }
}

TEST_F(FilterQueue, EverythingOnAPostScriptQueueIsNumberedByTheFilter) {
  AddQueue("PostScript", "");
  Enable("PostScript", {"--method", "filter"});
  const auto ink = [](const PrintedPage &page) {
    return page.picture().ShareOf([](Color color) { return color != kWhitePaper; },
                                  {0, 0.33, 1, 0.67});
  };
  for (const auto &[type, file] : DocumentOfEachKind(folder_)) {
    SCOPED_TRACE(type);
    int on = 0, off = 0;
    const std::vector<PrintedPage> with = PagesOf(Printed("PostScript", file, kOn, &on));
    const std::vector<PrintedPage> without = PagesOf(Printed("PostScript", file, {}, &off));
    ASSERT_EQ(with.size(), without.size());
    ASSERT_FALSE(with.empty());
    for (size_t page = 0; page < with.size(); ++page) {
      EXPECT_GT(ink(with[page]), ink(without[page]) + 0.005);
    }
    for (const int job : {on, off}) {
      EXPECT_EQ(server().JobAttributes(job)["job-media-sheets-completed"],
                std::to_string(with.size()));
    }
  }
}

TEST_F(FilterQueue, TheChainIsThatOfTheServer) {
  const EnvironmentVariable programs("CUPS_SERVERBIN", server().programs().string());
  const MimeTables tables(FindServerFolders());
  for (const auto &[name, lines] : std::map<std::string, std::string>{
           {"ChainRaster", kRaster}, {"ChainPdf", kDriverless}, {"ChainPostScript", ""}}) {
    AddQueue(name, lines);
    for (const bool enabled : {false, true}) {
      if (enabled) Enable(name, {"--method", "filter"});
      const Expected<PPDFile> ppd = ParsePPD(ContentOf(FileOf(name)));
      ASSERT_TRUE(ppd) << ppd.message();
      for (const auto &[type, file] : DocumentOfEachKind(folder_)) {
        SCOPED_TRACE(name + ' ' + type + (enabled ? " enabled" : ""));
        int job = 0;
        Printed(name, file, {}, &job);
        std::vector<std::string> started;
        std::istringstream log(ContentOf(server().programs().parent_path() / "error_log"));
        const std::string mark = "[Job " + std::to_string(job) + "] Started filter ";
        const std::string folder = (server().programs() / "filter/").string();
        for (std::string line; std::getline(log, line);) {
          const size_t at = line.find(mark + folder);
          if (at == std::string::npos) continue;
          const std::string rest = line.substr(at + mark.size() + folder.size());
          started.push_back(rest.substr(0, rest.find(' ')));
        }
        const auto chain = FilterChains(tables, *ppd).For(type);
        ASSERT_TRUE(chain);
        EXPECT_EQ(*chain, started);
      }
    }
  }
}

TEST_F(FilterQueue, IsRefusedWhereTheServerHasNoFilter) {
  AddQueue("Missing", kRaster);
  const std::string before = ContentOf(FileOf("Missing"));
  const fs::path filter = server().programs() / "filter/backgroundnumbers";
  fs::remove(filter);
  EXPECT_EQ(Refusal("Missing"),
            "pdeprint: cannot enable Missing: the print server has no filter "
            "backgroundnumbers (" +
                filter.string() + "); install it first\n");
  EXPECT_EQ(ContentOf(FileOf("Missing")), before);
}

TEST_F(FilterQueue, IsRefusedWhereTheServerDoesNotRunTheFilter) {
  AddQueue("Mode", kRaster);
  const fs::path filter = server().programs() / "filter/backgroundnumbers-pictures";
  fs::permissions(filter, fs::perms(0777));
  EXPECT_EQ(Refusal("Mode"), "pdeprint: cannot enable Mode: the print server does not run " +
                                 filter.string() +
                                 ": it and its folder must belong to root, with the mode 755\n");
  EXPECT_THAT(ContentOf(FileOf("Mode")), Not(HasSubstr("backgroundnumbers")));
}

TEST_F(FilterQueue, OfAnotherServerIsRefused) {
  AddQueue("Remote", kRemote);
  EXPECT_EQ(Refusal("Remote"),
            "pdeprint: cannot enable Remote: another print server prepares its documents; enable "
            "the queue there, or print with pdeprint\n");
}

TEST_F(FilterQueue, AFileIsForAServerThatMustHaveTheFilter) {
  const fs::path ppd = folder_.Write("in.ppd", TestPPD::Text(std::string(kColorDevice) + kRaster));
  const RunResult result = Pdeprint({"enable", ppd, "-o", folder_.path() / "out.ppd"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.err, "pdeprint: note: " + ppd.string() +
                            ": make sure that the print server has the filter backgroundnumbers; "
                            "that cannot be seen from here\n");
}

TEST_F(FilterQueue, ATemporaryQueueIsSaidToGo) {
  server().AddQueue(
      {.name = "Found",
       .ppd = folder_.Write("a.ppd", TestPPD::Text(std::string(kColorDevice) + kRaster))});
  server().MakeQueueTemporary("Found");
  const RunResult result = Pdeprint({"enable", "-d", "Found", "--apply"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.err,
            "pdeprint: note: Found: the queue is temporary and soon goes with its PPD file; make "
            "it permanent: lpadmin -p Found -o printer-is-shared=true\n");
  server().Run({"/usr/sbin/lpadmin", "-p", "Found", "-o", "printer-is-shared=true"});
  EXPECT_EQ(Pdeprint({"disable", "-d", "Found", "--apply"}).err, "");
}

// A server of its own: the report is about all its queues.
TEST_F(FilterQueue, AllQueuesAreEnabledAndDisabledWithAReport) {
  const PrivateServer other;
  AddFilters(other);
  const auto add = [&](const std::string &name, const std::string &lines) {
    other.AddQueue(
        {.name = name, .ppd = folder_.Write("a.ppd", TestPPD::Text(kColorDevice + lines))});
  };
  add("Laser", "");
  add("Raster", kRaster);
  add("Remote", kRemote);
  other.AddQueue({.name = "Raw"});
  // A server with a class is no failure.
  other.Run({"/usr/sbin/lpadmin", "-p", "Laser", "-c", "Team"});
  const auto ppd = [&](const std::string &queue) {
    return ContentOf(other.programs().parent_path() / "root/ppd" / (queue + ".ppd"));
  };
  const std::string laser = ppd("Laser"), raster = ppd("Raster");
  const auto run = [&](const Arguments &arguments) {
    EnvironmentChanges changes = other.Environment();
    changes["CUPS_SERVERBIN"] = other.programs().string();
    return Run(arguments, changes);
  };

  const RunResult enabled = run({"enable", "--all", "--apply"});
  EXPECT_EQ(enabled.status, 0) << enabled.err;
  EXPECT_EQ(enabled.out,
            "Laser: changed, with the printer options of Background Numbering\n"
            "Raster: changed, with the printer options of Background Numbering and the filter "
            "backgroundnumbers\n"
            "Raw: refused: the queue Raw has no PPD file\n"
            "Remote: refused: another print server prepares its documents; enable the queue there, "
            "or print with pdeprint\n"
            "Team: refused: Team on the print server " +
                other.address() + " is a class of printers; name one of them\n");
  const RunResult again = run({"enable", "--all", "--apply", "--json"});
  EXPECT_EQ(again.status, 0) << again.err;
  const Json report = Parsed(again.out);
  ASSERT_EQ(report.size(), 5u);
  EXPECT_EQ(report[0]["queue"], "Laser");
  EXPECT_EQ(report[0]["state"], "unchanged");
  EXPECT_EQ(report[0]["reason"], nullptr);
  EXPECT_EQ(report[2]["state"], "refused");
  EXPECT_EQ(report[2]["reason"], "the queue Raw has no PPD file");

  const RunResult disabled = run({"disable", "--all", "--apply"});
  EXPECT_EQ(disabled.status, 0) << disabled.err;
  EXPECT_THAT(disabled.out, HasSubstr("Raster: changed, without the printer options of "));
  EXPECT_THAT(disabled.out,
              HasSubstr("Remote: unchanged, pdeprint has added nothing that could be taken out\n"));
  EXPECT_EQ(ppd("Laser"), laser);
  EXPECT_EQ(ppd("Raster"), raster);
}

TEST_F(FilterQueue, AReportOfWhatHasFailedIsAFailure) {
  const PrivateServer other;
  other.AddQueue({.name = "Laser", .ppd = folder_.Write("a.ppd", TestPPD::Text(kColorDevice))});
  other.Restrict("CUPS-Add-Modify-Printer");
  EnvironmentChanges changes = other.Environment();
  ASSERT_TRUE(Becomes([&] {
    return Run({"enable", "--all", "--apply"}, changes).out.starts_with("Laser: failed: ");
  }));
  EXPECT_EQ(Run({"enable", "--all", "--apply"}, changes).status, 1);
}
