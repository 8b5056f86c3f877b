// What counts as a page where this computer puts the numbers in.

#include <gmock/gmock.h>

#include "tests/pages/PreparedServer.h"
#include "tests/support/RawPdf.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

namespace {

// Of a printer that has one for its jobs, around the document.
constexpr char kJobLanguage[] =
    "*JCLBegin: \"<1B>%-12345X@PJL JOB<0A>\"\n"
    "*JCLToPDFInterpreter: \"@PJL ENTER LANGUAGE=PDF<0A>\"\n"
    "*JCLEnd: \"<1B>%-12345X@PJL EOJ<0A><1B>%-12345X\"\n";

class PrintHereLayout : public UnpreparedQueues {
 protected:
  Printed Three(const Arguments &more) const {
    return Number(more, {File("three.pdf", PlainPdf(3))});
  }
};

}  // namespace

TEST_F(PrintHereLayout, PagesThatAreNotPrintedDoNotCount) {
  Printed printed = Three({"--set", "page-ranges=2-3"});
  EXPECT_THAT(printed.numbers(), ElementsAre("25", "26"));
  EXPECT_THAT(printed.text, Not(HasSubstr("Page 1")));
  EXPECT_EQ(printed.job.count("page-ranges"), 0u);
}

TEST_F(PrintHereLayout, SeveralPagesOnASideHaveOneNumber) {
  Printed printed = Three({"--set", "number-up=2"});
  EXPECT_THAT(printed.numbers(), ElementsAre("25", "26"));
  EXPECT_THAT(printed.text, HasSubstr("Page 3"));
}

TEST_F(PrintHereLayout, ReverseOrderIsTheOrderOfPrinting) {
  Printed printed = Three({"--set", "outputorder=reverse"});
  EXPECT_THAT(printed.numbers(), ElementsAre("25", "26", "27"));
  EXPECT_LT(printed.text.find("Page 3"), printed.text.find("Page 1"));
  EXPECT_LT(printed.text.find("25"), printed.text.find("26"));
}

TEST_F(PrintHereLayout, CollatedCopiesGoOnCounting) {
  Printed printed = Three({"-n", "2", "--set", "collate=true"});
  EXPECT_THAT(printed.numbers(), ElementsAre("25", "26", "27", "28", "29", "30"));
  EXPECT_LT(printed.text.find("Page 3"), printed.text.rfind("Page 1"));
}

TEST_F(PrintHereLayout, UncollatedCopiesGoOnCountingToo) {
  Printed printed = Three({"-n", "2", "--set", "collate=false"});
  EXPECT_THAT(printed.numbers(), ElementsAre("25", "26", "27", "28", "29", "30"));
  EXPECT_LT(printed.text.rfind("Page 1"), printed.text.find("Page 2"));
}

TEST_F(PrintHereLayout, EmptySidesBetweenTwoSidedCopiesCount) {
  Printed printed = Three({"-n", "2", "--set", "sides=two-sided-long-edge"});
  EXPECT_THAT(printed.numbers(), ElementsAre("25", "26", "27", "28", "29", "30", "31", "32"));
  EXPECT_EQ(printed.job["sides"], "two-sided-long-edge");
}

// As they do where the server lays the files out.
TEST_F(PrintHereLayout, EachFileBeginsOnNewPaper) {
  const Arguments duplex = {"--set", "Duplex=DuplexNoTumble"};
  const std::string three = File("three.pdf", PlainPdf(3)), one = File("one.pdf", PlainPdf(1));
  EXPECT_THAT(Number(duplex, {three, one}).numbers(), ElementsAre("25", "26", "27", "28", "29"));
  EXPECT_THAT(Number(duplex, {one, one}).numbers(), ElementsAre("25", "26", "27"));
  EXPECT_THAT(Number({}, {three, one}).numbers(), ElementsAre("25", "26", "27", "28"));
}

TEST_F(PrintHereLayout, RangesAreThoseOfEachFile) {
  const std::string three = File("three.pdf", PlainPdf(3)), two = File("two.pdf", PlainPdf(2));
  Printed printed = Number({"--set", "page-ranges=2"}, {three, two});
  EXPECT_THAT(printed.numbers(), ElementsAre("25", "26"));
  EXPECT_THAT(printed.text, Not(HasSubstr("Page 1")));
  // Of which there may be none.
  EXPECT_THAT(Number({"--set", "page-ranges=3"}, {two, three}).numbers(), ElementsAre("25"));
}

TEST_F(PrintHereLayout, PagesKeepTheLanguageOfThePrinter) {
  server().AddQueue({.name = "Jcl", .ppd = File("jcl.ppd", PdfPrinter(kJobLanguage))});
  const std::string two = File("two.pdf", PlainPdf(2));
  for (const std::vector<std::string> &files : {std::vector{two}, std::vector{two, two}}) {
    const std::string out = Print("Jcl", kFrom25, files).out;
    EXPECT_THAT(out, testing::StartsWith("\x1b%-12345X@PJL"));
    EXPECT_THAT(out, HasSubstr("@PJL ENTER LANGUAGE=PDF\n%PDF-"));
    EXPECT_THAT(out.substr(out.rfind("%%EOF")), testing::StartsWith("%%EOF\n\x1b%-12345X"));
    EXPECT_EQ(out.find("%PDF-"), out.rfind("%PDF-"));
    EXPECT_THAT(TextOfPdf(out.substr(out.find("%PDF-"))), HasSubstr("26"));
  }
}

TEST_F(PrintHereLayout, OfAFileWithoutPagesTheLanguageOfThePrinterIsNothing) {
  server().AddQueue({.name = "Bare", .ppd = File("jcl.ppd", PdfPrinter(kJobLanguage))});
  const std::string three = File("three.pdf", PlainPdf(3)), two = File("two.pdf", PlainPdf(2));
  const Arguments third = kFrom25 + Arguments{"--set", "page-ranges=3"};
  const std::string out = Print("Bare", third, {two, three}).out;
  EXPECT_THAT(TextOfPdf(out.substr(out.find("%PDF-"))), HasSubstr("25"));
  const RunResult result = Run(Arguments{"print", "-d", "Bare"} + third + Arguments{two});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.err, "pdeprint: no page is to be printed\n");
}

// The print server drops documents from such jobs on which no program of its works.
TEST_F(PrintHereLayout, ADocumentWithBannersIsPrintedWithThem) {
  for (const char *sheets : {"standard,none", "none,standard", "standard,standard"}) {
    SCOPED_TRACE(sheets);
    const Printed printed = Three({"--set", std::string("job-sheets=") + sheets});
    size_t files = 0;
    std::string text;
    for (size_t at = printed.out.find("%PDF-"); at != std::string::npos; ++files) {
      const size_t next = printed.out.find("%PDF-", at + 1);
      text += TextOfPdf(printed.out.substr(at, next - at)) + ' ';
      at = next;
    }
    for (const char *words : {"Page 3", " 25 ", " 26 ", " 27 "}) {
      EXPECT_THAT(text, HasSubstr(words));
    }
    EXPECT_EQ(std::string(sheets) == "standard,standard" ? 3u : 2u, files);
  }
}
