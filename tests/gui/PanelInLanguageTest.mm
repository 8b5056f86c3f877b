#include <gtest/gtest.h>

#include <functional>

#import "host/dialog/Controls.h"
#import "host/dialog/DialogWindow.h"
#import "tests/gui/PanelInLanguage.h"
#import "tests/gui/Screen.h"
#import "tests/support/BuiltBundle.h"
#import "tests/support/ObjCTest.h"
#include "tests/support/TemporaryFolder.h"

namespace {

const CGFloat kTitlePadding = 8;  // between a push button's title and its edges, at least

// Caption -> the control that it stands before.
const std::map<std::string, std::string> kCaptions = {
    {"labelSize", "popUpSize"},
    {"labelDensity", "popUpDensity"},
    {"labelColor", "popUpColor"},
    {"labelStartNumber", "textBoxStartNumber"},
};

// Checks every look of the panel in every language.
void CheckEveryLook(const std::function<void(const PanelMeasurements &)> &check) {
  EXPECT_FALSE(PanelInAllLanguages().empty());
  for (const PanelInLanguage &panel : PanelInAllLanguages()) {
    for (const auto &[look, measurements] : panel.looks) {
      SCOPED_TRACE(panel.language + ", " + look);
      check(measurements);
    }
  }
}

// Checks every text of every look in every language.
void CheckEveryText(
    const std::function<void(const std::string &, const ControlMeasurements &)> &check) {
  CheckEveryLook([&check](const PanelMeasurements &look) {
    for (const auto &[outlet, control] : look) {
      if (!control.text.empty()) check(outlet, control);
    }
  });
}

NSString *LocalizedString(const std::string &language, NSString *key) {
  NSString *table = [BuiltBundle() pathForResource:@"Localizable"
                                            ofType:@"strings"
                                       inDirectory:nil
                                   forLocalization:String(language)];
  NSString *strings = [NSString stringWithContentsOfFile:table
                                                encoding:NSUnicodeStringEncoding
                                                   error:nullptr];
  return [[strings propertyListFromStringsFileFormat] objectForKey:key];
}

// All languages, one picture beside the other, each with its code.
NSView *ContactSheet(const std::string &look) {
  const std::vector<PanelInLanguage> &panels = PanelInAllLanguages();
  const NSSize cell = panels.front().looks.at(look).at("view").frame.size;
  const int columns = 3;
  const int count = static_cast<int>(panels.size());
  const int rows = (count + columns - 1) / columns;
  NSView *sheet = [[[FlippedView alloc]
      initWithFrame:NSMakeRect(0, 0, cell.width * columns, cell.height * rows)] autorelease];
  int number = 0;
  for (const PanelInLanguage &panel : panels) {
    const int column = number % columns;
    const int row = number / columns;
    ++number;
    const NSPoint corner = NSMakePoint(cell.width * column, cell.height * row);
    NSImageView *picture = [[[NSImageView alloc]
        initWithFrame:NSMakeRect(corner.x, corner.y, cell.width, cell.height)] autorelease];
    NSString *path = String(panel.PicturePath(look));
    [picture setImage:[[[NSImage alloc] initWithContentsOfFile:path] autorelease]];
    [sheet addSubview:picture];
    NSTextField *code = Label(String(panel.language));
    [code setFont:[NSFont boldSystemFontOfSize:13]];
    [code setFrame:NSMakeRect(corner.x + 18, corner.y + 18, 100, kLineHeight)];
    [sheet addSubview:code];
  }
  return sheet;
}

}  // namespace

OBJC_TEST(PanelInEveryLanguage, ThePanelSpeaksEachOfThem) {
  for (const PanelInLanguage &panel : PanelInAllLanguages()) {
    SCOPED_TRACE(panel.language);
    const PanelMeasurements &look = panel.looks.at("on");
    EXPECT_EQUAL_OBJECTS(LocalizedString(panel.language, @"RestoreDefaults"),
                         String(look.at("defaultButton").text));
    EXPECT_EQUAL_OBJECTS(LocalizedString(panel.language, @"EnableFunction"),
                         String(look.at("functionValid").text));
  }
}

OBJC_TEST(PanelInEveryLanguage, EveryTextFitsItsControl) {
  CheckEveryText([](const std::string &outlet, const ControlMeasurements &control) {
    EXPECT_LE(control.wanted_width, NSWidth(control.frame)) << outlet << ": " << control.text;
    EXPECT_TRUE(NSContainsRect(control.frame, control.text_area))
        << outlet << ": " << control.text << [NSStringFromRect(control.text_area) UTF8String];
  });
}

OBJC_TEST(PanelInEveryLanguage, TheButtonsTitleKeepsClearOfItsEdges) {
  CheckEveryLook([](const PanelMeasurements &look) {
    const ControlMeasurements &button = look.at("defaultButton");
    EXPECT_GE(NSMinX(button.text_area), NSMinX(button.frame) + kTitlePadding) << button.text;
    EXPECT_LE(NSMaxX(button.text_area), NSMaxX(button.frame) - kTitlePadding) << button.text;
  });
}

OBJC_TEST(PanelInEveryLanguage, NoTwoControlsOverlap) {
  CheckEveryLook([](const PanelMeasurements &look) {
    for (const auto &[first, one] : look) {
      for (const auto &[second, other] : look) {
        if (first == "view" || second == "view" || first >= second) continue;
        EXPECT_FALSE(NSIntersectsRect(one.frame, other.frame)) << first << " and " << second;
        EXPECT_FALSE(NSIntersectsRect(one.text_area, other.text_area))
            << one.text << " and " << other.text;
      }
    }
  });
}

OBJC_TEST(PanelInEveryLanguage, EverythingLiesInsideTheView) {
  CheckEveryLook([](const PanelMeasurements &look) {
    for (const auto &[outlet, control] : look) {
      EXPECT_TRUE(NSContainsRect(look.at("view").frame, control.frame)) << outlet;
    }
  });
}

OBJC_TEST(PanelInEveryLanguage, CaptionsEndAtOneLineShortlyBeforeTheirControls) {
  CheckEveryLook([](const PanelMeasurements &look) {
    const CGFloat end = NSMaxX(look.at("labelSize").text_area);
    for (const auto &[caption, control] : kCaptions) {
      EXPECT_EQ(end, NSMaxX(look.at(caption).text_area)) << caption;
      const CGFloat gap = NSMinX(look.at(control).frame) - end;
      EXPECT_GE(gap, 4) << caption;
      EXPECT_LE(gap, 12) << caption;
    }
  });
}

// Characters that no font has all look alike: without a font, the Chinese of both scripts.
OBJC_TEST(PanelInEveryLanguage, NoTwoLookAlike) {
  for (const char *look : {"on", "off"}) {
    std::map<std::string, std::string> languages;
    for (const PanelInLanguage &panel : PanelInAllLanguages()) {
      const std::string picture = ContentOf(panel.PicturePath(look));
      EXPECT_FALSE(picture.empty()) << panel.language << ", " << look;
      const auto [same, is_new] = languages.emplace(picture, panel.language);
      EXPECT_TRUE(is_new) << panel.language << " and " << same->second << ", " << look;
    }
    NSView *sheet = ContactSheet(look);
    DialogWindow *window = [[[DialogWindow alloc] initWithTitle:@"" view:sheet
                                                      resizable:NO] autorelease];
    KeepPicture(sheet, std::string("languages-") + look);
    [window setContentView:nil];
  }
}
