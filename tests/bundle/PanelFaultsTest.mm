// Print-settings calls of the panel that fail, each in its turn.

#include <array>
#include <string>

#import "tests/support/BuiltBundle.h"
#include "tests/support/Interposed.h"
#import "tests/support/ObjCTest.h"
#include "tests/support/TestPPD.h"

namespace {

const OSStatus kOutOfScope = -30871;  // the platform's, which print settings here never answer
const std::array<OSStatus, 4> kStatuses = {kPMInvalidParameter, kPMItemIsLocked, kOutOfScope, 1};

NSString *const kKeys[] = {@"VQBackgroundNumbering", @"VQBNSize", @"VQBNDensity", @"VQBNColor",
                           @"VQStartNumber"};

NSDictionary *Settings(NSArray *values) {
  return [NSDictionary dictionaryWithObjects:values
                                     forKeys:[NSArray arrayWithObjects:kKeys count:5]];
}

NSDictionary *Defaults() { return Settings(@[ @"Off", @"Medium", @"Medium", @"Black", @"1" ]); }
NSDictionary *Stored() { return Settings(@[ @"On", @"Small", @"Dark", @"Cyan", @"42" ]); }
NSDictionary *First() { return Settings(@[ @"Off", @"Small", @"Light", @"Green", @"7" ]); }
NSDictionary *Second() { return Settings(@[ @"On", @"Large", @"Dark", @"Blue", @"123" ]); }

NSDictionary *With(NSDictionary *settings, NSString *key, NSString *value) {
  NSMutableDictionary *changed = [NSMutableDictionary dictionaryWithDictionary:settings];
  [changed setValue:value forKey:key];
  return changed;
}

// The key in "get KEY" or "set KEY=VALUE".
NSString *KeyIn(const std::string &call) {
  const std::string key = call.substr(4, call.find('=') - 4);
  return [NSString stringWithUTF8String:key.c_str()];
}

class Panel {
 public:
  explicit Panel(TestHost *host) : panel_(NewPanel(host)) {
    [panel_ panelView];
    [panel_ willShow];
  }

  id<PDEPanel> get() const { return panel_; }
  id Control(NSString *name) const { return Outlet(panel_, name); }

  // Works every control as the user does.
  void Choose(NSDictionary *settings) const {
    id check_box = Control(@"functionValid");
    [check_box setState:[[settings objectForKey:kKeys[0]] isEqual:@"On"]];
    SendActionOf(check_box);
    ChooseItem(@"popUpSize", [settings objectForKey:kKeys[1]]);
    ChooseItem(@"popUpDensity", [settings objectForKey:kKeys[2]]);
    ChooseItem(@"popUpColor", [settings objectForKey:kKeys[3]]);
    const NSInteger number = [[settings objectForKey:kKeys[4]] integerValue];
    id box = Control(@"textBoxStartNumber");
    [box setStringValue:[NSString stringWithFormat:@"%ld", static_cast<long>(number - 1)]];
    // Not through the notification center, which keeps to itself what is raised.
    [[(id)panel_ valueForKey:@"viewController"]
        controlTextDidChange:[NSNotification notificationWithName:NSControlTextDidChangeNotification
                                                           object:box]];
    id stepper = Control(@"stepperStartNumber");
    [stepper setIntegerValue:[stepper integerValue] + 1];
    SendActionOf(stepper);
  }

  void RestoreDefaults() const { SendActionOf(Control(@"defaultButton")); }
  void Save() const { EXPECT_TRUE([panel_ saveValuesAndReturnError:nullptr]); }
  void Restore() const { EXPECT_TRUE([panel_ restoreValuesAndReturnError:nullptr]); }

  // What the controls show, as settings.
  NSDictionary *Shown() const {
    return Settings(@[
      [Control(@"functionValid") state] == NSControlStateValueOn ? @"On" : @"Off",
      [[Control(@"popUpSize") selectedItem] representedObject],
      [[Control(@"popUpDensity") selectedItem] representedObject],
      [[Control(@"popUpColor") selectedItem] representedObject],
      [Control(@"textBoxStartNumber") stringValue]
    ]);
  }

  // The controls show one state of things.
  void ExpectConsistent() const {
    const bool on = [Control(@"functionValid") state] == NSControlStateValueOn;
    for (NSString *name in @[
           @"popUpSize", @"popUpDensity", @"textBoxStartNumber", @"stepperStartNumber",
           @"defaultButton"
         ]) {
      EXPECT_EQ(on, [Control(name) isEnabled]) << [name UTF8String];
    }
    EXPECT_EQ([Control(@"textBoxStartNumber") integerValue],
              [Control(@"stepperStartNumber") integerValue]);
  }

 private:
  static void SendActionOf(id control) {
    [control sendAction:[control action] to:[control target]];
  }

  void ChooseItem(NSString *name, NSString *value) const {
    NSPopUpButton *pop_up = Control(name);
    const NSInteger index = [pop_up indexOfItemWithRepresentedObject:value];
    if (index >= 0) [[pop_up menu] performActionForItemAtIndex:index];
  }

  id<PDEPanel> panel_;
};

struct Printer {
  explicit Printer(const char *device) : ppd(std::string(kSupported) + device) {}
  TestHost *HostWith(NSDictionary *stored) const {
    TestHost *host = [TestHost hostWithPPD:ppd.get()];
    for (NSString *key in stored) [host setValue:[stored objectForKey:key] forSetting:key];
    return host;
  }
  TestPPD ppd;
};

// Everything that a dialog asks of a panel, which in the end has saved the second choices.
Panel WholeLife(TestHost *host) {
  Panel panel(host);
  panel.Choose(First());
  panel.Save();
  panel.Restore();
  EXPECT_NE(0u, [[panel.get() summaryInfo] count]);
  panel.RestoreDefaults();
  panel.Choose(Second());
  panel.Save();
  EXPECT_TRUE([panel.get() shouldPrint]);
  EXPECT_NE(0u, [[panel.get() summaryInfo] count]);
  [panel.get() PPDOptionKeyValueDidChange:@"VQBNColor" ppdChoice:@"Red"];
  panel.Restore();
  EXPECT_EQ(5u, [[panel.get() supportedPPDOptionKeys] count]);
  EXPECT_TRUE([panel.get() shouldHide]);
  return panel;
}

void ExpectToOutliveEachFailure(const Printer &printer, NSDictionary *stored, OSStatus status) {
  int calls = 0;
  NSDictionary *expected = nil;
  @autoreleasepool {
    TestHost *host = printer.HostWith(stored);
    interposed::FailCall(0, 0);
    WholeLife(host);
    calls = interposed::CallsCounted();
    expected = [[host allSettings] retain];
  }
  ASSERT_GT(calls, 30);
  for (int call = 1; call <= calls; ++call) {
    @autoreleasepool {
      TestHost *host = printer.HostWith(stored);
      interposed::FailCall(call, status);
      const Panel panel = WholeLife(host);
      const std::string failed = interposed::FailedCall();
      interposed::FailCall(0, 0);
      ASSERT_NE("", failed);
      SCOPED_TRACE("failed: " + failed + ", call " + std::to_string(call));
      NSString *key = KeyIn(failed);

      EXPECT_EQUAL_OBJECTS(With(expected, key, nil), With([host allSettings], key, nil));
      panel.Restore();
      panel.ExpectConsistent();
      NSString *held = [host valueForSetting:key];
      EXPECT_EQUAL_OBJECTS(held == nil ? [Defaults() objectForKey:key] : held,
                           [panel.Shown() objectForKey:key]);

      panel.Choose(Second());
      panel.Save();
      EXPECT_EQUAL_OBJECTS(expected, [host allSettings]);
      EXPECT_EQUAL_OBJECTS(expected, panel.Shown());
      panel.ExpectConsistent();
    }
  }
  [expected release];
}

}  // namespace

OBJC_TEST(PanelFaults, AWholeLifeStoresWhatWasChosenLast) {
  const Printer printer(kColorDevice);
  TestHost *host = printer.HostWith(Stored());
  const Panel panel = WholeLife(host);
  EXPECT_EQUAL_OBJECTS(Second(), [host allSettings]);
  EXPECT_EQUAL_OBJECTS(Second(), panel.Shown());
  panel.ExpectConsistent();
}

OBJC_TEST(PanelFaults, OneFailingCallTouchesNoSettingButItsOwnAndTheNextChoicesAreKept) {
  const Printer printer(kColorDevice);
  for (const OSStatus status : kStatuses) ExpectToOutliveEachFailure(printer, Stored(), status);
}

OBJC_TEST(PanelFaults, OneFailingCallIsOutlivedByAJobWithoutSettings) {
  ExpectToOutliveEachFailure(Printer(kColorDevice), @{}, kOutOfScope);
}

OBJC_TEST(PanelFaults, OneFailingCallIsOutlivedOnAPrinterWithoutColor) {
  ExpectToOutliveEachFailure(Printer(kMonoDevice), Stored(), kPMItemIsLocked);
}

OBJC_TEST(PanelFaults, WhatASaveCouldNotWriteTheNextSaveWrites) {
  const Printer printer(kColorDevice);
  for (int call = 1; call <= 5; ++call) {
    TestHost *host = printer.HostWith(Stored());
    const Panel panel(host);
    panel.Choose(Second());
    interposed::FailCall(call, kPMItemIsLocked);
    panel.Save();
    ASSERT_EQ(5, interposed::CallsCounted());
    interposed::FailCall(0, 0);
    NSString *key = kKeys[call - 1];
    EXPECT_EQUAL_OBJECTS(With(Second(), key, [Stored() objectForKey:key]), [host allSettings]);
    EXPECT_EQUAL_OBJECTS(Second(), panel.Shown());
    panel.Save();
    EXPECT_EQUAL_OBJECTS(Second(), [host allSettings]);
  }
}

OBJC_TEST(PanelFaults, WhatARestoreCouldNotReadIsShownAsTheDefaultUntilTheNextRestore) {
  const Printer printer(kColorDevice);
  for (int call = 1; call <= 5; ++call) {
    TestHost *host = printer.HostWith(Stored());
    const Panel panel(host);
    interposed::FailCall(call, kPMInvalidParameter);
    panel.Restore();
    ASSERT_EQ(5, interposed::CallsCounted());
    interposed::FailCall(0, 0);
    NSString *key = kKeys[call - 1];
    EXPECT_EQUAL_OBJECTS(With(Stored(), key, [Defaults() objectForKey:key]), panel.Shown());
    EXPECT_EQUAL_OBJECTS(Stored(), [host allSettings]);
    panel.ExpectConsistent();
    panel.Restore();
    EXPECT_EQUAL_OBJECTS(Stored(), panel.Shown());
  }
}

// No failure is put in its way here: the settings refuse by themselves.
OBJC_TEST(PanelFaults, ALockedSettingStaysAndTheOthersAreSaved) {
  const Printer printer(kColorDevice);
  for (NSString *key : kKeys) {
    TestHost *host = printer.HostWith(Stored());
    NSString *locked = [Stored() objectForKey:key];
    PMPrintSettingsSetValue(host->settings, (CFStringRef)key, (CFTypeRef)locked, true);
    const Panel panel = WholeLife(host);
    EXPECT_EQUAL_OBJECTS(With(Second(), key, locked), [host allSettings]);
    EXPECT_EQUAL_OBJECTS([host allSettings], panel.Shown());
    panel.ExpectConsistent();
  }
}
