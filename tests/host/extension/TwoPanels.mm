// A print-dialog extension that offers two panels on every printer, and misbehaves on demand.
//
// TWO_PANELS_LOG names a file that gets a line for every call, such as "First willShow".
// TWO_PANELS_FAULT lists what goes wrong, such as "First.panelView=nil,Second.shouldPrint=no": the
// call, and one of the ways below. The calls of the panels are willShow, shouldHide, save, restore,
// optionDidChange, panelView, panelName, panelKind, summary, optionKeys, help, shouldPrint and
// windowWillClose; those of the principal object init and panels, without a panel's name. Both
// variables are read at each call.

#import <Cocoa/Cocoa.h>
#import <PrintCore/PrintCore.h>

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <map>
#include <sstream>
#include <string>

namespace {

// Where an object is to be answered, these are instead.
id Object(const std::string &way) {
  NSDictionary *objects = @{
    @"string" : @"nonsense",
    @"number" : @7,
    @"array" : @[ @7 ],
    @"empty" : @[],
    @"object" : [[NSObject new] autorelease],
  };
  return [objects objectForKey:[NSString stringWithUTF8String:way.c_str()]];
}
const char kRaise[] = "raise";    // any call
const char kNil[] = "nil";        // instead of an object
const char kNo[] = "no";          // instead of YES, with an error where there can be one
const char kSilent[] = "silent";  // NO without an error
const char kOwn[] = "own";        // NO of help: the panel shows its own

std::string Variable(const char *name) {
  const char *value = getenv(name);
  return value == nullptr ? "" : value;
}

void Record(const std::string &line) {
  const std::string log = Variable("TWO_PANELS_LOG");
  if (!log.empty()) std::ofstream(log, std::ios::app) << line << '\n';
}

// In which way the call goes wrong, "" if it does not.
std::string Way(const std::string &call) {
  std::istringstream faults(Variable("TWO_PANELS_FAULT"));
  for (std::string fault; std::getline(faults, fault, ',');) {
    const size_t equals = fault.find('=');
    if (equals != std::string::npos && fault.substr(0, equals) == call) {
      return fault.substr(equals + 1);
    }
  }
  return "";
}

// Of a test that asks for what there is not.
[[noreturn]] void RefuseWay(const std::string &call, const std::string &way) {
  std::cerr << "TWO_PANELS_FAULT: " << call << " cannot go wrong in the way " << way << '\n';
  std::abort();
}

// The way of a call that does not raise.
std::string WayUnlessRaising(const std::string &call) {
  const std::string way = Way(call);
  if (way == kRaise) [NSException raise:NSGenericException format:@"%s fails", call.c_str()];
  return way;
}

void Happen(const std::string &call) {
  const std::string way = WayUnlessRaising(call);
  if (!way.empty()) RefuseWay(call, way);
}

id Answer(const std::string &call, id right) {
  const std::string way = WayUnlessRaising(call);
  if (way.empty()) return right;
  id wrong = Object(way);
  if (wrong == nil && way != kNil) RefuseWay(call, way);
  return wrong;
}

BOOL Allow(const std::string &call) {
  const std::string way = WayUnlessRaising(call);
  if (way.empty()) return YES;
  if (way != kNo && way != kSilent && way != kOwn) RefuseWay(call, way);
  return NO;
}

BOOL Succeed(const std::string &call, NSError **error) {
  if (Allow(call)) return YES;
  if (error != nullptr && Way(call) == kNo) {
    NSString *words = [NSString stringWithFormat:@"%s is refused", call.c_str()];
    *error = [NSError errorWithDomain:@"TwoPanels"
                                 code:1
                             userInfo:@{NSLocalizedDescriptionKey : words}];
  }
  return NO;
}

// What one of the panels is.
struct Kind {
  const char *name;
  const char *option;  // its pop-up's keyword
  NSString *title;     // of the option, in the summary
  NSArray *choices;
  const char *note;  // the key of its text box
};

Kind First() {
  return {
    "First", "Duplex", @"Two-Sided", @[ @"None", @"DuplexNoTumble", @"DuplexTumble" ],
        "TwoPanelsFirstNote"
  };
}
Kind Second() {
  return {
    "Second", "InputSlot", @"Paper Source", @[ @"Auto", @"Tray1", @"Manual" ], "TwoPanelsSecondNote"
  };
}

}  // namespace

// A pop-up of an option's choices above a text box.
@interface TwoPanelsPanel : NSObject <PDEPanel> {
  id<PDEPlugInCallbackProtocol> _host;
  std::string _name;
  NSString *_option;
  NSString *_title;
  NSArray *_choices;
  NSString *_noteKey;
  NSView *_view;
  NSPopUpButton *_popUp;
  NSTextField *_note;
}
- (instancetype)initWithKind:(const Kind &)kind host:(id<PDEPlugInCallbackProtocol>)host;
@end

@implementation TwoPanelsPanel

- (instancetype)initWithKind:(const Kind &)kind host:(id<PDEPlugInCallbackProtocol>)host {
  self = [super init];
  if (self == nil) return nil;
  _host = [(id)host retain];
  _name = kind.name;
  _option = [[NSString alloc] initWithUTF8String:kind.option];
  _title = [kind.title copy];
  _choices = [kind.choices retain];
  _noteKey = [[NSString alloc] initWithUTF8String:kind.note];
  return self;
}

- (void)dealloc {
  Record(_name + " dealloc");
  [(id)_host release];
  [_option release];
  [_title release];
  [_choices release];
  [_noteKey release];
  [_view release];
  [_popUp release];
  [_note release];
  [super dealloc];
}

// Writes the call down and answers its name among the faults.
- (std::string)called:(const char *)call {
  Record(_name + ' ' + call);
  return _name + '.' + call;
}

- (NSString *)storedFor:(NSString *)key {
  CFTypeRef value = nullptr;
  PMPrintSettingsGetValue([_host printSettings], (CFStringRef)key, &value);
  return (NSString *)value;
}

- (void)store:(NSString *)value for:(NSString *)key {
  PMPrintSettingsSetValue([_host printSettings], (CFStringRef)key,
                          [value length] == 0 ? nullptr : (CFTypeRef)value, false);
}

- (NSView *)panelView {
  const std::string call = [self called:"panelView"];
  if (_view == nil) {
    _view = [[NSView alloc] initWithFrame:NSMakeRect(0, 0, 320, 80)];
    _popUp = [[NSPopUpButton alloc] initWithFrame:NSMakeRect(20, 44, 200, 24) pullsDown:NO];
    [_popUp addItemsWithTitles:_choices];
    _note = [[NSTextField alloc] initWithFrame:NSMakeRect(20, 12, 200, 24)];
    [_view addSubview:_popUp];
    [_view addSubview:_note];
    [_view setNextKeyView:_popUp];
    [_popUp setNextKeyView:_note];
  }
  return Answer(call, _view);
}

- (NSString *)panelName {
  return Answer([self called:"panelName"], [NSString stringWithUTF8String:_name.c_str()]);
}

- (NSString *)panelKind {
  return Answer([self called:"panelKind"],
                [NSString stringWithFormat:@"test.TwoPanels.%s", _name.c_str()]);
}

- (NSArray *)supportedPPDOptionKeys {
  return Answer([self called:"optionKeys"], @[ _option ]);
}

- (NSDictionary *)summaryInfo {
  NSMutableDictionary *summary = [NSMutableDictionary dictionary];
  NSMutableArray *order = [NSMutableArray array];
  NSDictionary *titles = @{_option : _title, _noteKey : @"Note"};
  for (NSString *key in @[ _option, _noteKey ]) {
    NSString *value = [self storedFor:key];
    if (value == nil) continue;
    [summary setObject:value forKey:[titles objectForKey:key]];
    [order addObject:[titles objectForKey:key]];
  }
  [summary setObject:order forKey:(NSString *)SUMMARY_DISPLAY_ORDER];
  return Answer([self called:"summary"], summary);
}

- (void)willShow {
  Happen([self called:"willShow"]);
}

- (BOOL)shouldHide {
  return Allow([self called:"shouldHide"]);
}

- (BOOL)shouldPrint {
  return Allow([self called:"shouldPrint"]);
}

- (BOOL)shouldShowHelp {
  return Allow([self called:"help"]);
}

- (BOOL)restoreValuesAndReturnError:(NSError **)error {
  if (!Succeed([self called:"restore"], error)) return NO;
  NSString *choice = [self storedFor:_option];
  if (choice != nil) [_popUp selectItemWithTitle:choice];
  NSString *note = [self storedFor:_noteKey];
  [_note setStringValue:note == nil ? @"" : note];
  return YES;
}

- (BOOL)saveValuesAndReturnError:(NSError **)error {
  if (!Succeed([self called:"save"], error)) return NO;
  if (_view == nil) return YES;
  [self store:[_popUp titleOfSelectedItem] for:_option];
  [self store:[_note stringValue] for:_noteKey];
  return YES;
}

- (void)PPDOptionKeyValueDidChange:(NSString *)option ppdChoice:(NSString *)choice {
  Record(_name + " optionDidChange " + [option UTF8String] + '=' + [choice UTF8String]);
  Happen(_name + ".optionDidChange");
}

- (void)printWindowWillClose:(BOOL)userCanceled {
  Record(_name + " windowWillClose " + (userCanceled ? "canceled" : "accepted"));
  Happen(_name + ".windowWillClose");
}

@end

@interface TwoPanelsPlugIn : NSObject
@end

@implementation TwoPanelsPlugIn

- (BOOL)initWithBundle:(NSBundle *)bundle {
  Record("init");
  return Allow("init") && bundle != nil;
}

- (NSArray *)PDEPanelsForType:(NSString *)type withHostInfo:(id<PDEPlugInCallbackProtocol>)host {
  Record("panels");
  NSMutableArray *panels = [NSMutableArray array];
  if ([type isEqual:(NSString *)kPrinterModuleTypeIDStr]) {
    for (const Kind &kind : {First(), Second()}) {
      [panels addObject:[[[TwoPanelsPanel alloc] initWithKind:kind host:host] autorelease]];
    }
  }
  return Answer("panels", panels);
}

@end
