#include "host/cups/PrintServer.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <fstream>
#include <functional>
#include <optional>
#include <thread>

#include "tests/support/ChildProcess.h"
#include "tests/support/PrivateServer.h"
#include "tests/support/SilentServer.h"
#include "tests/support/Slowdown.h"
#include "tests/support/TestPPD.h"

namespace fs = std::filesystem;
using namespace std::chrono_literals;

namespace {

using Clock = std::chrono::steady_clock;
using Texts = std::vector<std::string>;

constexpr char kSampleColor[] = SOURCE_DIRECTORY "/tests/support/SampleColor.ppd";

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

template <typename Value>
std::string FailureOf(Expected<Value> result) {
  return result ? "(no failure)" : result.message();
}

bool Holds(const std::string &text, const std::string &part) {
  return text.find(part) != std::string::npos;
}

// Asks until the answer is yes; whether it ever was.
bool Becomes(const std::function<bool()> &condition) {
  const auto deadline = Clock::now() + 30s;
  while (Clock::now() < deadline) {
    if (condition()) return true;
    std::this_thread::sleep_for(20ms);
  }
  return false;
}

size_t CountOfThreads() {
  const fs::directory_iterator threads("/proc/self/task");
  return static_cast<size_t>(std::distance(begin(threads), end(threads)));
}

// Work that is left behind reads the environment, which must not change meanwhile.
void ExpectThreads(size_t count) {
  EXPECT_TRUE(Becomes([count] { return CountOfThreads() <= count; }));
}

// A server that these tests share; each uses queues of its own.
class PrintServerTest : public testing::Test {
 protected:
  static void SetUpTestSuite() { server_ = new PrivateServer; }
  static void TearDownTestSuite() {
    delete server_;
    server_ = nullptr;
  }

  PrivateServer &server() const { return *server_; }

  Expected<int> Print(const std::string &queue, const Texts &documents,
                      const JobOptions &options = {}) const {
    JobRequest request{.queue = queue, .title = "Title", .options = options, .files = {}};
    for (const std::string &document : documents) {
      request.files.push_back(
          folder_.Write("document" + std::to_string(request.files.size()), document));
    }
    SendingProgress progress;
    return print_server_.Print(request, progress);
  }

  // The number of a job that is accepted.
  int JobOf(const std::string &queue, const Texts &documents,
            const JobOptions &options = {}) const {
    Expected<int> job = Print(queue, documents, options);
    EXPECT_EQ(FailureOf(job), "(no failure)");
    return job ? *job : 0;
  }

  JobStatus StatusOf(int job) const {
    Expected<JobStatus> status = print_server_.StatusOfJob(job);
    EXPECT_EQ(FailureOf(status), "(no failure)");
    return status ? *status : JobStatus();
  }

  Queue Find(const std::string &name) const {
    Expected<Queue> queue = print_server_.FindQueue(name);
    EXPECT_EQ(FailureOf(queue), "(no failure)");
    return queue ? *queue : Queue();
  }

  void WriteLpoptions(const std::string &lines) const {
    fs::create_directories(server().home() / ".cups");
    std::ofstream(server().home() / ".cups/lpoptions") << lines;
  }

  TemporaryFolder folder_;

 private:
  static inline PrivateServer *server_ = nullptr;

  ServerEnvironment environment_{*server_};

 protected:
  PrintServer print_server_{20s};

  ~PrintServerTest() override {
    std::error_code error;
    fs::remove(server().home() / ".cups/lpoptions", error);
  }
};

}  // namespace

// Queues

TEST(PrintServer, ListsTheQueuesByNameWithInstancesAfterTheirQueue) {
  PrivateServer server;
  ServerEnvironment environment(server);
  for (const char *name : {"Zebra", "Office", "Attic"}) server.AddQueue({.name = name});
  server.Run({"lpoptions", "-p", "Office/draft", "-o", "sides=two-sided-long-edge"});
  Expected<std::vector<Queue>> queues = PrintServer(20s).Queues();
  ASSERT_TRUE(queues) << queues.message();
  Texts names;
  for (const Queue &queue : *queues) names.push_back(queue.name);
  EXPECT_EQ(names, Texts({"Attic", "Office", "Office/draft", "Zebra"}));
}

TEST(PrintServer, AServerWithoutQueuesIsAFailure) {
  PrivateServer server;
  ServerEnvironment environment(server);
  EXPECT_EQ(FailureOf(PrintServer(20s).Queues()),
            "the print server " + server.address() + " has no queues");
}

TEST_F(PrintServerTest, TellsWhatTheServerKnowsOfAQueue) {
  server().AddQueue({.name = "Described",
                     .ppd = kSampleColor,
                     .description = "Ann's \"big\" printer, Größe A3",
                     .location = "Upstairs, left"});
  const Queue queue = Find("Described");
  EXPECT_EQ(queue.name, "Described");
  EXPECT_EQ(queue.description, "Ann's \"big\" printer, Größe A3");
  EXPECT_EQ(queue.location, "Upstairs, left");
  EXPECT_EQ(queue.model, "Velmora Color sample");
  EXPECT_EQ(queue.state, QueueState::kIdle);
  EXPECT_TRUE(queue.accepts_jobs);
}

TEST_F(PrintServerTest, TellsWhyAQueueIsStopped) {
  server().AddQueue({.name = "Stopped", .stopped = "Out of paper, ask Ann"});
  const Queue queue = Find("Stopped");
  EXPECT_EQ(queue.state, QueueState::kStopped);
  EXPECT_EQ(queue.state_message, "Out of paper, ask Ann");
  EXPECT_TRUE(queue.accepts_jobs);
}

TEST_F(PrintServerTest, TellsWhyAQueueTakesNoJobs) {
  server().AddQueue({.name = "Rejecting", .rejecting = "Gone for lunch"});
  const Queue queue = Find("Rejecting");
  EXPECT_FALSE(queue.accepts_jobs);
  EXPECT_EQ(queue.state_message, "Gone for lunch");
}

TEST_F(PrintServerTest, FindsAQueueWhateverTheCaseOfItsLetters) {
  server().AddQueue({.name = "MixedCase"});
  EXPECT_EQ(Find("mixedCASE").name, "MixedCase");
}

TEST(PrintServer, AnUnknownQueueIsAFailureThatNamesTheQueues) {
  PrivateServer server;
  ServerEnvironment environment(server);
  for (const char *name : {"Office", "Attic"}) server.AddQueue({.name = name});
  EXPECT_EQ(
      FailureOf(PrintServer(20s).FindQueue("Ofice")),
      "the print server " + server.address() + " has no queue \"Ofice\"; there is Attic, Office");
  EXPECT_EQ(FailureOf(PrintServer(20s).FindQueue("Office/draft")),
            "the print server " + server.address() +
                " has no queue \"Office/draft\"; there is Attic, Office");
}

TEST(PrintServer, AFailureDoesNotNameVeryManyQueues) {
  PrivateServer server;
  ServerEnvironment environment(server);
  for (int number = 10; number < 22; ++number) {
    server.AddQueue({.name = "Q" + std::to_string(number)});
  }
  EXPECT_TRUE(FailureOf(PrintServer(20s).FindQueue("Q")).ends_with(", Q19 and 2 more"));
}

// The default queue

TEST_F(PrintServerTest, TheServersDefaultQueueIsTheUsers) {
  server().AddQueue({.name = "ServersDefault", .is_default = true});
  server().AddQueue({.name = "Other"});
  const Queue queue = Find("");
  EXPECT_EQ(queue.name, "ServersDefault");
  EXPECT_TRUE(queue.is_default);
  EXPECT_FALSE(Find("Other").is_default);
}

TEST_F(PrintServerTest, TheServersDefaultQueueStaysItWhereTheUserHasOptionsForIt) {
  server().AddQueue({.name = "WithOptions", .is_default = true});
  WriteLpoptions("Dest WithOptions sides=one-sided\n");
  EXPECT_EQ(Find("").name, "WithOptions");
}

TEST_F(PrintServerTest, TheServersDefaultQueueStaysItWhereTheUserHasAnInstanceOfIt) {
  server().AddQueue({.name = "WithInstance", .is_default = true});
  WriteLpoptions("Dest WithInstance/draft sides=one-sided\n");
  EXPECT_EQ(Find("").name, "WithInstance");
}

TEST_F(PrintServerTest, TheUsersDefaultInstanceGoesBeforeTheServersDefault) {
  server().AddQueue({.name = "Shared", .is_default = true});
  server().AddQueue({.name = "Mine"});
  WriteLpoptions("Default Mine/draft sides=one-sided\n");
  EXPECT_EQ(Find("").name, "Mine/draft");
}

TEST_F(PrintServerTest, TheEnvironmentsDefaultGoesBeforeAll) {
  server().AddQueue({.name = "Lpoptions", .is_default = true});
  server().AddQueue({.name = "Environment"});
  WriteLpoptions("Default Lpoptions sides=one-sided\nDest Environment/best sides=one-sided\n");
  const EnvironmentVariable variable("LPDEST", "Environment/best");
  EXPECT_EQ(Find("").name, "Environment/best");
}

TEST_F(PrintServerTest, ADefaultThatIsNotThereIsAFailureThatSaysWhoNamesIt) {
  server().AddQueue({.name = "Present", .is_default = true});
  const EnvironmentVariable variable("LPDEST", "Absent");
  const std::string failure = FailureOf(print_server_.FindQueue(""));
  EXPECT_TRUE(failure.starts_with("no default queue on the print server " + server().address() +
                                  ": LPDEST environment variable names default destination"))
      << failure;
  EXPECT_TRUE(Holds(failure, "Present")) << failure;
}

TEST_F(PrintServerTest, ADefaultOfTheUsersThatIsGoneIsNotReplacedByTheServers) {
  server().AddQueue({.name = "Remaining", .is_default = true});
  WriteLpoptions("Default Gone sides=one-sided\n");
  const std::string failure = FailureOf(print_server_.FindQueue(""));
  EXPECT_TRUE(Holds(failure, "lpoptions file names default destination that does not exist"))
      << failure;
}

TEST(PrintServer, WithoutADefaultQueueThereIsAFailureThatNamesTheQueues) {
  PrivateServer server;
  ServerEnvironment environment(server);
  server.AddQueue({.name = "Office"});
  EXPECT_EQ(FailureOf(PrintServer(20s).FindQueue("")),
            "no default queue on the print server " + server.address() +
                ": No default destination; there is Office");
}

// What each job of a queue begins with

TEST_F(PrintServerTest, TheServersAndTheUsersOptionsAreTheDefaults) {
  server().AddQueue({.name = "Defaults",
                     .ppd = kSampleColor,
                     .options = {{"number-up-default", "2"}, {"copies-default", "3"}}});
  WriteLpoptions("Dest Defaults VQBNSize=Large copies=4\n");
  const JobOptions defaults = Find("Defaults").defaults;
  EXPECT_EQ(defaults.at("number-up"), "2");
  EXPECT_EQ(defaults.at("copies"), "4");
  EXPECT_EQ(defaults.at("VQBNSize"), "Large");
}

TEST_F(PrintServerTest, AnInstanceHasItsOwnDefaults) {
  server().AddQueue({.name = "Instances", .ppd = kSampleColor});
  WriteLpoptions("Dest Instances VQBNSize=Small\nDest Instances/draft VQBNSize=Large\n");
  EXPECT_EQ(Find("Instances").defaults.at("VQBNSize"), "Small");
  EXPECT_EQ(Find("Instances/draft").defaults.at("VQBNSize"), "Large");
  EXPECT_EQ(Find("Instances/draft").model, "Velmora Color sample");
}

TEST_F(PrintServerTest, WhatDescribesThePrinterIsNoDefault) {
  server().AddQueue({.name = "Information", .ppd = kSampleColor, .description = "Here"});
  for (const auto &[name, value] : Find("Information").defaults) {
    EXPECT_FALSE(name.starts_with("printer-") || name.starts_with("marker-") ||
                 name.starts_with("auth-info") || name == "device-uri")
        << name << '=' << value;
  }
}

// PPD files

TEST_F(PrintServerTest, ThePPDFileOfAQueueIsTheServers) {
  server().AddQueue({.name = "WithPPD", .ppd = kSampleColor, .options = {{"PageSize", "Letter"}}});
  Expected<std::optional<PPDFile>> ppd = print_server_.PPDOfQueue("WithPPD");
  ASSERT_TRUE(ppd) << ppd.message();
  ASSERT_TRUE(ppd->has_value());
  EXPECT_EQ((*ppd)->Attribute("VQBackgroundNumberingSupport"), "true");
  EXPECT_EQ((*ppd)->Option("PageSize")->default_choice, "Letter");
}

TEST_F(PrintServerTest, AnInstanceHasThePPDFileOfItsQueue) {
  server().AddQueue({.name = "OfInstance", .ppd = kSampleColor});
  Expected<std::optional<PPDFile>> ppd = print_server_.PPDOfQueue("OfInstance/draft");
  ASSERT_TRUE(ppd) << ppd.message();
  EXPECT_TRUE(ppd->has_value());
}

TEST_F(PrintServerTest, AQueueMayHaveNoPPDFile) {
  server().AddQueue({.name = "WithoutPPD"});
  Expected<std::optional<PPDFile>> ppd = print_server_.PPDOfQueue("WithoutPPD");
  ASSERT_TRUE(ppd) << ppd.message();
  EXPECT_FALSE(ppd->has_value());
}

TEST_F(PrintServerTest, AClassHasThePPDFileOfAMember) {
  server().AddQueue({.name = "Member", .ppd = kSampleColor});
  server().Run({"/usr/sbin/lpadmin", "-p", "Member", "-c", "Class"});
  Expected<std::optional<PPDFile>> ppd = print_server_.PPDOfQueue("Class");
  ASSERT_TRUE(ppd) << ppd.message();
  EXPECT_TRUE(ppd->has_value());
}

TEST_F(PrintServerTest, AnUnknownQueueHasNoPPDFileButAFailure) {
  server().AddQueue({.name = "Known"});
  const std::string failure = FailureOf(print_server_.PPDOfQueue("Unknown"));
  EXPECT_TRUE(Holds(failure, "has no queue \"Unknown\"; there is ")) << failure;
}

TEST_F(PrintServerTest, FetchingAPPDFileLeavesNoFileBehind) {
  server().AddQueue({.name = "NoTraces", .ppd = kSampleColor});
  const EnvironmentVariable temporary("TMPDIR", folder_.path().string());
  ASSERT_TRUE(print_server_.PPDOfQueue("NoTraces"));
  EXPECT_TRUE(fs::is_empty(folder_.path()));
}

// Jobs

TEST_F(PrintServerTest, PrintsThroughTheServersFilters) {
  server().AddQueue(WithLamp("Prints", folder_));
  const int job = JobOf("Prints", {Page("Hello from afar")}, {{"Lamp", "Bright"}});
  ASSERT_TRUE(Becomes([&] { return StatusOf(job).HasEnded(); }));
  EXPECT_EQ(StatusOf(job).state, JobState::kCompleted);
  EXPECT_TRUE(Holds(server().OutputOf(job), "Hello from afar"));
  EXPECT_TRUE(Holds(server().OutputOf(job), "(bright) pop"));
}

TEST_F(PrintServerTest, PrintsAPDFFileThroughTheServersFilters) {
  server().AddQueue(WithLamp("PrintsPDF", folder_));
  const fs::path pdf = folder_.path() / "page.pdf";
  server().Run({"gs", "-q", "-dBATCH", "-dNOPAUSE", "-sDEVICE=pdfwrite",
                "-sOutputFile=" + pdf.string(), folder_.Write("page.ps", Page("Hello from PDF"))});
  const int job = JobOf("PrintsPDF", {ContentOf(pdf)}, {{"Lamp", "Bright"}});
  ASSERT_TRUE(Becomes([&] { return StatusOf(job).HasEnded(); }));
  EXPECT_EQ(StatusOf(job).state, JobState::kCompleted);
  EXPECT_TRUE(server().OutputOf(job).starts_with("%!PS"));
  EXPECT_TRUE(Holds(server().OutputOf(job), "(bright) pop"));
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
  EXPECT_TRUE(server().JobAttributes(job).at("job-printer-uri").ends_with("/printers/Queue"));
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
  EXPECT_TRUE(title.starts_with("Größe Größe ")) << title;
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
  EXPECT_EQ(failure, "the print server " + server().address() + " refuses the job: Unauthorized");
}

TEST_F(PrintServerTest, AJobForAnUnknownQueueFailsWithTheNamesOfTheQueues) {
  server().AddQueue({.name = "Somewhere"});
  const std::string failure = FailureOf(Print("Nowhere", {"text"}));
  EXPECT_TRUE(Holds(failure, "has no queue \"Nowhere\"; there is ")) << failure;
}

TEST_F(PrintServerTest, ARefusedFileTakesTheJobBack) {
  server().AddQueue({.name = "Format", .ppd = kSampleColor, .stopped = "Wait"});
  const Texts documents = {Page("First"), Page("Second")};
  const std::string failure =
      FailureOf(Print("Format", documents, {{"document-format", "no/such"}}));
  EXPECT_TRUE(Holds(failure, "refuses " + (folder_.path() / "document0").string() +
                                 ": Unsupported document-format \"no/such\""))
      << failure;
  EXPECT_FALSE(Holds(failure, "still there")) << failure;
  for (const int job : server().LiveJobs()) {
    EXPECT_FALSE(server().JobAttributes(job).at("job-printer-uri").ends_with("/Format"));
  }
}

// Files that cannot be printed

class FileTest : public testing::Test {
 protected:
  FileTest() { server_.AddQueue({.name = "Office"}); }

  // Why a job with a good file and then this one is not printed. Checks that nothing was sent.
  std::string ReasonAgainst(const fs::path &path) {
    JobRequest request{.queue = "Office", .title = "", .options = {}, .files = {}};
    request.files = {folder_.Write("good", "good"), path};
    SendingProgress progress;
    const std::string failure = FailureOf(PrintServer(20s).Print(request, progress));
    EXPECT_TRUE(server_.JobAttributes(1).empty());
    return failure;
  }

  PrivateServer server_;
  ServerEnvironment environment_{server_};
  TemporaryFolder folder_;
};

TEST_F(FileTest, AMissingFileSendsNothing) {
  const fs::path path = folder_.path() / "missing";
  EXPECT_EQ(ReasonAgainst(path), "cannot print " + path.string() + ": no such file");
}

TEST_F(FileTest, AFolderSendsNothing) {
  EXPECT_EQ(ReasonAgainst(folder_.path()),
            "cannot print " + folder_.path().string() + ": it is a folder");
}

TEST_F(FileTest, APipeSendsNothing) {
  const fs::path path = folder_.path() / "pipe";
  ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
  EXPECT_EQ(ReasonAgainst(path), "cannot print " + path.string() + ": not a regular file");
}

TEST_F(FileTest, AnEmptyFileSendsNothing) {
  const fs::path path = folder_.Write("empty", "");
  EXPECT_EQ(ReasonAgainst(path), "cannot print " + path.string() + ": the file is empty");
}

TEST_F(FileTest, AnUnreadableFileSendsNothing) {
  const fs::path path = folder_.Write("secret", "secret");
  ASSERT_EQ(chmod(path.c_str(), 0), 0);
  folder_.Write("good", "good");
  const std::string failure = InChild([&] {
    if (!LosePrivileges()) return std::string("(privileges stay)");
    JobRequest request{.queue = "Office", .title = "", .options = {}, .files = {path}};
    SendingProgress progress;
    return FailureOf(PrintServer(20s).Print(request, progress));
  });
  EXPECT_EQ(failure, "cannot print " + path.string() + ": Permission denied");
  EXPECT_TRUE(server_.JobAttributes(1).empty());
}

TEST_F(FileTest, NoFileAtAllSendsNothing) {
  JobRequest request{.queue = "Office", .title = "", .options = {}, .files = {}};
  SendingProgress progress;
  EXPECT_EQ(FailureOf(PrintServer(20s).Print(request, progress)), "no file to print");
  EXPECT_TRUE(server_.JobAttributes(1).empty());
}

// Stopping on the way

class SendingTest : public testing::Test {
 protected:
  // So large that it is on its way for a while.
  SendingTest() {
    server_.AddQueue({.name = "Office"});
    request_.queue = "Office";
    request_.files = {folder_.Write("large", "x")};
    fs::resize_file(request_.files.front(), 2'000'000'000);
  }

  // Begins to print and answers when something has been sent.
  void TearDown() override { ExpectThreads(threads_); }

  std::thread Begin(std::chrono::milliseconds limit) {
    std::thread thread(
        [this, limit] { failure_ = FailureOf(PrintServer(limit).Print(request_, progress_)); });
    EXPECT_TRUE(Becomes([this] { return progress_.bytes_sent > 0; }));
    return thread;
  }

  bool IsCanceled(int job) const {
    const auto attributes = server_.JobAttributes(job);
    return attributes.contains("job-state") && attributes.at("job-state") == "canceled";
  }

  PrivateServer server_;
  ServerEnvironment environment_{server_};
  TemporaryFolder folder_;
  JobRequest request_;
  SendingProgress progress_;
  std::string failure_;
  const size_t threads_ = CountOfThreads();
};

TEST_F(SendingTest, CancelingTakesTheJobBack) {
  std::thread printing = Begin(20s);
  progress_.cancel = true;
  printing.join();
  EXPECT_EQ(failure_, "the job was canceled");
  EXPECT_LT(progress_.bytes_sent, progress_.bytes_total);
  EXPECT_TRUE(server_.LiveJobs().empty());
  EXPECT_TRUE(IsCanceled(1));
}

TEST_F(SendingTest, CancelingDoesNotWaitForAServerThatTakesNothing) {
  std::thread printing = Begin(800ms);
  server_.Freeze();
  const auto begin = Clock::now();
  progress_.cancel = true;
  printing.join();
  EXPECT_LT(Clock::now() - begin, kSlowdown * 3s);
  EXPECT_EQ(failure_, "the job was canceled; job 1 is still there: the print server " +
                          server_.address() + " does not answer within 0.8 s");
  server_.GoOn();
  EXPECT_TRUE(Becomes([this] { return server_.LiveJobs().empty(); }));
}

TEST_F(SendingTest, AServerThatTakesNoMoreEndsTheSending) {
  std::thread printing = Begin(300ms);
  server_.Freeze();
  const auto begin = Clock::now();
  printing.join();
  EXPECT_LT(Clock::now() - begin, kSlowdown * 3s);
  EXPECT_TRUE(failure_.starts_with("the print server " + server_.address() +
                                   " does not answer within 0.3 s; job 1 is still there: "))
      << failure_;
  server_.GoOn();
  EXPECT_TRUE(Becomes([this] { return server_.LiveJobs().empty(); }));
}

// Servers that do not answer

TEST(PrintServer, WhereNothingListensTheFailureSaysSo) {
  const LocalPort port;
  const EnvironmentVariable variable("CUPS_SERVER", port.address());
  const std::string failure = "no print server at " + port.address() +
                              ": Connection refused; is it running? CUPS_SERVER names another";
  TemporaryFolder folder;
  const JobRequest request{
      .queue = "Office", .title = "", .options = {}, .files = {folder.Write("a", "a")}};
  SendingProgress progress;
  const PrintServer server(20s);
  EXPECT_EQ(FailureOf(server.Queues()), failure);
  EXPECT_EQ(FailureOf(server.FindQueue("Office")), failure);
  EXPECT_EQ(FailureOf(server.PPDOfQueue("Office")), failure);
  EXPECT_EQ(FailureOf(server.StatusOfJob(1)), failure);
  EXPECT_EQ(FailureOf(server.Print(request, progress)), failure);
}

TEST(PrintServer, ASilentServerEndsEveryOperationWithinTheLimit) {
  const size_t threads = CountOfThreads();
  auto silent = std::make_unique<SilentServer>();
  const EnvironmentVariable variable("CUPS_SERVER", silent->address());
  const std::string failure =
      "the print server " + silent->address() + " does not answer within 0.3 s";
  TemporaryFolder folder;
  const JobRequest request{
      .queue = "Office", .title = "", .options = {}, .files = {folder.Write("a", "a")}};
  SendingProgress progress;
  const PrintServer server(300ms);
  const auto begin = Clock::now();
  EXPECT_EQ(FailureOf(server.Queues()), failure);
  EXPECT_EQ(FailureOf(server.FindQueue("Office")), failure);
  EXPECT_EQ(FailureOf(server.PPDOfQueue("Office")), failure);
  EXPECT_EQ(FailureOf(server.StatusOfJob(1)), failure);
  EXPECT_EQ(FailureOf(server.Print(request, progress)), failure);
  EXPECT_LT(Clock::now() - begin, kSlowdown * 3s);
  silent.reset();
  ExpectThreads(threads);
}

TEST(PrintServer, AServerThatNobodyCanReachEndsWithinTheLimit) {
  const EnvironmentVariable variable("CUPS_SERVER", "print-server.invalid:1631");
  const size_t threads = CountOfThreads();
  const auto begin = Clock::now();
  const std::string failure = FailureOf(PrintServer(300ms).Queues());
  EXPECT_LT(Clock::now() - begin, kSlowdown * 3s);
  EXPECT_TRUE(Holds(failure, "print-server.invalid:1631")) << failure;
  ExpectThreads(threads);
}

// Which server

TEST_F(PrintServerTest, TheServerMayBeNamedInTheUsersConfiguration) {
  const EnvironmentVariable variable("CUPS_SERVER", std::nullopt);
  fs::create_directories(server().home() / ".cups");
  const fs::path configuration = server().home() / ".cups/client.conf";
  std::ofstream(configuration) << "ServerName " << server().address() << '\n';
  server().AddQueue({.name = "Configured"});
  EXPECT_EQ(print_server_.Address(), server().address());
  EXPECT_EQ(Find("Configured").name, "Configured");
  fs::remove(configuration);
}

TEST_F(PrintServerTest, TheAddressIsTheOneOfNowWhateverTheThreadKnowsFromBefore) {
  EXPECT_EQ(print_server_.Address(), server().address());
  const EnvironmentVariable variable("CUPS_SERVER", "/run/elsewhere.sock");
  EXPECT_EQ(print_server_.Address(), "/run/elsewhere.sock");
}

TEST_F(PrintServerTest, TheServerMayBeASocket) {
  server().AddQueue({.name = "Socket", .ppd = kSampleColor, .stopped = "Wait"});
  const EnvironmentVariable variable("CUPS_SERVER", server().socket());
  EXPECT_EQ(print_server_.Address(), server().socket());
  EXPECT_EQ(Find("Socket").name, "Socket");
  Expected<std::optional<PPDFile>> ppd = print_server_.PPDOfQueue("Socket");
  ASSERT_TRUE(ppd) << ppd.message();
  EXPECT_TRUE(ppd->has_value());
  EXPECT_EQ(StatusOf(JobOf("Socket", {"text"})).state, JobState::kStopped);
}

TEST_F(PrintServerTest, SeveralThreadsAskAtTheSameTime) {
  server().AddQueue({.name = "Busy", .ppd = kSampleColor});
  std::vector<std::thread> threads;
  std::atomic<int> answers = 0;
  for (int i = 0; i < 8; ++i) {
    threads.emplace_back([this, &answers] {
      if (print_server_.FindQueue("Busy") && print_server_.PPDOfQueue("Busy")) ++answers;
    });
  }
  for (std::thread &thread : threads) thread.join();
  EXPECT_EQ(answers, 8);
}

// What becomes of a job

TEST_F(PrintServerTest, AHeldJobIsHeldUntilItIsReleased) {
  server().AddQueue({.name = "Held"});
  const int job = JobOf("Held", {"text"}, {{"job-hold-until", "indefinite"}});
  EXPECT_EQ(StatusOf(job).state, JobState::kHeld);
  EXPECT_FALSE(StatusOf(job).HasEnded());
  server().ReleaseJob(job);
  ASSERT_TRUE(Becomes([&] { return StatusOf(job).HasEnded(); }));
  EXPECT_EQ(StatusOf(job).state, JobState::kCompleted);
}

TEST_F(PrintServerTest, AJobOfAStoppedQueueIsStoppedWithTheQueuesReason) {
  server().AddQueue({.name = "Paused", .stopped = "Out of paper, ask Ann"});
  const int job = JobOf("Paused", {"text"});
  EXPECT_EQ(StatusOf(job).state, JobState::kStopped);
  EXPECT_EQ(StatusOf(job).message, "Out of paper, ask Ann");
  EXPECT_FALSE(StatusOf(job).HasEnded());
  server().StartQueue("Paused");
  ASSERT_TRUE(Becomes([&] { return StatusOf(job).HasEnded(); }));
  EXPECT_EQ(StatusOf(job).state, JobState::kCompleted);
}

TEST_F(PrintServerTest, ACanceledJobHasEnded) {
  server().AddQueue({.name = "Canceled", .stopped = "Wait"});
  const int job = JobOf("Canceled", {"text"});
  server().Run({"cancel", std::to_string(job)});
  EXPECT_EQ(StatusOf(job).state, JobState::kCanceled);
  EXPECT_TRUE(StatusOf(job).HasEnded());
}

TEST_F(PrintServerTest, AnAbortedJobHasEndedWithThePrintersWords) {
  server().AddQueue(
      {.name = "Aborted", .options = {{"printer-error-policy", "abort-job"}}, .broken = true});
  const int job = JobOf("Aborted", {"text"});
  ASSERT_TRUE(Becomes([&] { return StatusOf(job).HasEnded(); }));
  EXPECT_EQ(StatusOf(job).state, JobState::kAborted);
  EXPECT_EQ(StatusOf(job).message, "The lamp is broken");
}

TEST_F(PrintServerTest, AJobThatStopsItsQueueIsStoppedWithThePrintersWords) {
  server().AddQueue(
      {.name = "Stops", .options = {{"printer-error-policy", "stop-printer"}}, .broken = true});
  const int job = JobOf("Stops", {"text"});
  EXPECT_TRUE(Becomes([&] { return StatusOf(job).state == JobState::kStopped; }));
  EXPECT_EQ(StatusOf(job).message, "The lamp is broken");
}

TEST_F(PrintServerTest, AnUnknownJobIsAFailureWithTheServersWords) {
  EXPECT_EQ(FailureOf(print_server_.StatusOfJob(4711)),
            "the print server " + server().address() +
                " does not tell about job 4711: Job #4711 does not exist");
}
