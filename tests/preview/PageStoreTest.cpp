// Pictures of pages, held against those of the pages that are made to be printed.

#include "host/preview/PageStore.h"

#include <gmock/gmock.h>
#include <unistd.h>

#include <csignal>
#include <fstream>
#include <map>
#include <thread>

#include "tests/support/EnvironmentVariable.h"
#include "tests/support/Interpreter.h"
#include "tests/support/NumberingPPD.h"
#include "tests/support/RawPdf.h"
#include "tests/support/SupervisedPrograms.h"
#include "tests/support/TemporaryFolder.h"

namespace fs = std::filesystem;
using testing::HasSubstr;

namespace {

constexpr DrawingSize kSize = {.room = {300, 300}};

class PageStoreTest : public testing::Test {
 protected:
  // As the built numbering has it.
  PagesRequest Job(const fs::path &file, const JobOptions &options = {}) const {
    return {.files = {file},
            .title = "title",
            .options = options,
            .making = {
                .ppd = NumberingPPDText(true),
                .filters = {{.program = "backgroundnumbers", .bundle = "Numbers", .package = ""}},
                .of_filters = {"VQBackgroundNumbering", "VQStartNumber", "VQBNPlacement",
                               "VQBNSize", "VQBNDensity", "VQBNColor"}}};
  }
  PagesRequest NumberedJob(const fs::path &file, JobOptions options = {}) const {
    options.merge(JobOptions{{"VQBackgroundNumbering", "On"}, {"VQStartNumber", "25"}});
    return Job(file, options);
  }
  fs::path Pages(int count, const std::string &box = "0 0 595 842") const {
    std::vector<RawPage> pages;
    for (int page = 1; page <= count; ++page) {
      pages.push_back(
          {.content = "BT /F 60 Tf 100 600 Td (Page " + std::to_string(page) + ") Tj ET",
           .entries = "/MediaBox [" + box + "]"});
    }
    return folder_.Write("pages.pdf", RawPdf(pages));
  }

  Expected<PagePicture> Ask(const PagesRequest &job, int page) {
    return store_.Picture(job, page, kSize, cancel_);
  }
  std::string ReasonOf(const PagesRequest &job) {
    const Expected<PagePicture> picture = Ask(job, 1);
    return picture ? "" : picture.message();
  }

  // Page by page, what is seen is what would be printed.
  void ExpectPrintedPages(const PagesRequest &job, int pages) {
    const Expected<JobPages> printed = MakePages(job, cancel_);
    ASSERT_TRUE(printed) << printed.message();
    ASSERT_EQ(printed->count, pages);
    for (int page = pages; page >= 1; --page) {
      const Expected<PagePicture> seen = Ask(job, page);
      ASSERT_TRUE(seen) << seen.message();
      EXPECT_EQ(seen->page, page);
      EXPECT_EQ(seen->pages, pages);
      const fs::path out = folder_.path() / "page.ppm";
      ASSERT_TRUE(PageDrawer().Draw(kSize, printed->file, page, out, cancel_));
      EXPECT_EQ(AsPpm(*seen), ContentOf(out)) << "page " << page;
    }
  }

  static std::string AsPpm(const PagePicture &picture) {
    return "P6\n" + std::to_string(picture.size.width) + ' ' + std::to_string(picture.size.height) +
           "\n255\n" + picture.samples;
  }
  static std::string ContentOf(const fs::path &path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  static double InkOf(const PagePicture &picture) {
    return Picture(AsPpm(picture)).ShareOf([](Color color) { return color != kWhitePaper; });
  }

  TemporaryFolder folder_;
  PageStore store_;
  std::atomic<bool> cancel_ = false;
};

}  // namespace

TEST_F(PageStoreTest, FitsThePageIntoTheRoom) {
  const Expected<PagePicture> picture = Ask(Job(Pages(1)), 1);
  ASSERT_TRUE(picture) << picture.message();
  EXPECT_EQ(picture->size.height, 300);
  EXPECT_NEAR(picture->size.width, 300 * 595 / 842., 1);
  EXPECT_GT(InkOf(*picture), 0.005);
}

TEST_F(PageStoreTest, DrawsInTheResolutionThatIsAskedFor) {
  const Expected<PagePicture> picture =
      store_.Picture(Job(Pages(1)), 1, {.room = {}, .dpi = 72}, cancel_);
  ASSERT_TRUE(picture) << picture.message();
  EXPECT_EQ(picture->size, (PixelSize{595, 842}));
}

TEST_F(PageStoreTest, ShowsTheNumbersThatWouldBePrinted) {
  for (const char *placement : {"Behind", "Over", "Automatic"}) {
    ExpectPrintedPages(NumberedJob(Pages(3), {{"VQBNPlacement", placement}}), 3);
  }
  EXPECT_GT(InkOf(*Ask(NumberedJob(Pages(3)), 2)), InkOf(*Ask(Job(Pages(3)), 2)) + 0.02);
}

TEST_F(PageStoreTest, ShowsSeveralPagesOnASide) {
  ExpectPrintedPages(NumberedJob(Pages(5), {{"number-up", "2"}}), 3);
}

TEST_F(PageStoreTest, ShowsRanges) {
  ExpectPrintedPages(NumberedJob(Pages(5), {{"page-ranges", "2,4-5"}}), 3);
}

TEST_F(PageStoreTest, ShowsTheLastPageFirst) {
  ExpectPrintedPages(NumberedJob(Pages(3), {{"outputorder", "reverse"}}), 3);
}

TEST_F(PageStoreTest, ShowsLandscapePages) {
  ExpectPrintedPages(NumberedJob(Pages(2, "0 0 842 595")), 2);
}

TEST_F(PageStoreTest, ShowsOneCopy) {
  EXPECT_EQ(Ask(Job(Pages(2), {{"copies", "3"}}), 1)->pages, 2);
}

TEST_F(PageStoreTest, ShowsTheLastPageForOnesBehindIt) {
  const Expected<PagePicture> picture = Ask(Job(Pages(2)), 9);
  ASSERT_TRUE(picture) << picture.message();
  EXPECT_EQ(picture->page, 2);
}

TEST_F(PageStoreTest, ShowsPostScriptTextAndPictures) {
  EXPECT_TRUE(
      Ask(Job(folder_.Write("a.ps", "%!PS-Adobe-3.0\n0 0 100 100 rectfill showpage\n")), 1));
  EXPECT_TRUE(Ask(Job(folder_.Write("a.txt", "A line of text\n")), 1));
  EXPECT_TRUE(Ask(Job(folder_.Write("a.pgm", "P5\n8 8\n255\n" + std::string(64, '\x80'))), 1));
}

// A filter's options change nothing of the layout: nothing but the filter is asked again.
TEST_F(PageStoreTest, LaysOutOnceForAllNumbers) {
  const fs::path pages = Pages(3);
  ASSERT_TRUE(Ask(NumberedJob(pages), 1));
  const EnvironmentVariable nothing("CUPS_SERVERBIN", "/nowhere");
  PagesRequest job = NumberedJob(pages);
  job.options["VQStartNumber"] = "88";
  EXPECT_TRUE(Ask(job, 3));
  job.options["number-up"] = "2";
  EXPECT_THAT(ReasonOf(job), HasSubstr("the program pdftopdf is not there"));
}

TEST_F(PageStoreTest, RecoversFromAJobThatCannotBeShown) {
  EXPECT_NE(ReasonOf(Job(folder_.Write("a.pdf", "%PDF-1.4\nnothing"))), "");
  EXPECT_EQ(ReasonOf(Job(Pages(1))), "");
}

TEST_F(PageStoreTest, SaysWhyThereIsNothingToShow) {
  const std::string locked =
      ChangedByQpdf(RawPdf({{""}}), {"--encrypt", "user", "owner", "128", "--use-aes=y", "--"});
  EXPECT_THAT(ReasonOf(Job(folder_.Write("locked.pdf", locked))), HasSubstr("needs a password"));
  EXPECT_THAT(ReasonOf(Job(folder_.Write("a.pdf", "%PDF-1.4\nnothing"))), HasSubstr("is damaged"));
  EXPECT_THAT(ReasonOf(Job(Pages(2), {{"page-ranges", "7"}})), HasSubstr("no page"));
  EXPECT_THAT(ReasonOf(Job(Pages(1), {{"raw", "true"}})), HasSubstr("(raw)"));
  EXPECT_THAT(ReasonOf(Job(folder_.path() / "none.pdf")), HasSubstr("none.pdf"));
}

TEST_F(PageStoreTest, IsCanceled) {
  cancel_ = true;
  EXPECT_THAT(ReasonOf(Job(Pages(1))), HasSubstr("canceled"));
  cancel_ = false;
  EXPECT_EQ(ReasonOf(Job(Pages(1))), "");
}

// Whatever a document is, some answer comes, and nothing stays behind.
TEST_F(PageStoreTest, SurvivesHostileDocuments) {
  const auto with = [](const std::string &content, const std::string &entries) {
    return RawPdf({{.content = content, .entries = entries}});
  };
  const std::string paper = "/MediaBox [0 0 595 842]";
  std::string many = "%PDF-1.4\n";
  for (int at = 1; at <= 200000; ++at) many += std::to_string(at) + " 0 obj null endobj\n";
  const std::map<std::string, std::string> documents = {
      {"large.pdf", with("0 0 100 100 re f", "/MediaBox [0 0 14400 14400]")},
      {"small.pdf", with("", "/MediaBox [0 0 0.01 0.01]")},
      {"upside.pdf", with("", "/MediaBox [595 842 0 0]")},
      {"many.pdf", many},
      {"saves.pdf", with(std::string(200000, 'q') + " 0 0 9 9 re f", paper)},
      {"loop.pdf",
       PdfOfObjects({"<</Type/Catalog/Pages 2 0 R>>", "<</Type/Pages/Count 1/Kids[3 0 R]>>",
                     "<</Type/Pages/Count 1/Kids[2 0 R]>>"})},
      {"itself.pdf",
       PdfOfObjects(
           {"<</Type/Catalog/Pages 2 0 R>>", "<</Type/Pages/Count 1/Kids[3 0 R]>>",
            ("<</Type/Page/Parent 2 0 R/MediaBox[0 0 595 842]/Contents 4 0 R/Resources<</XObject "
             "<</X 5 0 R>>>>>>"),
            PdfStream("/X Do"),
            PdfStream("/X Do /X Do",
                      "/Type/XObject/Subtype/Form/BBox[0 0 9 9]/Resources<</XObject "
                      "<</X 5 0 R>>>>")})},
  };
  for (const auto &[name, document] : documents) {
    const Expected<PagePicture> picture = Ask(NumberedJob(folder_.Write(name, document)), 1);
    EXPECT_TRUE(picture || !picture.message().empty()) << name;
    if (picture) {
      EXPECT_LE(std::max(picture->size.width, picture->size.height), 300) << name;
    }
  }
  EXPECT_EQ(ReasonOf(Job(Pages(1))), "");
}

// At any moment: the next question is answered.
TEST_F(PageStoreTest, SurvivesTheEndOfItsPrograms) {
  const fs::path pages = Pages(3);
  int lost = 0;
  for (int round = 0; round < 200; ++round) {
    PagesRequest job = NumberedJob(pages);
    job.options["VQStartNumber"] = std::to_string(round + 1);
    if (round % 5 == 0) job.options["page-border"] = round % 2 == 0 ? "single" : "none";
    std::atomic<bool> over = false;
    std::thread killer([&over, round] {
      std::this_thread::sleep_for(std::chrono::milliseconds(round * 7 % 60));
      if (!over)
        for (const int program : SupervisedPrograms()) kill(program, SIGKILL);
    });
    if (!Ask(job, 1)) ++lost;
    over = true;
    killer.join();
  }
  EXPECT_GT(lost, 0);
  EXPECT_EQ(ReasonOf(NumberedJob(pages)), "");
  store_.Clear();
}
