// Queues of a print server that an administrator has put the filter into: PDF, with PJL, and
// raster.

#include <gmock/gmock.h>

#include "tests/filter/FilterRun.h"
#include "tests/support/Documents.h"
#include "tests/support/PrivateServer.h"
#include "tests/support/RawPdf.h"

using testing::HasSubstr;
using testing::StartsWith;

namespace {

const TemporaryFolder &Folder() {
  static const TemporaryFolder folder;
  return folder;
}

const PrivateServer &Server() {
  static const PrivateServer server;
  return server;
}

// A printer that takes PDF documents, with the lines that docs/printing.md has.
std::string PdfPrinter(const std::string &lines) {
  std::string text = ContentOf(BINARY_DIRECTORY "/printer/VelmoraNumbering.ppd");
  // Its options have no code, and the printer knows none.
  for (size_t at; (at = text.find("*VQBackgroundNumbering On/")) != std::string::npos;) {
    const size_t code = text.find('"', at), end = text.find("\"\n*End\n", code);
    text.replace(at, end + 7 - at, "*VQBackgroundNumbering  On/On: \"\"\n");
  }
  return text + lines;
}

std::string Printed(const std::string &queue, const std::string &lines, const std::string &pdf,
                    const std::vector<std::string> &options, int &job) {
  Server().AddQueue({.name = queue, .ppd = Folder().Write(queue + ".ppd", PdfPrinter(lines))});
  std::vector<std::string> command = {"lp", "-d", queue, Folder().Write("document.pdf", pdf)};
  for (const std::string &option : options) {
    command.push_back("-o");
    command.push_back(option);
  }
  const std::string said = Server().Run(command);
  job = std::atoi(said.substr(said.find('-', said.find("request id is")) + 1).c_str());
  EXPECT_TRUE(Becomes([&] {
    const std::string state = Server().JobAttributes(job)["job-state"];
    return state == "completed" || state == "aborted" || state == "canceled";
  }));
  EXPECT_EQ(Server().JobAttributes(job)["job-state"], "completed");
  return Server().OutputOf(job);
}

const std::string kLine = std::string("*cupsFilter2: \"application/vnd.cups-pdf application/pdf ") +
                          "-1 " + kFilter + "\"\n";
constexpr char kMakersLine[] = "*cupsFilter2: \"application/vnd.cups-pdf application/pdf 0 -\"\n";

}  // namespace

TEST(Queue, OfAPdfPrinterNumbersThePages) {
  int job = 0;
  const std::string out = Printed("Pdf", kMakersLine + kLine, TextPdf(3),
                                  {"VQBackgroundNumbering=On", "VQStartNumber=25"}, job);
  EXPECT_THAT(out, StartsWith("%PDF-"));
  for (const char *number : {" 25 ", " 26 "}) EXPECT_THAT(TextOfPdf(out), HasSubstr(number));
}

TEST(Queue, CountsThePagesWithNumbersAndWithout) {
  int on = 0, off = 0;
  Printed("Counting", kMakersLine + kLine, TextPdf(3), {"VQBackgroundNumbering=On"}, on);
  Printed("Counting", kMakersLine + kLine, TextPdf(3), {}, off);
  const std::string sides = Server().JobAttributes(off)["job-media-sheets-completed"];
  EXPECT_EQ(Server().JobAttributes(on)["job-media-sheets-completed"], sides);
  EXPECT_EQ(sides, "3");
}

TEST(Queue, KeepsTheLanguageOfThePrinter) {
  const std::string jcl =
      "*JCLBegin: \"<1B>%-12345X@PJL JOB<0A>\"\n*JCLToPDFInterpreter: \"@PJL ENTER "
      "LANGUAGE=PDF<0A>\"\n*JCLEnd: \"<1B>%-12345X@PJL EOJ<0A><1B>%-12345X\"\n";
  int job = 0;
  const std::string out = Printed("Jcl", jcl + kMakersLine + kLine, TextPdf(1),
                                  {"VQBackgroundNumbering=On", "VQStartNumber=77"}, job);
  EXPECT_THAT(out, StartsWith("\x1b%-12345X@PJL"));
  EXPECT_THAT(out, HasSubstr("@PJL ENTER LANGUAGE=PDF\n%PDF-"));
  EXPECT_THAT(out.substr(out.rfind("%%EOF")), StartsWith("%%EOF\n\x1b%-12345X"));
  EXPECT_THAT(TextOfPdf(out.substr(out.find("%PDF-"))), HasSubstr("77"));
}
