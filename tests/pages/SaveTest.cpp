// `pdeprint save`: the pages that would be printed, as files.

#include <gmock/gmock.h>

#include <algorithm>
#include <csignal>
#include <fstream>

#include "tests/pages/PreparedServer.h"
#include "tests/support/RawPdf.h"

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

namespace {

class Save : public UnpreparedQueues {
 protected:
  fs::path Out(const std::string &name = "out.pdf") const { return folder_.path() / "made" / name; }
  RunResult Pages(const Arguments &more, const std::string &out = "out.pdf") const {
    fs::create_directories(Out().parent_path());
    return Run(Arguments{"save", "-o", Out(out).string()} + more);
  }
  std::vector<std::string> Made() const {
    std::vector<std::string> names;
    for (const auto &entry : fs::directory_iterator(Out().parent_path())) {
      names.push_back(entry.path().filename().string());
    }
    std::ranges::sort(names);
    return names;
  }
  static std::string Content(const fs::path &path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
};

Picture AsPicture(const fs::path &png) {
  const TemporaryFolder folder;
  const RunResult ppm =
      RunProgram({"pngtopnm", png.string()}, {.environment = {}, .folder = {}, .out = {}});
  return Picture(ppm.out);
}

}  // namespace

class SavedLike : public Save, public testing::WithParamInterface<Arguments> {};

TEST_P(SavedLike, ThePagesThatThePrinterGets) {
  const std::string document = File("three.pdf", PlainPdf(3));
  const Arguments options = kFrom25 + GetParam();
  const RunResult result = Pages(Arguments{"-d", "Pdf"} + options + Arguments{document});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(result.out, Out().string() + '\n');
  const Printed printed = Print("Pdf", options, {document});
  EXPECT_EQ(PicturesOf({Content(Out())}, 72), PicturesOf({printed.out}, 72));
  EXPECT_EQ(TextOfPdf(Content(Out())), printed.text);
  EXPECT_THAT(printed.text, HasSubstr("25"));
}

INSTANTIATE_TEST_SUITE_P(Options, SavedLike,
                         testing::Values(Arguments{}, Arguments{"--set", "number-up=2"},
                                         Arguments{"--set", "page-ranges=2-3"},
                                         Arguments{"--set", "outputorder=reverse"},
                                         Arguments{"--set", "orientation-requested=4"},
                                         Arguments{"--set", "VQBNPlacement=Over"},
                                         Arguments{"--set", "VQBNPlacement=Behind"}));

// The printer's own language around the document is for the printer.
TEST_F(Save, KeepsTheDocumentAlone) {
  const std::string jcl = PdfPrinter(
      "*JCLBegin: \"<1B>%-12345X@PJL JOB<0A>\"\n*JCLToPSInterpreter: \"@PJL ENTER LANGUAGE = "
      "PDF<0A>\"\n*JCLEnd: \"<1B>%-12345X@PJL EOJ<0A>\"\n");
  const std::string ppd = File("jcl.ppd", jcl);
  EXPECT_EQ(Pages({"--ppd", ppd, File("a.pdf", PlainPdf(1))}).status, 0);
  EXPECT_THAT(Content(Out()), StartsWith("%PDF-"));
  EXPECT_THAT(Content(Out()), EndsWith("%%EOF\n"));
}

TEST_F(Save, LaysOutForAPrinterThatIsNamed) {
  EXPECT_EQ(
      Pages(Arguments{"-d", "PostScript"} + kFrom25 + Arguments{File("a.pdf", PlainPdf(1))}).status,
      0);
  EXPECT_EQ(TextOfPdf(Content(Out())), "Page 1 25");
}

TEST_F(Save, NeedsNoPrinter) {
  fs::create_directories(Out().parent_path());
  const RunResult result =
      Run(Arguments{"save", "-o", Out().string()} + kFrom25 + Arguments{File("a.pdf", PlainPdf(2))},
          {{"CUPS_SERVER", "/nowhere/cups.sock"}, {"LC_PAPER", "C.UTF-8"}});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(TextOfPdf(Content(Out())), "Page 1 25 Page 2 26");
}

TEST_F(Save, DrawsAPictureOfEachPage) {
  const RunResult result =
      Pages(Arguments{"-d", "Pdf", "--png", "--resolution", "36", File("a.pdf", PlainPdf(11))},
            "page.png");
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_THAT(Made(), SizeIs(11));
  EXPECT_THAT(Made(), testing::Contains("page-01.png"));
  EXPECT_EQ(std::ranges::count(result.out, '\n'), 11);
  const Picture page = AsPicture(Out("page-11.png"));
  EXPECT_NEAR(page.width(), 595 / 2., 1);
  EXPECT_NEAR(page.height(), 842 / 2., 1);
}

TEST_F(Save, ReplacesNothingUnasked) {
  const std::string document = File("a.pdf", PlainPdf(1));
  EXPECT_EQ(Pages({"-d", "Pdf", document}).status, 0);
  const std::string before = Content(Out());
  const RunResult again = Pages({"-d", "Pdf", document, document});
  EXPECT_EQ(again.status, 1);
  EXPECT_EQ(again.err, "pdeprint: nothing is saved: " + Out().string() +
                           " is there already; --force replaces it\n");
  EXPECT_EQ(Content(Out()), before);
  EXPECT_EQ(Pages({"-d", "Pdf", "--force", document, document}).status, 0);
  EXPECT_NE(Content(Out()), before);
  EXPECT_THAT(Made(), ElementsAre("out.pdf"));
}

TEST_F(Save, WritesAllPicturesOrNone) {
  Pages({"-d", "Pdf", "--png", File("a.pdf", PlainPdf(1))}, "page.png");
  fs::rename(Out("page-1.png"), Out("page-3.png"));
  const RunResult result = Pages({"-d", "Pdf", "--png", File("b.pdf", PlainPdf(3))}, "page.png");
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.err, HasSubstr("page-3.png is there already"));
  EXPECT_THAT(Made(), ElementsAre("page-3.png"));
}

TEST_F(Save, SaysWhyThereAreNoPages) {
  const auto refusal = [this](const Arguments &more) {
    const RunResult result = Pages(more);
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(Made(), IsEmpty());
    return result.err;
  };
  const std::string document = File("a.pdf", PlainPdf(1));
  EXPECT_THAT(refusal({"-d", "Raw", document}), HasSubstr("has no PPD file"));
  WriteLpoptions("Dest Pdf raw=true\n");
  EXPECT_THAT(refusal({"-d", "Pdf", document}), HasSubstr("(raw)"));
  WriteLpoptions("");
  EXPECT_THAT(refusal({"-d", "Pdf", "--set", "page-ranges=7", document}), HasSubstr("no page is"));
  EXPECT_THAT(refusal({"-d", "Pdf", File("b.pdf", "%PDF-1.4\nnothing")}), HasSubstr("is damaged"));
  EXPECT_THAT(refusal({"-d", "Pdf", folder_.path() / "none.pdf"}), HasSubstr("none.pdf"));
}

TEST_F(Save, TellsOfWrongUsageBeforeWhatIsInTheWay) {
  const std::string document = File("a.pdf", PlainPdf(1));
  EXPECT_EQ(Pages({"-d", "Pdf", document}).status, 0);
  EXPECT_EQ(Pages({"-d", "Pdf", "--set", "StartNumber=1000", document}).status, 2);
  EXPECT_EQ(Pages({"-d", "Pdf", "--resolution", "99", document}).status, 2);
}

TEST_F(Save, WritesNothingButFiles) {
  fs::create_directories(Out("folder"));
  const RunResult result = Pages({"-d", "Pdf", File("a.pdf", PlainPdf(1))}, "folder");
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.err, "pdeprint: nothing is saved: cannot write " + Out("folder").string() +
                            ": not a regular file\n");
}

// With all programs that they have started.
TEST_F(Save, LeavesNoProgramBehindWhenItIsKilled) {
  const TemporaryFolder folder;
  const auto count = [&folder] {
    std::error_code error;
    int programs = 0;
    for (fs::directory_iterator process("/proc", error), end; !error && process != end;
         process.increment(error)) {
      if (Content(process->path() / "environ").find(folder.path().string()) != std::string::npos) {
        ++programs;
      }
    }
    return programs;
  };
  RunOptions options = Options({{"TMPDIR", folder.path().string()}});
  const RunningProgram save({(BINARY_DIRECTORY "/pdeprint"), "save", "--plugin",
                             (BINARY_DIRECTORY "/BackgroundNumbering.plugin"), "-d", "Pdf", "-o",
                             folder_.path() / "a.pdf", File("loop.ps", "%!PS\n{ } loop\n")},
                            options);
  EXPECT_TRUE(Becomes([&] { return count() > 3; }));
  save.Signal(SIGKILL);
  EXPECT_TRUE(Becomes([&] { return count() == 0; }));
}

TEST_F(Save, SaysWhereItCannotWrite) {
  const RunResult result = Run(
      {"save", "-o", folder_.path() / "none" / "a.pdf", "-d", "Pdf", File("a.pdf", PlainPdf(1))});
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.err, HasSubstr("none/a.pdf"));
}

// It would be a file of that name.
TEST_F(Save, WritesNoStandardOutput) {
  const RunResult result = Run({"save", "-o", "-", "-d", "Pdf", File("a.pdf", PlainPdf(1))});
  EXPECT_EQ(result.status, 2);
  EXPECT_THAT(result.err, HasSubstr("never standard output; name a file"));
}
