// The dialog's own panels in all languages.

#include "host/base/Localized.h"
#import "host/dialog/Controls.h"
#import "host/dialog/RowsView.h"
#include "host/session/panels/JobPanels.h"
#import "tests/gui/DialogOnScreen.h"
#include "tests/host/session/panels/RowsOfJob.h"
#import "tests/support/ObjCTest.h"

namespace fs = std::filesystem;

namespace {

Translation TableIn(const fs::path &folder) {
  NSString *path = String((folder / "pdeprint.strings").string());
  NSString *table = [NSString stringWithContentsOfFile:path
                                              encoding:NSUTF8StringEncoding
                                                 error:nullptr];
  Translation texts;
  NSDictionary *entries = [table propertyListFromStringsFileFormat];
  for (NSString *english in entries) {
    texts[Text(english)] = Text([entries objectForKey:english]);
  }
  return texts;
}

std::vector<fs::path> Languages() {
  std::vector<fs::path> folders;
  for (const auto &entry : fs::directory_iterator(SOURCE_DIRECTORY "/host/strings")) {
    folders.push_back(entry.path());
  }
  return folders;
}

bool IsCut(NSTextField *label) {
  return ![label isEditable] && ![label isHidden] && WidthOfText(label) > [label frame].size.width;
}

// The texts that are wider than their place.
std::string CutTexts(NSView *panel) {
  std::string texts;
  for (NSView *view in [panel subviews]) {
    if ([view isKindOfClass:[NSPopUpButton class]]) {
      NSPopUpButton *popUp = (NSPopUpButton *)view;
      for (NSInteger at = 0; at < [popUp numberOfItems]; ++at) {
        [popUp selectItemAtIndex:at];
        if ([[popUp cell] cellSize].width <= [popUp frame].size.width) continue;
        texts += Text([popUp titleOfSelectedItem]) + '\n';
      }
    } else if ([view isKindOfClass:[NSTextField class]] && IsCut((NSTextField *)view)) {
      texts += Text([(NSTextField *)view stringValue]) + '\n';
    }
  }
  return texts;
}

PPDFile WithEverything() {
  return PPDWithText(NumberingPPDText(
      true, "*HWMargins: 0 0 0 0\n*VariablePaperSize: True\n"
            "*NonUIOrderDependency: 10 AnySetup *CustomPageSize\n*CustomPageSize True: \"\"\n"
            "*ParamCustomPageSize Width: 1 points 36 1000\n"
            "*ParamCustomPageSize Height: 2 points 36 1000\n"));
}

void KeepPanels(const std::string &language) {
  const Translation table =
      TableIn(fs::path(SOURCE_DIRECTORY "/host/strings") / (language + ".lproj"));
  const TextsOf texts(&table);
  DialogOnScreen screen;
  screen.AwaitReady();
  for (const JobPanel &panel : JobPanels()) {
    if ([[screen.view() panels] indexOfItemWithRepresentedObject:String(panel.kind)] < 0) continue;
    screen.ShowPanel(String(panel.title));
    KeepPicture(screen.view(), panel.kind.substr(panel.kind.find(' ') + 1) + "-" + language);
  }
}

}  // namespace

OBJC_TEST(JobPanelsInLanguages, NoTextIsCutInAnyLanguage) {
  OfferedOptions offered = kOffered;
  for (const char *option : {"job-account-id", "job-accounting-user-id", "job-billing"}) {
    offered[option] = {};
  }
  offered["job-sheets"] = {"none",   "standard",  "classified",  "confidential",
                           "secret", "topsecret", "unclassified"};
  offered["job-hold-until"] = {"no-hold", "indefinite",   "day-time",    "evening",
                               "night",   "second-shift", "third-shift", "weekend"};
  const std::vector<fs::path> languages = Languages();
  EXPECT_EQ(30u, languages.size());
  for (const fs::path &language : languages) {
    @autoreleasepool {
      const Translation table = TableIn(language);
      const TextsOf texts(&table);
      RowsOfJob job(LayoutRows, WithEverything(), offered);
      for (const JobPanel &panel : JobPanels()) {
        if (panel.rows == PrinterOptionRows) continue;  // the words are the printer's
        RowsView *view = [[[RowsView alloc] initWithRows:panel.RowsFor(job.session)
                                               callbacks:{}] autorelease];
        [view showJob:job.Job() besides:SIZE_MAX];
        EXPECT_EQ("", CutTexts(view)) << language.filename() << ", " << panel.kind;
      }
    }
  }
}

OBJC_TEST(JobPanelsInLanguages, ShowThemselves) {
  for (const char *language : {"de", "ar"}) KeepPanels(language);
}
