// The documents of a job in the dialog, worked with keys and the mouse.

#include <gmock/gmock.h>

#import "host/dialog/DocumentsView.h"
#import "tests/gui/DialogOnScreen.h"
#include "tests/support/Documents.h"
#import "tests/support/ObjCTest.h"

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

// The dialog with the documents a.ps, b.ps and c.ps, which say so, and its panel of documents.
class Documents {
 public:
  Documents() : screen_(Options()) {
    screen_.AwaitReady();
    screen_.ShowPanel(@"Documents");
  }

  DialogOnScreen &screen() { return screen_; }
  DocumentsView *view() { return (DocumentsView *)[screen_.view() panelView]; }
  NSTableView *table() { return [view() table]; }
  const TemporaryFolder &folder() const { return folder_; }

  void Focus(NSView *one) { [screen_.dialog().window() makeFirstResponder:one]; }
  NSResponder *focus() { return [screen_.dialog().window() firstResponder]; }
  std::string title() { return [[screen_.dialog().window() title] UTF8String]; }

  std::vector<std::string> Rows() {
    std::vector<std::string> rows;
    NSTableColumn *column = [[table() tableColumns] objectAtIndex:0];
    for (NSInteger row = 0; row < [table() numberOfRows]; ++row) {
      id text = [view() tableView:table() objectValueForTableColumn:column row:row];
      rows.push_back([text UTF8String]);
    }
    return rows;
  }

  // Prints, and answers what the server got.
  std::vector<std::string> Printed() {
    PressKeys({"Return"});
    screen_.AwaitEnd();
    return TestServer().DocumentsOf(screen_.dialog().job_number());
  }

 private:
  DialogOptions Options() const {
    return {.document = folder_.Write("a.ps", Document({TextPage("first")})),
            .more_documents = {folder_.Write("b.ps", Document({TextPage("second")})),
                               folder_.Write("c.ps", Document({TextPage("third")}))}};
  }

  TemporaryFolder folder_;
  DialogOnScreen screen_;
};

void Click(NSView *view, NSRect part) { HoldMouse(view, part, 0.05); }

void Click(NSButton *button) { Click(button, [button bounds]); }

}  // namespace

OBJC_TEST(Documents, AreShownInTheirOrderAndPrintedInIt) {
  Documents documents;
  EXPECT_THAT(documents.Rows(), ElementsAre("a.ps", "b.ps", "c.ps"));
  EXPECT_EQ("Print — a.ps and 2 more", documents.title());
  KeepPicture(documents.screen().view(), "panel-documents");
  EXPECT_THAT(documents.Printed(),
              ElementsAre(HasSubstr("first"), HasSubstr("second"), HasSubstr("third")));
}

OBJC_TEST(Documents, AreMovedWithKeysAndPrintedInTheNewOrder) {
  Documents documents;
  PressKeys({"Tab"});
  ASSERT_EQ(documents.table(), documents.focus());
  PressKeys({"Down", "Down", "alt+Up", "alt+Up", "alt+Up"});
  EXPECT_THAT(documents.Rows(), ElementsAre("c.ps", "a.ps", "b.ps"));
  PressKeys({"Down", "alt+Down"});
  EXPECT_THAT(documents.Rows(), ElementsAre("c.ps", "b.ps", "a.ps"));
  EXPECT_EQ(2, [documents.table() selectedRow]) << "the selection goes with the document";
  EXPECT_EQ("Print — c.ps and 2 more", documents.title());
  EXPECT_THAT(documents.Printed(),
              ElementsAre(HasSubstr("third"), HasSubstr("second"), HasSubstr("first")));
  auto job = TestServer().JobAttributes(documents.screen().dialog().job_number());
  EXPECT_EQ("c.ps and 2 more", job["job-name"]);
}

OBJC_TEST(Documents, AreMovedWithTheMouse) {
  Documents documents;
  EXPECT_FALSE([[documents.view() up] isEnabled]);
  Click(documents.table(), [documents.table() rectOfRow:1]);
  EXPECT_TRUE([[documents.view() up] isEnabled]);
  Click([documents.view() up]);
  EXPECT_THAT(documents.Rows(), ElementsAre("b.ps", "a.ps", "c.ps"));
  EXPECT_FALSE([[documents.view() up] isEnabled]);
  Click([documents.view() down]);
  Click([documents.view() down]);
  EXPECT_THAT(documents.Rows(), ElementsAre("a.ps", "c.ps", "b.ps"));
  EXPECT_FALSE([[documents.view() down] isEnabled]);
}

OBJC_TEST(Documents, AreRemovedButForTheLastOne) {
  Documents documents;
  documents.Focus(documents.table());
  PressKeys({"Delete"});
  EXPECT_THAT(documents.Rows(), ElementsAre("b.ps", "c.ps"));
  PressKeys({"Down"});
  Click([documents.view() remove]);
  EXPECT_THAT(documents.Rows(), ElementsAre("b.ps"));
  EXPECT_FALSE([[documents.view() remove] isEnabled]);
  EXPECT_EQ("Print — b.ps", documents.title());
  documents.Focus(documents.table());
  PressKeys({"BackSpace"});
  EXPECT_THAT(documents.Printed(), ElementsAre(HasSubstr("second")));
}

OBJC_TEST(Documents, AButtonThatTurnsGrayGivesTheFocusToTheList) {
  Documents documents;
  documents.Focus([documents.view() down]);
  PressKeys({"space"});
  EXPECT_EQ([documents.view() down], documents.focus());
  PressKeys({"space"});
  EXPECT_FALSE([[documents.view() down] isEnabled]);
  EXPECT_EQ(documents.table(), documents.focus());
}

OBJC_TEST(Documents, AreInTheSummary) {
  Documents documents;
  documents.Focus(documents.table());
  PressKeys({"Delete"});
  documents.screen().ShowPanel(@"Summary");
  EXPECT_THAT(documents.screen().Texts(), HasSubstr("Document:\nb.ps and 1 more\n"));
}

OBJC_TEST(Documents, AreNotAPanelWhereNothingIsPrinted) {
  DialogOnScreen screen({.has_file = false});
  screen.AwaitReady();
  EXPECT_FALSE([[[screen.view() panels] itemTitles] containsObject:@"Documents"]);
}
