// The service behind the real portal, with an application that asks for what it should not, too.

#include <fcntl.h>

#include <filesystem>
#include <regex>

#include "tests/pages/PreparedServer.h"
#include "tests/portal/PortalClient.h"
#include "tests/portal/PrintingSession.h"

namespace {

class PrintPortal : public PrintingSession {
 protected:
  // Accepts a job as the dialog shows it.
  Reply Accept(PortalClient &client, const JobWords &words = {}) {
    const std::string handle = client.PreparePrint(words);
    EndDialog(AwaitDialog(), "Return");
    return client.Await(handle).value_or(Reply{});
  }
  std::string Document(int pages = 5) const { return folder_.Write("report.pdf", PlainPdf(pages)); }

  // The pages that come out: "1,2 3,4" for two on a side.
  static std::string PagesOf(const std::string &pdf);

  // Prints a document of five pages with these words, and answers its pages.
  std::string PagesWith(const JobWords &words) {
    PortalClient client(session_.address());
    const Reply accepted = Accept(client, words);
    EXPECT_EQ(Response::kDone, accepted.response);
    const auto printed = client.Await(client.Print(Document(), accepted.token.value_or(0)));
    EXPECT_EQ(Response::kDone, printed.value_or(Reply{}).response);
    return PagesOf(Printed(AwaitJobs(1).front()));
  }

  TemporaryFolder folder_;
};

std::string PrintPortal::PagesOf(const std::string &pdf) {
  static const std::regex heading("Page ([0-9]+)");
  std::string pages;
  for (const std::string &page : TextsOfPages(pdf)) {
    std::string headings;
    for (std::sregex_iterator at(page.begin(), page.end(), heading), end; at != end; ++at) {
      headings += (headings.empty() ? "" : ",") + at->str(1);
    }
    pages += (pages.empty() ? "" : " ") + headings;
  }
  return pages;
}

}  // namespace

TEST_F(PrintPortal, PrintsWhatWasAskedForAndAnswersWhatDoesNothing) {
  PortalClient client(session_.address());
  Reply accepted = Accept(client, {.settings = {{"n-copies", "2"}, {"number-up", "2"}}});
  EXPECT_EQ(Response::kDone, accepted.response);
  ASSERT_TRUE(accepted.words);
  EXPECT_EQ(Value("1"), accepted.words->settings["n-copies"]);
  EXPECT_EQ(Value("1"), accepted.words->settings["number-up"]);
  EXPECT_EQ(Value("Pdf"), accepted.words->settings["printer"]);
  EXPECT_EQ(Value("A4"), accepted.words->page_setup["PPDName"]);
  EXPECT_EQ(Value("iso_a4_210x297mm"), accepted.words->page_setup["Name"]);
}

TEST_F(PrintPortal, BeginsWithQueuePaperAndSidesOfTheApplication) {
  PortalClient client(session_.address());
  Reply accepted =
      Accept(client, {.settings = {{"printer", "Office"}, {"duplex", "horizontal"}},
                      .page_setup = {{"PPDName", "A3"}, {"Orientation", "landscape"}}});
  ASSERT_TRUE(accepted.words);
  EXPECT_EQ(Value("Office"), accepted.words->settings["printer"]);
  EXPECT_EQ(Value("horizontal"), accepted.words->settings["duplex"]);
  EXPECT_EQ(Value("A3"), accepted.words->page_setup["PPDName"]);
  EXPECT_EQ(Value("iso_a3_297x420mm"), accepted.words->page_setup["Name"]);
  EXPECT_EQ(Value("landscape"), accepted.words->page_setup["Orientation"]);
  client.Await(client.Print(Document(), accepted.token.value_or(0)));
  auto job = server().JobAttributes(AwaitJobs(1).front());
  EXPECT_EQ("A3", job["media"]);
  EXPECT_EQ("two-sided-long-edge", job["sides"]);
}

TEST_F(PrintPortal, PrintsCopies) {
  EXPECT_EQ("1 2 3 4 5 1 2 3 4 5",
            PagesWith({.settings = {{"n-copies", "2"}, {"collate", "true"}}}));
}

TEST_F(PrintPortal, PrintsRanges) {
  EXPECT_EQ("2 3 5",
            PagesWith({.settings = {{"print-pages", "ranges"}, {"page-ranges", "1-2,4"}}}));
}

TEST_F(PrintPortal, PrintsSeveralPagesOnASide) {
  EXPECT_EQ("1,2 3,4 5", PagesWith({.settings = {{"number-up", "2"}}}));
}

TEST_F(PrintPortal, PrintsOddPagesBackwards) {
  EXPECT_EQ("5 3 1", PagesWith({.settings = {{"page-set", "odd"}, {"reverse", "true"}}}));
}

TEST_F(PrintPortal, OpensTheDialogForATokenThatIsSpent) {
  PortalClient client(session_.address());
  const uint32_t token = Accept(client).token.value_or(0);
  EXPECT_EQ(Response::kDone, client.Await(client.Print(Document(), token))->response);
  const std::string again = client.Print(Document(), token);
  EndDialog(AwaitDialog(), "Escape");
  EXPECT_EQ(Response::kCanceled, client.Await(again)->response);
  AwaitJobs(1);
}

TEST_F(PrintPortal, OpensTheDialogForATokenOfSomebodyElse) {
  PortalClient client(session_.address()), other(session_.address());
  const uint32_t token = Accept(client).token.value_or(0);
  const std::string stolen = other.Print(Document(), token);
  EndDialog(AwaitDialog(), "Escape");
  EXPECT_EQ(Response::kCanceled, other.Await(stolen)->response);
  AwaitJobs(0);
  EXPECT_EQ(Response::kDone, client.Await(client.Print(Document(), token))->response);
  AwaitJobs(1);
}

TEST_F(PrintPortal, PrintsFromTheDialogThatItOpensForADocument) {
  PortalClient client(session_.address());
  const std::string handle = client.Print(Document(), 0);
  EndDialog(AwaitDialog(), "Return");
  EXPECT_EQ(Response::kDone, client.Await(handle)->response);
  EXPECT_EQ("1 2 3 4 5", PagesOf(Printed(AwaitJobs(1).front())));
}

TEST_F(PrintPortal, RefusesDocumentsThatAreNone) {
  PortalClient client(session_.address());
  // Says so in a window, too.
  const auto refuses = [&client](const Descriptor &document) {
    const std::string handle = client.Print(document, 0);
    EndDialog(AwaitDialog(), "Return");
    return client.Await(handle)->response == Response::kFailed;
  };
  EXPECT_TRUE(refuses(Descriptor(open(folder_.Write("empty", "").c_str(), O_RDONLY))));
  EXPECT_TRUE(refuses(Descriptor(open("/dev/null", O_WRONLY))));
  int ends[2];
  ASSERT_EQ(0, pipe2(ends, O_CLOEXEC));
  const Descriptor sink(ends[1]);
  EXPECT_TRUE(refuses(Descriptor(ends[0]))) << "a pipe into which nothing comes";
  AwaitJobs(0);
}

TEST_F(PrintPortal, TakesDocumentsOfAnySizeAndThroughPipes) {
  PortalClient client(session_.address());
  const auto file = folder_.path() / "large.pdf";
  folder_.Write("large.pdf", PlainPdf(1));
  std::filesystem::resize_file(file, 200 << 20);
  const std::string large = client.Print(file, 0);
  EndDialog(AwaitDialog(), "Escape");
  EXPECT_EQ(Response::kCanceled, client.Await(large)->response);

  int ends[2];
  ASSERT_EQ(0, pipe2(ends, O_CLOEXEC));
  const Descriptor source(ends[0]);
  const std::string document = PlainPdf(1);
  ASSERT_EQ(static_cast<ssize_t>(document.size()),
            write(ends[1], document.data(), document.size()));
  close(ends[1]);
  const std::string piped = client.Print(source, 0);
  EndDialog(AwaitDialog(), "Return");
  EXPECT_EQ(Response::kDone, client.Await(piped)->response);
  EXPECT_EQ("1", PagesOf(Printed(AwaitJobs(1).front())));
}

TEST_F(PrintPortal, ClosesADialogAndKeepsTheOther) {
  PortalClient client(session_.address());
  const std::string first = client.PreparePrint();
  AwaitDialog();
  const std::string second = client.PreparePrint();
  EXPECT_TRUE(Becomes([] { return WindowsOf("pdeprint").size() == 2; }));
  client.Close(first);
  EXPECT_TRUE(Becomes([] { return WindowsOf("pdeprint").size() == 1; }));
  EndDialog(AwaitDialog(), "Escape");
  EXPECT_EQ(Response::kCanceled, client.Await(second)->response);
}

TEST_F(PrintPortal, TellsWhoCannotSeeItThatPrintingFailed) {
  PortalClient client(session_.address());
  const uint32_t token = Accept(client).token.value_or(0);
  server().Freeze();
  const std::string handle = client.Print(Document(), token);
  EndDialog(AwaitDialog(), "Return");
  EXPECT_EQ(Response::kFailed, client.Await(handle)->response);
  server().GoOn();
}

// Where there is less than a session has.
TEST_F(PrintPortal, FailsWithoutADisplay) {
  EnvironmentChanges changes = server().Environment();
  changes["DISPLAY"] = std::nullopt;
  const PortalSession session(changes);
  PortalClient client(session.address());
  EXPECT_EQ(Response::kFailed, client.Await(client.PreparePrint())->response);
  EXPECT_EQ(Response::kFailed, client.Await(client.Print(Document(), 0))->response);
}

TEST_F(PrintPortal, OpensTheDialogWithoutAPrintServer) {
  const PortalSession session({{"CUPS_SERVER", "127.0.0.1:1"}});
  PortalClient client(session.address());
  const std::string handle = client.PreparePrint();
  EndDialog(AwaitDialog(), "Escape");
  EXPECT_EQ(Response::kCanceled, client.Await(handle)->response);
}
