// Pictures that are printed in the way of documents.

#include <gmock/gmock.h>

#include <algorithm>
#include <csignal>

#include "filter/pictures/Steps.h"
#include "tests/filter/FilterRun.h"
#include "tests/support/Documents.h"
#include "tests/support/RawPdf.h"
#include "tests/support/TestPPD.h"

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

namespace {

constexpr char kPictures[] = BINARY_DIRECTORY "/backgroundnumbers-pictures";

bool HasAll(const std::string &) { return true; }

std::string DriverIn(const std::string &lines) {
  return RasterDriver(TestPPD(lines).path().c_str());
}

// A small picture, as a file.
fs::path PageAsPicture(const TemporaryFolder &folder) {
  const fs::path file = folder.path() / "a.png";
  const fs::path page = folder.Write("a.ps", Document({"0 0 moveto"}));
  EXPECT_EQ(RunProgram({"gs", "-q", "-dSAFER", "-dNOPAUSE", "-dBATCH", "-r36", "-sDEVICE=png16m",
                        "-sOutputFile=" + file.string(), page})
                .status,
            0);
  return file;
}

RunResult Print(const fs::path &picture, const std::string &shell, const std::string &wanted,
                const std::string &options = kOn) {
  RunOptions run;
  run.environment = {{"CONTENT_TYPE", "image/png"},
                     {"FINAL_CONTENT_TYPE", wanted},
                     {"PPD", std::nullopt},
                     {"CUPS_SERVERBIN", "/usr/lib/cups"}};
  return RunProgram({"bash", "-c", shell, "-", kPictures, options, picture}, run);
}

constexpr char kFile[] = "\"$1\" 1 user title 1 \"$2\" \"$3\"";

}  // namespace

TEST(PictureSteps, LeadToWhatThePrinterTakes) {
  EXPECT_THAT(StepsTo("application/pdf", "", HasAll),
              ElementsAre("imagetopdf", "backgroundnumbers"));
  EXPECT_THAT(StepsTo("image/pwg-raster", "", HasAll),
              ElementsAre("imagetopdf", "backgroundnumbers", "gstoraster"));
  EXPECT_THAT(StepsTo("image/urf", "", HasAll),
              ElementsAre("imagetopdf", "backgroundnumbers", "gstoraster", "rastertopwg"));
  EXPECT_THAT(StepsTo("application/vnd.cups-raster", "rastertohp", HasAll),
              ElementsAre("imagetopdf", "backgroundnumbers", "gstoraster", "rastertohp"));
  EXPECT_THAT(StepsTo("application/vnd.cups-raster", "-", HasAll),
              ElementsAre("imagetopdf", "backgroundnumbers", "gstoraster"));
}

TEST(PictureSteps, GoThroughTheProgramThatIsThere) {
  const auto has = [](const std::string &program) { return program == "pdftoraster"; };
  EXPECT_THAT(StepsTo("image/pwg-raster", "", has),
              ElementsAre("imagetopdf", "backgroundnumbers", "pdftoraster"));
  EXPECT_THAT(StepsTo("image/pwg-raster", "", [](const std::string &) { return false; }),
              IsEmpty());
  EXPECT_THAT(StepsTo("application/vnd.cups-raster", "", HasAll), IsEmpty());
}

TEST(PictureSteps, TheDriverIsThatOfTheFileWithTheLowestCost) {
  EXPECT_EQ(DriverIn("*cupsFilter: \"application/vnd.cups-raster 50 rastertohp\"\n"), "rastertohp");
  EXPECT_EQ(DriverIn("*cupsFilter: \"application/vnd.cups-raster 50 one\"\n"
                     "*cupsFilter: \"application/vnd.cups-raster 7 /opt/two words\"\n"),
            "/opt/two words");
  EXPECT_EQ(DriverIn("*cupsFilter: \"application/vnd.cups-raster 0 older\"\n"
                     "*cupsFilter2: \"application/vnd.cups-raster a/b 0 maxsize(10) newer\"\n"),
            "newer");
  EXPECT_EQ(DriverIn("*cupsFilter: \"application/vnd.cups-pdf 0 -\"\n"), "");
}

TEST(Pictures, AreNumberedFromAFileAndThroughAPipe) {
  const TemporaryFolder folder;
  const fs::path picture = PageAsPicture(folder);
  for (const char *shell : {kFile, "cat \"$3\" | \"$1\" 1 user title 1 \"$2\""}) {
    const RunResult result = Print(picture, shell, "application/pdf");
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_THAT(result.out, StartsWith("%PDF-"));
    EXPECT_THAT(TextOfPdf(result.out), HasSubstr("25"));
    EXPECT_THAT(result.err, HasSubstr("PAGE: 1 1"));
  }
  EXPECT_THAT(TextOfPdf(Print(picture, kFile, "application/pdf", "").out), Not(HasSubstr("25")));
}

TEST(Pictures, BecomePixels) {
  const TemporaryFolder folder;
  const RunResult result = Print(PageAsPicture(folder), kFile, "image/pwg-raster");
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_THAT(result.out, StartsWith("RaS2PwgRaster"));
}

TEST(Pictures, WithoutAWayToThePrinterAreAFailure) {
  const TemporaryFolder folder;
  const RunResult result = Print(PageAsPicture(folder), kFile, "application/vnd.cups-raster");
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.err, StartsWith("ERROR: There is no way for pictures to this printer"));
}

TEST(Pictures, AProgramThatFailsIsAFailure) {
  const TemporaryFolder folder;
  const RunResult result = Print(folder.Write("a.png", "no picture"), kFile, "application/pdf");
  EXPECT_NE(result.status, 0);
}

TEST(Pictures, AJobThatIsCanceledEndsAllPrograms) {
  const TemporaryFolder folder;
  RunOptions run;
  run.environment = {{"FINAL_CONTENT_TYPE", "application/pdf"},
                     {"CUPS_SERVERBIN", "/usr/lib/cups"}};
  // Its input never ends.
  const fs::path pipe = folder.path() / "pipe";
  ASSERT_EQ(RunProgram({"mkfifo", pipe}).status, 0);
  RunningProgram program(
      {"bash", "-c", "exec 5<>\"$2\"; exec \"$1\" 1 user title 1 '' <&5", "-", kPictures, pipe},
      run);
  const auto children = [&program] {
    return RunProgram({"pgrep", "-P", std::to_string(program.pid())}).out;
  };
  ASSERT_TRUE(Becomes([&] { return std::ranges::count(children(), '\n') == 2; }));
  program.Signal(SIGTERM);
  EXPECT_TRUE(program.HasEnded(kSoon));
}
