#include <gmock/gmock.h>

#include "tests/filter/FilterRun.h"
#include "tests/support/RawPdf.h"

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

TEST(Filter, NumbersThePages) {
  for (const Filtered &run : {Filter(SmallPdf()), FilterFile(SmallPdf())}) {
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(TextOfPdf(run.out), "Page 1 25 Page 2 26 Page 3 27");
    EXPECT_EQ(run.log,
              "INFO: Numbering the pages.\n"
              "DEBUG: backgroundnumbers: 3 pages from 25 on, the number over 0 of them\n");
  }
}

TEST(Filter, SwitchedOffHandsOnWhatItGets) {
  for (const std::string &document : {SmallPdf(), std::string("anything"), std::string()}) {
    for (const Filtered &run : {Filter(document, ""), FilterFile(document, "")}) {
      EXPECT_EQ(run.status, 0);
      EXPECT_EQ(run.out, document);
      EXPECT_EQ(run.log, "");
    }
  }
}

TEST(Filter, WrongArgumentsAreTold) {
  const RunResult result = RunProgram({kFilter, "1", "user", "title", "1"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.err, "ERROR: usage: backgroundnumbers JOB USER TITLE COPIES OPTIONS [FILE]\n");
}

TEST(Filter, AFileThatIsNotThereFailsTheJob) {
  const RunResult result = RunProgram({kFilter, "1", "user", "title", "1", kOn, "/nowhere/a.pdf"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.err,
            "ERROR: The document /nowhere/a.pdf cannot be opened: No such file or directory\n");
}

TEST(Filter, KnowsItsOwnWork) {
  const Filtered once = Filter(SmallPdf());
  const Filtered twice = Filter(once.out);
  EXPECT_EQ(twice.out, once.out);
  EXPECT_EQ(twice.log, "DEBUG: backgroundnumbers: the pages have their numbers\n");
}

TEST(Filter, KeepsWhatOthersHavePutAroundTheDocument) {
  const std::string before = "\x1b%-12345X@PJL SET DUPLEX=ON\n@PJL ENTER LANGUAGE=PDF\n";
  const std::string behind = "\x1b%-12345X@PJL EOJ\n\x1b%-12345X";
  std::string document = SmallPdf();
  document.insert(document.find('\n', 9) + 1,
                  "%%PDFTOPDFNumCopies : 2\n%%PDFTOPDFCollate : true\n");
  const Filtered run = Filter(before + document + behind);
  EXPECT_THAT(run.out, StartsWith(before + "%PDF-1.7\n"));
  EXPECT_TRUE(run.out.ends_with("%%EOF\n" + behind)) << run.out.substr(run.out.size() - 80);
  EXPECT_THAT(
      run.out.substr(0, 300),
      HasSubstr("%%PDFTOPDFNumCopies : 2\n%%PDFTOPDFCollate : true\n%%BackgroundNumbers\n"));
  EXPECT_EQ(TextOfPdf(run.out), "Page 1 25 Page 2 26 Page 3 27");
}

TEST(Filter, WhatCannotBeNumberedIsPrintedAllTheSame) {
  const std::string locked = ChangedByQpdf(SmallPdf(), {"--encrypt", "secret", "owner", "256"});
  for (const std::string &document :
       {std::string("hello"), std::string("%PDF-1.7\nnothing of the kind\n%%EOF\n"),
        SmallPdf().substr(0, 30), locked}) {
    for (const Filtered &run : {Filter(document), FilterFile(document)}) {
      EXPECT_EQ(run.status, 0);
      EXPECT_EQ(run.out, document);
      EXPECT_THAT(run.log, HasSubstr("WARNING: The pages have no numbers: ")) << document;
      EXPECT_THAT(run.log, Not(HasSubstr("goes over it"))) << document;
    }
  }
}

TEST(Filter, ReaderThatHasGoneIsNoFault) {
  const TemporaryFolder folder;
  const std::string file = folder.Write("document", SmallPdf(2000));
  const RunResult result = RunProgram(
      {"bash", "-c",
       "\"$0\" 1 user title 1 \"$1\" \"$2\" | head -c 10 >/dev/null; echo ${PIPESTATUS[0]}",
       kFilter, kOn, file});
  EXPECT_EQ(result.out, "0\n") << result.err;
}

// Pictures come to PDF printers without what else tells of pages.
TEST(Filter, TellsOfPagesWhereNobodyElseDoes) {
  const EnvironmentChanges picture = {{"CONTENT_TYPE", "image/jpeg"},
                                      {"FINAL_CONTENT_TYPE", "application/pdf"}};
  EXPECT_THAT(Filter(SmallPdf(2), kOn, picture).log, HasSubstr("PAGE: 1 1\nPAGE: 2 1\n"));
  EXPECT_EQ(Filter(SmallPdf(2), "", picture).log, "PAGE: 1 1\nPAGE: 2 1\n");
  std::string laid_out = SmallPdf(2);
  laid_out.insert(laid_out.find('\n', 9) + 1, "%%PDFTOPDFNumCopies : 2\n");
  EXPECT_FALSE(Filter(laid_out, kOn, picture).Logged("PAGE:"));
  EXPECT_FALSE(Filter(SmallPdf(2), kOn,
                      {{"CONTENT_TYPE", "image/jpeg"}, {"FINAL_CONTENT_TYPE", "printer/raster"}})
                   .Logged("PAGE:"));
}
