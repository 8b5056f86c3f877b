// PostScript documents that are not like most.

#include "tests/support/Documents.h"

#include <gmock/gmock.h>

#include "tests/printing/PrintedJob.h"

using testing::HasSubstr;

namespace {

// With lines in the prolog, which are run before the printer's options.
std::string WithProlog(std::string document, const std::string &lines) {
  const std::string mark = "%%BeginProlog\n";
  return document.insert(document.find(mark) + mark.size(), lines + "\n");
}

// Two pages that tell how much is on the stacks, and whether an error has happened.
const std::string kStacks = [] {
  const std::string page =
      "/Helvetica findfont 12 scalefont setfont 72 72 moveto count 12 string cvs show ( operands ) "
      "show\ncountdictstack 12 string cvs show ( dictionaries ) show\n"
      "$error /newerror get { (an error) } { (no error) } ifelse show showpage\n";
  return "%!\n" + page + page;
}();

void ExpectNumberedAsUsual(const PrintedJob &job) {
  const PrintedJob usual(On(), TextDocument(2));
  ASSERT_EQ(job.Numbers(), "25 26");
  for (const size_t at : {0, 1}) {
    EXPECT_EQ(job.Pages()[at].Number(), usual.Pages()[at].Number());
    EXPECT_EQ(NumberColor(job.Pages()[at]), NumberColor(usual.Pages()[at]));
    ExpectInTheMiddle(job.Pages()[at]);
  }
}

}  // namespace

TEST(UnusualDocument, WithoutStructureCommentsIsNumbered) {
  ExpectNumberedAsUsual(PrintedJob(
      On(), "%!\n" + TextPage("Page 1") + " showpage " + TextPage("Page 2") + " showpage\n"));
}

TEST(UnusualDocument, RestoringAllMemoryAfterEachPageDoesNotSetTheCountBack) {
  ExpectNumberedAsUsual(PrintedJob(On(), "%!\nsave " + TextPage("Page 1") +
                                             " showpage restore\nsave " + TextPage("Page 2") +
                                             " showpage restore\n"));
}

TEST(UnusualDocument, NamesOfOperatorsCanMeanSomethingElseInIt) {
  const std::string names =
      "userdict begin\n[ /show /gsave /grestore /mul /div /add /sub /neg /sqrt /moveto /translate\n"
      "/rotate /scale /setgray /setrgbcolor /setfont /scalefont /charpath /pathbbox /newpath\n"
      "/initgraphics /cvs /string /sin /cos /atan /aload /length /forall /known /findfont\n"
      "/flattenpath /makepattern /setpattern /stroke /setlinewidth ]\n"
      "{ { (no such operator) stop } def } forall\nend";
  // The pages themselves do without.
  const std::string document =
      WithProlog(Document({"systemdict begin " + TextPage("Page 1") + " end",
                           "systemdict begin " + TextPage("Page 2") + " end"}),
                 names);
  ExpectNumberedAsUsual(PrintedJob(On(), document));
  const PrintedJob over(On({{"VQBNPlacement", "Over"}}), document);
  EXPECT_EQ(over.Numbers(), "25 26");
}

TEST(UnusualDocument, ItsGraphicsStateAtTheEndOfAPageDoesNotMoveTheNumber) {
  const std::string page =
      "/Helvetica findfont 10 scalefont setfont .1 .2 scale 40 rotate 0 0 10 10 rectclip\n"
      "1 0 0 setrgbcolor 30 setlinewidth [9 9] 0 setdash";
  for (const char *placement : {"Behind", "Over"}) {
    const PrintedJob job(On({{"VQBNPlacement", placement}}),
                         "%!\n" + page + " showpage " + page + " showpage\n");
    const PrintedJob usual(On({{"VQBNPlacement", placement}}), "%!\nshowpage showpage\n");
    ExpectSamePages(usual.Pages(), job.Pages());
  }
}

TEST(UnusualDocument, TheNumberLeavesTheGraphicsStateOfThePageAlone) {
  // Draws with what a page begins with: no color, line width or font is set.
  const std::string page = "100 100 100 100 rectfill 300 100 moveto 100 100 rlineto stroke";
  const PrintedJob numbered(On(), Document({page}));
  const PrintedJob plain({}, Document({page}));
  ExpectContentUnchanged(numbered.Pages()[0], plain.Pages()[0]);
}

TEST(UnusualDocument, TheNumberLeavesTheStacksAlone) {
  for (const char *placement : {"Behind", "Over"}) {
    const PrintedJob on(On({{"VQBNPlacement", placement}}), kStacks);
    const PrintedJob off({}, kStacks);
    ASSERT_EQ(on.Pages().size(), 2u);
    for (const size_t at : {0, 1}) {
      EXPECT_TRUE(off.Pages()[at].Says("operands"));
      EXPECT_EQ(on.Pages()[at].Words(), off.Pages()[at].Words());
    }
  }
}

TEST(UnusualDocument, ANumberThatCannotBeDrawnDoesNotKeepThePageFromBeingPrinted) {
  for (const char *placement : {"Behind", "Over"}) {
    std::string output = PrintedJob(On({{"VQBNPlacement", placement}}), kStacks).Output();
    const std::string start = "/VelmoraStart 25";
    const size_t place = output.find(start);
    ASSERT_NE(place, std::string::npos);
    const std::vector<PrintedPage> pages =
        PagesOf(output.replace(place, start.size(), "/VelmoraStart /nonsense"));
    const PrintedJob off({}, kStacks);
    EXPECT_EQ(NumbersOf(pages), "- -");
    ExpectSamePages(off.Pages(), pages);
  }
}

TEST(UnusualDocument, MemoryThatItAllocatesGloballyDoesNotMatter) {
  for (const char *placement : {"Behind", "Over"}) {
    const PrintedJob job(On({{"VQBNPlacement", placement}}),
                         "%!\n" + TextPage("Page 1") + " showpage true setglobal " +
                             TextPage("Page 2") + " showpage false setglobal " +
                             TextPage("Page 3") + " showpage\n");
    EXPECT_EQ(job.Numbers(), "25 26 27") << placement;
  }
}

TEST(UnusualDocument, WithAnEndPageOfItsOwnHasNoNumberTwice) {
  const std::string document =
      "%!\n<< /EndPage { exch pop 2 ne } >> setpagedevice\nshowpage showpage showpage\n";
  EXPECT_EQ(PrintedJob(On(), document).Numbers(), "25 - -");
  EXPECT_EQ(PrintedJob(On({{"VQBNPlacement", "Over"}}), document).Numbers(), "- - -");
}

TEST(UnusualDocument, WithABeginPageOfItsOwnIsNumberedOverItsPagesOnly) {
  const std::string document =
      "%!\n<< /BeginPage { pop } >> setpagedevice\nshowpage showpage showpage\n";
  EXPECT_EQ(PrintedJob(On({{"VQBNPlacement", "Over"}}), document).Numbers(), "25 26 27");
  for (const PrintedPage &page : PrintedJob(On(), document).Pages()) {
    EXPECT_FALSE(page.picture().MainColor());
  }
}

TEST(UnusualDocument, PagesPrintedByCopypageCount) {
  const PrintedJob job(
      On(), "%!\n" + TextPage("Page 1") + " copypage " + TextPage("Page 2") + " showpage\n");
  EXPECT_EQ(job.Numbers(), "25 26");
}

TEST(UnusualDocument, APageThatThePrinterReportsAsCopiedCounts) {
  // What copypage does in printers that give it a reason of its own; the interpreter here gives
  // that of showpage.
  const PrintedJob job(
      On(), "%!\n0 1 currentpagedevice /EndPage get exec pop\nshowpage showpage showpage\n");
  EXPECT_EQ(job.Numbers(), "25 27 28");
}

TEST(UnusualDocument, ChangingThePageDeviceAmidThePagesDoesNotCount) {
  const PrintedJob job(On(), Document({TextPage("Page 1"),
                                       "<</PageSize[595 842]>>setpagedevice <<>> setpagedevice " +
                                           TextPage("Page 2"),
                                       TextPage("Page 3")}));
  EXPECT_EQ(job.Numbers(), "25 26 27");
  for (const PrintedPage &page : job.Pages()) ExpectInTheMiddle(page);
}

TEST(UnusualDocument, ItsErrorsAreNotHiddenByTheNumber) {
  const PrintedJob job(On(), "%!\nshowpage\nthis-is-no-operator\nshowpage\n");
  const Interpretation result = Interpret(JobsIn(job.Output()).front());
  EXPECT_THAT(result.complaint, HasSubstr("undefined"));
}

TEST(UnusualDocument, AnEmptyPageIsNumbered) {
  EXPECT_EQ(PrintedJob(On(), "%!\nshowpage showpage\n").Numbers(), "25 26");
}
