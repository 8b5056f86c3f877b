// Files that another program drops onto the dialog.

#include <gmock/gmock.h>

#import "tests/gui/DialogOnScreen.h"
#include "tests/support/Documents.h"
#import "tests/support/ObjCTest.h"

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

// The dialog with one document, and others in the folder to drop.
class Drop {
 public:
  explicit Drop(DialogOptions options = {}) : screen_(With(std::move(options))) {
    screen_.AwaitReady();
  }

  DialogOnScreen &screen() { return screen_; }
  std::string title() { return [[screen_.dialog().window() title] UTF8String]; }
  const fs::path &folder() const { return folder_.path(); }
  fs::path File(const std::string &name, const std::string &text) const {
    return folder_.Write(name, Document({TextPage(text)}));
  }

  // Drags a list over the middle of the printers and lets go of it; what has come of it.
  std::string Do(const std::string &list, const std::string &options = "") {
    return DoAt([screen_.view() printers], list, options);
  }
  std::string DoAt(NSView *view, const std::string &list, const std::string &options = "") {
    NSWindow *window = [view window];
    const NSRect bounds = [view bounds];
    NSPoint point = NSMakePoint(NSMidX(bounds), NSMidY(bounds));
    point = [window convertBaseToScreen:[view convertPoint:point toView:nil]];
    const CGFloat y = [[window screen] frame].size.height - point.y;
    const fs::path answer = folder() / "answer";
    RunOnScreen({"sh", "-c",
                 std::string(DRAG_SOURCE " ") + options + ' ' + std::to_string(int(point.x)) + ' ' +
                     std::to_string(int(y)) + " \"$1\" >\"$2\"",
                 "sh", list, answer});
    std::string text = ContentOf(answer);
    return text.empty() ? text : text.substr(0, text.size() - 1);
  }

  std::vector<std::string> Printed() {
    PressKeys({"Return"});
    screen_.AwaitEnd();
    return TestServer().DocumentsOf(screen_.dialog().job_number());
  }

 private:
  DialogOptions With(DialogOptions options) const {
    options.document = File("a.ps", "first");
    return options;
  }

  TemporaryFolder folder_;
  DialogOnScreen screen_;
};

}  // namespace

OBJC_TEST(Drop, FilesAreAddedAtTheEndAndPrinted) {
  Drop drop;
  const fs::path b = drop.File("größe 100%.ps", "second");
  const fs::path c = drop.File("c.ps", "third");
  EXPECT_EQ("taken", drop.Do("file://" + drop.folder().string() +
                             "/gr%C3%B6%C3%9Fe%20100%25.ps\r\nfile://" + c.string() + "\r\n"));
  EXPECT_EQ("Print — a.ps and 2 more", drop.title());
  EXPECT_THAT(drop.Printed(),
              ElementsAre(HasSubstr("first"), HasSubstr("second"), HasSubstr("third")));
}

OBJC_TEST(Drop, EveryPartOfTheWindowTakesThem) {
  Drop drop;
  drop.screen().ShowPanel(@"Documents");
  const fs::path b = drop.File("b.ps", "second");
  EXPECT_EQ("taken", drop.DoAt([drop.screen().view() print], "file://" + b.string()));
  EXPECT_EQ("taken", drop.DoAt([drop.screen().view() panelView], "file://" + b.string()));
  EXPECT_EQ("Print — a.ps and 2 more", drop.title());
}

OBJC_TEST(Drop, WhatCannotBePrintedIsNamedAndTheRestAdded) {
  Drop drop;
  const fs::path b = drop.File("b.ps", "second");
  const std::string folder = drop.folder().string();
  EXPECT_EQ("taken", drop.Do("file://" + folder + "\nfile://" + b.string() + "\nfile://" + folder +
                             "/none.ps\nhttps://nowhere.example/c.ps\n"));
  for (const std::string &note :
       {"Cannot print " + folder + ": it is a folder.",
        "Cannot print " + folder + "/none.ps: no such file.",
        std::string("Cannot print https://nowhere.example/c.ps: not a file of this computer.")}) {
    EXPECT_THAT(drop.screen().Texts(), HasSubstr(note));
  }
  KeepPicture(drop.screen().view(), "dropped");
  EXPECT_THAT(drop.Printed(), ElementsAre(HasSubstr("first"), HasSubstr("second")));
}

OBJC_TEST(Drop, TheListOfManyFilesComesInPieces) {
  Drop drop;
  const fs::path b = drop.File("b.ps", "second");
  const fs::path c = drop.File("c.ps", "third");
  EXPECT_EQ("taken",
            drop.Do("file://" + b.string() + "\r\nfile://" + c.string() + "\r\n", "--pieces"));
  EXPECT_EQ("Print — a.ps and 2 more", drop.title());
}

OBJC_TEST(Drop, FilesAreFoundAmongManyTypes) {
  Drop drop;
  const fs::path b = drop.File("b.ps", "second");
  EXPECT_EQ("taken", drop.Do("file://" + b.string(),
                             "--type text/html --type UTF8_STRING --type text/plain --type "
                             "text/uri-list"));
  EXPECT_EQ("Print — a.ps and 1 more", drop.title());
}

OBJC_TEST(Drop, WhatIsNoFileIsRefused) {
  Drop drop;
  EXPECT_EQ("refused", drop.Do("Hello", "--type UTF8_STRING --type text/plain"));
  EXPECT_EQ("Print — a.ps", drop.title());
}

OBJC_TEST(Drop, WhatIsDraggedOnIsNotDropped) {
  Drop drop;
  const fs::path b = drop.File("b.ps", "second");
  EXPECT_EQ("left", drop.Do("file://" + b.string(), "--leave"));
  EXPECT_EQ("Print — a.ps", drop.title());
  EXPECT_EQ("taken", drop.Do("file://" + b.string()));
}

OBJC_TEST(Drop, AJobOnItsWayTakesNone) {
  Drop drop({.waits = true});
  const fs::path b = drop.File("b.ps", "second");
  TestServer().StopQueue("Color", "for a moment");
  PressKeys({"Return"});
  HandleEventsUntil(
      [&drop] { return [[[drop.screen().view() cancel] title] isEqualToString:@"Close"]; });
  EXPECT_EQ("refused", drop.Do("file://" + b.string()));
  EXPECT_EQ("Print — a.ps", drop.title());
  TestServer().StartQueue("Color");
  drop.screen().AwaitEnd();
}

OBJC_TEST(Drop, SettingsAloneTakeNone) {
  Drop drop({.has_file = false});
  EXPECT_EQ("unaware", drop.Do("file://" + drop.File("b.ps", "second").string()));
}
