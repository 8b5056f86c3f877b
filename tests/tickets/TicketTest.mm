#import "tests/tickets/TicketTest.h"

@implementation ReluctantCommonInfo
- (BOOL)isReady {
  return asked++ < readyTimes;
}
@end

NSPopUpButton *PopUp(const Job &job, NSString *prefix, NSArray *values) {
  NSPopUpButton *popUp = [[[NSPopUpButton alloc] initWithFrame:NSMakeRect(0, 0, 90, 20)
                                                     pullsDown:NO] autorelease];
  for (NSString *value in values) {
    NSString *key = [prefix stringByAppendingString:value];
    [popUp addItemWithTitle:[job.info() localizedString:key]];
    [[popUp lastItem] setRepresentedObject:value];
  }
  [popUp selectItemAtIndex:0];
  return popUp;
}

NSTextField *TextBox() { return [[[NSTextField alloc] init] autorelease]; }

NSStepper *Stepper() {
  NSStepper *stepper = [[[NSStepper alloc] init] autorelease];
  [stepper setMaxValue:999];
  return stepper;
}

NSButton *CheckBox() {
  NSButton *checkBox = [[[NSButton alloc] init] autorelease];
  [checkBox setButtonType:NSSwitchButton];
  return checkBox;
}
