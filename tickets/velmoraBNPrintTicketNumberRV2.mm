#import "tickets/velmoraBNPrintTicketNumberRV2.h"

@implementation velmoraBNPrintTicketNumberRV2

- (void)changeValue:(id)sender {
  NSString *text = [sender stringValue];
  for (id target in self.targetInstances) [target setStringValue:text];
}

@end
