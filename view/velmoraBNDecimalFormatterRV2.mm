#import "view/velmoraBNDecimalFormatterRV2.h"

@implementation velmoraBNDecimalFormatterRV2

- (NSString *)stringForObjectValue:(id)object {
  return [NSString stringWithFormat:@"%ld", static_cast<long>([object integerValue])];
}

- (BOOL)getObjectValue:(id *)object
             forString:(NSString *)string
      errorDescription:(NSString **)error {
  (void)error;
  if (object != nullptr) *object = [NSNumber numberWithInteger:[string integerValue]];
  return YES;
}

@end
