#import "view/velmoraBNButtonRV2.h"

@implementation velmoraBNButtonRV2

- (void)changeState:(NSNumber *)active {
  [self setEnabled:[active boolValue]];
}

@end
