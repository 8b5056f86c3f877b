#import "view/velmoraBNCheckBoxRV2.h"

@implementation velmoraBNCheckBoxRV2

- (void)changeState:(NSNumber *)active {
  [self setEnabled:[active boolValue]];
}

@end
