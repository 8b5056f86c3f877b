// Jobs on a print server: what is sent, and what the printer gets.

#include <gmock/gmock.h>

#include "tests/host/cups/ServedPrintServer.h"
#include "tests/support/TestPPD.h"

namespace fs = std::filesystem;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace {

// A queue whose printer has a lamp.
TestQueue WithLamp(const std::string &name, const TemporaryFolder &folder) {
  return {.name = name,
          .ppd = folder.Write("lamp.ppd", TestPPD::Text("*OpenUI *Lamp/Lamp: PickOne\n"
                                                        "*OrderDependency: 50 AnySetup *Lamp\n"
                                                        "*DefaultLamp: Dim\n"
                                                        "*Lamp Dim/Dim: \"(dim) pop\"\n"
                                                        "*Lamp Bright/Bright: \"(bright) pop\"\n"
                                                        "*CloseUI: *Lamp\n"))};
}

// One page that says so.
std::string Page(const std::string &text) {
  return "%!PS-Adobe-3.0\n%%Pages: 1\n%%EndComments\n%%Page: 1 1\n/Helvetica findfont 24 scalefont "
         "setfont\n"
         "72 700 moveto (" +
         text + ") show showpage\n%%EOF\n";
}

}  // namespace

TEST_F(PrintServerTest, PrintsThroughTheServersFilters) {
  server().AddQueue(WithLamp("Prints", folder_));
  const int job = JobOf("Prints", {Page("Hello from afar")}, {{"Lamp", "Bright"}});
  ASSERT_TRUE(Becomes([&] { return StatusOf(job).HasEnded(); }));
  EXPECT_EQ(StatusOf(job).state, JobState::kCompleted);
  EXPECT_THAT(server().OutputOf(job), HasSubstr("Hello from afar"));
  EXPECT_THAT(server().OutputOf(job), HasSubstr("(bright) pop"));
}

TEST_F(PrintServerTest, PrintsAPDFFileThroughTheServersFilters) {
  server().AddQueue(WithLamp("PrintsPDF", folder_));
  const fs::path pdf = folder_.path() / "page.pdf";
  server().Run({"gs", "-q", "-dBATCH", "-dNOPAUSE", "-sDEVICE=pdfwrite",
                "-sOutputFile=" + pdf.string(), folder_.Write("page.ps", Page("Hello from PDF"))});
  const int job = JobOf("PrintsPDF", {ContentOf(pdf)}, {{"Lamp", "Bright"}});
  ASSERT_TRUE(Becomes([&] { return StatusOf(job).HasEnded(); }));
  EXPECT_EQ(StatusOf(job).state, JobState::kCompleted);
  EXPECT_THAT(server().OutputOf(job), StartsWith("%!PS"));
  EXPECT_THAT(server().OutputOf(job), HasSubstr("(bright) pop"));
}

TEST_F(PrintServerTest, PrintsOnAQueueWithoutAPPDFileWhatItGets) {
  server().AddQueue({.name = "Raw"});
  const std::string bytes = std::string("\0\xff\1 raw \x1b%-12345X\n", 18) + std::string(9000, 'r');
  const int job = JobOf("Raw", {bytes});
  ASSERT_TRUE(Becomes([&] { return StatusOf(job).HasEnded(); }));
  EXPECT_EQ(StatusOf(job).state, JobState::kCompleted);
  EXPECT_TRUE(server().OutputOf(job) == bytes);
}

TEST_F(PrintServerTest, TheJobHasTheTitleAndTheOptionsOfTheRequestAlone) {
  server().AddQueue({.name = "Options", .ppd = kSampleColor, .stopped = "Wait"});
  WriteLpoptions("Dest Options VQBNDensity=Dark\n");
  const JobOptions options = {{"VQBackgroundNumbering", "On"},
                              {"VQStartNumber", "25"},
                              {"copies", "2"},
                              {"page-ranges", "1-3,5"},
                              {"sides", "two-sided-long-edge"},
                              {"media", "iso_a4_210x297mm"},
                              {"Vendor", "a b,c \"d\" 'e' \\f"}};
  const auto attributes = server().JobAttributes(JobOf("Options", {Page("x")}, options));
  EXPECT_EQ(attributes.at("job-name"), "Title");
  EXPECT_EQ(attributes.at("VQBackgroundNumbering"), "On");
  EXPECT_EQ(attributes.at("VQStartNumber"), "25");
  EXPECT_EQ(attributes.at("copies"), "2");
  EXPECT_EQ(attributes.at("page-ranges"), "1-3,5-5");
  EXPECT_EQ(attributes.at("sides"), "two-sided-long-edge");
  EXPECT_EQ(attributes.at("media"), "iso_a4_210x297mm");
  EXPECT_EQ(attributes.at("Vendor"), options.at("Vendor"));
  EXPECT_FALSE(attributes.contains("VQBNDensity"));
}

TEST_F(PrintServerTest, NamesOfValuesThatTheProtocolNumbersAreSentAsNumbers) {
  server().AddQueue({.name = "Numbers", .ppd = kSampleColor, .stopped = "Wait"});
  const auto named = server().JobAttributes(JobOf("Numbers", {Page("x")},
                                                  {{"finishings", "staple,punch"},
                                                   {"orientation-requested", "landscape"},
                                                   {"print-quality", "high"}}));
  EXPECT_EQ(named.at("finishings"), "staple,punch");
  EXPECT_EQ(named.at("orientation-requested"), "landscape");
  EXPECT_EQ(named.at("print-quality"), "high");
  const auto numbered = server().JobAttributes(
      JobOf("Numbers", {Page("x")}, {{"finishings", "4"}, {"print-quality", "5"}}));
  EXPECT_EQ(numbered.at("finishings"), "staple");
  EXPECT_EQ(numbered.at("print-quality"), "high");
}

TEST_F(PrintServerTest, SeveralFilesAreOneJob) {
  server().AddQueue({.name = "Several", .ppd = kSampleColor});
  const Texts documents = {Page("First"), Page("Second") + std::string(100000, '\n'),
                           Page("Third")};
  const int job = JobOf("Several", documents);
  ASSERT_TRUE(Becomes([&] { return StatusOf(job).HasEnded(); }));
  EXPECT_EQ(StatusOf(job).state, JobState::kCompleted);
  EXPECT_EQ(server().DocumentsOf(job), documents);
}

TEST_F(PrintServerTest, AnInstancePrintsOnItsQueue) {
  server().AddQueue({.name = "Queue", .stopped = "Wait"});
  const int job = JobOf("Queue/draft", {"text"});
  EXPECT_THAT(server().JobAttributes(job).at("job-printer-uri"), EndsWith("/printers/Queue"));
}

TEST_F(PrintServerTest, ARawJobPassesByTheFilters) {
  server().AddQueue({.name = "Unfiltered", .ppd = kSampleColor});
  const int job = JobOf("Unfiltered", {"no PostScript"}, {{"raw", "true"}});
  ASSERT_TRUE(Becomes([&] { return StatusOf(job).HasEnded(); }));
  EXPECT_EQ(server().OutputOf(job), "no PostScript");
}

TEST_F(PrintServerTest, ATitleThatTheProtocolDoesNotTakeIsMadeToFit) {
  server().AddQueue({.name = "Titles", .stopped = "Wait"});
  JobRequest request{.queue = "Titles", .title = "", .options = {}, .files = {}};
  request.files = {folder_.Write("a\xff\n.ps", "text")};
  for (int i = 0; i < 200; ++i) request.title += "Größe\n";
  SendingProgress progress;
  Expected<int> job = print_server_.Print(request, progress);
  ASSERT_TRUE(job) << job.message();
  const std::string title = server().JobAttributes(*job).at("job-name");
  EXPECT_THAT(title, StartsWith("Größe Größe "));
  EXPECT_TRUE(title.size() > 250 && title.size() < 256) << title.size();
}

TEST_F(PrintServerTest, ProgressCountsTheBytesOfAllFiles) {
  server().AddQueue({.name = "Progress", .stopped = "Wait"});
  JobRequest request{.queue = "Progress", .title = "", .options = {}, .files = {}};
  request.files = {folder_.Write("a", std::string(70000, 'a')), folder_.Write("b", "bb")};
  SendingProgress progress;
  Expected<int> job = print_server_.Print(request, progress);
  ASSERT_TRUE(job) << job.message();
  EXPECT_EQ(progress.bytes_total, 70002);
  EXPECT_EQ(progress.bytes_sent, 70002);
}

TEST_F(PrintServerTest, ARefusedJobFailsWithTheServersWords) {
  server().AddQueue({.name = "Refusing", .rejecting = "Gone for lunch"});
  EXPECT_EQ(FailureOf(Print("Refusing", {"text"})),
            "the print server " + server().address() +
                " refuses the job: Destination \"Refusing\" is not accepting jobs");
}

TEST_F(PrintServerTest, AServerThatWantsAPasswordIsAFailure) {
  server().AddQueue({.name = "Password", .options = {{"printer-op-policy", "password"}}});
  const std::string failure = FailureOf(Print("Password", {"text"}));
  EXPECT_EQ(failure, "the print server " + server().address() +
                         " refuses the job: it wants a password, and none was given");
}

TEST_F(PrintServerTest, AJobForAnUnknownQueueFailsWithTheNamesOfTheQueues) {
  server().AddQueue({.name = "Somewhere"});
  const std::string failure = FailureOf(Print("Nowhere", {"text"}));
  EXPECT_THAT(failure, HasSubstr("has no queue \"Nowhere\"; there is "));
}

TEST_F(PrintServerTest, ARefusedFileTakesTheJobBack) {
  server().AddQueue({.name = "Format", .ppd = kSampleColor, .stopped = "Wait"});
  const Texts documents = {Page("First"), Page("Second")};
  const std::string failure =
      FailureOf(Print("Format", documents, {{"document-format", "no/such"}}));
  EXPECT_THAT(failure, HasSubstr("refuses " + (folder_.path() / "document0").string() +
                                 ": Unsupported document-format \"no/such\""));
  EXPECT_THAT(failure, Not(HasSubstr("still there")));
  for (const int job : server().LiveJobs()) {
    EXPECT_THAT(server().JobAttributes(job).at("job-printer-uri"), Not(EndsWith("/Format")));
  }
}
