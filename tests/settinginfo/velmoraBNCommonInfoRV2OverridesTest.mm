// Whoever replaces a published operation of the common information changes what goes through it.

#import <objc/runtime.h>

#include <cstdarg>

#include "platform/Implementation.h"
#import "tests/support/Job.h"
#import "tests/support/ObjCTest.h"

namespace {

Strings events;

// While it lives, formats of strings and questions for PPD attributes are noted, in their order.
class RecordedFormats {
 public:
  RecordedFormats()
      : method_(class_getClassMethod([NSString class], @selector(stringWithFormat:))) {
    original_ = method_setImplementation(method_, ImplementationBy(Format));
    events.clear();
  }
  ~RecordedFormats() { method_setImplementation(method_, original_); }

 private:
  static NSString *Format(id, SEL, NSString *format, ...) {
    va_list arguments;
    va_start(arguments, format);
    NSString *text = [[[NSString alloc] initWithFormat:format arguments:arguments] autorelease];
    va_end(arguments);
    events.push_back(std::string([format UTF8String]) + " " + [text UTF8String]);
    return text;
  }

  Method method_;
  IMP original_;
};

}  // namespace

/// Setting info that notes each key path it is asked for.
@interface AskedDictionary : NSDictionary {
 @public
  NSDictionary *entries;
}
@end

@implementation AskedDictionary

- (void)dealloc {
  [entries release];
  [super dealloc];
}

- (NSUInteger)count {
  return [entries count];
}

- (id)objectForKey:(id)key {
  return [entries objectForKey:key];
}

- (NSEnumerator *)keyEnumerator {
  return [entries keyEnumerator];
}

- (id)valueForKeyPath:(NSString *)keyPath {
  events.push_back(std::string("path ") + [keyPath UTF8String]);
  return [super valueForKeyPath:keyPath];
}

@end

/// Common information with a setting info of its own, and a printer of its own mind.
@interface OtherCommonInfo : velmoraBNCommonInfoRV2
@end

@implementation OtherCommonInfo

- (NSDictionary *)settingInfoDictionary {
  AskedDictionary *info = [[[AskedDictionary alloc] init] autorelease];
  info->entries = [@{
    @"DefaultValue" : @{@"Size" : @"Huge", @"Color" : @"Pink"},
    @"PopUpItem" : @{@"Color" : @[ @"Pink", @"Gold" ]},
    @"TicketKey" : @{@"Valid" : @"OtherKey"},
    @"ID" : @{@"PanelKind" : @"OtherKind"},
    @"Wording" : @"no section",
  } retain];
  return info;
}

- (NSString *)BNCIPpdFindAttribute:(NSString *)keyword {
  events.push_back(std::string("attribute ") + [keyword UTF8String]);
  return [keyword isEqual:@"ColorDevice"] ? @"True" : nil;
}

@end

@interface MonochromeCommonInfo : velmoraBNCommonInfoRV2
@end

@implementation MonochromeCommonInfo

- (BOOL)isColorPrinter {
  events.push_back("color?");
  return NO;
}

@end

OBJC_TEST(CommonInfoOverrides, EveryLookupGoesToTheSettingInfoOfTheObject) {
  Job job(kMonoDevice);
  OtherCommonInfo *info = job.InfoOf<OtherCommonInfo>();
  EXPECT_EQUAL_OBJECTS(@"Huge", [info defaultSize]);
  EXPECT_EQUAL_OBJECTS(@"OtherKey", [info ticketKeyValid]);
  EXPECT_EQUAL_OBJECTS(@"OtherKind", [info panelKindID]);
  EXPECT_EQUAL_OBJECTS(nil, [info defaultDensity]);
}

OBJC_TEST(CommonInfoOverrides, ALookupIsOneKeyPathAskedOfTheSettingInfo) {
  Job job(kMonoDevice);
  OtherCommonInfo *info = job.InfoOf<OtherCommonInfo>();
  events.clear();
  [info defaultSize];
  [info panelKindID];
  [info popUpItemsForSize];
  EXPECT_EQ((Strings{"path DefaultValue.Size", "path ID.PanelKind", "path PopUpItem.Size"}),
            events);
}

OBJC_TEST(CommonInfoOverrides, ASectionThatIsNoDictionaryIsNotAsked) {
  Job job(kMonoDevice);
  OtherCommonInfo *info = job.InfoOf<OtherCommonInfo>();
  events.clear();
  EXPECT_EQUAL_OBJECTS(nil, [info prefixForLocalizeSize]);
  EXPECT_EQ(Strings{}, events);
}

OBJC_TEST(CommonInfoOverrides, ColorIsWhatTheLookupOfTheAttributeSays) {
  Job job(kMonoDevice);
  OtherCommonInfo *info = job.InfoOf<OtherCommonInfo>();
  EXPECT_EQ(YES, [info isColorPrinter]);
  EXPECT_EQUAL_OBJECTS(@"Pink", [info defaultColor]);
  EXPECT_EQUAL_OBJECTS((@[ @"Pink", @"Gold" ]), [info popUpItemsForColor]);
}

OBJC_TEST(CommonInfoOverrides, DefaultAndItemsOfTheColorFollowIsColorPrinter) {
  Job job(kColorDevice);
  MonochromeCommonInfo *info = job.InfoOf<MonochromeCommonInfo>();
  EXPECT_EQUAL_OBJECTS(@"Black", [info defaultColor]);
  EXPECT_EQUAL_OBJECTS(@[ @"Black" ], [info popUpItemsForColor]);
}

OBJC_TEST(CommonInfoOverrides, TheKeyPathIsMadeBeforeTheRuleForPrintersWithoutColorAnswers) {
  Job job(kColorDevice);
  MonochromeCommonInfo *info = job.InfoOf<MonochromeCommonInfo>();
  RecordedFormats formats;
  [info defaultColor];
  [info popUpItemsForColor];
  [info defaultSize];
  EXPECT_EQ((Strings{"%@.%@ DefaultValue.Color", "color?", "%@.%@ PopUpItem.Color", "color?",
                     "%@.%@ DefaultValue.Size"}),
            events);
}
