#import "view/velmoraBNStepperRV2.h"

@implementation velmoraBNStepperRV2

- (void)changeState:(NSNumber *)active {
  [self setEnabled:[active boolValue]];
}

@end
