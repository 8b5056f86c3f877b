// "Save as PDF…" among the printers.

#include <gmock/gmock.h>

#include <fstream>

#import "tests/preview/SeenPages.h"
#import "tests/support/ObjCTest.h"
#include "tests/support/RawPdf.h"

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::StartsWith;

namespace {

void Save(const std::vector<std::string> &keys, int questions = 1) {
  const AnswerToQuestion answer(keys, questions);
  PressKeys({"Return"});
}

// In the home folder; the name of the document is proposed.
fs::path File(const std::string &content = "") {
  const fs::path file = TestServer().home() / "document.pdf";
  fs::remove(file);
  if (!content.empty()) std::ofstream(file) << content;
  return file;
}

void ChooseFile(SeenPages &pages) {
  pages.screen().Choose([pages.screen().view() printers], @"Save as PDF…");
  pages.screen().AwaitText("The pages become a file; nothing is printed");
  pages.screen().AwaitReady();
}

}  // namespace

OBJC_TEST(SaveAsPdf, KeepsTheNumberedPages) {
  const fs::path file = File();
  SeenPages pages;
  ChooseFile(pages);
  pages.SwitchOnInRed();
  KeepPicture(pages.screen().view(), "save-as-pdf");
  Save({"Return"});
  pages.screen().AwaitEnd();
  EXPECT_THAT(pages.screen().dialog().saved(), ElementsAre(file));
  EXPECT_EQ(TextOfPdf(ContentOf(file)), "Page 1 1 Page 2 2 Page 3 3");
  EXPECT_EQ(pages.screen().dialog().job_number(), 0);
}

OBJC_TEST(SaveAsPdf, AsksBeforeItReplacesAFile) {
  const fs::path file = File("mine");
  SeenPages pages;
  ChooseFile(pages);
  Save({"Return", "Tab", "space"});
  pages.screen().AwaitEnd();
  EXPECT_THAT(ContentOf(file), StartsWith("%PDF-"));
}

OBJC_TEST(SaveAsPdf, KeepsAFileThatIsThereUnlessToldOtherwise) {
  const fs::path file = File("mine");
  SeenPages pages;
  ChooseFile(pages);
  Save({"Return", "Return", "Escape"});
  HandleEventsUntil([] { return [NSApp modalWindow] == nil; });
  HandleEventsUntilSettled();
  EXPECT_FALSE(pages.screen().dialog().HasEnded());
  EXPECT_EQ("mine", ContentOf(file));
}

OBJC_TEST(SaveAsPdf, CanBeCanceled) {
  const fs::path file = File();
  SeenPages pages;
  ChooseFile(pages);
  Save({"Escape"});
  HandleEventsUntilSettled();
  EXPECT_FALSE(pages.screen().dialog().HasEnded());
  EXPECT_FALSE(fs::exists(file));
}

OBJC_TEST(SaveAsPdf, NeedsNoPrintServer) {
  const fs::path file = TestServer().home() / "page.pdf";
  fs::remove(file);
  DialogOnScreen screen({.server = "/nowhere/cups.sock"});
  HandleEventsUntil([&screen] { return [[screen.view() printers] numberOfItems] == 1; });
  HandleEventsUntilSettled();
  screen.Choose([screen.view() printers], @"Save as PDF…");
  screen.AwaitReady();
  Save({"Return"});
  screen.AwaitEnd();
  EXPECT_TRUE(fs::exists(file));
}
