#import "view/velmoraBNTextLabelRV2.h"

@implementation velmoraBNTextLabelRV2

- (void)changeState:(NSNumber *)active {
  [self setTextColor:[active boolValue] ? [NSColor blackColor] : [NSColor lightGrayColor]];
}

@end
