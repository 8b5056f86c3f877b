#import "tests/support/TestPanel.h"

#include <objc/runtime.h>

namespace {

id last_changed_value = nil;
id watched_observer = nil;
Class plain_center = Nil;

void Note(NSString *event) { Events().push_back([event UTF8String]); }

}  // namespace

TestPanel::TestPanel(const PanelOptions &options)
    : ppd_(options.ppd_lines), bundle_(options.setting_info, options.strings) {
  host_ = [[TestHost hostWithPPD:ppd_.get()] retain];
  for (NSString *key in options.stored) {
    [host_ setValue:[options.stored objectForKey:key] forSetting:key];
  }
  if (!options.print_settings) {
    PMRelease(host_->settings);
    host_->settings = nullptr;
  }
  info_ = [[options.info_class alloc] initWithCallback:[host_ callback] bundle:bundle_.get()];
  controller_ = [[options.controller_class alloc] initWithCommonInfo:info_];
}

TestPanel::~TestPanel() {
  if (controller_ != nil) GiveBackControls(controller_);
  [controller_ release];
  [info_ release];
  [host_ release];
}

velmoraBNViewControllerRV2 *TestPanel::Load() {
  @autoreleasepool {  // the loader's references to its owner must not outlive the controller
    [controller_ panelViewWithNibName:@"BackgroundNumbering"];
  }
  return controller_;
}

void TestPanel::Type(NSString *text) {
  [controller_.textBoxStartNumber setStringValue:text];
  [controller_
      controlTextDidChange:[NSNotification notificationWithName:NSControlTextDidChangeNotification
                                                         object:controller_.textBoxStartNumber]];
}

void TestPanel::DropController() {
  [controller_ release];
  controller_ = nil;
}

void GiveBackControls(velmoraBNViewControllerRV2 *controller) {
  NSView *root = controller.view;
  if (root == nil) root = [controller.labelStartNumber superview];
  controller.labelSize = nil;
  controller.labelDensity = nil;
  controller.labelColor = nil;
  controller.labelStartNumber = nil;
  controller.labelStartNumberRange = nil;
  controller.textBoxStartNumber = nil;
  controller.stepperStartNumber = nil;
  controller.functionValid = nil;
  controller.popUpSize = nil;
  controller.popUpDensity = nil;
  controller.popUpColor = nil;
  controller.defaultButton = nil;
  controller.view = nil;
  [root release];  // the loader's reference
}

NSArray *Labels(velmoraBNViewControllerRV2 *controller) {
  return @[
    controller.labelSize, controller.labelDensity, controller.labelColor,
    controller.labelStartNumber, controller.labelStartNumberRange
  ];
}

NSArray *PopUps(velmoraBNViewControllerRV2 *controller) {
  return @[ controller.popUpSize, controller.popUpDensity, controller.popUpColor ];
}

std::vector<std::string> &Events() {
  static std::vector<std::string> events;
  return events;
}

id LastChangedValue() { return last_changed_value; }

void RecordTicketManager(velmoraBNViewControllerRV2 *controller) {
  object_setClass(controller.ticket, [RecordingTicketManager class]);
  Events().clear();
  last_changed_value = nil;
}

@implementation RecordingTicketManager

- (void)dealloc {
  Note(@"tickets gone");
  [super dealloc];
}

- (void)registerTargetInstances:(NSArray *)targets ticketName:(NSString *)ticketName {
  NSMutableArray *classes = [NSMutableArray array];
  for (id target in targets) [classes addObject:[target className]];
  Note([NSString
      stringWithFormat:@"register %@ %@", ticketName, [classes componentsJoinedByString:@" "]]);
  [super registerTargetInstances:targets ticketName:ticketName];
}

- (void)setTitleToValid:(NSString *)title {
  Note([@"title " stringByAppendingString:title]);
  [super setTitleToValid:title];
}

- (void)restoreAllTicketsFailSafe {
  Note(@"restore all");
  [super restoreAllTicketsFailSafe];
}

- (NSString *)restoreTicketFailSafe:(NSString *)ticketName {
  Note([@"restore " stringByAppendingString:ticketName]);
  return [super restoreTicketFailSafe:ticketName];
}

- (void)saveAllTickets {
  Note(@"save all");
  [super saveAllTickets];
}

- (void)restoreDefaultsExceptValid {
  Note(@"defaults");
  [super restoreDefaultsExceptValid];
}

- (void)verifyAllTickets {
  Note(@"verify all");
  [super verifyAllTickets];
}

- (void)changeValue:(id)sender ticketName:(NSString *)ticketName {
  Note([NSString stringWithFormat:@"change %@ to %@", ticketName, sender]);
  last_changed_value = sender;
  [super changeValue:sender ticketName:ticketName];
}

@end

@interface RecordingNotificationCenter : NSNotificationCenter
@end

@implementation RecordingNotificationCenter

- (void)addObserver:(id)observer selector:(SEL)selector name:(NSString *)name object:(id)object {
  if (observer == watched_observer) {
    Note([NSString stringWithFormat:@"subscribe %@ to %@ of %@", NSStringFromSelector(selector),
                                    name, [object className]]);
  }
  [super addObserver:observer selector:selector name:name object:object];
}

- (void)removeObserver:(id)observer {
  if (observer == watched_observer) Note(@"unsubscribe");
  [super removeObserver:observer];
}

@end

RecordingNotifications::RecordingNotifications(id observer) {
  Events().clear();
  watched_observer = observer;
  plain_center =
      object_setClass([NSNotificationCenter defaultCenter], [RecordingNotificationCenter class]);
}

RecordingNotifications::~RecordingNotifications() {
  object_setClass([NSNotificationCenter defaultCenter], plain_center);
  watched_observer = nil;
}
