#import "view/velmoraBNPopUpButtonRV2.h"

@implementation velmoraBNPopUpButtonRV2

- (void)changeState:(NSNumber *)active {
  [self setEnabled:[active boolValue]];
}

@end
