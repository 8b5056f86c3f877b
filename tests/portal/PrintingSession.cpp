#include "tests/portal/PrintingSession.h"

#include <algorithm>
#include <regex>
#include <sstream>

#include "tests/support/TestPPD.h"

namespace {

constexpr char kPdfPrinter[] =
    "*ColorDevice: True\n*cupsManualCopies: True\n*cupsFilter2: \"application/vnd.cups-pdf "
    "application/pdf 0 -\"\n"
    "*OpenUI *Duplex/Two-Sided: PickOne\n*OrderDependency: 20 AnySetup *Duplex\n"
    "*DefaultDuplex: None\n*Duplex None/Off: \"\"\n*Duplex DuplexNoTumble/Long Edge: \"\"\n"
    "*Duplex DuplexTumble/Short Edge: \"\"\n*CloseUI: *Duplex\n";

bool HasEnded(const std::string &state) {
  return state == "completed" || state == "aborted" || state == "canceled";
}

int LastJob(const PrivateServer &server) {
  int job = 0;
  while (!server.JobAttributes(job + 1).empty()) ++job;
  return job;
}

}  // namespace

void PrintingSession::SetUpTestSuite() {
  server_ = new PrivateServer;
  const TemporaryFolder folder;
  server_->AddQueue({.name = "Pdf",
                     .ppd = folder.Write("pdf.ppd", TestPPD::Text(kPdfPrinter)),
                     .is_default = true});
  server_->AddQueue({.name = "Office", .ppd = BINARY_DIRECTORY "/printer/VelmoraNumbering.ppd"});
}

void PrintingSession::TearDownTestSuite() {
  delete server_;
  server_ = nullptr;
}

PrintingSession::PrintingSession()
    : last_job_(LastJob(server())), session_(server().Environment()) {}

std::vector<int> PrintingSession::AwaitJobs(size_t count) const {
  std::vector<int> jobs;
  EXPECT_TRUE(Becomes([&] {
    jobs.clear();
    const int last = LastJob(server());
    for (int job = last_job_ + 1; job <= last; ++job) jobs.push_back(job);
    return jobs.size() >= count;
  })) << "too few jobs";
  EXPECT_EQ(count, jobs.size());
  jobs.resize(count);
  return jobs;
}

std::string PrintingSession::Printed(int job) {
  EXPECT_TRUE(Becomes([job] { return HasEnded(server().JobAttributes(job)["job-state"]); }));
  EXPECT_EQ("completed", server().JobAttributes(job)["job-state"]);
  return server().OutputOf(job);
}

void PrintingSession::EndDialog(const std::string &dialog, const std::string &key) {
  EXPECT_TRUE(PressUntil(dialog, key, [&dialog] {
    const auto open = WindowsOf("pdeprint");
    return std::ranges::find(open, dialog) == open.end();
  })) << "the dialog stays";
}

void PrintingSession::SwitchNumberingOn(const std::string &dialog) {
  // From the printer to the presets, copies, pages, panels, the check box; and to the number.
  PressIn(dialog, {"Tab", "Tab", "Tab", "Tab", "Tab", "space", "Tab", "Tab", "Tab", "Tab"});
  TypeIn(dialog, "25");
}

std::vector<std::string> TextsOfPages(const std::string &pdf) {
  const TemporaryFolder folder;
  const RunResult result = RunProgram({"pdftotext", folder.Write("file.pdf", pdf), "-"});
  EXPECT_EQ(0, result.status) << result.err;
  std::istringstream text(result.out);
  std::vector<std::string> pages;
  for (std::string page; std::getline(text, page, '\f');) pages.push_back(page);
  return pages;
}

std::string NumbersOnPages(const std::string &pdf) {
  static const std::regex number("(?:^|\n)([0-9]{2})(?:\n|$)");
  std::string numbers;
  for (const std::string &page : TextsOfPages(pdf)) {
    std::smatch found;
    numbers += numbers.empty() ? "" : " ";
    numbers += std::regex_search(page, found, number) ? found.str(1) : "-";
  }
  return numbers;
}
