// The dialog in other languages than English.

#include <initializer_list>

#include "host/base/Localized.h"
#import "host/dialog/Controls.h"
#import "host/dialog/Prompt.h"
#import "host/dialog/SummaryView.h"
#import "tests/gui/DialogOnScreen.h"
#include "tests/support/NumberingPPD.h"
#import "tests/support/ObjCTest.h"

namespace {

// All texts of the dialog, 1.6 times as long.
Translation LongTexts() {
  NSString *table =
      [NSString stringWithContentsOfFile:@SOURCE_DIRECTORY "/host/strings/en.lproj/pdeprint.strings"
                                encoding:NSUTF8StringEncoding
                                   error:nullptr];
  Translation texts;
  for (NSString *english in [table propertyListFromStringsFileFormat]) {
    NSString *more = [english substringToIndex:(3 * [english length] + 4) / 5];
    // Its places and line ends are those of the beginning.
    for (NSString *taken in @[ @"%", @"\n" ]) {
      more = [more stringByReplacingOccurrencesOfString:taken withString:@" "];
    }
    const bool is_sign = [english length] == 3 && [english hasPrefix:@"%1"];  // "%1:" and "%1."
    texts[Text(english)] = Text(is_sign ? english : [english stringByAppendingString:more]);
  }
  EXPECT_GT(texts.size(), 200U);
  return texts;
}

bool IsCut(NSView *view) {
  const NSSize size = [view frame].size;
  if ([view isKindOfClass:[NSButton class]])
    return [[(NSButton *)view cell] cellSize].width > size.width;
  if (![view isKindOfClass:[NSTextField class]] || [(NSTextField *)view isEditable]) return false;
  return HeightOfText((NSTextField *)view, size.width) > size.height + 1;
}

// The texts that do not fit where they stand, or stand outside of the view around them.
std::string CutTexts(NSView *view, NSView *left_out = nil) {
  std::string texts;
  for (NSView *subview in [view subviews]) {
    if ([subview isHidden] || subview == left_out) continue;
    const bool is_text = [subview isKindOfClass:[NSControl class]];
    if (is_text && (IsCut(subview) || !NSContainsRect([view bounds], [subview frame]))) {
      NSString *text = [subview isKindOfClass:[NSButton class]]
                           ? [(NSButton *)subview title]
                           : [(NSControl *)subview stringValue];
      texts += Text(text) + '\n';
    }
    texts += CutTexts(subview, left_out);
  }
  return texts;
}

}  // namespace

OBJC_TEST(DialogInOtherLanguages, ShowsTheTextsOfTheTranslation) {
  const Translation german = {{"Copies", "Exemplare"},
                              {"%1:", "%1 :"},
                              {"Summary", "Zusammenfassung"},
                              {"Print — %1", "%1 drucken"},
                              {"Default Settings", "Standard"}};
  const TextsOf texts(&german);
  DialogOnScreen screen;
  screen.AwaitReady();
  screen.AwaitText("Exemplare :");
  EXPECT_EQUAL_OBJECTS(@"Zusammenfassung", [[[screen.view() panels] lastItem] title]);
  EXPECT_EQUAL_OBJECTS(@"Standard", [[screen.view() presets] titleOfSelectedItem]);
  EXPECT_EQUAL_OBJECTS(@"page.ps drucken", [screen.dialog().window() title]);
}

OBJC_TEST(DialogInOtherLanguages, ASentenceEndsAsTheLanguageWritesIt) {
  const Translation japanese = {{"%1.", "%1。"}};
  const TextsOf texts(&japanese);
  EXPECT_EQUAL_OBJECTS(@"Something is wrong。", Sentence("something is wrong"));
}

OBJC_TEST(DialogInOtherLanguages, PresetsOfEveryListAreAppliedByTheirTitles) {
  const Translation german = {{"Default Settings", "Standard"}, {"Last Used", "Zuletzt"}};
  const TextsOf texts(&german);
  DialogOnScreen screen({.last_used = {{"copies", "7"}}});
  screen.AwaitReady();
  screen.Choose([screen.view() presets], @"Zuletzt");
  HandleEventsUntilSettled();
  EXPECT_EQUAL_OBJECTS(@"7", [[screen.view() copies] stringValue]);
  EXPECT_EQUAL_OBJECTS(@"Zuletzt", [[screen.view() presets] titleOfSelectedItem]);
  screen.Choose([screen.view() presets], @"Standard");
  HandleEventsUntilSettled();
  EXPECT_EQUAL_OBJECTS(@"1", [[screen.view() copies] stringValue]);
}

OBJC_TEST(DialogInOtherLanguages, NoPresetIsNamedLikeAnItemOfEveryList) {
  const Translation german = {{"Default Settings", "Standard"}, {"Last Used", "z"}};
  const TextsOf texts(&german);
  DialogOnScreen screen;
  screen.AwaitReady();
  const AnswerToQuestion answer({"End", "ctrl+a", "z", "Return", "Escape"});
  screen.Choose([screen.view() presets], @"Save Settings as Preset…");
  HandleEventsUntil([] { return [NSApp modalWindow] == nil; });
  HandleEventsUntilSettled();
  EXPECT_FALSE(screen.dialog().HasEnded());
  EXPECT_FALSE(screen.store().Find("z"));
}

OBJC_TEST(DialogInOtherLanguages, LongTextsAreNotCut) {
  const Translation long_texts = LongTexts();
  const TextsOf texts(&long_texts);
  DialogOnScreen screen({.queue = "Stopped", .waits = true});
  screen.AwaitReady();
  EXPECT_EQ("", CutTexts(screen.view(), [screen.view() panelView]));  // the extension's
  KeepPicture(screen.view(), "long-texts");
  screen.ShowPanel([[[screen.view() panels] lastItem] title]);
  ASSERT_TRUE([[screen.view() panelView] isKindOfClass:[SummaryView class]]);
  EXPECT_EQ("", CutTexts(screen.view()));
  KeepPicture(screen.view(), "long-texts-summary");
  PressKeys({"Return"});
  screen.AwaitText("Printing Stopped-");
  EXPECT_EQ("", CutTexts(screen.view()));
  KeepPicture(screen.view(), "long-texts-waiting");
  PressKeys({"Escape"});
  screen.AwaitEnd();
  TestServer().Run({"cancel", "Stopped-" + std::to_string(screen.dialog().job_number())});
}

OBJC_TEST(DialogInOtherLanguages, LongTextsWithoutAPrinterAreNotCut) {
  const Translation long_texts = LongTexts();
  const TextsOf texts(&long_texts);
  DialogOnScreen screen({.queue = "Absent"});
  screen.AwaitText("choose another one");
  EXPECT_EQ("", CutTexts(screen.view()));
  KeepPicture(screen.view(), "long-texts-failure");
}

OBJC_TEST(DialogInOtherLanguages, LongTextsOfAPrinterFromAFileAreNotCut) {
  const Translation long_texts = LongTexts();
  const TextsOf texts(&long_texts);
  const TemporaryFolder folder;
  Expected<Extensions> extensions = Extensions::Load(kBuiltBundle);
  PrintDialogJob job;
  job.ppd = std::move(*PPDFile::Open(folder.Write("color.ppd", NumberingPPDText(true))));
  PrintDialog dialog(std::move(job), *extensions, PresetStore(folder.path(), {}));
  dialog.Open();
  HandleEventsUntilSettled();
  EXPECT_EQ("", CutTexts(dialog.view(), [dialog.view() panelView]));
  KeepPicture(dialog.view(), "long-texts-file");
}

OBJC_TEST(DialogInOtherLanguages, LongTextsOfQuestionsAreNotCut) {
  std::string cut = "no question was asked";
  const Poller looks([&cut] {
    NSView *view = [[NSApp modalWindow] contentView];
    if (view == nil) return false;
    cut = CutTexts(view);
    KeepPicture(view, "long-texts-question");
    [NSApp stopModal];
    return true;
  });
  const std::string words = "some words that are long ";
  Ask(words + words + words + words, words + words, words);
  EXPECT_EQ("", cut);
}
